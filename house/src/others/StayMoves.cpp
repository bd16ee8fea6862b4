#include "src/others/Moves.h"

namespace house {
namespace {

const std::vector<const char*> remarks = {
    "客人怕冷，请调高室温",   "加一条毛毯",
    "两小时后叫醒",           "请勿打扰",
    "客人自带茶叶，请加热水", "贵宾，晚些加送果盘，并请经理过去问候一声",
};

bool isUnsettled(const Room& room) { return isInUse(room) && !room.isSettled; }

bool isWanted(const Room& room, const Room& other)
{
    return &room != &other && isUnsettled(other) && other.groupKey.empty() && other.floorId == room.floorId;
}

/// Another empty room of the same kind.
Room* roomLike(Scene& scene, const Room& room)
{
    return scene.pick(scene.emptyRooms([&](const Room& each) { return each.typeId == room.typeId; }));
}

bool changeRoom(Scene& scene)
{
    const Room* from = scene.pick(scene.roomsThat(isUnsettled));
    const Room* to = from && scene.mayOpen() ? roomLike(scene, *from) : nullptr;
    if (!to)
        return false;
    nlohmann::json body = {{"oldRoomId", from->id},
                           {"status", static_cast<int>(from->status)},
                           {"newRoomId", to->id},
                           {"isClean", 1}};
    if (from->status == RoomStatus::Rest) {
        body["planId"] = from->planId;
        body["newPlanFlg"] = 1;
    }
    return scene.call("/bba01/changeRoom", body);
}

bool addCard(Scene& scene)
{
    const Room* room = scene.pick(scene.roomsThat([&](const Room& each) {
        const RoomType& type = *scene.state().roomTypes.find(each.typeId);
        return isUnsettled(each) && static_cast<int>(each.cardIds.size()) < type.capacity &&
               minutesLeft(each, scene.time()) > 0;
    }));
    const Cards guests = room && !scene.hasSetting("usedRoomMod") ? scene.newGuests(*room, 1) : Cards();
    return !guests.empty() &&
           scene.call("/bba01/roomAddCard", {{"roomNo", room->code}, {"cardids", idsOf(guests)}});
}

bool unpack(Scene& scene)
{
    const Room* from = scene.pick(scene.roomsThat([](const Room& each) {
        return isUnsettled(each) && each.status == RoomStatus::Massage && each.cardIds.size() > 1;
    }));
    const Room* to = from && scene.mayOpen() ? roomLike(scene, *from) : nullptr;
    if (!to)
        return false;
    const Card* card = scene.pick(scene.guestsIn(*from));
    return scene.call(
        "/bba01/unpackRoom",
        {{"oldRoomId", from->id}, {"newRoomNo", to->code}, {"cardIds", nlohmann::json::array({card->id})}});
}

bool merge(Scene& scene)
{
    const Room* room = scene.pick(
        scene.roomsThat([](const Room& each) { return isUnsettled(each) && each.groupKey.empty(); }));
    const Room* other =
        room ? scene.pick(scene.roomsThat([&](const Room& each) { return isWanted(*room, each); })) : nullptr;
    return other &&
           scene.call("/bba01/mergeRoom", {{"roomIdArr", nlohmann::json::array({other->id, room->id})}});
}

bool remark(Scene& scene)
{
    const Room* room =
        scene.pick(scene.roomsThat([](const Room& each) { return isUnsettled(each) && each.remark.empty(); }));
    return room && scene.call("/bba01/setRemark", {{"id", room->id}, {"remark", scene.pick(remarks)}});
}

bool addTime(Scene& scene)
{
    const Room* room = scene.pick(scene.roomsThat([&](const Room& each) {
        const long long left = minutesLeft(each, scene.time());
        return isUnsettled(each) && each.status == RoomStatus::Rest && left < 15 && left > -15;
    }));
    return room && scene.call("/bba01/restRoomAddTime", {{"roomId", room->id}, {"hours", 1}});
}

} // namespace

const std::vector<Move>& stayMoves()
{
    static const std::vector<Move> moves = {
        {"change room", always<1>, changeRoom},
        {"add card", always<3>, addCard},
        {"unpack", always<1>, unpack},
        {"merge", [](const Scene& scene) { return scene.grouped * 6 < scene.rooms ? 1 : 0; }, merge},
        {"remark", [](const Scene& scene) { return scene.remarked * 6 < scene.rooms ? 2 : 0; }, remark},
        {"add time", always<1>, addTime},
    };
    return moves;
}

} // namespace house
