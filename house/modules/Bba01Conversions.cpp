#include "src/state/Asked.h"
#include "src/state/RoomMoves.h"

namespace house {
namespace {

constexpr char changeRight[] = "418838415448215554";

Complaint changeRoomAct(House& house, const Call& call)
{
    Room& from = roomAsked(house, call, "oldRoomId");
    if (call.body["status"] != static_cast<int>(from.status))
        return roomHasChanged;
    const Plan* plan = call.body.contains("planId") ? &planAsked(house, call, "planId") : nullptr;
    return changeRoom(house.state, from, roomAsked(house, call, "newRoomId"), plan, call.body["isClean"] == 1,
                      actOf(call));
}

Complaint massToRestRoom(House& house, const Call& call)
{
    return massageToRest(house.state, roomAsked(house, call, "id"), cardsAsked(house, call, "cardids"),
                         planAsked(house, call, "planid"), actOf(call));
}

Complaint restToMassRoom(House& house, const Call& call)
{
    return restToMassage(house.state, roomAsked(house, call, "id"), cardsAsked(house, call, "cardids"),
                         cardAsked(house, call.text("cardId")), call.body["hours"].get<int>(), actOf(call));
}

Complaint changeFeePlan(House& house, const Call& call)
{
    return changePlan(house.state, roomAsked(house, call, "roomId"), planAsked(house, call, "planId"));
}

Complaint restRoomAddTime(House& house, const Call& call)
{
    return addHours(house.state, roomAsked(house, call, "roomId"), call.body["hours"].get<int>(), actOf(call));
}

Complaint reSetRoomTime(House& house, const Call& call)
{
    return resetTime(roomAsked(house, call, "roomId"), actOf(call));
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.post("/bba01/changeRoom", roomAction(changeRoomAct))
        .needs("oldRoomId", Kind::Text)
        .needs("status", Kind::Number)
        .needs("newRoomId", Kind::Text)
        .needs("isClean", Kind::Number)
        .takes("planId", Kind::Text)
        .takes("newPlanFlg", Kind::Number)
        .guardedBy({changeRight, "", "", "", ""});
    table.post("/bba01/massToRestRoom", roomAction(massToRestRoom))
        .needs("id", Kind::Text)
        .needs("cardids", Kind::Array)
        .needs("newPlanFlg", Kind::Number)
        .needs("type", Kind::Number)
        .needs("planid", Kind::Text);
    table.post("/bba01/restToMassRoom", roomAction(restToMassRoom))
        .needs("id", Kind::Text)
        .needs("cardids", Kind::Array)
        .needs("cardId", Kind::Text)
        .needs("hours", Kind::Number)
        .needs("newPlanFlg", Kind::Number)
        .needs("type", Kind::Number);
    table.post("/bba01/changeFeePlan", roomAction(changeFeePlan))
        .needs("roomId", Kind::Text)
        .needs("newPlanFlg", Kind::Number)
        .needs("planId", Kind::Text);
    table.post("/bba01/restRoomAddTime", roomAction(restRoomAddTime))
        .needs("roomId", Kind::Text)
        .needs("hours", Kind::Number);
    table.post("/bba01/reSetRoomTime", roomAction(reSetRoomTime)).needs("roomId", Kind::Text);
});

} // namespace
} // namespace house
