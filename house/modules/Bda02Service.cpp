#include "src/Asked.h"
#include "src/Unread.h"
#include "src/state/RoomDesk.h"
#include "src/state/ServiceClock.h"

#include <algorithm>

namespace house {
namespace {

using nlohmann::json;

constexpr char serviceFault[] = "BDA_ERR_0001";
constexpr char notRunning[] = "该服务已停钟或已退钟";

Clock& clockOf(House& house, const std::string& staffId)
{
    return *house.state.clocks.find(staffOfId(house, staffId).id);
}

Order& runningLineAsked(House& house, const Call& call)
{
    Order* line = runningLine(house.state, call.text("orderId"));
    demand(line, serviceFault, notRunning);
    return *line;
}

ServiceLines runningLinesOf(House& house, const Clock& clock)
{
    ServiceLines lines = runningLines(house.state, clock);
    demand(!lines.empty(), serviceFault, "该技师不在上钟状态");
    return lines;
}

/// A changed service shows on the board as well.
Reply changed(House& house, const std::string& staffId)
{
    announce(house, "STAFFSTATUS", staffOfId(house, staffId).code);
    return roomsChanged(house);
}

const Item& itemAsked(const House& house, const Call& call, const std::string& staffId)
{
    const Staff& person = staffOfId(house, staffId);
    for (const Item* item : servableItems(house.state, person.workerTypes))
        if (item->id == call.text("itemId"))
            return *item;
    refuse(serviceFault, "技师【" + person.code + "】不能做此项目");
}

int clockKindAsked(const Call& call, const char* field)
{
    const int kind = call.body[field].get<int>();
    demand(kind >= firstClockKind && kind <= addedClockKind, serviceFault, "起钟类别不存在");
    return kind;
}

/// Puts an item on a line that keeps its quantity.
void setItem(Order& line, const Item& item)
{
    line.itemId = item.id;
    line.itemName = item.name;
    line.price = item.price;
    line.minutes = static_cast<int>(item.minutes * line.num);
}

/// Where the service is booked. Without a room in the request the guest is served where he is.
void setTarget(House& house, const Call& call, Order& line)
{
    const std::string cardNo = call.text("cardNo");
    const std::string roomNo = call.text("roomNo");
    const bool mayLackCard = house.seed.document.at("sysconfig").value("custCanAssign", false);
    demand(!cardNo.empty() || mayLackCard, serviceFault, "请输入手牌");
    const Card* card = cardNo.empty() ? nullptr : &guestCard(house, cardNo, {});
    const Room* room = roomNo.empty() ? nullptr : &roomOfCode(house, roomNo);
    demand(!room || isInUse(*room), serviceFault, "房间【" + roomNo + "】未开房");
    line.clockKind = clockKindAsked(call, "orderType");
    line.cardId = card ? card->id : "";
    line.roomId = room ? room->id : card ? card->roomId : "";
    line.deviceId = call.terminal->id;
}

/// Starts what he was assigned; the item may have changed meanwhile.
Reply startServer(House& house, const Call& call)
{
    Clock& clock = clockOf(house, call.text("staffId"));
    const Item& item = itemAsked(house, call, clock.id);
    Order* line = house.state.orders.find(call.text("orderId"));
    demand(line && clock.workStatus == WorkAssigned && clock.orderId == line->id &&
               line->progress == Progress::Pending && line->status != LineStatus::Void,
           serviceFault, "派钟信息已发生变化，请重新进入");
    setTarget(house, call, *line);
    // A price made at the sale stays, as long as the item does.
    if (line->itemId != item.id)
        setItem(*line, item);
    run(*line, clock, call.now);
    return changed(house, clock.id);
}

Reply startServerWithoutOrder(House& house, const Call& call)
{
    Clock& clock = clockOf(house, call.text("staffId"));
    Order line = lineOf(itemAsked(house, call, clock.id));
    demand(clock.workStatus == WorkWaiting, serviceFault, "该技师不在待钟状态，不能起钟");
    setTarget(house, call, line);
    line.staffId = line.enteredBy = clock.id;
    line.pushId = call.body.contains("pushNo") ? staffOfCode(house, call.text("pushNo")).id : "";
    line.createdAt = call.now;
    run(house.state.addOrder(std::move(line)), clock, call.now);
    return changed(house, clock.id);
}

/// A further line of the running service; the card, the room, the pusher and the kinds in the request repeat
/// what that has.
Reply addServer(House& house, const Call& call)
{
    const Clock& clock = clockOf(house, call.text("staffId"));
    const Item& item = itemAsked(house, call, clock.id);
    // Sharing the batch is what makes it one service.
    Order line = *runningLinesOf(house, clock).front();
    line.num = call.body["num"].get<double>();
    demand(line.num >= 1, serviceFault, "加钟数量不正确");
    line.status = LineStatus::Normal;
    line.areaId = item.areaIds.front();
    line.clockKind = addedClockKind;
    line.createdAt = line.startedAt = call.now;
    setItem(line, item);
    house.state.addOrder(std::move(line));
    return changed(house, clock.id);
}

Reply changeServer(House& house, const Call& call)
{
    Order& line = runningLineAsked(house, call);
    setItem(line, itemAsked(house, call, line.staffId));
    return changed(house, line.staffId);
}

Reply changeCard(House& house, const Call& call)
{
    const Clock& clock = clockOf(house, call.text("staffId"));
    const Card& card = guestCard(house, call.text("cardNo"), {});
    const ServiceLines lines = runningLinesOf(house, clock);
    demand(lines.front()->cardId != card.id, serviceFault, "新手牌与原手牌相同");
    for (Order* line : lines)
        house.state.moveLine(*line, card);
    return changed(house, clock.id);
}

Reply chgAssignType(House& house, const Call& call)
{
    Order& line = runningLineAsked(house, call);
    line.clockKind = clockKindAsked(call, "newType");
    return changed(house, line.staffId);
}

/// Without a line left he waits again.
Reply chargeBack(House& house, const Call& call)
{
    Clock& clock = clockOf(house, call.text("staffId"));
    const ServiceLines lines = runningLines(house.state, clock);
    ServiceLines given;
    for (const std::string& id : textsOf(call.body, "orderIds")) {
        const auto line = std::find(lines.begin(), lines.end(), runningLine(house.state, id));
        demand(line != lines.end(), serviceFault, notRunning);
        given.push_back(*line);
    }
    demand(!given.empty(), serviceFault, "请选择需要退钟的项目");
    for (Order* line : given)
        line->status = LineStatus::Void;
    const auto left = std::find_if(lines.begin(), lines.end(),
                                   [](const Order* line) { return line->status != LineStatus::Void; });
    if (left == lines.end())
        standStill(clock);
    else
        clock.orderId = (*left)->id;
    return changed(house, clock.id);
}

/// A time of day, as the voucher has room for.
std::string clockText(Seconds time) { return timeText(time).substr(11, 5); }

/// Ends the whole service and hands out its lines.
Reply endServer(House& house, const Call& call)
{
    const Order* asked = house.state.orders.find(call.text("orderId"));
    demand(asked, serviceFault, "服务订单不存在");
    Clock& clock = clockOf(house, asked->staffId);
    const ServiceLines lines = runningLinesOf(house, clock);
    const long long surplus = surplusMinutes(lines, call.now);
    json printed = json::array();
    for (Order* line : lines) {
        line->progress = Progress::Finished;
        line->endedAt = call.now;
        printed.push_back({{"itemName", line->itemName},
                           {"assignType", clockKindWord(line->clockKind)},
                           {"price", line->price},
                           {"num", line->num},
                           {"amount", amountOf(*line)},
                           {"startTime", clockText(line->startedAt)},
                           {"endTime", clockText(line->endedAt)}});
    }
    standStill(clock);
    changed(house, clock.id);
    return Reply::with({{"staffNo", staffOfId(house, clock.id).code},
                        {"roomNo", house.state.roomCode(lines.front()->roomId)},
                        {"cardNo", house.state.cardNumber(lines.front()->cardId)},
                        {"surplus", surplus},
                        {"printlist", printed}});
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.post("/bda02/startServer", "staffId itemId cardNo orderType# roomNo? orderId", startServer);
    table
        .post("/bda02/startServerWithoutOrder", "staffId itemId cardNo orderType# roomNo? pushNo?",
              startServerWithoutOrder)
        .guardedBy("405787820965498883");
    table.post("/bda02/addServer", "staffId hardCardId itemId typeId onTypeId pushId num# roomId?", addServer);
    table.post("/bda02/changeServer", "orderId itemId typeId onTypeId", changeServer)
        .guardedBy("405775476587761665");
    table.post("/bda02/changeCard", "staffId cardId cardNo roomId?", changeCard)
        .guardedBy("405775602253303810");
    table.post("/bda02/chgAssignType", "newType# orderId", chgAssignType);
    table.post("/bda02/chargeBack", "staffId orderIds[]", chargeBack);
    table.post("/bda02/endServer", "orderId pageType#", endServer).guardedBy("405774559473831939");
});

} // namespace
} // namespace house
