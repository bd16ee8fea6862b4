#pragma once

#include <cstdint>
#include <random>
#include <vector>

namespace house {

/// Chance that falls the same way for the same seed on every machine.
class Dice
{
public:
    explicit Dice(std::uint64_t seed) : engine(seed) {}

    /// From 0 to one less than the bound, which isn't 0.
    int below(int bound) { return static_cast<int>(engine() % static_cast<std::uint64_t>(bound)); }

    /// An empty value, such as a null pointer, when there is nothing to choose from.
    template <typename T>
    T pick(const std::vector<T>& choices)
    {
        return choices.empty() ? T()
                               : choices[static_cast<std::size_t>(below(static_cast<int>(choices.size())))];
    }

private:
    std::mt19937_64 engine;
};

} // namespace house
