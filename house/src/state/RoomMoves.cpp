#include "src/state/RoomMoves.h"

#include <algorithm>

namespace house {
namespace {

void charge(State& state, const Room& room, const Plan& plan)
{
    Order* fee = nullptr;
    for (Order* order : state.ordersOfRoom(room.id))
        if (order->kind == OrderKind::RoomFee && order->itemId == room.planId)
            fee = order;
    if (!fee)
        return;
    fee->itemId = plan.id;
    fee->itemName = plan.name;
    fee->price = plan.fee;
    fee->num = 1;
}

/// A guest's card goes along; a room's own card hands its lines to that of the new room.
Card& cardInNewRoom(State& state, Card& card, const Room& from, const Room& to, Seconds now)
{
    Card* successor = card.number == from.code ? state.cardByNumber(to.code) : nullptr;
    if (!successor)
        return card;
    for (Order* order : state.ordersOfCard(card.id))
        order->cardId = successor->id;
    state.checkOut(card, now);
    return *successor;
}

} // namespace

Complaint changeRoom(State& state, Room& from, Room& to, const Plan* plan, bool needsCleaning, const Act& act)
{
    if (!isInUse(from))
        return roomHasChanged;
    if (to.status != RoomStatus::Empty || to.isReserved)
        return "房间" + to.code + "不是空闲房，请重新选择";
    if (from.status == RoomStatus::Rest && (!plan || plan->roomTypeId != to.typeId))
        return "请选择新房间的计费方案";
    const std::string oldPlanId = from.planId;
    to.status = from.status;
    to.changedAt = act.now;
    to.openType = from.openType;
    to.hours = from.hours;
    to.openedAt = from.openedAt;
    to.openedBy = from.openedBy;
    to.planId = oldPlanId;
    to.groupKey = from.groupKey;
    to.remark = from.remark;
    to.isSettled = from.isSettled;
    to.callCount = from.callCount;
    for (const std::string& cardId : std::vector<std::string>(from.cardIds))
        state.seat(cardInNewRoom(state, *state.cards.find(cardId), from, to, act.now), to, act.now);
    for (Order* order : state.ordersOfRoom(from.id))
        order->roomId = to.id;
    from.groupKey.clear();
    closeRoom(state, from, needsCleaning, act.now);
    return to.status == RoomStatus::Rest ? changePlan(state, to, *plan) : Complaint();
}

Complaint massageToRest(State& state, Room& room, const Cards& cards, const Plan& plan, const Act& act)
{
    if (room.status != RoomStatus::Massage)
        return roomHasChanged;
    if (cards.empty())
        return "请先添加手牌";
    if (plan.roomTypeId != room.typeId)
        return "计费方案不适用于该房型";
    if (hasRunningService(state, room))
        return "房间内有技师正在上钟，不能改为休息房";
    if (Complaint complaint = unusableCard(cards); !complaint.empty())
        return complaint;
    startUse(room, RoomStatus::Rest, plan.hours, act);
    room.planId = plan.id;
    setCards(state, room, cards, act.now);
    addRoomFee(state, room, plan.name, plan.fee, act.staffId, act.now);
    return {};
}

Complaint restToMassage(State& state, Room& room, const Cards& cards, const Card& consumer, int hours,
                        const Act& act)
{
    if (room.status != RoomStatus::Rest)
        return roomHasChanged;
    if (cards.empty())
        return "请先添加手牌";
    if (hours < 1)
        return "开房时长不能小于1小时";
    if (Complaint complaint = unusableCard(cards); !complaint.empty())
        return complaint;
    if (std::find(cards.begin(), cards.end(), &consumer) == cards.end())
        return "请选择需要计入消费的手牌";
    bookOnCard(state, room, consumer);
    startUse(room, RoomStatus::Massage, hours, act);
    setCards(state, room, cards, act.now);
    return {};
}

Complaint changePlan(State& state, Room& room, const Plan& plan)
{
    if (room.status != RoomStatus::Rest)
        return roomHasChanged;
    if (plan.roomTypeId != room.typeId)
        return "计费方案不适用于该房型";
    charge(state, room, plan);
    // Hours that were added stay, as their charge does.
    const Plan* old = state.plans.find(room.planId);
    room.hours += plan.hours - (old ? old->hours : room.hours);
    room.planId = plan.id;
    return {};
}

Complaint addHours(State& state, Room& room, int hours, const Act& act)
{
    const Plan* plan = state.plans.find(room.planId);
    if (room.status != RoomStatus::Rest || !plan)
        return roomHasChanged;
    if (hours < 1)
        return "增加时长不能小于1小时";
    Order& fee = addRoomFee(state, room, "房间加时", roundMoney(plan->fee / plan->hours), act.staffId, act.now);
    fee.itemId.clear();
    fee.num = hours;
    room.hours += hours;
    return {};
}

Complaint resetTime(Room& room, const Act& act)
{
    if (!isInUse(room))
        return roomHasChanged;
    room.openedAt = act.now;
    return {};
}

} // namespace house
