#pragma once

#include "src/state/State.h"

#include <string>
#include <vector>

/// The steps that the changes of a room share.
namespace house {

inline constexpr char roomFault[] = "ROOM_ERR_0002";
/// Somebody else was faster.
inline constexpr char roomHasChanged[] = "房间状态已变化，请刷新后再试";

constexpr int houseOpening = 1;
constexpr int guestRoomOpening = 2;

bool isGuestRoom(const Room& room); ///< let as in a hotel; terminals show it and leave it alone
bool isInUse(const Room& room);     ///< as a massage room or a rest room
bool hasGuests(const Room& room);   ///< in use, or a guest room that is let

/// Negative when overrun, 0 for a room that nobody has opened.
long long minutesLeft(const Room& room, Seconds now);

// These refuse with roomFault.

void demandUsable(const Cards& cards);
void demandInside(const Room& room, const Cards& cards);
void demandPlanFor(const Room& room, const Plan& plan);
void demandNoService(State& state, const Room& room);

/// What this person opens from now on.
void startUse(Room& room, RoomStatus status, int hours, const std::string& staffId, Seconds now);
/// As a rest room under this plan, with the charge for it.
void startRest(State& state, Room& room, const Cards& cards, const Plan& plan, const std::string& staffId,
               Seconds now);
void addRoomFee(State& state, const Room& room, const std::string& name, double price, int num,
                const std::string& staffId, Seconds at);
/// Room fees and lines without a card go to a card.
void bookOnCard(State& state, const Room& room, const Card& consumer);
/// Seats these and no others.
void setCards(State& state, Room& room, const Cards& cards, Seconds now);
/// Empties the room; lines on cards live on without it.
void closeRoom(State& state, Room& room, bool needsCleaning, Seconds now);

/// The last room is the one from which the others were chosen: its group takes them in, each leaving its own.
void mergeRooms(State& state, const std::vector<Room*>& rooms);
void leaveGroup(State& state, Room& room);

} // namespace house
