#include "vm/module1/RoomDetailVm.h"

#include "common/BusyGuard.h"
#include "common/GlobalConfig.h"
#include "dto/room/RoomStatus.h"
#include "services/Bba01Service.h"
#include "services/Reply.h"
#include "vm/module1/RoomLookups.h"
#include "vm/module1/RoomSettings.h"

#include <QJsonArray>
#include <QPointer>

namespace {

enum RoomMenuNeed : unsigned {
    NoNeed = 0,
    NeedsCards = 1,    ///< not in a house without hand cards
    NeedsGroup = 2,    ///< the room is in a group
    NeedsServices = 4, ///< there are services to call
};

struct RoomMenuEntry
{
    const char* code;
    QString name;
    QString right; ///< empty: everyone may
    int status;    ///< the only one that it is for, 0: any
    unsigned needs;
};

/// In the order of the menu.
const QVector<RoomMenuEntry>& roomMenuEntries()
{
    static const QVector<RoomMenuEntry> entries = {
        {"ADD_CARD", "新增手牌", "0105", 0, NeedsCards},
        {"MASS_CHG_ROOM", "更换房间", "0104", RoomMassage, NoNeed},
        {"REST_CHG_ROOM", "更换房间", "0104", RoomRest, NoNeed},
        {"REST_CHG_PLAN", "更改方案", "0108", RoomRest, NoNeed},
        {"MASS_CHG_REST", "改休息房", "0106", RoomMassage, NoNeed},
        {"REST_CHG_MASS", "改按摩房", "0107", RoomRest, NoNeed},
        {"CANCEL_ROOM", "取消开房", "0103", 0, NoNeed},
        {"REMARK_ROOM", "备注信息", "0116", 0, NoNeed},
        {"OUT_ROOM", "离开房间", "0112", 0, NeedsCards},
        {"LEAVE_TEAM", "取消团体", "0110", 0, NeedsGroup},
        {"UNION_ROOM", "房间组团", "0109", 0, NoNeed},
        {"UNPACK_ROOM", "手牌拆房", "0111", RoomMassage, NeedsCards},
        {"ADD_TIME", "房间加时", "0117", RoomRest, NoNeed},
        {"ROOM_CALLING", "呼叫服务", "", RoomMassage, NeedsServices},
    };
    return entries;
}

QString roomTimeText(int hours, int minutes) { return QStringLiteral("%1时%2分").arg(hours).arg(minutes); }

} // namespace

RoomDetailVm::RoomDetailVm(QObject* parent)
    : QObject(parent), m_menu(new MenuModel(this)), m_isRoomMode(RoomSettings::ofStore().usedRoomMod)
{
}

bool RoomDetailVm::init(const QString& roomId)
{
    const QPointer<RoomDetailVm> self(this);
    const auto reply =
        held(Bba01Service::getInstance()->getRoomDetailNew1({{QStringLiteral("roomId"), roomId}}));
    if (!isOkOrShown(*reply) || !reply->data() || !self)
        return false;
    const int status = reply->data()->status();
    if (status != RoomMassage && status != RoomRest) {
        MyMessage::getInstance()->showError(QStringLiteral("包房状态发生变化,请刷新后再试"));
        return false;
    }
    auto* room = new RoomDetailDto(reply->data());
    room->setParent(this);
    setPRoomDetail(room);
    fill(*room);
    initMenu(*room);
    return true;
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

void RoomDetailVm::initMenu(const RoomDetailDto& room)
{
    unsigned met = m_isRoomMode ? NoNeed : NeedsCards;
    if (!room.group_key().isEmpty())
        met |= NeedsGroup;
    if (!room.calllist().isEmpty())
        met |= NeedsServices;
    const GlobalConfig* config = GlobalConfig::getInstance();
    QList<menu_struct> menu;
    for (const RoomMenuEntry& entry : roomMenuEntries()) {
        const bool isForRoom = entry.status == 0 || entry.status == room.status();
        const bool isAllowed = entry.right.isEmpty() || config->isHaveAuth(entry.right);
        if (!isForRoom || !isAllowed || (entry.needs & ~met) != 0)
            continue;
        menu_struct added;
        added.code = entry.code;
        added.name = entry.name;
        menu.append(added);
    }
    m_menu->update(menu);
}

bool RoomDetailVm::cancelRoom()
{
    const BusyGuard<RoomDetailVm> guard(this);
    if (!guard)
        return false;
    const auto reply = held(Bba01Service::getInstance()->cancelRoom(
        {{QStringLiteral("id"), roomId()}, {QStringLiteral("authType"), 2}}));
    return isDoneOrShown(*reply);
}

bool RoomDetailVm::cancelTeam()
{
    const BusyGuard<RoomDetailVm> guard(this);
    if (!guard || !pRoomDetail())
        return false;
    const auto reply =
        held(Bba01Service::getInstance()->splitRoom({{QStringLiteral("groupKey"), pRoomDetail()->group_key()},
                                                     {QStringLiteral("roomIdArr"), QJsonArray{roomId()}}}));
    return isDoneOrShown(*reply);
}

bool RoomDetailVm::resetTime()
{
    const BusyGuard<RoomDetailVm> guard(this);
    if (!guard)
        return false;
    const auto reply = held(Bba01Service::getInstance()->reSetRoomTime({{QStringLiteral("roomId"), roomId()}}));
    return isDoneOrShown(*reply);
}
