#include "src/Asked.h"
#include "src/Unread.h"
#include "src/state/RoomDesk.h"
#include "src/state/RoomRecords.h"

#include <algorithm>
#include <set>

namespace house {
namespace {

using nlohmann::json;

/// The one status filter that stands for several statuses.
const std::string inUseFilter = "7";

std::set<std::string> idsOf(const Call& call, const char* field)
{
    const std::vector<std::string> ids = textsOf(call.body, field);
    return {ids.begin(), ids.end()};
}

bool startsWith(const std::string& text, const std::string& start)
{
    return text.compare(0, start.size(), start) == 0;
}

bool isWanted(const Call& call, const Room& room, const std::set<std::string>& floors,
              const std::set<std::string>& types)
{
    const std::string status = fieldAsText(call.body, "status");
    const bool isStatus = status.empty() || std::to_string(static_cast<int>(room.status)) == status ||
                          (status == inUseFilter && hasGuests(room));
    return isStatus && (floors.empty() || floors.count(room.floorId) > 0) &&
           (types.empty() || types.count(room.typeId) > 0) && startsWith(room.code, call.text("roomno"));
}

Reply getRoomList(House& house, const Call& call)
{
    const std::set<std::string> floors = idsOf(call, "floorId");
    const std::set<std::string> types = idsOf(call, "houseType");
    const RoomRecords records(house, call.now);
    json all = json::array();
    std::map<std::string, json> byType;
    for (const Room& room : house.state.rooms) {
        if (!isWanted(call, room, floors, types))
            continue;
        json record = records.board(room);
        if (call.body.contains("sortType"))
            byType[room.typeId].push_back(std::move(record));
        else
            all.push_back(std::move(record));
    }
    for (auto& [typeId, rooms] : byType)
        all.push_back({{"id", typeId},
                       {"name", house.state.roomTypes.find(typeId)->name},
                       {"roomList", std::move(rooms)}});
    return Reply::with(all);
}

/// Rooms in use and all rooms, for each row of a table that the rooms point to.
template <typename Row>
json sums(const House& house, const Table<Row>& table, std::string Room::*link)
{
    json list = json::array();
    for (const Row& row : table) {
        int used = 0;
        int all = 0;
        for (const Room& room : house.state.rooms) {
            if (room.*link != row.id)
                continue;
            ++all;
            used += hasGuests(room) ? 1 : 0;
        }
        if (all > 0)
            list.push_back({{"id", row.id}, {"name", row.name}, {"roomUseSum", used}, {"roomAllSum", all}});
    }
    return list;
}

Reply getFloorSum(House& house, const Call&)
{
    return Reply::with({{"floorList", sums(house, house.state.floors, &Room::floorId)}});
}

Reply getRoomTypeSum(House& house, const Call&)
{
    return Reply::with({{"roomTypeList", sums(house, house.state.roomTypes, &Room::typeId)}});
}

Reply getOverTime(House& house, const Call& call)
{
    std::vector<std::pair<long long, const Room*>> overrun;
    for (const Room& room : house.state.rooms)
        if (hasGuests(room) && minutesLeft(room, call.now) < 0)
            overrun.emplace_back(-minutesLeft(room, call.now), &room);
    std::stable_sort(overrun.begin(), overrun.end(),
                     [](const auto& a, const auto& b) { return a.first > b.first; });
    json list = json::array();
    for (const auto& [minutes, room] : overrun)
        list.push_back({{"code", room->code}, {"id", room->id}, {"name", room->name}, {"overtimes", minutes}});
    return Reply::with(list);
}

Reply getRoomDetailNew(House& house, const Call& call)
{
    const Room& room = call.body.contains("roomId") ? roomOfId(house, call.text("roomId"))
                                                    : roomOfCode(house, call.text("roomNo"));
    return Reply::with(RoomRecords(house, call.now).detail(room));
}

Reply getRoomConsList(House& house, const Call& call)
{
    return Reply::with(RoomRecords(house, call.now).consumption(roomOfId(house, call.text("roomId"))));
}

Reply getPlanListNew(House& house, const Call& call)
{
    const Room& room = roomOfId(house, call.text("roomId"));
    json list = json::array();
    for (const Plan& plan : house.state.plans)
        if (plan.roomTypeId == room.typeId)
            list.push_back(withUnread(
                {{"id", plan.id}, {"name", plan.name}, {"min_time", plan.hours}, {"min_fee", plan.fee}},
                {"remark"}, {"day_price"}));
    return Reply::with(list);
}

Reply getOccTypeList(House& house, const Call&)
{
    json list = json::array();
    for (const OccupationType& type : house.state.occupationTypes)
        list.push_back({{"id", type.id}, {"type_name", type.name}});
    return Reply::with(list);
}

Reply getEmptyRoomList(House& house, const Call& call)
{
    const RoomRecords records(house, call.now);
    json list = json::array();
    for (const Room& room : house.state.rooms)
        if (room.status == RoomStatus::Empty && !room.isReserved && startsWith(room.code, call.text("roomNo")))
            list.push_back(
                {{"id", room.id},
                 {"vals", room.code + " " + records.floorName(room) + " " + records.typeName(room)}});
    return Reply::with(list);
}

Reply getCanMergeRoomList(House& house, const Call& call)
{
    const Room& own = roomOfCode(house, call.text("roomNo"));
    const RoomRecords records(house, call.now);
    json list = json::array();
    for (const Room& room : house.state.rooms) {
        const bool isOfOwnGroup = !own.groupKey.empty() && room.groupKey == own.groupKey;
        if (isInUse(room) && &room != &own && !isOfOwnGroup && startsWith(room.code, call.text("schRoomNo")))
            list.push_back(records.candidate(room));
    }
    return Reply::with(list);
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.get("/bba01/getRoomList", "status*? floorId[]? houseType[]? roomno? sortType#?", getRoomList);
    table.get("/bba01/getFloorSum", "", getFloorSum);
    table.get("/bba01/getRoomTypeSum", "", getRoomTypeSum);
    table.get("/bba01/getOverTime", "", getOverTime);
    table.get("/bba01/getRoomDetailNew", "roomId? roomNo?", getRoomDetailNew);
    table.get("/bba01/getRoomConsList", "roomId", getRoomConsList);
    table.get("/bba01/getPlanListNew", "roomId planType#", getPlanListNew);
    table.get("/bba01/getOccTypeList", "", getOccTypeList);
    table.get("/bba01/getEmptyRoomList", "roomNo", getEmptyRoomList);
    table.get("/bba01/getCanMergeRoomList", "roomNo schRoomNo", getCanMergeRoomList);
});

} // namespace
} // namespace house
