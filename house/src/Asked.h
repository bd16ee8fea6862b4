#pragma once

#include "src/House.h"
#include "src/Refusal.h"

#include <string>
#include <vector>

/// What handlers read from a request. What isn't found is refused from within.
namespace house {

/// The texts of a list field; anything else in it is passed over.
std::vector<std::string> textsOf(const nlohmann::json& body, const std::string& field);

/// A query parameter such as a page's number.
std::size_t positive(const Call& call, const char* param);

Room& roomOfId(House& house, const std::string& id);
Room& roomOfCode(House& house, const std::string& code);
std::vector<Room*> roomsOfIds(House& house, const std::vector<std::string>& ids);
Card& cardOfId(House& house, const std::string& id);
/// Each card once.
Cards cardsOfIds(House& house, const std::vector<std::string>& ids);
/// A card by the serial that was read, or else by the number that was typed.
Card& cardOf(House& house, const std::string& number, const std::string& uid);
/// The same of a guest who is in the house.
Card& guestCard(House& house, const std::string& number, const std::string& uid);
const Plan& planOfId(const House& house, const std::string& id);
const Item& itemOfId(const House& house, const std::string& id);
const Staff& staffOfId(const House& house, const std::string& id);
const Staff& staffOfCode(const House& house, const std::string& code);

/// The staff member of a card or else of a number and its password, who may still work here.
const Staff& identified(const House& house, const std::string& cardUid, const std::string& code,
                        const std::string& password);
/// What actingStaff() reads.
inline constexpr char actingStaffFields[] = "staffUid? staffNo? staffPwd? ";
/// Who acts: the person of these fields, without them the one who is logged in.
const Staff& actingStaff(const House& house, const Call& call);
/// The staff member who is logged in, or a supervisor who has just identified himself, must hold the right.
void demandRight(const House& house, const Call& call, const std::string& rightId);

void announceRooms(House& house);
/// A change of rooms is done, and announced to every board.
Reply roomsChanged(House& house);

} // namespace house
