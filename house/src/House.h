#pragma once

#include "src/Endpoint.h"
#include "src/Faults.h"
#include "src/Journal.h"
#include "src/Seed.h"
#include "src/Session.h"

#include <cstdint>
#include <functional>
#include <mutex>
#include <string>

namespace house {

/// Everything the house knows while it is open. All but `endpoints` and `clock` is guarded by `mutex`.
struct House
{
    std::mutex mutex;
    Seed seed;
    Sessions sessions;
    NonceLog nonces;
    PerPath<Fault> faults;
    PerPath<ScriptedAnswer> answers;
    Journal journal;
    EndpointTable endpoints;
    std::function<std::int64_t()> clock; ///< Unix seconds
};

} // namespace house
