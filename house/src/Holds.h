#pragma once

#include "src/state/Rows.h"

#include <nlohmann/json.hpp>
#include <string>
#include <unordered_map>

namespace house {

struct Seed;
struct State;

/// What callers have lately asked about or changed: rooms, cards and staff, by their ids.
class Holds
{
public:
    /// How long the other terminals leave alone what a caller has named.
    static constexpr Seconds holdSeconds = 600;

    /// Notes every room, card and member of staff that a field names by id, number or serial, and the room in
    /// which a named card is.
    void note(State& state, const Seed& seed, const nlohmann::json& value, Seconds now);
    bool has(const std::string& id, Seconds now) const;

private:
    std::unordered_map<std::string, Seconds> ends; ///< end of the hold by id
};

} // namespace house
