#pragma once

#include "common/RowModel.h"
#include "dto/staff/CallLogRecords.h"
#include "vm/shared/ReadingVm.h"

/// A hand card that was called and passed over.
struct call_pass_struct
{
    QString cardNo;
    QString cardType;
    QString statusVal;
    qlonglong callNum = 0; ///< times that it was called
    QString operCode;
    QString createTime;
    QString handCardId;
};

class CallPassModel : public RowModel<call_pass_struct>
{
    Q_OBJECT

public:
    explicit CallPassModel(QObject* parent = nullptr);

    void update(const Array<HelpCallBashDto*>& entries);
};

/// Who was passed over on a business day, the first 200 of them.
class PassRecordVm : public ReadingVm
{
    Q_OBJECT
    PROPERTY(int, dateType, setDateType, 1) // business day: 1 today's, 2 yesterday's
    CONSTANT_PROPERTY(CallPassModel*, pCallPass, m_passed)

public:
    /// A staff card has no effect while it listens.
    explicit PassRecordVm(QObject* parent = nullptr);

    Q_INVOKABLE bool getRecords();
    /// Calls a card once more; it shows up in the queue, not here.
    Q_INVOKABLE void recall(const QString& handCardId);

private:
    CallPassModel* m_passed;
};
