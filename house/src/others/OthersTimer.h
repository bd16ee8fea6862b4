#pragma once

#include "src/House.h"
#include "src/Log.h"

#include <thread>

namespace house {

/// Lets the other terminals work at the ordered rate, from a thread of its own, until it is destroyed.
class OthersTimer
{
public:
    OthersTimer(House& house, Log& log);
    ~OthersTimer();
    OthersTimer(const OthersTimer&) = delete;
    OthersTimer& operator=(const OthersTimer&) = delete;

private:
    void run();

    House& house;
    Log& log;
    bool isEnding = false; ///< guarded by the house's mutex
    std::thread thread;
};

} // namespace house
