#pragma once

#include "common/RowModel.h"
#include "dto/call/CallRecords.h"

/// A hand card in one of the two lists of the call queue.
struct quene_wait_struct
{
    QString orderId; ///< entry, what every action on it names
    QString cardNo;
    int waitTime = 0; ///< minutes
    int status = 0;   ///< among the called: 2 called, 3 being served
    QString statusVal;
    int callCount = 0; ///< times that it was called
    QString upTime;    ///< display text
    int mark = 0;      ///< which call it stands out for, 0: none
};

/// The waiting or the called hand cards, in the order of the back end. An entry that was called since the last
/// update stands out for three seconds; what stands there at first doesn't.
class QueneWaitModel : public RowModel<quene_wait_struct>
{
    Q_OBJECT

public:
    explicit QueneWaitModel(QObject* parent = nullptr);

    /// Shows these entries. As many as before take their places without a reset.
    void update(const Array<QueneCallDto*>& entries);
    /// The place of an entry, -1 when it isn't there.
    Q_INVOKABLE int indexOf(const QString& orderId) const;
    /// The entries' ids in their order.
    Q_INVOKABLE QStringList ids() const;

Q_SIGNALS:
    /// Around an update, so that a view may keep its place.
    void aboutToUpdate();
    void updated();
    /// The entry at this place was called just now.
    void called(int index);

private:
    void unmark(int mark);

    int m_lastMark = 0;
};
