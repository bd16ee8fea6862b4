#pragma once

#include "src/state/State.h"

#include <string>
#include <vector>

/// The technician's clock: who serves whom with what, since when.
namespace house {

constexpr int firstClockKind = 1;
constexpr int addedClockKind = 6;
/// The label of a clock kind, empty for a code that is none.
std::string clockKindWord(int kind);

using ServiceLines = std::vector<Order*>;

/// Null when the line isn't one of a service that is going on.
Order* runningLine(State& state, const std::string& orderId);
/// The technician's running lines, the first being the one that his clock stands on.
ServiceLines runningLines(State& state, const Clock& clock);
/// Minutes left of these lines, negative when overrun.
long long surplusMinutes(const ServiceLines& lines, Seconds now);
/// All that he can do by his trades, which are separated by commas.
std::vector<const Item*> servableItems(const State& state, const std::string& trades);

/// The clock runs on this line from now on.
void run(Order& line, Clock& clock, Seconds now);
/// The technician waits for the next guest.
void standStill(Clock& clock);

} // namespace house
