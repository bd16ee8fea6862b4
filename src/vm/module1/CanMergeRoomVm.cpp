#include "vm/module1/CanMergeRoomVm.h"

CanMergeRoomVm::CanMergeRoomVm(QObject* parent) : QObject(parent), m_rooms(new TempDataModel(this)) {}

CanMergeRoomVm::CanMergeRoomVm(const QString& name, const QString& key, const QList<temp_struct>& rooms,
                               QObject* parent)
    : CanMergeRoomVm(parent)
{
    setName(name);
    setKey(key);
    m_rooms->upate(rooms);
}
