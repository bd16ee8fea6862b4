#pragma once

#include "src/House.h"
#include "src/Log.h"

#include <random>
#include <string>
#include <thread>

namespace house {

using Dice = std::mt19937_64;

/// Changes one thing as another terminal would: somebody comes, is served, leaves, or a room is
/// cleaned. Left alone are guest rooms, what a caller has named lately, who waits for a bath helper, and the
/// groups of all these. Empty when all went well, else what the house refused. The caller holds the mutex.
std::string changeSomething(House& house, Dice& dice, Seconds now);

/// Lets the other terminals work at the ordered rate, from a thread of its own, until it is destroyed.
class Others
{
public:
    Others(House& house, Log& log);
    ~Others();
    Others(const Others&) = delete;
    Others& operator=(const Others&) = delete;

private:
    void run();

    House& house;
    Log& log;
    bool isEnding = false; ///< guarded by the house's mutex
    std::thread thread;
};

} // namespace house
