#include "src/others/Moves.h"

#include <algorithm>

namespace house {
namespace {

using nlohmann::json;

constexpr int longestOpening = 3;
constexpr int longestPatience = 55;
constexpr int roomsAtRest = 2; ///< that wait for the next step while nobody hurries

/// Guests stay on for a while when their time is over, some longer than others.
bool isTimeToGo(const Scene& scene, const Room& room)
{
    const long long patience = (room.openedAt / 60 + std::stoll(room.id) * 7) % longestPatience;
    return isInUse(room) && minutesLeft(room, scene.time()) < -patience;
}

bool mayAllLeave(const Scene& scene, const Room& room)
{
    return isInUse(room) && !scene.isServed(room) &&
           (room.status == RoomStatus::Massage || !room.cardIds.empty());
}

bool letGo(Scene& scene, Room& room, const Cards& leavers, const Cards& stayers)
{
    json body = {{"id", room.id}, {"status", static_cast<int>(room.status)}, {"cardids", idsOf(leavers)}};
    if (room.status == RoomStatus::Rest)
        body["cardId"] = (stayers.empty() ? leavers : stayers).front()->id;
    if (!scene.call("/bba01/leaveRoomNew", body))
        return false;
    for (Card* card : leavers)
        scene.state().checkOut(*card, scene.time());
    return true;
}

int capacityOf(Scene& scene, const Room& room) { return scene.state().roomTypes.find(room.typeId)->capacity; }

bool openMassage(Scene& scene)
{
    Room* room = scene.pick(scene.emptyRooms([&](const Room& each) { return scene.isForServices(each); }));
    if (!room || !scene.mayOpen())
        return false;
    const Cards guests = scene.newGuests(*room, capacityOf(scene, *room));
    return !guests.empty() && scene.call("/bba01/openMassRoom", {{"id", room->id},
                                                                 {"cardids", idsOf(guests)},
                                                                 {"hours", 1 + scene.below(longestOpening)}});
}

bool openRest(Scene& scene)
{
    Room* room = scene.pick(scene.emptyRooms([&](const Room& each) { return !scene.isForServices(each); }));
    if (!room || !scene.mayOpen())
        return false;
    std::vector<const Plan*> plans;
    for (const Plan& plan : scene.state().plans)
        if (plan.roomTypeId == room->typeId)
            plans.push_back(&plan);
    const Plan* plan = scene.pick(plans);
    const Cards guests = plan ? scene.newGuests(*room, capacityOf(scene, *room)) : Cards();
    return !guests.empty() && scene.call("/bba01/openRestRoom", {{"id", room->id},
                                                                 {"cardids", idsOf(guests)},
                                                                 {"newPlanFlg", 1},
                                                                 {"type", 1},
                                                                 {"planid", plan->id}});
}

/// The bill is paid at the counter before the guests get up.
bool settle(Scene& scene, const Scene::Rooms& rooms)
{
    Room* room = scene.pick(rooms);
    if (!room)
        return false;
    room->isSettled = true;
    scene.announceChange();
    return true;
}

bool settleInTime(Scene& scene)
{
    return settle(scene, scene.roomsThat([&](const Room& each) {
        return !each.isSettled && isTimeToGo(scene, each) && mayAllLeave(scene, each);
    }));
}

/// Of those with time left only the later half may go: whoever has settled in stays his time, however fast
/// everything else moves.
bool settleEarly(Scene& scene)
{
    Scene::Rooms rooms = scene.roomsThat([&](const Room& each) {
        return !each.isSettled && minutesLeft(each, scene.time()) > 0 && mayAllLeave(scene, each);
    });
    std::stable_sort(rooms.begin(), rooms.end(),
                     [](const Room* a, const Room* b) { return a->openedAt > b->openedAt; });
    rooms.resize((rooms.size() + 1) / 2);
    return settle(scene, rooms);
}

bool leave(Scene& scene)
{
    Room* room = scene.pick(
        scene.roomsThat([&](const Room& each) { return each.isSettled && mayAllLeave(scene, each); }));
    return room && scene.mayClose() && letGo(scene, *room, scene.guestsIn(*room), {});
}

bool leaveInPart(Scene& scene)
{
    Room* room = scene.pick(scene.roomsThat(
        [](const Room& each) { return isInUse(each) && !each.isSettled && each.cardIds.size() > 1; }));
    if (!room)
        return false;
    Cards stayers = scene.guestsIn(*room);
    Card* leaver = scene.pick(stayers);
    stayers.erase(std::find(stayers.begin(), stayers.end(), leaver));
    return !scene.isServed(*leaver) && letGo(scene, *room, {leaver}, stayers);
}

bool clean(Scene& scene)
{
    Room* room = scene.pick(scene.roomsThat([](const Room& each) {
        return each.status == RoomStatus::Cleaning || (each.status == RoomStatus::Occupied && each.isDirty);
    }));
    if (!room)
        return false;
    if (room->status == RoomStatus::Cleaning && room->cleanFlg < 2 && scene.hasSetting("isCleaning"))
        return scene.call("/bba01/setCleanRoom",
                          {{"id", room->id}, {"staffId", scene.cleanerId()}, {"cleanFlg", room->cleanFlg + 1}});
    return scene.call("/bba01/chgCleanRoom", {{"id", room->id}, {"isClean", 0}});
}

bool isAny(const Room&) { return true; }

bool sendToClean(Scene& scene)
{
    Room* room = scene.pick(scene.emptyRooms(isAny));
    return room && scene.mayOpen() && scene.call("/bba01/chgCleanRoom", {{"id", room->id}, {"isClean", 1}});
}

/// Sometimes before it has been cleaned.
bool occupy(Scene& scene)
{
    Scene::Rooms rooms =
        scene.below(4) == 0
            ? scene.roomsThat([](const Room& each) { return each.status == RoomStatus::Cleaning; })
            : scene.emptyRooms(isAny);
    std::vector<const OccupationType*> types;
    for (const OccupationType& type : scene.state().occupationTypes)
        types.push_back(&type);
    const Room* room = scene.pick(rooms);
    const OccupationType* type = scene.pick(types);
    return room && type && scene.mayOpen() &&
           scene.call("/bba01/chgOccupyRoom", {{"id", room->id}, {"isOccupy", 1}, {"occType", type->id}});
}

bool release(Scene& scene)
{
    Room* room = scene.pick(
        scene.roomsThat([](const Room& each) { return each.status == RoomStatus::Occupied && !each.isDirty; }));
    return room && scene.call("/bba01/chgOccupyRoom", {{"id", room->id}, {"isOccupy", 0}});
}

/// So many of a hundred when the house is at its emptiest, none when it is full.
int roomFor(const Scene& scene, int weight) { return 1 + weight * (100 - scene.fullness()) / 100; }

/// The more rooms wait for a step, the likelier it is taken.
int hurry(int waiting) { return 1 + 3 * std::max(0, waiting - roomsAtRest); }

} // namespace

const std::vector<Move>& openingMoves()
{
    static const std::vector<Move> moves = {
        {"open massage room", [](const Scene& scene) { return roomFor(scene, 8); }, openMassage},
        {"open rest room", [](const Scene& scene) { return roomFor(scene, 5); }, openRest},
        {"settle", always<8>, settleInTime},
        {"settle early", [](const Scene& scene) { return 8 * scene.fullness() * scene.fullness() / 10000; },
         settleEarly},
        {"leave", [](const Scene& scene) { return hurry(scene.settled); }, leave},
        {"leave in part", always<2>, leaveInPart},
        {"clean", [](const Scene& scene) { return hurry(scene.cleaning); }, clean},
        {"send to cleaning", [](const Scene& scene) { return scene.cleaning <= roomsAtRest ? 1 : 0; },
         sendToClean},
        {"occupy", [](const Scene& scene) { return scene.occupied * 20 < scene.rooms ? 2 : 0; }, occupy},
        {"release", [](const Scene& scene) { return scene.occupied * 30 > scene.rooms ? 2 : 0; }, release},
    };
    return moves;
}

} // namespace house
