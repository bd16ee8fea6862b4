#pragma once

#include "src/Seed.h"
#include "src/state/State.h"

namespace house {

/// Furnishes the house from the seed's parts, with the times of its guests counted back from `now`.
/// `roomCount` other than 0 leaves rooms out, or builds the whole house again and again until there are so
/// many. Throws a std::exception that tells what is wrong, for the person who starts the house.
State furnish(const Seed& seed, int roomCount, Seconds now);

/// A house that works by rooms alone books on a card that every room has of its own, with the room's number.
void furnishRoomCard(State& state, const Room& room);

} // namespace house
