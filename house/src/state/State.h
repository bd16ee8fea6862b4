#pragma once

#include "src/state/CallQueue.h"
#include "src/state/Rows.h"
#include "src/state/Table.h"

#include <string>
#include <vector>

namespace house {

/// Which meal is served in place of the one that the clock says.
struct MealSwitch
{
    bool isSet = false;
    std::string mealId; ///< empty: none
    Seconds endsAt = 0; ///< no meal from then on
};

/// The living part of the house: rooms, guests, orders, goods. Guarded by the house's mutex.
struct State
{
    Table<Floor> floors;
    Table<RoomType> roomTypes;
    Table<Room> rooms;
    Table<Plan> plans;
    Table<OccupationType> occupationTypes;
    Table<CallContent> callContents;
    Table<CardType> cardTypes;
    Table<Card> cards;
    Table<Order> orders;
    Table<Category> categories;
    Table<Item> items;
    Table<TasteGroup> tastes;
    Table<Clock> clocks; ///< one for each member of staff
    Table<Meal> meals;
    std::vector<MealEntry> mealEntries;
    MealSwitch mealSwitch;
    CallQueue calls;

    Room* roomByCode(const std::string& code) { return rooms.findBy(&Room::code, code); }
    Card* cardByNumber(const std::string& number) { return cards.findBy(&Card::number, number); }
    Card* cardByUid(const std::string& uid) { return cards.findBy(&Card::uid, uid); }

    /// An id that no row has.
    std::string newId();

    /// Gives the line its id; it is an order of its own unless it has its batch.
    Order& addOrder(Order order);

    /// Puts a card into a room, taking it out of the one it is in, and back into use if it was free.
    void seat(Card& card, Room& room, Seconds now);
    void unseat(Card& card);
    /// The guest pays and goes: his lines are closed, his card waits for the next one.
    void checkOut(Card& card, Seconds now);

    /// The line remembers the number of the card that it was on.
    void moveLine(Order& line, const Card& to);

    /// Open lines, in the order of their entry.
    std::vector<Order*> ordersOfCard(const std::string& cardId);
    std::vector<Order*> ordersOfRoom(const std::string& roomId);
    /// Rooms of a group, none for the empty key.
    std::vector<Room*> roomsOfGroup(const std::string& groupKey);

    std::string cardNumber(const std::string& cardId) const;
    std::string roomCode(const std::string& roomId) const;

private:
    long long lastId = 700000000000000000;
};

/// Still to be paid: neither void nor paid.
bool isOpen(const Order& order);
/// One of an item, at its price, in the first area that sells it, not yet booked on anything.
Order lineOf(const Item& item);
bool isSoldIn(const Item& item, const std::string& areaId);
/// A line's amount; a gift costs nothing.
double amountOf(const Order& order);
double amountOf(const std::vector<Order*>& orders);
/// Half up to cents.
double roundMoney(double amount);

/// "yyyy-MM-dd HH:mm:ss" in local time, empty for 0.
std::string timeText(Seconds time);
/// The reverse; 0 when the text is no such time.
Seconds timeOf(const std::string& text);
/// A time of day, "06:00:00", on the day of another time.
Seconds timeOn(Seconds day, const std::string& timeOfDay);

std::string joined(const std::vector<std::string>& texts, const std::string& separator = ",");

} // namespace house
