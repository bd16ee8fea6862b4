#include "vm/module1/MergeRoomVm.h"

#include "common/BusyGuard.h"
#include "services/Bba01Service.h"
#include "services/Reply.h"
#include "vm/module1/CanMergeRoomVm.h"
#include "vm/module1/RoomLookups.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QMap>

MergeRoomVm::MergeRoomVm(QObject* parent) : QObject(parent), m_groups(new CanMergeRoomModel(this)) {}

bool MergeRoomVm::init(const QString& roomId, const QString& roomNo)
{
    m_roomId = roomId;
    m_roomNo = roomNo;
    return getRoomList({});
}

bool MergeRoomVm::getRoomList(const QString& roomNo)
{
    const QPointer<MergeRoomVm> self(this);
    const auto reply = held(Bba01Service::getInstance()->getCanMergeRoomList(
        {{QStringLiteral("roomNo"), m_roomNo}, {QStringLiteral("schRoomNo"), roomNo}}));
    if (!isOkOrShown(*reply) || !self)
        return false;
    sortIntoGroups(reply->data());
    return true;
}

void MergeRoomVm::sortIntoGroups(const Array<CanMergeRoomDto*>& rooms)
{
    QMap<QString, QList<temp_struct>> groups; // the empty key of single rooms sorts before all others
    for (const CanMergeRoomDto* room : rooms) {
        temp_struct row;
        row.tempId = room->roomId();
        row.tempName = room->floorName() + ' ' + room->hourseName() + ' ' + room->roomNo();
        groups[room->groupKey()].append(row);
    }
    m_groups->clear();
    for (auto group = groups.constBegin(); group != groups.constEnd(); ++group) {
        const QString name =
            group.key().isEmpty() ? QStringLiteral("单独房间") : QStringLiteral("团[%1]").arg(group.key());
        m_groups->addOne(name, group.key(), group.value());
    }
}

bool MergeRoomVm::save()
{
    QJsonArray roomIds;
    for (const CanMergeRoomVm* group : m_groups->getAll()) {
        for (const temp_struct& room : group->pRoomModel()->getAll()) {
            if (room.isSelected)
                roomIds.append(room.tempId);
        }
    }
    if (roomIds.isEmpty()) {
        MyMessage::getInstance()->ShowError(QStringLiteral("请选择需要合并的房间"));
        return false;
    }
    roomIds.append(m_roomId);
    const BusyGuard<MergeRoomVm> guard(this);
    if (!guard)
        return false;
    const auto reply = held(Bba01Service::getInstance()->mergeRoom({{QStringLiteral("roomIdArr"), roomIds}}));
    return isDoneOrShown(*reply);
}
