#pragma once

#include "src/others/Scene.h"

#include <cstdint>

namespace house {

/// The other terminals of the house, at which an evening's business goes on. What they do next follows from the
/// seed, the house and its clock alone. The house mustn't go before them.
class OtherTerminals
{
public:
    OtherTerminals(House& house, std::uint64_t seed, Scene::Complain complain)
        : house(house), dice(seed), complain(std::move(complain))
    {
    }

    /// Changes one thing as a call of a terminal would, and publishes it likewise. The name of the change, null
    /// when there is nothing that may be changed. The caller holds the mutex.
    const char* change(Seconds now);

private:
    House& house;
    Dice dice;
    Scene::Complain complain;
};

} // namespace house
