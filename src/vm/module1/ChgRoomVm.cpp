#include "vm/module1/ChgRoomVm.h"

#include "dto/room/RoomStatus.h"
#include "services/Bba01Service.h"

void ChgRoomVm::init(const QString& roomId)
{
    setRoomId(roomId);
    getRoomInfo({});
}

void ChgRoomVm::getRoomInfo(const QString& roomNo)
{
    fetch(&Bba01Service::getEmptyRoomList, {{"roomNo", roomNo}}, [this](const GetEmptyRoomList& reply) {
        QList<temp_struct> rooms;
        for (const EmptyRoomDto* room : reply.data())
            rooms.append({room->id(), room->vals()});
        takeRooms(rooms);
    });
}

void ChgRoomVm::takeRooms(const QList<temp_struct>& rooms)
{
    m_rooms->upate(rooms);
    selectRoom(0);
}

bool ChgRoomVm::changeRoom(int status, QJsonObject data) const
{
    data.insert("oldRoomId", roomId());
    data.insert("status", status);
    data.insert("newRoomId", m_rooms->checkedId());
    data.insert("isClean", isNeedClean() ? 1 : 0);
    return changeSilently(&Bba01Service::changeRoom, data);
}

bool MassChgRoomVm::save()
{
    return act([this] { return isRoomChosen() && changeRoom(RoomMassage, {}); });
}

void RestChgRoomVm::takeRooms(const QList<temp_struct>& rooms)
{
    m_plans->clear();
    ChgRoomVm::takeRooms(rooms);
}

void RestChgRoomVm::selectRoom(int index)
{
    pEmptyRoomModel()->onChecked(index);
    const QString newRoomId = pEmptyRoomModel()->getIndexId(index);
    if (newRoomId.isEmpty())
        return;
    const QPointer<RestChgRoomVm> self(this);
    PlanListModel fetched;
    fetchPlans(&fetched, newRoomId);
    // The answer may come after that of a room that was chosen later.
    if (!self || pEmptyRoomModel()->checkedId() != newRoomId)
        return;
    fetched.onChecked(0);
    m_plans->refresh(fetched.rows());
    m_plansRoomId = newRoomId;
}

bool RestChgRoomVm::save()
{
    return act([this] {
        if (!isRoomChosen())
            return false;
        const bool areItsPlans = m_plansRoomId == pEmptyRoomModel()->checkedId();
        const int plan = areItsPlans ? m_plans->checkedIndex() : -1;
        return require(plan >= 0, "请选择新房间的计费方案") &&
               changeRoom(RoomRest, {{"planId", m_plans->row(plan).id}, {"newPlanFlg", 1}});
    });
}
