#include "src/state/RoomGroups.h"

namespace house {

Complaint mergeRooms(State& state, const std::vector<Room*>& rooms)
{
    if (rooms.size() < 2)
        return "请选择需要合并的房间";
    for (const Room* room : rooms)
        if (!isInUse(*room))
            return "房间" + room->code + "不在使用中，不能组团";
    std::string key = rooms.back()->groupKey;
    if (key.empty())
        key = "G" + state.newId();
    for (Room* room : rooms) {
        if (room->groupKey == key)
            continue;
        leaveGroup(state, *room);
        room->groupKey = key;
    }
    return {};
}

Complaint splitRooms(State& state, const std::string& groupKey, const std::vector<Room*>& rooms)
{
    for (const Room* room : rooms)
        if (groupKey.empty() || room->groupKey != groupKey)
            return "房间" + room->code + "不在该团体中";
    for (Room* room : rooms)
        leaveGroup(state, *room);
    return {};
}

Complaint addCards(State& state, Room& room, const Cards& cards, const Act& act)
{
    if (!isInUse(room))
        return roomHasChanged;
    if (cards.empty())
        return "请先添加手牌";
    if (Complaint complaint = unusableCard(cards); !complaint.empty())
        return complaint;
    for (Card* card : cards)
        state.seat(*card, room, act.now);
    return {};
}

Complaint moveCards(State& state, Room& from, Room& to, const Cards& cards, const Act& act)
{
    if (from.status != RoomStatus::Massage)
        return roomHasChanged;
    if (&from == &to || (to.status != RoomStatus::Empty && !isInUse(to)) || to.isReserved)
        return "房间" + to.code + "不能转入手牌";
    if (cards.empty())
        return "请选择需要拆离的手牌";
    for (const Card* card : cards)
        if (card->roomId != from.id)
            return "手牌" + card->number + "不在该房间";
    if (to.status == RoomStatus::Empty)
        startUse(to, RoomStatus::Massage, from.hours, act);
    for (Card* card : cards) {
        for (Order* order : state.ordersOfRoom(from.id))
            if (order->cardId == card->id)
                order->roomId = to.id;
        state.seat(*card, to, act.now);
    }
    return {};
}

} // namespace house
