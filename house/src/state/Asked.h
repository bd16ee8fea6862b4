#pragma once

#include "src/House.h"
#include "src/state/RoomDesk.h"

#include <string>
#include <vector>

/// What handlers of rooms and cards read from a request.
namespace house {

/// The texts of a list field; anything else in it is passed over.
std::vector<std::string> textsOf(const nlohmann::json& body, const std::string& field);

/// Ends a handler with a refusal; caught by asked().
struct Refusal
{
    Reply reply;
};

/// The rows that a field names. Throws Refusal when one of them doesn't exist.
Room& roomAsked(House& house, const Call& call, const std::string& field);
Room& roomByCodeAsked(House& house, const Call& call, const std::string& field);
Card& cardAsked(House& house, const std::string& id);
/// Each card once.
Cards cardsAsked(House& house, const Call& call, const std::string& field);
std::vector<Room*> roomsAsked(House& house, const Call& call, const std::string& field);
const Plan& planAsked(House& house, const Call& call, const std::string& field);

/// Whether the logged-in staff member, or a supervisor who has just identified himself, holds a right.
bool holdsRight(const House& house, const Call& call, const std::string& rightId);

Act actOf(const Call& call);

/// Runs a handler that may throw Refusal.
Handler asked(Handler handler);

/// An action on rooms: what it changed is announced to every board, a complaint becomes the refusal.
Handler roomAction(std::function<Complaint(House&, const Call&)> action);
void announceRooms(House& house);

} // namespace house
