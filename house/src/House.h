#pragma once

#include "src/Endpoint.h"
#include "src/Faults.h"
#include "src/Holds.h"
#include "src/Journal.h"
#include "src/Publisher.h"
#include "src/Seed.h"
#include "src/Session.h"
#include "src/state/State.h"

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>

namespace house {

/// How busy the other terminals of the house are.
struct OthersOrder
{
    static constexpr double highestPerSecond = 100;

    double perSecond = 0; ///< changes; none at all with 0
    std::uint64_t seed = 1;
    unsigned number = 0; ///< of the order; a new one begins the seed anew
};

/// Everything the house knows while it is open. All but `endpoints` and `clock` is guarded by `mutex`.
struct House
{
    std::mutex mutex;
    Seed seed;
    State state;
    std::unique_ptr<Publisher> publisher; ///< null in a house that is silent
    Sessions sessions;
    NonceLog nonces;
    PerPath<Fault> faults;
    PerPath<std::string> answers; ///< bodies that stand in for what an endpoint says
    Journal journal;
    Holds holds;
    OthersOrder others;
    std::condition_variable othersChanged; ///< wakes who waits for an order
    EndpointTable endpoints;
    std::function<std::int64_t()> clock; ///< Unix seconds
};

/// Bids the other terminals to work at this rate from now on. The caller holds the mutex.
void orderOthers(House& house, double perSecond, std::uint64_t seed);

/// Publishes on the store's topic of this word, such as "ROOMSTATUS". The caller holds the mutex.
void announce(House& house, const char* topicWord, const std::string& payload);

/// When the running business day began, today or yesterday.
Seconds businessDayStart(const House& house, Seconds now);

} // namespace house
