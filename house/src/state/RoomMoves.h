#pragma once

#include "src/state/RoomDesk.h"

/// A room in use becomes another one, or is charged in another way.
namespace house {

/// Guests, lines and group go along. A rest room goes on under a plan of the new room.
Complaint changeRoom(State& state, Room& from, Room& to, const Plan* plan, bool needsCleaning, const Act& act);
Complaint massageToRest(State& state, Room& room, const Cards& cards, const Plan& plan, const Act& act);
Complaint restToMassage(State& state, Room& room, const Cards& cards, const Card& consumer, int hours,
                        const Act& act);
Complaint changePlan(State& state, Room& room, const Plan& plan);
/// More time at the plan's rate per hour.
Complaint addHours(State& state, Room& room, int hours, const Act& act);
/// The time begins anew.
Complaint resetTime(Room& room, const Act& act);

} // namespace house
