#include "src/others/Scene.h"

#include "src/state/Asked.h"

#include <algorithm>

namespace house {
namespace {

constexpr char openRight[] = "405757793603424257";
constexpr char cleanerTrade[] = "保洁员";
constexpr std::size_t cardsLeftToCallers = 10;
constexpr int childSex = 2;

/// Of this many rooms, how many are in use at least and at most.
int lowestUse(int rooms) { return rooms * 2 / 5; }
int highestUse(int rooms) { return std::max(lowestUse(rooms) + 1, rooms * 3 / 4); }
int emptyReserve(int rooms) { return std::max(1, rooms / 8); }

} // namespace

Scene::Scene(House& house, Dice& dice, Seconds now, const Complain& complain)
    : house(house), dice(dice), now(now), complain(complain)
{
    std::unordered_set<std::string> heldGroups;
    for (const Room& room : house.state.rooms) {
        count(room);
        if (isGuestRoom(room))
            continue;
        if (!isHeldOrHasHeldGuests(room))
            changeable.insert(room.id);
        else if (!room.groupKey.empty())
            heldGroups.insert(room.groupKey);
    }
    for (const Room& room : house.state.rooms)
        if (heldGroups.count(room.groupKey) > 0)
            changeable.erase(room.id);
    for (const Order& order : house.state.orders) {
        if (!isOpen(order))
            continue;
        if (order.kind == OrderKind::Goods)
            ++goods[order.cardId];
        const Clock* clock = house.state.clocks.find(order.staffId);
        const bool isCalled = order.progress == Progress::Pending && clock && clock->orderId == order.id;
        if (order.progress != Progress::Running && !isCalled)
            continue;
        servedRooms.insert(order.roomId);
        servedCards.insert(order.cardId);
    }
    for (const Item& item : house.state.items)
        if (item.kind == OrderKind::Technician)
            serviceAreas.insert(item.areaIds.begin(), item.areaIds.end());
    for (const Staff& person : house.seed.staff)
        if (person.active && person.rights.count(openRight) > 0)
            clerks.push_back(&person);
}

void Scene::count(const Room& room)
{
    if (isGuestRoom(room))
        return;
    ++rooms;
    used += isInUse(room);
    settled += isInUse(room) && room.isSettled;
    cleaning += room.status == RoomStatus::Cleaning;
    occupied += room.status == RoomStatus::Occupied;
    emptyCount += room.status == RoomStatus::Empty && !room.isReserved;
    remarked += isInUse(room) && !room.remark.empty();
    grouped += !room.groupKey.empty();
}

bool Scene::isHeldOrHasHeldGuests(const Room& room) const
{
    return isHeld(room.id) || std::any_of(room.cardIds.begin(), room.cardIds.end(), [&](const std::string& id) {
               return !mayTouch(*house.state.cards.find(id));
           });
}

bool Scene::mayTouch(const Card& card) const
{
    return !isHeld(card.id) && !house.state.calls.openEntry(card.id);
}

int Scene::fullness() const
{
    const int lowest = lowestUse(rooms);
    return std::clamp(100 * (used - lowest) / (highestUse(rooms) - lowest), 0, 100);
}

bool Scene::mayOpen() const { return fullness() < 100 && emptyCount > emptyReserve(rooms); }

Scene::Rooms Scene::roomsThat(const std::function<bool(const Room&)>& test) const
{
    Rooms found;
    for (Room& room : house.state.rooms)
        if (mayTouch(room) && test(room))
            found.push_back(&room);
    return found;
}

Scene::Rooms Scene::emptyRooms(const std::function<bool(const Room&)>& test) const
{
    return roomsThat(
        [&](const Room& room) { return room.status == RoomStatus::Empty && !room.isReserved && test(room); });
}

Cards Scene::newGuests(const Room& room, int most)
{
    if (hasSetting("usedRoomMod")) {
        Card* card = house.state.cardByNumber(room.code);
        return card && card->roomId.empty() && mayTouch(*card) ? Cards{card} : Cards{};
    }
    Cards free;
    for (Card& card : house.state.cards)
        if (card.status == CardStatus::Free && mayTouch(card) &&
            house.state.cardTypes.find(card.type)->sex != childSex)
            free.push_back(&card);
    Cards guests;
    for (int number = 1 + below(most); number > 0 && free.size() > cardsLeftToCallers; --number) {
        const std::size_t place = static_cast<std::size_t>(below(static_cast<int>(free.size())));
        guests.push_back(free[place]);
        free.erase(free.begin() + static_cast<std::ptrdiff_t>(place));
    }
    return guests;
}

Cards Scene::guestsIn(const Room& room) const
{
    Cards guests;
    for (const std::string& id : room.cardIds)
        guests.push_back(house.state.cards.find(id));
    return guests;
}

int Scene::goodsOn(const Card& card) const
{
    const auto found = goods.find(card.id);
    return found == goods.end() ? 0 : found->second;
}

const std::string& Scene::areaOf(const Room& room) const
{
    return house.state.roomTypes.find(room.typeId)->areaId;
}

bool Scene::hasSetting(const char* name) const
{
    return fieldAsText(house.seed.document["sysconfig"], name) == "1";
}

std::string Scene::cleanerId()
{
    for (const Staff& person : house.seed.staff)
        if (person.workerTypes == cleanerTrade)
            return person.id;
    return clerks.empty() ? std::string() : pick(clerks)->id;
}

bool Scene::call(const char* path, nlohmann::json body)
{
    Call call;
    call.body = std::move(body);
    call.terminal = &house.seed.terminals.back();
    call.staff = pick(clerks);
    call.now = now;
    if (!call.staff)
        return false;
    const Reply reply = house.endpoints.find(path)->handler(house, call);
    if (!reply.isGood())
        complain(std::string("others: ") + path + " " + call.body.dump() + ": " + reply.msg);
    return reply.isGood();
}

void Scene::announceChange() { announceRooms(house); }

nlohmann::json idsOf(const Cards& cards)
{
    nlohmann::json ids = nlohmann::json::array();
    for (const Card* card : cards)
        ids.push_back(card->id);
    return ids;
}

} // namespace house
