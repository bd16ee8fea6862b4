#include "src/Asked.h"
#include "src/state/RoomDesk.h"

namespace house {
namespace {

using nlohmann::json;

Reply mergeRoom(House& house, const Call& call)
{
    mergeRooms(house.state, roomsOfIds(house, textsOf(call.body, "roomIdArr")));
    return roomsChanged(house);
}

Reply splitRoom(House& house, const Call& call)
{
    const std::string groupKey = call.text("groupKey");
    const std::vector<Room*> rooms = roomsOfIds(house, textsOf(call.body, "roomIdArr"));
    for (const Room* room : rooms)
        demand(!groupKey.empty() && room->groupKey == groupKey, roomFault,
               "房间" + room->code + "不在该团体中");
    for (Room* room : rooms)
        leaveGroup(house.state, *room);
    return roomsChanged(house);
}

/// Cards go with their lines into another massage or rest room, or open an empty one as a massage room.
Reply unpackRoom(House& house, const Call& call)
{
    Room& from = roomOfId(house, call.text("oldRoomId"));
    Room& to = roomOfCode(house, call.text("newRoomNo"));
    const Cards cards = cardsOfIds(house, textsOf(call.body, "cardIds"));
    demand(from.status == RoomStatus::Massage, roomFault, roomHasChanged);
    const bool isOpenable = to.status == RoomStatus::Empty && !to.isReserved;
    demand(&from != &to && (isOpenable || isInUse(to)), roomFault, "房间" + to.code + "不能转入手牌");
    demand(!cards.empty(), roomFault, "请选择需要拆离的手牌");
    demandInside(from, cards);
    if (isOpenable)
        startUse(to, RoomStatus::Massage, from.hours, call.staff->id, call.now);
    for (Card* card : cards) {
        for (Order* order : house.state.ordersOfRoom(from.id))
            if (order->cardId == card->id)
                order->roomId = to.id;
        house.state.seat(*card, to, call.now);
    }
    return roomsChanged(house);
}

/// A guest who has a room of his own may come over, unless a technician is at work on him there.
bool isHeldElsewhere(House& house, const Card& card, const Room& room)
{
    if (card.roomId.empty() || card.roomId == room.id)
        return false;
    for (const Order* order : house.state.ordersOfRoom(card.roomId))
        if (order->cardId == card.id && order->progress == Progress::Running)
            return true;
    return false;
}

Reply roomAddCard(House& house, const Call& call)
{
    Room& room = roomOfCode(house, call.text("roomNo"));
    const Cards cards = cardsOfIds(house, textsOf(call.body, "cardids"));
    json held = json::array();
    for (const Card* card : cards)
        if (isHeldElsewhere(house, *card, room))
            held.push_back({{"cardNo", card->number}, {"roomNo", house.state.roomCode(card->roomId)}});
    if (!held.empty())
        return Reply::with({{"flg", false}, {"roomcard", held}});
    demand(isInUse(room), roomFault, roomHasChanged);
    demand(!cards.empty(), roomFault, "请先添加手牌");
    demandUsable(cards);
    for (Card* card : cards)
        house.state.seat(*card, room, call.now);
    announceRooms(house);
    return Reply::with({{"flg", true}, {"roomcard", held}});
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.post("/bba01/mergeRoom", "roomIdArr[]", mergeRoom);
    table.post("/bba01/splitRoom", "groupKey roomIdArr[]", splitRoom);
    table.post("/bba01/unpackRoom", "oldRoomId newRoomNo cardIds[]", unpackRoom);
    table.post("/bba01/roomAddCard", "roomNo cardids[]", roomAddCard);
});

} // namespace
} // namespace house
