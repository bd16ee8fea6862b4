#include "src/others/Moves.h"
#include "src/state/ServiceClock.h"

#include <algorithm>

namespace house {
namespace {

using nlohmann::json;

constexpr int mostGoods = 4; ///< lines on a card; nobody eats all evening
constexpr double dearestGoods = 100;
constexpr int techniciansLeftToCallers = 4;
constexpr int shortestWait = 15; ///< minutes that a room must have left for a service
constexpr int marketPriceSale = 2;
const std::vector<int> clockKinds = {5, 5, 5, 2, 1}; ///< most services go by turn

bool isSoldIn(const Item& item, const std::string& areaId)
{
    return std::count(item.areaIds.begin(), item.areaIds.end(), areaId) > 0;
}

bool order(Scene& scene)
{
    const Room* room =
        scene.pick(scene.roomsThat([](const Room& each) { return isInUse(each) && !each.isSettled; }));
    const Card* card = room ? scene.pick(scene.guestsIn(*room)) : nullptr;
    if (!card || scene.goodsOn(*card) >= mostGoods)
        return false;
    const std::string& areaId = scene.areaOf(*room);
    std::vector<const Item*> items;
    for (const Item& item : scene.state().items)
        if (item.kind == OrderKind::Goods && item.sellFlg != marketPriceSale && !item.needsDesk &&
            item.price > 0 && item.price <= dearestGoods && isSoldIn(item, areaId))
            items.push_back(&item);
    const Item* item = scene.pick(items);
    if (!item)
        return false;
    const json line = {{"id", item->id},
                       {"status", static_cast<int>(LineStatus::Normal)},
                       {"orderType", static_cast<int>(item->kind)},
                       {"num", 1 + scene.below(2)},
                       {"areaId", areaId}};
    return scene.call(
        "/bca01/batchUpdateOrder",
        {{"items", json::array({line})}, {"opType", 1}, {"mode", 0}, {"hardCardId", card->id}, {"roomId", ""}});
}

/// Who could do what in an area, of those who wait; nobody when callers would be left with too few.
std::vector<std::pair<const Clock*, const Item*>> offers(const Scene& scene, const std::string& areaId)
{
    std::vector<std::pair<const Clock*, const Item*>> found;
    int waiting = 0;
    for (const Clock& clock : scene.state().clocks) {
        if (clock.workStatus != WorkWaiting || clock.timerStartedAt != 0)
            continue;
        ++waiting;
        if (!scene.isHeld(clock.id))
            for (const Item* item : servableItems(scene.state(), scene.staff(clock.id)->workerTypes))
                if (isSoldIn(*item, areaId))
                    found.emplace_back(&clock, item);
    }
    if (waiting <= techniciansLeftToCallers)
        found.clear();
    return found;
}

bool startService(Scene& scene)
{
    const Room* room = scene.pick(scene.roomsThat([&](const Room& each) {
        return isInUse(each) && each.status == RoomStatus::Massage && !each.isSettled &&
               scene.isForServices(each) && minutesLeft(each, scene.time()) > shortestWait;
    }));
    const Card* card = room ? scene.pick(scene.guestsIn(*room)) : nullptr;
    if (!card || scene.isServed(*card))
        return false;
    const auto [clock, item] = scene.pick(offers(scene, scene.areaOf(*room)));
    return clock && scene.call("/bda02/startServerWithoutOrder", {{"staffId", clock->id},
                                                                  {"itemId", item->id},
                                                                  {"cardNo", card->number},
                                                                  {"orderType", scene.pick(clockKinds)},
                                                                  {"roomNo", room->code}});
}

/// Neither the technician nor his guest is somebody's business at the moment.
bool mayTouchService(const Scene& scene, const Order& order)
{
    const Card* card = scene.state().cards.find(order.cardId);
    const Room* room = scene.state().rooms.find(order.roomId);
    return !scene.isHeld(order.staffId) && card && scene.mayTouch(*card) && (!room || scene.mayTouch(*room));
}

bool startAssigned(Scene& scene)
{
    std::vector<const Order*> lines;
    for (const Clock& clock : scene.state().clocks) {
        const Order* line =
            clock.workStatus == WorkAssigned ? scene.state().orders.find(clock.orderId) : nullptr;
        if (line && line->progress == Progress::Pending && isOpen(*line) && mayTouchService(scene, *line))
            lines.push_back(line);
    }
    const Order* line = scene.pick(lines);
    return line && scene.call("/bda02/startServer", {{"staffId", line->staffId},
                                                     {"itemId", line->itemId},
                                                     {"cardNo", scene.state().cardNumber(line->cardId)},
                                                     {"orderType", line->clockKind},
                                                     {"orderId", line->id}});
}

/// The line belongs to the service that its technician's clock stands on.
bool isOnClock(const State& state, const Order& line)
{
    const Clock* clock = state.clocks.find(line.staffId);
    const Order* current =
        clock && clock->workStatus == WorkServing ? state.orders.find(clock->orderId) : nullptr;
    return current && current->batchId == line.batchId;
}

/// Clocks may have been added to it.
bool isWholeServiceOver(const Scene& scene, const Order& line)
{
    const Clock& clock = *scene.state().clocks.find(line.staffId);
    return surplusMinutes(runningLines(scene.state(), clock), scene.time()) <= 0;
}

bool endService(Scene& scene)
{
    std::vector<Order*> lines;
    for (Order& line : scene.state().orders)
        if (line.progress == Progress::Running && isOpen(line) && surplusMinutes({&line}, scene.time()) <= 0 &&
            mayTouchService(scene, line))
            lines.push_back(&line);
    Order* line = scene.pick(lines);
    if (!line)
        return false;
    if (isOnClock(scene.state(), *line))
        return isWholeServiceOver(scene, *line) &&
               scene.call("/bda02/endServer", {{"orderId", line->id}, {"pageType", 1}});
    // A service that came with the house alone: no clock would ever end it.
    line->progress = Progress::Finished;
    line->endedAt = scene.time();
    scene.announceChange();
    return true;
}

bool callStaff(Scene& scene)
{
    const Room* room = scene.pick(
        scene.roomsThat([](const Room& each) { return isInUse(each) && each.status == RoomStatus::Massage; }));
    std::vector<const CallContent*> contents;
    for (const CallContent& content : scene.state().callContents)
        contents.push_back(&content);
    const CallContent* content = scene.pick(contents);
    return room && content &&
           scene.call("/caa04/callStaff", {{"roomId", room->id}, {"contId", content->id}, {"num", 1}});
}

} // namespace

const std::vector<Move>& serviceMoves()
{
    static const std::vector<Move> moves = {
        {"order", always<14>, order},
        {"start service", always<10>, startService},
        {"start assigned", always<3>, startAssigned},
        {"end service", always<20>, endService},
        {"call staff", always<2>, callStaff},
    };
    return moves;
}

} // namespace house
