#include "vm/module1/RoomDetailVm.h"

#include "dto/room/RoomStatus.h"
#include "services/Bba01Service.h"
#include "vm/module1/RoomSettings.h"

#include <QJsonArray>

namespace {

const QVector<RoomOperation>& detailOperations()
{
    static const QVector<RoomOperation> table = {
        {"ADD_CARD", "新增手牌", "0105", {}, NeedsCards},
        {"MASS_CHG_ROOM", "更换房间", "0104", {RoomMassage}},
        {"REST_CHG_ROOM", "更换房间", "0104", {RoomRest}},
        {"REST_CHG_PLAN", "更改方案", "0108", {RoomRest}},
        {"MASS_CHG_REST", "改休息房", "0106", {RoomMassage}},
        {"REST_CHG_MASS", "改按摩房", "0107", {RoomRest}},
        {"CANCEL_ROOM", "取消开房", "0103", {}},
        {"REMARK_ROOM", "备注信息", "0116", {}},
        {"OUT_ROOM", "离开房间", "0112", {}, NeedsCards},
        {"LEAVE_TEAM", "取消团体", "0110", {}, NeedsGroup},
        {"UNION_ROOM", "房间组团", "0109", {}},
        {"UNPACK_ROOM", "手牌拆房", "0111", {RoomMassage}, NeedsCards},
        {"ADD_TIME", "房间加时", "0117", {RoomRest}},
        {"ROOM_CALLING", "呼叫服务", "", {RoomMassage}, NeedsServices},
    };
    return table;
}

unsigned metBy(const RoomDetailDto& room)
{
    unsigned met = RoomSettings::ofStore().usedRoomMod ? NoNeed : NeedsCards;
    if (!room.group_key().isEmpty())
        met |= NeedsGroup;
    if (!room.calllist().isEmpty())
        met |= NeedsServices;
    return met;
}

QString roomTimeText(int hours, int minutes) { return QStringLiteral("%1时%2分").arg(hours).arg(minutes); }

} // namespace

RoomDetailVm::RoomDetailVm(QObject* parent) : ActionVm(parent), m_menu(new MenuModel(this)) {}

bool RoomDetailVm::init(const QString& roomId)
{
    bool isRead = false;
    fetch(&Bba01Service::getRoomDetailNew1, {{"roomId", roomId}}, [&](const GetRoomDetailNew& reply) {
        if (!reply.data())
            return;
        const int status = reply.data()->status();
        if (status != RoomMassage && status != RoomRest) {
            MyMessage::getInstance()->showError(QStringLiteral("包房状态发生变化,请刷新后再试"));
            return;
        }
        auto* room = new RoomDetailDto(reply.data());
        room->setParent(this);
        setPRoomDetail(room);
        fill(*room);
        m_menu->update(detailOperations(), status, metBy(*room));
        isRead = true;
    });
    return isRead;
}

void RoomDetailVm::fill(const RoomDetailDto& room)
{
    setRoomId(room.id());
    setRoomNo(room.roomNo());
    setRoomType(room.roomName());
    setRoomFloor(room.floorName());
    setStatusStr(room.statusStr());
    setPlanName(room.planName());
    setOpenHours(QStringLiteral("%1小时").arg(room.hours()));
    setOpenTime(room.startTime());
    // The back end counts the time used in hours, the other two in minutes.
    setUsedHours(roomTimeText(room.useTime(), 0));
    if (room.surplus() > 0)
        setLeftHours(roomTimeText(room.surplus() / 60, room.surplus() % 60));
    if (room.overTime() > 0)
        setOverHours(roomTimeText(room.overTime() / 60, room.overTime() % 60));
    setStaffNo(room.staffNo() + "-" + room.staffName());
    setRemark(room.remark());
    setGroupRoom(room.groupRoom());
}

bool RoomDetailVm::cancelRoom()
{
    return act([this] { return change(&Bba01Service::cancelRoom, {{"id", roomId()}, {"authType", 2}}); });
}

bool RoomDetailVm::cancelTeam()
{
    return act([this] {
        return pRoomDetail() && change(&Bba01Service::splitRoom, {{"groupKey", pRoomDetail()->group_key()},
                                                                  {"roomIdArr", QJsonArray{roomId()}}});
    });
}

bool RoomDetailVm::resetTime()
{
    return act([this] { return change(&Bba01Service::reSetRoomTime, {{"roomId", roomId()}}); });
}
