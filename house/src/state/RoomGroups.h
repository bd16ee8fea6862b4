#pragma once

#include "src/state/RoomDesk.h"

/// Rooms that belong together, and guests who move between rooms.
namespace house {

/// The last room is the one from which the others were chosen: its group takes them in, each leaving its own.
Complaint mergeRooms(State& state, const std::vector<Room*>& rooms);
Complaint splitRooms(State& state, const std::string& groupKey, const std::vector<Room*>& rooms);
/// The cards come over from wherever they sit.
Complaint addCards(State& state, Room& room, const Cards& cards, const Act& act);
/// Cards go with their lines into another massage or rest room, or open an empty one as a massage room.
Complaint moveCards(State& state, Room& from, Room& to, const Cards& cards, const Act& act);

} // namespace house
