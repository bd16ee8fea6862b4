#include "src/state/ServiceClock.h"

#include <algorithm>

namespace house {
namespace {

constexpr Seconds minute = 60;
constexpr char notServing[] = "该技师不在上钟状态";
constexpr char notRunning[] = "该服务已停钟或已退钟";

Order* runningLine(State& state, const std::string& orderId)
{
    Order* order = state.orders.find(orderId);
    const bool isRunning = order && order->status != LineStatus::Void && order->progress == Progress::Running;
    return isRunning ? order : nullptr;
}

/// Puts an item on a line that keeps its quantity.
void setItem(Order& line, const Item& item)
{
    line.itemId = item.id;
    line.itemName = item.name;
    line.price = item.price;
    line.minutes = static_cast<int>(item.minutes * line.num);
}

void setTarget(Order& line, const ServiceTarget& target)
{
    line.cardId = target.card ? target.card->id : std::string();
    line.roomId = target.room ? target.room->id : std::string();
    line.clockKind = target.clockKind;
    line.deviceId = target.deviceId;
}

void run(Order& line, Clock& clock, Seconds now)
{
    line.progress = Progress::Running;
    line.startedAt = now;
    clock.workStatus = WorkServing;
    clock.orderId = line.id;
}

void standStill(Clock& clock)
{
    clock.workStatus = WorkWaiting;
    clock.orderId.clear();
}

} // namespace

const char* clockKindWord(int kind)
{
    switch (kind) {
    case 1:
        return "点  钟";
    case 2:
        return "选  钟";
    case 3:
        return "CALL钟";
    case 4:
        return "捡  钟";
    case 5:
        return "轮  钟";
    case addedClockKind:
        return "加  钟";
    default:
        return "";
    }
}

ServiceLines runningLines(State& state, const Clock& clock)
{
    Order* first = runningLine(state, clock.orderId);
    if (!first)
        return {};
    ServiceLines lines{first};
    for (Order& order : state.orders)
        if (&order != first && order.staffId == clock.id && order.batchId == first->batchId &&
            runningLine(state, order.id))
            lines.push_back(&order);
    return lines;
}

long long surplusMinutes(const ServiceLines& lines, Seconds now)
{
    if (lines.empty())
        return 0;
    long long planned = 0;
    Seconds startedAt = now;
    for (const Order* line : lines) {
        planned += line->minutes;
        startedAt = std::min(startedAt, line->startedAt);
    }
    return planned - (now - startedAt) / minute;
}

std::vector<const Item*> servableItems(const State& state, const std::string& trades)
{
    std::vector<const Item*> found;
    const std::string list = "," + trades + ",";
    for (const Item& item : state.items)
        if (item.kind == OrderKind::Technician && list.find("," + item.workerType + ",") != std::string::npos)
            found.push_back(&item);
    return found;
}

std::string startService(State& state, Clock& clock, const Item& item, const ServiceTarget& target, Seconds now)
{
    if (clock.workStatus != WorkWaiting)
        return "该技师不在待钟状态，不能起钟";
    Order line = lineOf(item);
    line.id = line.batchId = state.newId();
    line.staffId = line.enteredBy = clock.id;
    line.pushId = target.pushId;
    line.areaId = item.areaIds.front();
    line.createdAt = now;
    setTarget(line, target);
    run(state.orders.add(std::move(line)), clock, now);
    return {};
}

std::string startAssigned(State& state, Clock& clock, const std::string& orderId, const Item& item,
                          const ServiceTarget& target, Seconds now)
{
    Order* line = state.orders.find(orderId);
    if (clock.workStatus != WorkAssigned || clock.orderId != orderId || !line ||
        line->progress != Progress::Pending || line->status == LineStatus::Void)
        return "派钟信息已发生变化，请重新进入";
    // A price made at the sale stays, as long as the item does.
    if (line->itemId != item.id)
        setItem(*line, item);
    setTarget(*line, target);
    run(*line, clock, now);
    return {};
}

std::string addClock(State& state, Clock& clock, const Item& item, double num, Seconds now)
{
    const ServiceLines lines = runningLines(state, clock);
    if (lines.empty())
        return notServing;
    // Sharing the batch is what makes it one service.
    Order line = *lines.front();
    line.id = state.newId();
    line.num = num;
    line.status = LineStatus::Normal;
    line.areaId = item.areaIds.front();
    line.clockKind = addedClockKind;
    line.createdAt = line.startedAt = now;
    line.remark.clear();
    line.tagIds.clear();
    setItem(line, item);
    state.orders.add(std::move(line));
    return {};
}

std::string changeItem(State& state, const std::string& orderId, const Item& item)
{
    Order* line = runningLine(state, orderId);
    if (!line)
        return notRunning;
    setItem(*line, item);
    return {};
}

std::string changeKind(State& state, const std::string& orderId, int kind)
{
    Order* line = runningLine(state, orderId);
    if (!line)
        return notRunning;
    line->clockKind = kind;
    return {};
}

std::string moveToCard(State& state, Clock& clock, const Card& card)
{
    const ServiceLines lines = runningLines(state, clock);
    if (lines.empty())
        return notServing;
    if (lines.front()->cardId == card.id)
        return "新手牌与原手牌相同";
    for (Order* line : lines) {
        line->oldCardNo = state.cardNumber(line->cardId);
        line->cardId = card.id;
    }
    return {};
}

std::string chargeBack(State& state, Clock& clock, const std::vector<std::string>& orderIds)
{
    const ServiceLines lines = runningLines(state, clock);
    ServiceLines given;
    for (const std::string& id : orderIds) {
        const auto line =
            std::find_if(lines.begin(), lines.end(), [&](const Order* running) { return running->id == id; });
        if (line == lines.end())
            return notRunning;
        given.push_back(*line);
    }
    if (given.empty())
        return "请选择需要退钟的项目";
    for (Order* line : given)
        line->status = LineStatus::Void;
    const auto left = std::find_if(lines.begin(), lines.end(),
                                   [](const Order* line) { return line->status != LineStatus::Void; });
    if (left == lines.end())
        standStill(clock);
    else
        clock.orderId = (*left)->id;
    return {};
}

ServiceLines endService(State& state, Clock& clock, Seconds now)
{
    ServiceLines lines = runningLines(state, clock);
    for (Order* line : lines) {
        line->progress = Progress::Finished;
        line->endedAt = now;
    }
    standStill(clock);
    return lines;
}

} // namespace house
