#include "src/state/ServiceClock.h"

#include <algorithm>

namespace house {
namespace {

constexpr Seconds minute = 60;

} // namespace

std::string clockKindWord(int kind)
{
    static const std::string words[] = {"点  钟", "选  钟", "CALL钟", "捡  钟", "轮  钟", "加  钟"};
    return kind < firstClockKind || kind > addedClockKind ? std::string() : words[kind - firstClockKind];
}

Order* runningLine(State& state, const std::string& orderId)
{
    Order* order = state.orders.find(orderId);
    const bool isRunning = order && order->status != LineStatus::Void && order->progress == Progress::Running;
    return isRunning ? order : nullptr;
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

} // namespace house
