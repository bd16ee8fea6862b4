#include "src/state/Asked.h"
#include "src/state/RoomGroups.h"

namespace house {
namespace {

using nlohmann::json;

Complaint mergeRoom(House& house, const Call& call)
{
    return mergeRooms(house.state, roomsAsked(house, call, "roomIdArr"));
}

Complaint splitRoom(House& house, const Call& call)
{
    return splitRooms(house.state, call.text("groupKey"), roomsAsked(house, call, "roomIdArr"));
}

Complaint unpackRoom(House& house, const Call& call)
{
    return moveCards(house.state, roomAsked(house, call, "oldRoomId"),
                     roomByCodeAsked(house, call, "newRoomNo"), cardsAsked(house, call, "cardIds"),
                     actOf(call));
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
    Room& room = roomByCodeAsked(house, call, "roomNo");
    const Cards cards = cardsAsked(house, call, "cardids");
    json refused = json::array();
    for (const Card* card : cards)
        if (isHeldElsewhere(house, *card, room))
            refused.push_back({{"cardNo", card->number}, {"roomNo", house.state.roomCode(card->roomId)}});
    if (!refused.empty())
        return Reply::with({{"flg", false}, {"roomcard", refused}});
    const Complaint complaint = addCards(house.state, room, cards, actOf(call));
    if (!complaint.empty())
        return Reply::refuse("ROOM_ERR_0002", complaint);
    announceRooms(house);
    return Reply::with({{"flg", true}, {"roomcard", json::array()}});
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.post("/bba01/mergeRoom", roomAction(mergeRoom)).needs("roomIdArr", Kind::Array);
    table.post("/bba01/splitRoom", roomAction(splitRoom))
        .needs("groupKey", Kind::Text)
        .needs("roomIdArr", Kind::Array);
    table.post("/bba01/unpackRoom", roomAction(unpackRoom))
        .needs("oldRoomId", Kind::Text)
        .needs("newRoomNo", Kind::Text)
        .needs("cardIds", Kind::Array);
    table.post("/bba01/roomAddCard", asked(roomAddCard))
        .needs("roomNo", Kind::Text)
        .needs("cardids", Kind::Array);
});

} // namespace
} // namespace house
