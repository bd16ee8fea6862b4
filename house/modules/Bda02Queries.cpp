#include "src/Lookup.h"
#include "src/state/ServiceClock.h"

namespace house {
namespace {

using nlohmann::json;

constexpr char timerFault[] = "BDA_ERR_0002";
constexpr Seconds minute = 60;

struct StatusWord
{
    int status;
    const char* word;
};

constexpr StatusWord statusWords[] = {
    {WorkWaiting, "待钟"}, {WorkServing, "上钟"}, {WorkOffDuty, "下班"}, {WorkAssigned, "已派钟"}};

const char* wordOf(int workStatus)
{
    for (const StatusWord& entry : statusWords)
        if (entry.status == workStatus)
            return entry.word;
    return "";
}

std::string categoryName(const House& house, const Item& item)
{
    return house.state.categories.find(item.typeId)->name;
}

/// The first of his trades; the house numbers the trades by the staff's list.
std::string tradeOf(const Staff& person) { return person.workerTypes.substr(0, person.workerTypes.find(',')); }

std::string tradeId(const House& house, const std::string& trade)
{
    int number = 1;
    for (const Staff& person : house.seed.staff) {
        if (tradeOf(person) == trade)
            break;
        ++number;
    }
    const std::string digits = std::to_string(number);
    return "4058130" + std::string(11 - digits.size(), '0') + digits;
}

/// The line his clock stands on, pending or running; null for a technician who waits.
const Order* currentOrder(const House& house, const Clock& clock)
{
    const bool isBusy = clock.workStatus == WorkServing || clock.workStatus == WorkAssigned;
    return isBusy ? house.state.orders.find(clock.orderId) : nullptr;
}

json who(const House& house, const Staff& person, const Clock& clock)
{
    const std::string& firstArea = person.areaIds.empty() ? std::string() : person.areaIds.front();
    const WorkArea* group = house.seed.area(firstArea);
    const std::string trade = tradeOf(person);
    const std::string day = timeText(clock.punchedAt).substr(0, 10);
    const bool isWorking = clock.workStatus != WorkOffDuty;
    return {{"id", person.id},
            {"code", person.code},
            {"staffNo", person.code},
            {"name", person.name},
            {"sexVal", "保密"},
            {"statusStr", wordOf(clock.workStatus)},
            {"status", person.active ? 1 : 0},
            {"workStatus", clock.workStatus},
            {"workTypeId", tradeId(house, trade)},
            {"workTypeName", trade},
            {"workTypes", person.workerTypes},
            {"groupId", firstArea},
            {"groupName", group ? group->name : std::string()},
            {"groupStartTime", day + " 10:00:00"},
            {"groupEndTime", day + " 23:59:59"},
            {"overStatus", 0},
            {"purOverStatus", 0},
            {"punchStatus", isWorking ? 1 : 0},
            {"realPunchStatus", isWorking ? 1 : 0},
            {"iswork", isWorking}};
}

json what(House& house, const Clock& clock, Seconds now)
{
    const Order* order = currentOrder(house, clock);
    const Order none;
    const Order& line = order ? *order : none;
    const ServiceLines running = runningLines(house.state, clock);
    const long long surplus = surplusMinutes(running, now);
    const Staff* pusher = house.seed.staffById(line.pushId);
    return {{"orderId", line.id},
            {"orderStatus", static_cast<int>(line.progress)},
            {"itemId", line.itemId},
            {"type", line.clockKind},
            {"typeName", clockKindWord(line.clockKind)},
            {"remark", line.remark},
            {"hardCardId", line.cardId},
            {"cardno", house.state.cardNumber(line.cardId)},
            {"roomId", line.roomId},
            {"roomNo", house.state.roomCode(line.roomId)},
            {"pushId", line.pushId},
            {"pushNo", pusher ? pusher->code : std::string()},
            {"surplus", surplus},
            {"startTime", timeText(line.startedAt)},
            {"endTime", running.empty() ? std::string() : timeText(now + surplus * minute)}};
}

json runningLine(const House& house, const Order& line)
{
    return {{"orderId", line.id},
            {"item_id", line.itemId},
            {"type_id", house.state.items.find(line.itemId)->typeId},
            {"room_id", line.roomId},
            {"hard_card_id", line.cardId},
            {"itemName", line.itemName},
            {"type", line.clockKind},
            {"order_status", static_cast<int>(line.progress)},
            {"status", static_cast<int>(line.status)},
            {"staff_id", line.staffId},
            {"statusName", clockKindWord(line.clockKind)},
            {"price", line.price},
            {"unit", house.state.items.find(line.itemId)->unit},
            {"times", line.minutes}};
}

json servable(const Item& item)
{
    return {{"item_id", item.id},    {"itemName", item.name}, {"price", item.price},
            {"times", item.minutes}, {"typeId", item.typeId}, {"pic_path", item.picture},
            {"isAssign", true},      {"status", 1},           {"add_times", item.minutes}};
}

// The terminal tells an unknown number by the missing record, so it isn't refused.
Reply getStaffInfo(House& house, const Call& call)
{
    json data = {{"itemList", json::array()}, {"serverItem", json::array()}};
    const Staff* person = house.seed.staffByCode(call.text("staffNo"));
    if (!person)
        return Reply::with(data);
    const Clock& clock = *house.state.clocks.find(person->id);
    data["staffInfo"] = who(house, *person, clock);
    data["staffInfo"].update(what(house, clock, call.now));
    for (const Order* line : runningLines(house.state, clock))
        data["itemList"].push_back(runningLine(house, *line));
    for (const Item* item : servableItems(house.state, person->workerTypes))
        data["serverItem"].push_back(servable(*item));
    return Reply::with(data);
}

Reply getStaffItemList(House& house, const Call& call)
{
    json list = json::array();
    for (const Item* item : servableItems(house.state, staffOfId(house, call.text("staffId")).workerTypes))
        list.push_back({{"itemId", item->id},
                        {"name", item->name},
                        {"typeName", categoryName(house, *item)},
                        {"times", item->minutes},
                        {"price", item->price}});
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
    if (isStart && clock.timerStartedAt != 0)
        refuse(timerFault, "技师【" + person.code + "】已在服务中");
    // A stop may come twice: the booking that follows the first one can fail and is tried again with it.
    clock.timerStartedAt = isStart ? call.now : 0;
    announce(house, "STAFFSTATUS", person.code);
    return Reply::done();
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.get("/bda02/getStaffInfo", getStaffInfo).needs("staffNo", Kind::Text);
    table.get("/bda02/getStaffItemList", asked(getStaffItemList)).needs("staffId", Kind::Text);
    table.get("/bda02/getStaffWorkInfo", asked(getStaffWorkInfo)).needs("staffId", Kind::Text);
    table.post("/bda02/updateStaffWorkStatus", asked(updateStaffWorkStatus))
        .needs("staffId", Kind::Text)
        .needs("serverStatus", Kind::Number);
});

} // namespace
} // namespace house
