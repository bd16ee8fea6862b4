#include "src/state/State.h"

#include <algorithm>
#include <cmath>
#include <ctime>

namespace house {
namespace {

constexpr char timeFormat[] = "%Y-%m-%d %H:%M:%S";

template <typename Match>
std::vector<Order*> ordersThat(Table<Order>& orders, Match matches)
{
    std::vector<Order*> found;
    for (Order& order : orders)
        if (isOpen(order) && matches(order))
            found.push_back(&order);
    return found;
}

} // namespace

std::string State::newId() { return std::to_string(++lastId); }

Order& State::addOrder(Order order)
{
    order.id = newId();
    if (order.batchId.empty())
        order.batchId = order.id;
    return orders.add(std::move(order));
}

void State::seat(Card& card, Room& room, Seconds now)
{
    unseat(card);
    if (card.status == CardStatus::Free) {
        card.status = CardStatus::InUse;
        card.openedAt = now;
    }
    card.roomId = room.id;
    room.cardIds.push_back(card.id);
}

void State::unseat(Card& card)
{
    if (Room* room = rooms.find(card.roomId))
        room->cardIds.erase(std::remove(room->cardIds.begin(), room->cardIds.end(), card.id),
                            room->cardIds.end());
    card.roomId.clear();
}

void State::checkOut(Card& card, Seconds now)
{
    unseat(card);
    for (Order* order : ordersOfCard(card.id)) {
        order->paidAt = now;
        order->roomId.clear();
    }
    card.status = CardStatus::Free;
    card.closedAt = now;
}

void State::moveLine(Order& line, const Card& to)
{
    if (line.cardId == to.id)
        return;
    line.oldCardNo = cardNumber(line.cardId);
    line.cardId = to.id;
}

std::vector<Order*> State::ordersOfCard(const std::string& cardId)
{
    return ordersThat(orders, [&](const Order& order) { return order.cardId == cardId; });
}

std::vector<Order*> State::ordersOfRoom(const std::string& roomId)
{
    return ordersThat(orders, [&](const Order& order) { return order.roomId == roomId; });
}

std::vector<Room*> State::roomsOfGroup(const std::string& groupKey)
{
    std::vector<Room*> found;
    for (Room& room : rooms)
        if (!groupKey.empty() && room.groupKey == groupKey)
            found.push_back(&room);
    return found;
}

std::string State::cardNumber(const std::string& cardId) const
{
    const Card* card = cards.find(cardId);
    return card ? card->number : std::string();
}

std::string State::roomCode(const std::string& roomId) const
{
    const Room* room = rooms.find(roomId);
    return room ? room->code : std::string();
}

bool isOpen(const Order& order) { return order.status != LineStatus::Void && order.paidAt == 0; }

Order lineOf(const Item& item)
{
    Order order;
    order.itemId = item.id;
    order.itemName = item.name;
    order.kind = item.kind;
    order.price = item.price;
    order.minutes = item.minutes;
    order.areaId = item.areaIds.front();
    return order;
}

bool isSoldIn(const Item& item, const std::string& areaId)
{
    return std::count(item.areaIds.begin(), item.areaIds.end(), areaId) > 0;
}

double amountOf(const Order& order)
{
    return order.status == LineStatus::Normal ? roundMoney(order.num * order.price) : 0;
}

double amountOf(const std::vector<Order*>& orders)
{
    double sum = 0;
    for (const Order* order : orders)
        sum += amountOf(*order);
    return roundMoney(sum);
}

// A product such as 1.15 * 3 lies a hair below the half cent it stands for.
double roundMoney(double amount) { return std::round(amount * 100 + std::copysign(1e-6, amount)) / 100; }

std::string timeText(Seconds time)
{
    if (time == 0)
        return {};
    const std::time_t value = time;
    std::tm parts{};
    localtime_r(&value, &parts);
    char text[32];
    return std::string(text, std::strftime(text, sizeof text, timeFormat, &parts));
}

Seconds timeOf(const std::string& text)
{
    std::tm parts{};
    parts.tm_isdst = -1;
    const char* end = strptime(text.c_str(), timeFormat, &parts);
    return end && *end == '\0' ? std::mktime(&parts) : 0;
}

Seconds timeOn(Seconds day, const std::string& timeOfDay)
{
    constexpr std::size_t dateLength = 10;
    return timeOf(timeText(day).substr(0, dateLength) + " " + timeOfDay);
}

std::string joined(const std::vector<std::string>& texts, const std::string& separator)
{
    std::string all;
    for (const std::string& text : texts)
        all += (all.empty() ? "" : separator) + text;
    return all;
}

} // namespace house
