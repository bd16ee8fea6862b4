#pragma once

#include "src/House.h"

#include <string>

namespace house {

struct ControlAnswer
{
    int status = 200;
    std::string body; ///< JSON
};

/// Serves the paths under "/_control/", by which a test or a demonstration steers the house. Takes the mutex.
ControlAnswer handleControl(House& house, const WireRequest& request);

} // namespace house
