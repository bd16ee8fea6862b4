#pragma once

#include "src/Endpoint.h"
#include "src/Faults.h"
#include "src/Journal.h"
#include "src/Publisher.h"
#include "src/Seed.h"
#include "src/Session.h"
#include "src/state/State.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>

namespace house {

/// Everything the house knows while it is open. All but `endpoints` and `clock` is guarded by `mutex`.
struct House
{
    std::mutex mutex;
    Seed seed;
    State state;
    std::unique_ptr<Publisher> publisher = std::make_unique<SilentPublisher>();
    Sessions sessions;
    NonceLog nonces;
    PerPath<Fault> faults;
    PerPath<ScriptedAnswer> answers;
    Journal journal;
    EndpointTable endpoints;
    std::function<std::int64_t()> clock; ///< Unix seconds
};

/// Publishes on the store's topic of this word, such as "ROOMSTATUS". The caller holds the mutex.
void announce(House& house, const char* topicWord, const std::string& payload);

} // namespace house
