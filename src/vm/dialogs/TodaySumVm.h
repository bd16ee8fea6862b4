#pragma once

#include "common/RowModel.h"
#include "vm/shared/ActionVm.h"

/// A group of the day's counters.
struct todaysum_struct
{
    QString typeName;
    qlonglong totalCount = 0;
    QString content; ///< the counters, one after the other
};

class TodaySumModel : public RowModel<todaysum_struct>
{
    Q_OBJECT

public:
    explicit TodaySumModel(QObject* parent = nullptr);

    void upate(const QVector<todaysum_struct>& rows) { replace(rows); }
};

/// How many guests are inside, came and left today.
class TodaySumVm : public ActionVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(TodaySumModel*, pTodaySumModel, m_groups)

public:
    explicit TodaySumVm(QObject* parent = nullptr) : ActionVm(parent), m_groups(new TodaySumModel(this)) {}

    Q_INVOKABLE void init();

private:
    TodaySumModel* m_groups;
};
