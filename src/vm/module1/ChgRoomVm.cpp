#include "vm/module1/ChgRoomVm.h"

#include "services/Bba01Service.h"
#include "services/Reply.h"

#include <QPointer>

ChgRoomVm::ChgRoomVm(QObject* parent) : QObject(parent), m_rooms(new TempDataModel(this)) {}

void ChgRoomVm::init(const QString& roomId)
{
    setRoomId(roomId);
    getRoomInfo({});
}

void ChgRoomVm::getRoomInfo(const QString& roomNo)
{
    const QPointer<ChgRoomVm> self(this);
    const auto reply =
        held(Bba01Service::getInstance()->getEmptyRoomList({{QStringLiteral("roomNo"), roomNo}}));
    if (!isOkOrShown(*reply) || !self)
        return;
    QList<temp_struct> rooms;
    for (const EmptyRoomDto* room : reply->data()) {
        temp_struct entry;
        entry.tempId = room->id();
        entry.tempName = room->vals();
        rooms.append(entry);
    }
    takeRooms(rooms);
}

void ChgRoomVm::takeRooms(const QList<temp_struct>& rooms)
{
    m_rooms->upate(rooms);
    selectRoom(0);
}

void ChgRoomVm::selectRoom(int index) { m_rooms->onChecked(index); }

bool ChgRoomVm::isRoomChosen() const
{
    if (m_rooms->checkedIndex() >= 0)
        return true;
    MyMessage::getInstance()->ShowError(QStringLiteral("请选择需要换入的房间"));
    return false;
}

bool ChgRoomVm::changeRoom(int status, const QJsonObject& further) const
{
    QJsonObject data(further);
    data.insert(QStringLiteral("oldRoomId"), roomId());
    data.insert(QStringLiteral("status"), status);
    data.insert(QStringLiteral("newRoomId"), m_rooms->checkedId());
    data.insert(QStringLiteral("isClean"), isNeedClean() ? 1 : 0);
    return isOkOrShown(*held(Bba01Service::getInstance()->changeRoom(data)));
}
