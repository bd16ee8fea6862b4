#include "src/Asked.h"
#include "src/state/RoomDesk.h"

#include <algorithm>

namespace house {
namespace {

/// Hours that were added stay, as their charge does.
void setPlan(State& state, Room& room, const Plan& plan)
{
    const Plan& old = *state.plans.find(room.planId);
    for (Order* order : state.ordersOfRoom(room.id)) {
        if (order->kind != OrderKind::RoomFee || order->itemName != old.name)
            continue;
        order->itemName = plan.name;
        order->price = plan.fee;
    }
    room.hours += plan.hours - old.hours;
    room.planId = plan.id;
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

/// Guests, lines and group go along. A rest room goes on under a plan of the new room.
Reply changeRoom(House& house, const Call& call)
{
    State& state = house.state;
    Room& from = roomOfId(house, call.text("oldRoomId"));
    Room& to = roomOfId(house, call.text("newRoomId"));
    demand(isInUse(from) && call.body["status"] == static_cast<int>(from.status), roomFault, roomHasChanged);
    demand(to.status == RoomStatus::Empty && !to.isReserved, roomFault,
           "房间" + to.code + "不是空闲房，请重新选择");
    const Plan* plan = from.status == RoomStatus::Rest ? &planOfId(house, call.text("planId")) : nullptr;
    if (plan)
        demandPlanFor(to, *plan);

    startUse(to, from.status, from.hours, from.openedBy, from.openedAt);
    to.planId = from.planId;
    to.groupKey = from.groupKey;
    to.remark = from.remark;
    to.isSettled = from.isSettled;
    for (const std::string& cardId : std::vector<std::string>(from.cardIds))
        state.seat(cardInNewRoom(state, *state.cards.find(cardId), from, to, call.now), to, call.now);
    for (Order* order : state.ordersOfRoom(from.id))
        order->roomId = to.id;
    from.groupKey.clear();
    closeRoom(state, from, call.body["isClean"] == 1, call.now);
    if (plan)
        setPlan(state, to, *plan);
    return roomsChanged(house);
}

Reply massToRestRoom(House& house, const Call& call)
{
    Room& room = roomOfId(house, call.text("id"));
    const Cards cards = cardsOfIds(house, textsOf(call.body, "cardids"));
    const Plan& plan = planOfId(house, call.text("planid"));
    demand(room.status == RoomStatus::Massage, roomFault, roomHasChanged);
    demand(!cards.empty(), roomFault, "请先添加手牌");
    demandPlanFor(room, plan);
    demandNoService(house.state, room);
    demandUsable(cards);
    startRest(house.state, room, cards, plan, call.staff->id, call.now);
    return roomsChanged(house);
}

Reply restToMassRoom(House& house, const Call& call)
{
    Room& room = roomOfId(house, call.text("id"));
    const Cards cards = cardsOfIds(house, textsOf(call.body, "cardids"));
    Card& consumer = cardOfId(house, call.text("cardId"));
    const int hours = call.body["hours"].get<int>();
    demand(isInUse(room) && room.status == RoomStatus::Rest, roomFault, roomHasChanged);
    demand(hours > 0, roomFault, "开房时长不能小于1小时");
    demandUsable(cards);
    demand(std::count(cards.begin(), cards.end(), &consumer) > 0, roomFault, "请选择需要计入消费的手牌");
    bookOnCard(house.state, room, consumer);
    startUse(room, RoomStatus::Massage, hours, call.staff->id, call.now);
    setCards(house.state, room, cards, call.now);
    return roomsChanged(house);
}

Reply changeFeePlan(House& house, const Call& call)
{
    Room& room = roomOfId(house, call.text("roomId"));
    const Plan& plan = planOfId(house, call.text("planId"));
    demand(isInUse(room) && room.status == RoomStatus::Rest, roomFault, roomHasChanged);
    demandPlanFor(room, plan);
    setPlan(house.state, room, plan);
    return roomsChanged(house);
}

Reply restRoomAddTime(House& house, const Call& call)
{
    Room& room = roomOfId(house, call.text("roomId"));
    const Plan* plan = house.state.plans.find(room.planId);
    const int hours = call.body["hours"].get<int>();
    demand(room.status == RoomStatus::Rest && plan, roomFault, roomHasChanged);
    demand(hours > 0, roomFault, "增加时长不能小于1小时");
    const double price = roundMoney(plan->fee / plan->hours);
    addRoomFee(house.state, room, "房间加时", price, hours, call.staff->id, call.now);
    room.hours += hours;
    return roomsChanged(house);
}

Reply reSetRoomTime(House& house, const Call& call)
{
    Room& room = roomOfId(house, call.text("roomId"));
    demand(isInUse(room), roomFault, roomHasChanged);
    room.openedAt = call.now;
    return roomsChanged(house);
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.post("/bba01/changeRoom", "oldRoomId status# newRoomId isClean# planId? newPlanFlg#?", changeRoom)
        .guardedBy("418838415448215554");
    table.post("/bba01/massToRestRoom", "id cardids[] newPlanFlg# type# planid", massToRestRoom);
    table.post("/bba01/restToMassRoom", "id cardids[] cardId hours# newPlanFlg# type#", restToMassRoom);
    table.post("/bba01/changeFeePlan", "roomId newPlanFlg# planId", changeFeePlan);
    table.post("/bba01/restRoomAddTime", "roomId hours#", restRoomAddTime);
    table.post("/bba01/reSetRoomTime", "roomId", reSetRoomTime);
});

} // namespace
} // namespace house
