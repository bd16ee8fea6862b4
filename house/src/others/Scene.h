#pragma once

#include "src/House.h"
#include "src/others/Dice.h"
#include "src/state/RoomDesk.h"

#include <functional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace house {

/// The house as other terminals see it before one change: how full it is, and what of it they may touch. That
/// is all but guest rooms, what a caller has named lately, who waits for a bath helper, and the groups of all
/// these. The caller holds the house's mutex.
class Scene
{
public:
    using Rooms = std::vector<Room*>;
    /// Takes what went wrong, for the person who runs the house.
    using Complain = std::function<void(const std::string&)>;

    Scene(House& house, Dice& dice, Seconds now, const Complain& complain);

    State& state() const { return house.state; }
    Seconds time() const { return now; }
    int below(int bound) { return dice.below(bound); }
    template <typename T>
    T pick(const std::vector<T>& choices)
    {
        return dice.pick(choices);
    }

    // Rooms of the whole house, guest rooms left out.
    int rooms = 0;
    int used = 0;
    int settled = 0;
    int cleaning = 0;
    int occupied = 0;
    int remarked = 0;
    int grouped = 0;

    /// From 0, when no more guests may leave, to 100, when no more may come.
    int fullness() const;
    bool mayOpen() const;
    bool mayClose() const { return fullness() > 0; }

    /// Rooms that may be changed and pass the test.
    Rooms roomsThat(const std::function<bool(const Room&)>& test) const;
    Rooms emptyRooms(const std::function<bool(const Room&)>& test) const; ///< not reserved
    bool mayTouch(const Card& card) const;
    bool mayTouch(const Room& room) const { return changeable.count(room.id) > 0; }
    bool isHeld(const std::string& id) const { return house.holds.has(id, now); }

    /// Guests for this room, as many as there are beds at most; none when too few cards are left.
    Cards newGuests(const Room& room, int most);
    Cards guestsIn(const Room& room) const;
    /// A technician is at work there or has been called.
    bool isServed(const Room& room) const { return servedRooms.count(room.id) > 0; }
    bool isServed(const Card& card) const { return servedCards.count(card.id) > 0; }
    int goodsOn(const Card& card) const; ///< lines of goods still to be paid
    /// Technicians work in rooms of this kind.
    bool isForServices(const Room& room) const { return serviceAreas.count(areaOf(room)) > 0; }
    const std::string& areaOf(const Room& room) const;
    bool hasSetting(const char* name) const; ///< of the store

    const Staff* staff(const std::string& id) const { return house.seed.staffById(id); }
    std::string cleanerId();

    /// Has the house do it as for any terminal that asks; false when it refused.
    bool call(const char* path, nlohmann::json body);
    void announceChange();

private:
    void count(const Room& room);
    bool isHeldOrHasHeldGuests(const Room& room) const;

    House& house;
    Dice& dice;
    const Seconds now;
    const Complain& complain;
    int emptyCount = 0;
    std::unordered_set<std::string> changeable;
    std::unordered_set<std::string> serviceAreas; ///< where technicians work
    std::unordered_set<std::string> servedRooms;
    std::unordered_set<std::string> servedCards;
    std::unordered_map<std::string, int> goods;
    std::vector<const Staff*> clerks; ///< who may open rooms
};

nlohmann::json idsOf(const Cards& cards);

} // namespace house
