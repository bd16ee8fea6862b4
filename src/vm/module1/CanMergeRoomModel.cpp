#include "vm/module1/CanMergeRoomModel.h"

#include "vm/module1/CanMergeRoomVm.h"

CanMergeRoomModel::CanMergeRoomModel(QObject* parent)
    : RowModel({{"name", [](const CanMergeRoomVm* group) { return group->name(); }, {}},
                {"key", [](const CanMergeRoomVm* group) { return group->key(); }, {}},
                {"roomModel",
                 [](const CanMergeRoomVm* group) { return QVariant::fromValue(group->pRoomModel()); },
                 {}}},
               parent)
{
}

void CanMergeRoomModel::clear()
{
    const QVector<CanMergeRoomVm*> old = rows();
    replace({});
    for (CanMergeRoomVm* group : old)
        group->deleteLater();
}

void CanMergeRoomModel::addOne(const QString& name, const QString& key, const QList<temp_struct>& rooms)
{
    replace(rows() << new CanMergeRoomVm(name, key, rooms, this));
}
