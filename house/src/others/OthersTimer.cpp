#include "src/others/OthersTimer.h"

#include "src/others/OtherTerminals.h"

#include <algorithm>
#include <chrono>

namespace house {

using Ticks = std::chrono::steady_clock;
constexpr double longestInterval = 24 * 60 * 60; ///< seconds

OthersTimer::OthersTimer(House& house, Log& log) : house(house), log(log), thread([this] { run(); }) {}

OthersTimer::~OthersTimer()
{
    {
        const std::lock_guard<std::mutex> lock(house.mutex);
        isEnding = true;
    }
    house.othersChanged.notify_all();
    thread.join();
}

void OthersTimer::run()
{
    std::unique_lock<std::mutex> lock(house.mutex);
    while (!isEnding) {
        const OthersOrder order = house.others;
        const auto isOver = [&] { return isEnding || house.others.number != order.number; };
        if (order.perSecond <= 0) {
            house.othersChanged.wait(lock, isOver);
            continue;
        }
        OtherTerminals others(house, order.seed, [this](const std::string& what) { log.line(what); });
        const auto interval = std::chrono::duration_cast<Ticks::duration>(
            std::chrono::duration<double>(std::min(1 / order.perSecond, longestInterval)));
        Ticks::time_point due = Ticks::now() + interval;
        while (!house.othersChanged.wait_until(lock, due, isOver)) {
            others.change(house.clock());
            // What was missed while the machine was busy isn't made up for.
            due = std::max(due + interval, Ticks::now());
        }
    }
}

} // namespace house
