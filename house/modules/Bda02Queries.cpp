#include "src/Asked.h"
#include "src/Unread.h"
#include "src/state/ServiceClock.h"

namespace house {
namespace {

using nlohmann::json;

constexpr char timerFault[] = "BDA_ERR_0002";

/// The first of his trades, which serves as its id as well: nobody but this house reads it.
std::string tradeOf(const Staff& person) { return person.workerTypes.substr(0, person.workerTypes.find(',')); }

/// The line his clock stands on, pending or running; null for a technician who waits.
const Order* currentOrder(const House& house, const Clock& clock)
{
    const bool isBusy = clock.workStatus == WorkServing || clock.workStatus == WorkAssigned;
    return isBusy ? house.state.orders.find(clock.orderId) : nullptr;
}

json infoOf(House& house, const Staff& person, const Clock& clock, Seconds now)
{
    const Order* order = currentOrder(house, clock);
    const Order none;
    const Order& line = order ? *order : none;
    return withUnread(
        {{"id", person.id},
         {"staffNo", person.code},
         {"name", person.name},
         {"workStatus", clock.workStatus},
         {"workTypeId", tradeOf(person)},
         {"orderId", line.id},
         {"itemId", line.itemId},
         {"type", line.clockKind},
         {"hardCardId", line.cardId},
         {"cardno", house.state.cardNumber(line.cardId)},
         {"roomId", line.roomId},
         {"roomNo", house.state.roomCode(line.roomId)},
         {"pushId", line.pushId},
         {"surplus", surplusMinutes(runningLines(house.state, clock), now)}},
        {"code", "sexVal", "statusStr", "workTypeName", "groupId", "typeName", "remark", "workTypes",
         "groupName", "startTime", "endTime", "groupStartTime", "groupEndTime", "pushNo"},
        {"status", "orderStatus", "overStatus", "purOverStatus", "punchStatus", "realPunchStatus"}, {"iswork"});
}

json runningRecord(const House& house, const Order& line)
{
    return withUnread({{"orderId", line.id},
                       {"item_id", line.itemId},
                       {"itemName", line.itemName},
                       {"type", line.clockKind},
                       {"order_status", static_cast<int>(line.progress)},
                       {"status", static_cast<int>(line.status)},
                       {"statusName", clockKindWord(line.clockKind)},
                       {"price", line.price},
                       {"unit", house.state.items.find(line.itemId)->unit},
                       {"times", line.minutes}},
                      {"type_id", "room_id", "hard_card_id", "staff_id"});
}

// The terminal tells an unknown number by the missing record, so it isn't refused.
Reply getStaffInfo(House& house, const Call& call)
{
    json data = {{"itemList", json::array()}, {"serverItem", json::array()}};
    const Staff* person = house.seed.staffByCode(call.text("staffNo"));
    if (!person)
        return Reply::with(data);
    const Clock& clock = *house.state.clocks.find(person->id);
    data["staffInfo"] = infoOf(house, *person, clock, call.now);
    for (const Order* line : runningLines(house.state, clock))
        data["itemList"].push_back(runningRecord(house, *line));
    return Reply::with(data);
}

Reply getStaffItemList(House& house, const Call& call)
{
    json list = json::array();
    for (const Item* item : servableItems(house.state, staffOfId(house, call.text("staffId")).workerTypes))
        list.push_back(withUnread(
            {{"itemId", item->id}, {"name", item->name}, {"times", item->minutes}, {"price", item->price}},
            {"typeName"}));
    return Reply::with({{"itemlist", list}});
}

Reply getStaffWorkInfo(House& house, const Call& call)
{
    const Staff& person = staffOfId(house, call.text("staffId"));
    const Seconds startedAt = house.state.clocks.find(person.id)->timerStartedAt;
    return Reply::with({{"id", person.id},
                        {"name", person.name},
                        {"code", person.code},
                        {"serverStatus", startedAt == 0 ? 0 : 1},
                        {"serverStartTime", timeText(startedAt)}});
}

Reply updateStaffWorkStatus(House& house, const Call& call)
{
    const Staff& person = staffOfId(house, call.text("staffId"));
    const bool isStart = call.body["serverStatus"] == 1;
    Clock& clock = *house.state.clocks.find(person.id);
    demand(!isStart || clock.timerStartedAt == 0, timerFault, "技师【" + person.code + "】已在服务中");
    // A stop may come twice: the booking that follows the first one can fail and is tried again with it.
    clock.timerStartedAt = isStart ? call.now : 0;
    announce(house, "STAFFSTATUS", person.code);
    return Reply::done();
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.get("/bda02/getStaffInfo", "staffNo", getStaffInfo);
    table.get("/bda02/getStaffItemList", "staffId", getStaffItemList);
    table.get("/bda02/getStaffWorkInfo", "staffId", getStaffWorkInfo);
    table.post("/bda02/updateStaffWorkStatus", "staffId serverStatus#", updateStaffWorkStatus);
});

} // namespace
} // namespace house
