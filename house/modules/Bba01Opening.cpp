#include "src/state/Asked.h"

namespace house {
namespace {

constexpr char toEmptyRight[] = "405759269277011969";
constexpr char toCleaningRight[] = "405759234552369154";
constexpr char cancelRight[] = "418838253703270403";

Complaint openMassRoom(House& house, const Call& call)
{
    const Cards cards = cardsAsked(house, call, "cardids");
    const nlohmann::json& config = house.seed.document["sysconfig"];
    const bool isJoined = fieldAsText(call.body, "isConn") == "1";
    if (config.value("isNeedCard", false) && cards.empty())
        return "请先添加手牌";
    for (const Card* card : cards)
        if (config.value("openMulti", false) && !isJoined && !card->roomId.empty())
            return "手牌" + card->number + "在" + house.state.roomCode(card->roomId) + "房间中，请先确认联房";
    return openMassageRoom(house.state, roomAsked(house, call, "id"), cards, call.body["hours"].get<int>(),
                           isJoined, actOf(call));
}

Complaint openRest(House& house, const Call& call)
{
    return openRestRoom(house.state, roomAsked(house, call, "id"), cardsAsked(house, call, "cardids"),
                        planAsked(house, call, "planid"), actOf(call));
}

Complaint chgOccupyRoom(House& house, const Call& call)
{
    Room& room = roomAsked(house, call, "id");
    if (call.body["isOccupy"] == 0)
        return releaseRoom(room, actOf(call));
    const OccupationType* type = house.state.occupationTypes.find(call.text("occType"));
    if (!type)
        return "特殊占用原由不能为空";
    return occupyRoom(room, *type, call.text("remark"), actOf(call));
}

Complaint chgCleanRoom(House& house, const Call& call)
{
    Room& room = roomAsked(house, call, "id");
    return call.body["isClean"] == 1 ? sendToCleaning(room, actOf(call)) : endCleaning(room, actOf(call));
}

Complaint setCleanRoom(House& house, const Call& call)
{
    if (!house.seed.staffById(call.text("staffId")))
        return "员工不存在";
    return setCleaning(roomAsked(house, call, "id"), call.body["cleanFlg"].get<int>(), call.text("staffId"),
                       actOf(call));
}

Complaint cancelRoom(House& house, const Call& call)
{
    return cancelOpening(house.state, roomAsked(house, call, "id"), actOf(call));
}

Complaint setRemark(House& house, const Call& call)
{
    roomAsked(house, call, "id").remark = call.text("remark");
    return {};
}

/// Who leaves a room in use leaves it to be cleaned, in a house that cleans by steps.
Reply leaveRoomNew(House& house, const Call& call)
{
    Room& room = roomAsked(house, call, "id");
    if (call.body["status"] != static_cast<int>(room.status))
        return Reply::refuse("ROOM_ERR_0002", roomHasChanged);
    const std::string consumerId = call.text("cardId");
    const Card* consumer = consumerId.empty() ? nullptr : &cardAsked(house, consumerId);
    const bool needsCleaning = house.seed.document["sysconfig"].value("isCleaning", false);
    const Complaint complaint =
        leaveRoom(house.state, room, cardsAsked(house, call, "cardids"), consumer, needsCleaning, actOf(call));
    if (!complaint.empty())
        return Reply::refuse("ROOM_ERR_0002", complaint);
    announceRooms(house);
    return Reply::with({{"allleave", !isInUse(room)}});
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.post("/bba01/openMassRoom", roomAction(openMassRoom))
        .needs("id", Kind::Text)
        .needs("cardids", Kind::Array)
        .needs("hours", Kind::Number)
        .takes("isConn", Kind::Number);
    table.post("/bba01/openRestRoom", roomAction(openRest))
        .needs("id", Kind::Text)
        .needs("cardids", Kind::Array)
        .needs("newPlanFlg", Kind::Number)
        .needs("type", Kind::Number)
        .needs("planid", Kind::Text);
    table.post("/bba01/chgOccupyRoom", roomAction(chgOccupyRoom))
        .needs("id", Kind::Text)
        .needs("isOccupy", Kind::Number)
        .takes("occType", Kind::Text)
        .takes("remark", Kind::Text);
    table.post("/bba01/chgCleanRoom", roomAction(chgCleanRoom))
        .needs("id", Kind::Text)
        .needs("isClean", Kind::Number)
        .guardedBy({toEmptyRight, "isClean", "0", "", ""})
        .guardedBy({toCleaningRight, "isClean", "1", "", ""});
    table.post("/bba01/setCleanRoom", roomAction(setCleanRoom))
        .needs("id", Kind::Text)
        .needs("staffId", Kind::Text)
        .needs("cleanFlg", Kind::Number);
    table.post("/bba01/leaveRoomNew", asked(leaveRoomNew))
        .needs("id", Kind::Text)
        .needs("status", Kind::Number)
        .needs("cardids", Kind::Array)
        .takes("cardId", Kind::Text);
    table.post("/bba01/cancelRoom", roomAction(cancelRoom))
        .needs("id", Kind::Text)
        .needs("authType", Kind::Number)
        .guardedBy({cancelRight, "", "", "", ""});
    table.post("/bba01/setRemark", roomAction(setRemark)).needs("id", Kind::Text).needs("remark", Kind::Text);
});

} // namespace
} // namespace house
