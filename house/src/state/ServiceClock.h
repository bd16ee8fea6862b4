#pragma once

#include "src/state/State.h"

#include <string>
#include <vector>

/// The technician's clock: who serves whom with what, since when.
namespace house {

enum WorkStatus { WorkWaiting = 1, WorkServing = 2, WorkOffDuty = 3, WorkAssigned = 6 };

constexpr int firstClockKind = 1;
constexpr int addedClockKind = 6;
/// The label of a clock kind, empty for a code that is none.
const char* clockKindWord(int kind);

/// Where a service is booked, and for whom it counts.
struct ServiceTarget
{
    const Card* card = nullptr; ///< null in a house that serves without hand cards
    const Room* room = nullptr; ///< null for a guest who isn't in a room
    std::string pushId;
    int clockKind = firstClockKind;
    std::string deviceId;
};

using ServiceLines = std::vector<Order*>;

/// The technician's running lines, the first being the one that his clock stands on.
ServiceLines runningLines(State& state, const Clock& clock);
/// Minutes left of these lines, negative when overrun.
long long surplusMinutes(const ServiceLines& lines, Seconds now);
/// All that he can do by his trades, which are separated by commas.
std::vector<const Item*> servableItems(const State& state, const std::string& trades);

// What goes wrong is told in Chinese for the user; empty when the thing is done.

std::string startService(State& state, Clock& clock, const Item& item, const ServiceTarget& target,
                         Seconds now);
/// The order that he was assigned; the item may have changed meanwhile.
std::string startAssigned(State& state, Clock& clock, const std::string& orderId, const Item& item,
                          const ServiceTarget& target, Seconds now);
/// A further line of the running service.
std::string addClock(State& state, Clock& clock, const Item& item, double num, Seconds now);
std::string changeItem(State& state, const std::string& orderId, const Item& item);
std::string changeKind(State& state, const std::string& orderId, int kind);
std::string moveToCard(State& state, Clock& clock, const Card& card);
/// Voids these lines; without a line left he waits again.
std::string chargeBack(State& state, Clock& clock, const std::vector<std::string>& orderIds);
/// Ends the whole service and hands out its lines.
ServiceLines endService(State& state, Clock& clock, Seconds now);

} // namespace house
