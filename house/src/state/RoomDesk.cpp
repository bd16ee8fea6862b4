#include "src/state/RoomDesk.h"

#include "src/state/RoomGroups.h"

#include <algorithm>

namespace house {
namespace {

constexpr int houseOpening = 1;
constexpr int guestRoomOpening = 2;

void enter(Room& room, RoomStatus status, Seconds now)
{
    room.status = status;
    room.changedAt = now;
}

Complaint cannotOpen(const Room& room, const Cards& cards)
{
    if (room.status != RoomStatus::Empty)
        return roomHasChanged;
    if (room.isReserved)
        return "房间" + room.code + "已被预约，不能直接开房";
    return unusableCard(cards);
}

bool isCharge(const Order& order) { return order.kind == OrderKind::RoomFee || order.cardId.empty(); }

} // namespace

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

Complaint openMassageRoom(State& state, Room& room, const Cards& cards, int hours, bool isJoined,
                          const Act& act)
{
    if (Complaint complaint = cannotOpen(room, cards); !complaint.empty())
        return complaint;
    if (hours < 1)
        return "开房时长不能小于1小时";
    std::vector<Room*> joined;
    for (const Card* card : cards)
        if (Room* other = isJoined ? state.rooms.find(card->roomId) : nullptr)
            joined.push_back(other);
    startUse(room, RoomStatus::Massage, hours, act);
    setCards(state, room, cards, act.now);
    joined.push_back(&room);
    return joined.size() > 1 ? mergeRooms(state, joined) : Complaint();
}

Complaint openRestRoom(State& state, Room& room, const Cards& cards, const Plan& plan, const Act& act)
{
    if (Complaint complaint = cannotOpen(room, cards); !complaint.empty())
        return complaint;
    if (cards.empty())
        return "请先添加手牌";
    if (plan.roomTypeId != room.typeId)
        return "计费方案不适用于该房型";
    startUse(room, RoomStatus::Rest, plan.hours, act);
    room.planId = plan.id;
    setCards(state, room, cards, act.now);
    addRoomFee(state, room, plan.name, plan.fee, act.staffId, act.now);
    return {};
}

Complaint occupyRoom(Room& room, const OccupationType& type, const std::string& remark, const Act& act)
{
    if (room.status != RoomStatus::Empty && room.status != RoomStatus::Cleaning)
        return roomHasChanged;
    room.isDirty = room.status == RoomStatus::Cleaning;
    enter(room, RoomStatus::Occupied, act.now);
    room.occupationTypeId = type.id;
    room.occupationRemark = room.remark = remark;
    room.openedBy = act.staffId;
    return {};
}

Complaint releaseRoom(Room& room, const Act& act)
{
    if (room.status != RoomStatus::Occupied || room.isDirty)
        return roomHasChanged;
    enter(room, RoomStatus::Empty, act.now);
    room.occupationTypeId.clear();
    room.occupationRemark.clear();
    room.remark.clear();
    return {};
}

Complaint sendToCleaning(Room& room, const Act& act)
{
    if (room.status != RoomStatus::Empty)
        return roomHasChanged;
    enter(room, RoomStatus::Cleaning, act.now);
    room.cleanFlg = 0;
    return {};
}

Complaint setCleaning(Room& room, int cleanFlg, const std::string& cleanerId, const Act& act)
{
    if (room.status != RoomStatus::Cleaning || cleanFlg < 1 || cleanFlg > 2 || cleanFlg != room.cleanFlg + 1)
        return roomHasChanged;
    room.cleanFlg = cleanFlg;
    room.cleanerId = cleanerId;
    room.changedAt = act.now;
    return {};
}

Complaint endCleaning(Room& room, const Act& act)
{
    const bool isOccupiedDirty = room.status == RoomStatus::Occupied && room.isDirty;
    if (room.status != RoomStatus::Cleaning && !isOccupiedDirty)
        return roomHasChanged;
    enter(room, RoomStatus::Empty, act.now);
    room.cleanFlg = 0;
    room.isDirty = false;
    room.cleanerId.clear();
    room.occupationTypeId.clear();
    room.occupationRemark.clear();
    room.remark.clear();
    return {};
}

Complaint cancelOpening(State& state, Room& room, const Act& act)
{
    if (!isInUse(room))
        return roomHasChanged;
    if (hasRunningService(state, room))
        return "房间内有技师正在上钟，不能取消开房";
    const std::vector<Order*> orders = state.ordersOfRoom(room.id);
    for (const Order* order : orders)
        if (order->cardId.empty() && order->kind != OrderKind::RoomFee)
            return "房间已有消费，不能取消开房";
    for (Order* order : orders)
        if (order->kind == OrderKind::RoomFee)
            order->status = LineStatus::Void;
    closeRoom(state, room, false, act.now);
    return {};
}

Complaint leaveRoom(State& state, Room& room, const Cards& cards, const Card* consumer, bool needsCleaning,
                    const Act& act)
{
    if (!isInUse(room))
        return roomHasChanged;
    for (const Card* card : cards) {
        if (card->roomId != room.id)
            return "手牌" + card->number + "不在该房间";
        for (const Order* order : state.ordersOfRoom(room.id))
            if (order->cardId == card->id && order->progress == Progress::Running)
                return "手牌" + card->number + "还有服务未结束，不能离房";
    }
    const bool isLast = cards.size() == room.cardIds.size();
    if ((!consumer && room.status == RoomStatus::Rest) || (consumer && consumer->roomId != room.id))
        return "请选择需要计入消费的手牌";
    // Without a card to take them the lines of a massage room would be lost with the room.
    if (!consumer && isLast && !cards.empty())
        consumer = cards.front();
    if (consumer)
        bookOnCard(state, room, *consumer);
    for (Card* card : cards)
        state.unseat(*card);
    if (isLast)
        closeRoom(state, room, needsCleaning, act.now);
    return {};
}

Complaint unusableCard(const Cards& cards)
{
    for (const Card* card : cards)
        if (card->status != CardStatus::Free && card->status != CardStatus::InUse)
            return "手牌" + card->number + "不处于可用状态";
    return {};
}

bool hasRunningService(State& state, const Room& room)
{
    const std::vector<Order*> orders = state.ordersOfRoom(room.id);
    return std::any_of(orders.begin(), orders.end(),
                       [](const Order* order) { return order->progress == Progress::Running; });
}

Order& addRoomFee(State& state, Room& room, const std::string& name, double fee, const std::string& staffId,
                  Seconds at)
{
    Order order;
    order.id = state.newId();
    order.batchId = order.id;
    order.roomId = room.id;
    order.cardId = room.cardIds.empty() ? std::string() : room.cardIds.front();
    order.itemId = room.planId;
    order.itemName = name;
    order.kind = OrderKind::RoomFee;
    order.price = fee;
    order.enteredBy = staffId;
    order.createdAt = at;
    return state.orders.add(std::move(order));
}

void bookOnCard(State& state, const Room& room, const Card& consumer)
{
    for (Order* order : state.ordersOfRoom(room.id)) {
        if (!isCharge(*order) || order->cardId == consumer.id)
            continue;
        order->oldCardNo = state.cardNumber(order->cardId);
        order->cardId = consumer.id;
    }
}

void setCards(State& state, Room& room, const Cards& cards, Seconds now)
{
    for (const std::string& id : std::vector<std::string>(room.cardIds))
        state.unseat(*state.cards.find(id));
    for (Card* card : cards)
        state.seat(*card, room, now);
}

void startUse(Room& room, RoomStatus status, int hours, const Act& act)
{
    enter(room, status, act.now);
    room.openType = houseOpening;
    room.callCount = 0;
    room.hours = hours;
    room.openedAt = act.now;
    room.openedBy = act.staffId;
    room.planId.clear();
    room.isSettled = false;
}

void closeRoom(State& state, Room& room, bool needsCleaning, Seconds now)
{
    setCards(state, room, {}, now);
    for (Order* order : state.ordersOfRoom(room.id))
        order->roomId.clear();
    leaveGroup(state, room);
    enter(room, needsCleaning ? RoomStatus::Cleaning : RoomStatus::Empty, now);
    room.openType = 0;
    room.hours = 0;
    room.openedAt = 0;
    room.planId.clear();
    room.openedBy.clear();
    room.remark.clear();
    room.isSettled = false;
    room.callCount = 0;
    room.cleanFlg = 0;
    room.cleanerId.clear();
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
