#include "src/state/RoomDesk.h"

#include "src/Refusal.h"

namespace house {

bool isGuestRoom(const Room& room) { return room.openType == guestRoomOpening; }

bool isInUse(const Room& room)
{
    return !isGuestRoom(room) && (room.status == RoomStatus::Massage || room.status == RoomStatus::Rest);
}

bool hasGuests(const Room& room) { return isGuestRoom(room) || isInUse(room); }

long long minutesLeft(const Room& room, Seconds now)
{
    return room.openedAt == 0 ? 0 : room.hours * 60 - (now - room.openedAt) / 60;
}

void demandUsable(const Cards& cards)
{
    for (const Card* card : cards)
        demand(card->status == CardStatus::Free || card->status == CardStatus::InUse, roomFault,
               "手牌" + card->number + "不处于可用状态");
}

void demandInside(const Room& room, const Cards& cards)
{
    for (const Card* card : cards)
        demand(card->roomId == room.id, roomFault, "手牌" + card->number + "不在该房间");
}

void demandPlanFor(const Room& room, const Plan& plan)
{
    demand(plan.roomTypeId == room.typeId, roomFault, "计费方案不适用于该房型");
}

void demandNoService(State& state, const Room& room)
{
    for (const Order* order : state.ordersOfRoom(room.id))
        demand(order->progress != Progress::Running, roomFault, "房间内有技师正在上钟，不能操作");
}

void startUse(Room& room, RoomStatus status, int hours, const std::string& staffId, Seconds now)
{
    room.status = status;
    room.openType = houseOpening;
    room.hours = hours;
    room.openedAt = now;
    room.openedBy = staffId;
    room.planId.clear();
    room.isSettled = false;
}

void startRest(State& state, Room& room, const Cards& cards, const Plan& plan, const std::string& staffId,
               Seconds now)
{
    startUse(room, RoomStatus::Rest, plan.hours, staffId, now);
    room.planId = plan.id;
    setCards(state, room, cards, now);
    addRoomFee(state, room, plan.name, plan.fee, 1, staffId, now);
}

void addRoomFee(State& state, const Room& room, const std::string& name, double price, int num,
                const std::string& staffId, Seconds at)
{
    Order order;
    order.roomId = room.id;
    order.cardId = room.cardIds.empty() ? std::string() : room.cardIds.front();
    order.itemName = name;
    order.kind = OrderKind::RoomFee;
    order.price = price;
    order.num = num;
    order.enteredBy = staffId;
    order.createdAt = at;
    state.addOrder(std::move(order));
}

void bookOnCard(State& state, const Room& room, const Card& consumer)
{
    for (Order* order : state.ordersOfRoom(room.id))
        if (order->kind == OrderKind::RoomFee || order->cardId.empty())
            state.moveLine(*order, consumer);
}

void setCards(State& state, Room& room, const Cards& cards, Seconds now)
{
    for (const std::string& id : std::vector<std::string>(room.cardIds))
        state.unseat(*state.cards.find(id));
    for (Card* card : cards)
        state.seat(*card, room, now);
}

void closeRoom(State& state, Room& room, bool needsCleaning, Seconds now)
{
    setCards(state, room, {}, now);
    for (Order* order : state.ordersOfRoom(room.id))
        order->roomId.clear();
    leaveGroup(state, room);
    room.status = needsCleaning ? RoomStatus::Cleaning : RoomStatus::Empty;
    room.openType = 0;
    room.hours = 0;
    room.openedAt = 0;
    room.planId.clear();
    room.openedBy.clear();
    room.remark.clear();
    room.isSettled = false;
    room.cleanFlg = 0;
    room.cleanerId.clear();
}

void mergeRooms(State& state, const std::vector<Room*>& rooms)
{
    demand(rooms.size() > 1, roomFault, "请选择需要合并的房间");
    for (const Room* room : rooms)
        demand(isInUse(*room), roomFault, "房间" + room->code + "不在使用中，不能组团");
    std::string key = rooms.back()->groupKey;
    if (key.empty())
        key = "G" + state.newId();
    for (Room* room : rooms) {
        if (room->groupKey == key)
            continue;
        leaveGroup(state, *room);
        room->groupKey = key;
    }
}

void leaveGroup(State& state, Room& room)
{
    const std::string key = room.groupKey;
    room.groupKey.clear();
    const std::vector<Room*> left = state.roomsOfGroup(key);
    if (left.size() == 1)
        left.front()->groupKey.clear();
}

} // namespace house
