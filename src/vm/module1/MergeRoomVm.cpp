#include "vm/module1/MergeRoomVm.h"

#include "services/Bba01Service.h"

#include <QJsonArray>
#include <QMap>

namespace {

QVector<CanMergeRoomVm*> groupsOf(const Array<CanMergeRoomDto*>& rooms)
{
    QMap<QString, QList<temp_struct>> sorted; // the empty key of single rooms sorts before all others
    for (const CanMergeRoomDto* room : rooms)
        sorted[room->groupKey()].append(
            {room->roomId(), room->floorName() + ' ' + room->hourseName() + ' ' + room->roomNo()});
    QVector<CanMergeRoomVm*> groups;
    for (auto group = sorted.constBegin(); group != sorted.constEnd(); ++group)
        groups.append(new CanMergeRoomVm(group.key(), group.value()));
    return groups;
}

} // namespace

CanMergeRoomVm::CanMergeRoomVm(const QString& key, const QList<temp_struct>& rooms) : CanMergeRoomVm()
{
    setName(key.isEmpty() ? QStringLiteral("单独房间") : QStringLiteral("团[%1]").arg(key));
    setKey(key);
    m_rooms->upate(rooms);
}

CanMergeRoomModel::CanMergeRoomModel(QObject* parent)
    : ObjectModel(
          {{"name", [](CanMergeRoomVm* group) { return group->name(); }},
           {"key", [](CanMergeRoomVm* group) { return group->key(); }},
           {"roomModel", [](CanMergeRoomVm* group) { return QVariant::fromValue(group->pRoomModel()); }}},
          parent)
{
}

bool MergeRoomVm::init(const QString& roomId, const QString& roomNo)
{
    m_roomId = roomId;
    m_roomNo = roomNo;
    return getRoomList({});
}

bool MergeRoomVm::getRoomList(const QString& roomNo)
{
    return fetch(&Bba01Service::getCanMergeRoomList, {{"roomNo", m_roomNo}, {"schRoomNo", roomNo}},
                 [this](const GetCanMergeRoomList& reply) { take(groupsOf(reply.data())); });
}

/// The selected rooms stay so, as far as they are still on the list; which aren't, is told.
void MergeRoomVm::take(const QVector<CanMergeRoomVm*>& groups)
{
    QMap<QString, QString> selected;
    for (const CanMergeRoomVm* group : m_groups->getAll()) {
        for (const temp_struct& room : group->pRoomModel()->getAll()) {
            if (room.isSelected)
                selected.insert(room.tempId, room.tempName);
        }
    }
    for (CanMergeRoomVm* group : groups) {
        const QVector<temp_struct> rooms = group->pRoomModel()->getAll();
        for (int i = 0; i < rooms.size(); ++i) {
            if (selected.remove(rooms.at(i).tempId) > 0)
                group->selectRoom(i);
        }
    }
    m_groups->replaceAll(groups);
    if (!selected.isEmpty()) {
        const QString lost = QStringList(selected.values()).join(QStringLiteral("、"));
        MyMessage::getInstance()->showMessage(QStringLiteral("已取消选择: ") + lost, 0);
    }
}

bool MergeRoomVm::save()
{
    return act([this] {
        QJsonArray roomIds;
        for (const CanMergeRoomVm* group : m_groups->getAll()) {
            for (const temp_struct& room : group->pRoomModel()->getAll()) {
                if (room.isSelected)
                    roomIds.append(room.tempId);
            }
        }
        if (!require(!roomIds.isEmpty(), "请选择需要合并的房间"))
            return false;
        roomIds.append(m_roomId);
        return change(&Bba01Service::mergeRoom, {{"roomIdArr", roomIds}});
    });
}
