#pragma once

#include "src/state/State.h"

#include <string>
#include <vector>

/// What may be done to a room, and what it does to the room, its guests and its charge.
namespace house {

/// Chinese text for the user, empty when the thing is done. A refused call changes nothing.
using Complaint = std::string;

/// Somebody else was faster.
inline constexpr char roomHasChanged[] = "房间状态已变化，请刷新后再试";

using Cards = std::vector<Card*>;

/// Who does it, and when.
struct Act
{
    std::string staffId;
    Seconds now = 0;
};

bool isGuestRoom(const Room& room); ///< let as in a hotel; terminals show it and leave it alone
bool isInUse(const Room& room);     ///< as a massage room or a rest room
bool hasGuests(const Room& room);   ///< in use, or a guest room that is let

/// Negative when overrun, 0 for a room that nobody has opened.
long long minutesLeft(const Room& room, Seconds now);

/// Guests who sit elsewhere come over; with `isJoined` their rooms and this one become a group.
Complaint openMassageRoom(State& state, Room& room, const Cards& cards, int hours, bool isJoined,
                          const Act& act);
Complaint openRestRoom(State& state, Room& room, const Cards& cards, const Plan& plan, const Act& act);
Complaint occupyRoom(Room& room, const OccupationType& type, const std::string& remark, const Act& act);
Complaint releaseRoom(Room& room, const Act& act);
Complaint sendToCleaning(Room& room, const Act& act);
/// Cleaning goes on by one step; `cleanFlg` tells to which, 1 or 2.
Complaint setCleaning(Room& room, int cleanFlg, const std::string& cleanerId, const Act& act);
/// The cleaned room is empty again.
Complaint endCleaning(Room& room, const Act& act);
/// The opening was a mistake: the guests stay guests, the charge falls away.
Complaint cancelOpening(State& state, Room& room, const Act& act);
/// Guests leave. In a rest room `consumer` takes over what is booked on the room. The last one closes it.
Complaint leaveRoom(State& state, Room& room, const Cards& cards, const Card* consumer, bool needsCleaning,
                    const Act& act);

// Steps that the conversions of a room share.

Complaint unusableCard(const Cards& cards);
bool hasRunningService(State& state, const Room& room);
Order& addRoomFee(State& state, Room& room, const std::string& name, double fee, const std::string& staffId,
                  Seconds at);
/// Room fees and lines without a card go to a card.
void bookOnCard(State& state, const Room& room, const Card& consumer);
/// Seats these and no others.
void setCards(State& state, Room& room, const Cards& cards, Seconds now);
void startUse(Room& room, RoomStatus status, int hours, const Act& act);
/// Empties the room; lines on cards live on without it.
void closeRoom(State& state, Room& room, bool needsCleaning, Seconds now);
void leaveGroup(State& state, Room& room);

} // namespace house
