#include "vm/module4/QueneWaitModel.h"

#include <QHash>
#include <QTimer>

namespace {

constexpr int markMs = 3000;

} // namespace

QueneWaitModel::QueneWaitModel(QObject* parent)
    : RowModel({field("orderId", &quene_wait_struct::orderId),
                field("cardNo", &quene_wait_struct::cardNo),
                {"icon", [](const quene_wait_struct&) { return QString(); }},
                field("waitTime", &quene_wait_struct::waitTime),
                field("status", &quene_wait_struct::status),
                field("statusVal", &quene_wait_struct::statusVal),
                field("callCount", &quene_wait_struct::callCount),
                field("upTime", &quene_wait_struct::upTime),
                {"isMarked", [](const quene_wait_struct& entry) { return entry.mark != 0; }}},
               parent)
{
}

void QueneWaitModel::update(const Array<QueneCallDto*>& entries)
{
    QHash<QString, quene_wait_struct> before;
    for (const quene_wait_struct& entry : rows())
        before.insert(entry.orderId, entry);
    const bool isFirst = !isLoaded();
    const int mark = m_lastMark + 1;
    int firstCalled = -1;
    QVector<quene_wait_struct> fresh;
    fresh.reserve(entries.size());
    for (const QueneCallDto* entry : entries) {
        const quene_wait_struct known = before.value(entry->id());
        const bool isCalled = !isFirst && entry->callNum() > known.callCount;
        if (isCalled && firstCalled < 0)
            firstCalled = fresh.size();
        fresh.append({entry->id(), entry->cardNo(), entry->minuteNum(), entry->status(), entry->statusVal(),
                      entry->callNum(), entry->uptime(), isCalled ? mark : known.mark});
    }
    Q_EMIT aboutToUpdate();
    refresh(fresh);
    Q_EMIT updated();
    if (firstCalled < 0)
        return;
    m_lastMark = mark;
    QTimer::singleShot(markMs, this, [this, mark] { unmark(mark); });
    Q_EMIT called(firstCalled);
}

void QueneWaitModel::unmark(int mark)
{
    for (int i = 0; i < rowCount(); ++i) {
        if (row(i).mark == mark)
            changeAt(i, [](quene_wait_struct& entry) { entry.mark = 0; });
    }
}

int QueneWaitModel::indexOf(const QString& orderId) const
{
    return find([&](const quene_wait_struct& entry) { return entry.orderId == orderId; });
}

QStringList QueneWaitModel::ids() const
{
    QStringList found;
    for (const quene_wait_struct& entry : rows())
        found.append(entry.orderId);
    return found;
}
