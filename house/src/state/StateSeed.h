#pragma once

#include "src/Seed.h"
#include "src/state/State.h"

namespace house {

/// Furnishes the house from the seed's parts, with the times of its guests counted back from `now`.
/// `roomCount` other than 0 leaves rooms out, or builds the whole house again and again until there are so
/// many; an `itemCount` above the number of its goods multiplies these likewise. Throws a std::exception that
/// tells what is wrong, for the person who starts the house.
State furnish(const Seed& seed, int roomCount, Seconds now, int itemCount = 0);

/// A house that works by rooms alone books on a card that every room has of its own, with the room's number. It
/// is in use where the room is.
void furnishRoomCard(State& state, Room& room, Seconds now);

} // namespace house
