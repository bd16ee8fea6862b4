#include "src/Asked.h"
#include "src/state/RoomDesk.h"

namespace house {
namespace {

constexpr int highestCleanFlg = 2;

bool hasSetting(const House& house, const char* name)
{
    return fieldAsText(house.seed.document.at("sysconfig"), name) == "1";
}

void demandOpenable(const Room& room, const Cards& cards)
{
    demand(room.status == RoomStatus::Empty, roomFault, roomHasChanged);
    demand(!room.isReserved, roomFault, "房间" + room.code + "已被预约，不能直接开房");
    demandUsable(cards);
}

/// Guests who sit elsewhere come over; when the rooms are to be joined, theirs and this one become a group.
Reply openMassRoom(House& house, const Call& call)
{
    Room& room = roomOfId(house, call.text("id"));
    const Cards cards = cardsOfIds(house, textsOf(call.body, "cardids"));
    const bool isJoined = fieldAsText(call.body, "isConn") == "1";
    const int hours = call.body["hours"].get<int>();
    demandOpenable(room, cards);
    demand(hours > 0, roomFault, "开房时长不能小于1小时");
    demand(!cards.empty() || !hasSetting(house, "isNeedCard"), roomFault, "请先添加手牌");
    std::vector<Room*> joined;
    for (const Card* card : cards) {
        Room* other = house.state.rooms.find(card->roomId);
        demand(!other || isJoined || !hasSetting(house, "openMulti"), roomFault,
               "手牌" + card->number + "在其他房间中，请先确认联房");
        if (other && isJoined)
            joined.push_back(other);
    }
    startUse(room, RoomStatus::Massage, hours, call.staff->id, call.now);
    setCards(house.state, room, cards, call.now);
    if (!joined.empty()) {
        joined.push_back(&room);
        mergeRooms(house.state, joined);
    }
    return roomsChanged(house);
}

Reply openRestRoom(House& house, const Call& call)
{
    Room& room = roomOfId(house, call.text("id"));
    const Cards cards = cardsOfIds(house, textsOf(call.body, "cardids"));
    const Plan& plan = planOfId(house, call.text("planid"));
    demandOpenable(room, cards);
    demand(!cards.empty(), roomFault, "请先添加手牌");
    demandPlanFor(room, plan);
    startRest(house.state, room, cards, plan, call.staff->id, call.now);
    return roomsChanged(house);
}

void release(Room& room)
{
    room.status = RoomStatus::Empty;
    room.isDirty = false;
    room.cleanFlg = 0;
    room.cleanerId.clear();
    room.occupationTypeId.clear();
    room.remark.clear();
}

Reply chgOccupyRoom(House& house, const Call& call)
{
    Room& room = roomOfId(house, call.text("id"));
    const OccupationType* type = house.state.occupationTypes.find(call.text("occType"));
    if (call.body["isOccupy"] == 0) {
        demand(room.status == RoomStatus::Occupied && !room.isDirty, roomFault, roomHasChanged);
        release(room);
        return roomsChanged(house);
    }
    demand(type, roomFault, "特殊占用原由不能为空");
    demand(room.status == RoomStatus::Empty || room.status == RoomStatus::Cleaning, roomFault, roomHasChanged);
    room.isDirty = room.status == RoomStatus::Cleaning;
    room.status = RoomStatus::Occupied;
    room.occupationTypeId = type->id;
    room.remark = call.text("remark");
    room.openedBy = call.staff->id;
    return roomsChanged(house);
}

Reply chgCleanRoom(House& house, const Call& call)
{
    Room& room = roomOfId(house, call.text("id"));
    if (call.body["isClean"] == 1) {
        demand(room.status == RoomStatus::Empty, roomFault, roomHasChanged);
        room.status = RoomStatus::Cleaning;
        return roomsChanged(house);
    }
    const bool isOccupiedDirty = room.status == RoomStatus::Occupied && room.isDirty;
    demand(room.status == RoomStatus::Cleaning || isOccupiedDirty, roomFault, roomHasChanged);
    release(room);
    return roomsChanged(house);
}

/// Cleaning goes on by one step.
Reply setCleanRoom(House& house, const Call& call)
{
    Room& room = roomOfId(house, call.text("id"));
    const int step = call.body["cleanFlg"].get<int>();
    const bool isNext = step == room.cleanFlg + 1 && step <= highestCleanFlg;
    demand(room.status == RoomStatus::Cleaning && isNext, roomFault, roomHasChanged);
    room.cleanerId = staffOfId(house, call.text("staffId")).id;
    room.cleanFlg = step;
    return roomsChanged(house);
}

/// The opening was a mistake: the guests stay guests, the charge falls away.
Reply cancelRoom(House& house, const Call& call)
{
    Room& room = roomOfId(house, call.text("id"));
    demand(isInUse(room), roomFault, roomHasChanged);
    demandNoService(house.state, room);
    const std::vector<Order*> orders = house.state.ordersOfRoom(room.id);
    for (const Order* order : orders)
        demand(!order->cardId.empty() || order->kind == OrderKind::RoomFee, roomFault,
               "房间已有消费，不能取消开房");
    for (Order* order : orders)
        if (order->kind == OrderKind::RoomFee)
            order->status = LineStatus::Void;
    closeRoom(house.state, room, false, call.now);
    return roomsChanged(house);
}

Reply setRemark(House& house, const Call& call)
{
    roomOfId(house, call.text("id")).remark = call.text("remark");
    return roomsChanged(house);
}

/// In a rest room one of the cards takes over what is booked on the room. The last guest closes it, and leaves
/// it to be cleaned in a house that cleans by steps.
Reply leaveRoomNew(House& house, const Call& call)
{
    Room& room = roomOfId(house, call.text("id"));
    const Cards cards = cardsOfIds(house, textsOf(call.body, "cardids"));
    const Card* consumer = call.text("cardId").empty() ? nullptr : &cardOfId(house, call.text("cardId"));
    demand(isInUse(room) && call.body["status"] == static_cast<int>(room.status), roomFault, roomHasChanged);
    demandInside(room, cards);
    for (const Order* order : house.state.ordersOfRoom(room.id))
        for (const Card* card : cards)
            demand(order->cardId != card->id || order->progress != Progress::Running, roomFault,
                   "手牌" + card->number + "还有服务未结束，不能离房");
    const bool isNamed = consumer ? consumer->roomId == room.id : room.status != RoomStatus::Rest;
    demand(isNamed, roomFault, "请选择需要计入消费的手牌");

    const bool isLast = cards.size() == room.cardIds.size();
    // Without a card to take them the lines of a massage room would be lost with the room.
    if (!consumer && isLast && !cards.empty())
        consumer = cards.front();
    if (consumer)
        bookOnCard(house.state, room, *consumer);
    for (Card* card : cards)
        house.state.unseat(*card);
    if (isLast)
        closeRoom(house.state, room, hasSetting(house, "isCleaning"), call.now);
    announceRooms(house);
    return Reply::with({{"allleave", isLast}});
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.post("/bba01/openMassRoom", "id cardids[] hours# isConn#?", openMassRoom);
    table.post("/bba01/openRestRoom", "id cardids[] newPlanFlg# type# planid", openRestRoom);
    table.post("/bba01/chgOccupyRoom", "id isOccupy# occType? remark?", chgOccupyRoom);
    table.post("/bba01/chgCleanRoom", "id isClean#", chgCleanRoom)
        .guardedBy("405759269277011969", "isClean", "0")
        .guardedBy("405759234552369154", "isClean", "1");
    table.post("/bba01/setCleanRoom", "id staffId cleanFlg#", setCleanRoom);
    table.post("/bba01/leaveRoomNew", "id status# cardids[] cardId?", leaveRoomNew);
    table.post("/bba01/cancelRoom", "id authType#", cancelRoom).guardedBy("418838253703270403");
    table.post("/bba01/setRemark", "id remark", setRemark);
});

} // namespace
} // namespace house
