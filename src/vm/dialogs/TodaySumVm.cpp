#include "vm/dialogs/TodaySumVm.h"

#include "services/Baa01Service.h"

namespace {

void addGroup(QVector<todaysum_struct>& groups, const char* name, const Array<TodaySumDto*>& counters)
{
    if (counters.isEmpty())
        return;
    todaysum_struct group;
    group.typeName = QString::fromUtf8(name);
    for (const TodaySumDto* counter : counters) {
        group.totalCount += counter->num();
        group.content += QStringLiteral("%1: %2 || ").arg(counter->name(), QString::number(counter->num()));
    }
    groups.append(group);
}

} // namespace

TodaySumModel::TodaySumModel(QObject* parent)
    : RowModel({field("typeName", &todaysum_struct::typeName),
                field("totalCount", &todaysum_struct::totalCount), field("content", &todaysum_struct::content)},
               parent)
{
}

void TodaySumVm::init()
{
    fetch(&Baa01Service::getTodaySum, [this](const GetTodaySum& reply) {
        QVector<todaysum_struct> groups;
        if (const TodaySumListDto* sums = reply.data()) {
            addGroup(groups, "在场", sums->onCount());
            addGroup(groups, "入场", sums->inCount());
            addGroup(groups, "离场", sums->exitCount());
        }
        m_groups->upate(groups);
    });
}
