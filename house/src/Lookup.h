#pragma once

#include "src/state/Asked.h"

#include <string>

/// What handlers of guests, services and staff read from a request. What isn't found is refused from within.
namespace house {

/// Both throw Refusal.
[[noreturn]] void refuse(const char* code, const std::string& msg);
void refuseIf(const char* code, const std::string& complaint);

/// The card of a guest who is in the house, by the serial that was read or else by the number that was typed.
Card& guestCard(House& house, const std::string& number, const std::string& uid);
const Staff& staffOfId(const House& house, const std::string& staffId);
const Staff& staffOfCode(const House& house, const std::string& code);
const Item& itemOfId(const House& house, const std::string& itemId);
/// A room that guests are in.
Room& roomInUse(House& house, const std::string& code);

/// Lets the endpoint take "staffUid", or "staffNo" with "staffPwd".
Endpoint& withActingStaff(Endpoint& endpoint);
/// Who acts: the person of these fields, without them the one who is logged in.
const Staff& actingStaff(const House& house, const Call& call);

} // namespace house
