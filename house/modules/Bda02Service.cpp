#include "src/Lookup.h"
#include "src/state/ServiceClock.h"

namespace house {
namespace {

using nlohmann::json;

constexpr char serviceFault[] = "BDA_ERR_0001";
constexpr char startRight[] = "405787820965498883";
constexpr char endRight[] = "405774559473831939";
constexpr char changeItemRight[] = "405775476587761665";
constexpr char changeCardRight[] = "405775602253303810";

Clock& clockOf(House& house, const std::string& staffId)
{
    return *house.state.clocks.find(staffOfId(house, staffId).id);
}

/// The clock that stands on this line or on the service it belongs to.
Clock& clockOfLine(House& house, const std::string& orderId)
{
    const Order* line = house.state.orders.find(orderId);
    if (!line)
        refuse(serviceFault, "服务订单不存在");
    return clockOf(house, line->staffId);
}

/// A changed service shows on the board as well.
Reply changed(House& house, const Clock& clock)
{
    announce(house, "STAFFSTATUS", staffOfId(house, clock.id).code);
    announceRooms(house);
    return Reply::done();
}

const Item& servableItem(const House& house, const Clock& clock, const std::string& itemId)
{
    const Staff& person = staffOfId(house, clock.id);
    for (const Item* item : servableItems(house.state, person.workerTypes))
        if (item->id == itemId)
            return *item;
    refuse(serviceFault, "技师【" + person.code + "】不能做此项目");
}

int clockKindIn(const Call& call, const char* field)
{
    const int kind = call.body[field].get<int>();
    if (kind < firstClockKind || kind > addedClockKind)
        refuse(serviceFault, "起钟类别不存在");
    return kind;
}

/// Without a room in the request the guest is served where he is.
ServiceTarget targetIn(House& house, const Call& call)
{
    ServiceTarget target;
    const std::string cardNo = call.text("cardNo");
    if (!cardNo.empty())
        target.card = &guestCard(house, cardNo, {});
    else if (!house.seed.document["sysconfig"].value("custCanAssign", false))
        refuse(serviceFault, "请输入手牌");
    const std::string roomNo = call.text("roomNo");
    if (!roomNo.empty())
        target.room = &roomInUse(house, roomNo);
    else if (target.card)
        target.room = house.state.rooms.find(target.card->roomId);
    if (call.body.contains("pushNo"))
        target.pushId = staffOfCode(house, call.text("pushNo")).id;
    target.clockKind = clockKindIn(call, "orderType");
    target.deviceId = call.terminal->id;
    return target;
}

Reply startServer(House& house, const Call& call)
{
    Clock& clock = clockOf(house, call.text("staffId"));
    refuseIf(serviceFault,
             startAssigned(house.state, clock, call.text("orderId"),
                           servableItem(house, clock, call.text("itemId")), targetIn(house, call), call.now));
    return changed(house, clock);
}

Reply startServerWithoutOrder(House& house, const Call& call)
{
    Clock& clock = clockOf(house, call.text("staffId"));
    refuseIf(serviceFault, startService(house.state, clock, servableItem(house, clock, call.text("itemId")),
                                        targetIn(house, call), call.now));
    return changed(house, clock);
}

// The card, the room, the pusher and the kinds in the request repeat what the running service has.
Reply addServer(House& house, const Call& call)
{
    Clock& clock = clockOf(house, call.text("staffId"));
    const double num = call.body["num"].get<double>();
    if (num < 1)
        refuse(serviceFault, "加钟数量不正确");
    refuseIf(serviceFault,
             addClock(house.state, clock, servableItem(house, clock, call.text("itemId")), num, call.now));
    return changed(house, clock);
}

Reply changeServer(House& house, const Call& call)
{
    const Clock& clock = clockOfLine(house, call.text("orderId"));
    refuseIf(serviceFault,
             changeItem(house.state, call.text("orderId"), servableItem(house, clock, call.text("itemId"))));
    return changed(house, clock);
}

Reply changeCard(House& house, const Call& call)
{
    Clock& clock = clockOf(house, call.text("staffId"));
    refuseIf(serviceFault, moveToCard(house.state, clock, guestCard(house, call.text("cardNo"), {})));
    return changed(house, clock);
}

Reply chgAssignType(House& house, const Call& call)
{
    refuseIf(serviceFault, changeKind(house.state, call.text("orderId"), clockKindIn(call, "newType")));
    return changed(house, clockOfLine(house, call.text("orderId")));
}

Reply chargeBackLines(House& house, const Call& call)
{
    Clock& clock = clockOf(house, call.text("staffId"));
    refuseIf(serviceFault, chargeBack(house.state, clock, textsOf(call.body, "orderIds")));
    return changed(house, clock);
}

json voucherLine(const Order& line)
{
    return {{"itemName", line.itemName},
            {"assignType", clockKindWord(line.clockKind)},
            {"price", line.price},
            {"num", line.num},
            {"amount", amountOf(line)},
            {"startTime", timeText(line.startedAt)},
            {"endTime", timeText(line.endedAt)}};
}

Reply endServer(House& house, const Call& call)
{
    Clock& clock = clockOfLine(house, call.text("orderId"));
    const long long surplus = surplusMinutes(runningLines(house.state, clock), call.now);
    const ServiceLines lines =
        clock.workStatus == WorkServing ? endService(house.state, clock, call.now) : ServiceLines{};
    if (lines.empty())
        refuse(serviceFault, "该技师不在上钟状态");
    json printed = json::array();
    for (const Order* line : lines)
        printed.push_back(voucherLine(*line));
    changed(house, clock);
    return Reply::with({{"staffNo", staffOfId(house, clock.id).code},
                        {"roomNo", house.state.roomCode(lines.front()->roomId)},
                        {"cardNo", house.state.cardNumber(lines.front()->cardId)},
                        {"surplus", surplus},
                        {"printlist", printed}});
}

void addStarts(EndpointTable& table)
{
    const auto start = [&table](const std::string& path, Handler handler) -> Endpoint& {
        return table.post(path, asked(std::move(handler)))
            .needs("staffId", Kind::Text)
            .needs("itemId", Kind::Text)
            .needs("cardNo", Kind::Text)
            .needs("orderType", Kind::Number)
            .takes("roomNo", Kind::Text);
    };
    start("/bda02/startServer", startServer).needs("orderId", Kind::Text);
    start("/bda02/startServerWithoutOrder", startServerWithoutOrder)
        .takes("pushNo", Kind::Text)
        .guardedBy({startRight, "", "", "", ""});
}

const ModuleRegistration registration([](EndpointTable& table) {
    addStarts(table);
    table.post("/bda02/addServer", asked(addServer))
        .needs("staffId", Kind::Text)
        .needs("hardCardId", Kind::Text)
        .needs("itemId", Kind::Text)
        .needs("typeId", Kind::Text)
        .needs("onTypeId", Kind::Text)
        .needs("pushId", Kind::Text)
        .needs("num", Kind::Number)
        .takes("roomId", Kind::Text);
    table.post("/bda02/changeServer", asked(changeServer))
        .needs("orderId", Kind::Text)
        .needs("itemId", Kind::Text)
        .needs("typeId", Kind::Text)
        .needs("onTypeId", Kind::Text)
        .guardedBy({changeItemRight, "", "", "", ""});
    table.post("/bda02/changeCard", asked(changeCard))
        .needs("staffId", Kind::Text)
        .needs("cardId", Kind::Text)
        .needs("cardNo", Kind::Text)
        .takes("roomId", Kind::Text)
        .guardedBy({changeCardRight, "", "", "", ""});
    table.post("/bda02/chgAssignType", asked(chgAssignType))
        .needs("newType", Kind::Number)
        .needs("orderId", Kind::Text);
    table.post("/bda02/chargeBack", asked(chargeBackLines))
        .needs("staffId", Kind::Text)
        .needs("orderIds", Kind::Array);
    table.post("/bda02/endServer", asked(endServer))
        .needs("orderId", Kind::Text)
        .needs("pageType", Kind::Number)
        .guardedBy({endRight, "", "", "", ""});
});

} // namespace
} // namespace house
