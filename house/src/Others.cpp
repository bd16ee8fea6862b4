#include "src/Others.h"

#include "src/state/RoomDesk.h"
#include "src/state/ServiceClock.h"

#include <algorithm>
#include <chrono>
#include <iterator>

namespace house {
namespace {

using nlohmann::json;

constexpr std::size_t cardsLeftToCallers = 20;
constexpr std::size_t techniciansLeftToCallers = 4;

/// Tries kinds of change; each of them does nothing when the house doesn't call for it.
class Attempt
{
public:
    Attempt(House& house, Dice& dice, Seconds now) : house(house), state(house.state), dice(dice), now(now)
    {
        for (Room& room : state.rooms) {
            used += hasGuests(room);
            std::vector<Room*> members = state.roomsOfGroup(room.groupKey);
            members.push_back(&room);
            if (!isGuestRoom(room) && std::none_of(members.begin(), members.end(),
                                                   [&](const Room* each) { return isLeftAlone(*each); }))
                rooms.push_back(&room);
        }
    }

    bool isMade = false;
    std::string refusal;

    void open()
    {
        const auto empty =
            roomsThat([](const Room& room) { return room.status == RoomStatus::Empty && !room.isReserved; });
        if (empty.size() <= state.rooms.size() / 8 || used * 4 > state.rooms.size() * 3)
            return;
        const Room& room = *pick(empty);
        const json guests = newGuests(room);
        const bool isServed = !servicesIn(room).empty();
        json body = {{"id", room.id}, {"cardids", guests}, {"hours", 1 + dice() % 3}};
        body["planid"] = state.plans.findBy(&Plan::roomTypeId, room.typeId)->id;
        if (!guests.empty())
            call(isServed ? "/bba01/openMassRoom" : "/bba01/openRestRoom", body);
    }

    void addCard()
    {
        const Room* room = pick(roomsThat([&](const Room& each) { return isInUse(each) && bedsIn(each) > 0; }));
        const json guests = room ? newGuests(*room) : json();
        if (!guests.empty())
            call("/bba01/roomAddCard", {{"roomNo", room->code}, {"cardids", guests}});
    }

    void startService()
    {
        const Room* room = pick(roomsThat([&](const Room& each) {
            return isInUse(each) && each.status == RoomStatus::Massage && !each.cardIds.empty() &&
                   !isServed(each);
        }));
        const Item* item = room ? pick(servicesIn(*room)) : nullptr;
        std::vector<const Clock*> waiting;
        for (const Clock& clock : state.clocks)
            if (clock.workStatus == WorkWaiting && clock.timerStartedAt == 0)
                waiting.push_back(&clock);
        const Clock* clock = waiting.size() > techniciansLeftToCallers ? pick(waiting) : nullptr;
        if (!item || !clock || isHeld(clock->id))
            return;
        const auto known = servableItems(state, house.seed.staffById(clock->id)->workerTypes);
        if (std::count(known.begin(), known.end(), item) > 0)
            call("/bda02/startServerWithoutOrder", {{"staffId", clock->id},
                                                    {"itemId", item->id},
                                                    {"cardNo", state.cardNumber(room->cardIds.front())},
                                                    {"orderType", addedClockKind - 1}});
    }

    void endService()
    {
        std::vector<const Order*> over;
        for (const Clock& clock : state.clocks) {
            const ServiceLines lines = runningLines(state, clock);
            const auto isThere = [&](const Room* room) { return room->id == lines.front()->roomId; };
            if (!lines.empty() && surplusMinutes(lines, now) <= 0 && !isHeld(clock.id) &&
                std::any_of(rooms.begin(), rooms.end(), isThere))
                over.push_back(lines.front());
        }
        if (const Order* line = pick(over))
            call("/bda02/endServer", {{"orderId", line->id}});
    }

    /// One of the quarter whose time is over first; they pay and go home.
    void leave()
    {
        auto inUse = roomsThat([&](const Room& room) { return isInUse(room) && !isServed(room); });
        if (inUse.empty() || used * 5 < state.rooms.size() * 2)
            return;
        std::sort(inUse.begin(), inUse.end(), [&](const Room* left, const Room* right) {
            return minutesLeft(*left, now) < minutesLeft(*right, now);
        });
        inUse.resize((inUse.size() + 3) / 4);
        const Room& room = *pick(inUse);
        const std::vector<std::string> guests = room.cardIds;
        json body = {{"id", room.id}, {"status", static_cast<int>(room.status)}, {"cardids", guests}};
        body["cardId"] = guests.empty() ? "" : guests.front();
        call("/bba01/leaveRoomNew", body);
        for (const std::string& id : guests)
            if (isMade)
                state.checkOut(*state.cards.find(id), now);
    }

    void clean()
    {
        const Room* room =
            pick(roomsThat([](const Room& each) { return each.status == RoomStatus::Cleaning; }));
        if (room && room->cleanFlg == 2)
            call("/bba01/chgCleanRoom", {{"id", room->id}, {"isClean", 0}});
        else if (room)
            call("/bba01/setCleanRoom",
                 {{"id", room->id}, {"staffId", staffOf("保洁员")->id}, {"cleanFlg", room->cleanFlg + 1}});
    }

private:
    /// Null when there is nothing to choose from.
    template <typename T>
    T* pick(const std::vector<T*>& choices)
    {
        return choices.empty() ? nullptr : choices[dice() % choices.size()];
    }

    bool isHeld(const std::string& id) const { return house.holds.has(id, now); }
    bool isLeftAlone(const Card& card) const { return isHeld(card.id) || state.calls.openEntry(card.id); }
    bool isLeftAlone(const Room& room) const
    {
        return isHeld(room.id) ||
               std::any_of(room.cardIds.begin(), room.cardIds.end(),
                           [&](const std::string& id) { return isLeftAlone(*state.cards.find(id)); });
    }

    template <typename Test>
    std::vector<Room*> roomsThat(Test test) const
    {
        std::vector<Room*> found;
        std::copy_if(rooms.begin(), rooms.end(), std::back_inserter(found),
                     [&](const Room* room) { return test(*room); });
        return found;
    }

    const RoomType& typeOf(const Room& room) const { return *state.roomTypes.find(room.typeId); }
    int bedsIn(const Room& room) const { return typeOf(room).capacity - static_cast<int>(room.cardIds.size()); }

    /// A technician is at work there, or has been called.
    bool isServed(const Room& room) const
    {
        const std::vector<Order*> lines = state.ordersOfRoom(room.id);
        return std::any_of(lines.begin(), lines.end(), [](const Order* line) {
            return line->progress == Progress::Running || line->progress == Progress::Pending;
        });
    }

    /// For one of the beds at least, when enough free cards are left.
    json newGuests(const Room& room)
    {
        std::vector<std::string> ids;
        for (const Card& card : state.cards)
            if (card.status == CardStatus::Free && !isLeftAlone(card))
                ids.push_back(card.id);
        if (ids.size() < cardsLeftToCallers)
            return {};
        std::shuffle(ids.begin(), ids.end(), dice);
        ids.resize(1 + dice() % static_cast<std::size_t>(bedsIn(room)));
        return ids;
    }

    std::vector<const Item*> servicesIn(const Room& room) const
    {
        std::vector<const Item*> found;
        for (const Item& item : state.items)
            if (item.kind == OrderKind::Technician && isSoldIn(item, typeOf(room).areaId))
                found.push_back(&item);
        return found;
    }

    const Staff* staffOf(const char* trade) const
    {
        const auto& staff = house.seed.staff;
        return &*std::find_if(staff.begin(), staff.end(),
                              [&](const Staff& person) { return person.workerTypes == trade; });
    }

    /// Has the house do it as for any terminal that asks.
    void call(const char* path, const json& body)
    {
        Call call;
        call.body = body;
        call.terminal = &house.seed.terminals.back();
        call.staff = staffOf("收银员");
        call.now = now;
        const Reply reply = house.endpoints.find(path)->answer(house, call);
        isMade = reply.isGood();
        if (!isMade)
            refusal = path + (" " + body.dump()) + ": " + reply.msg;
    }

    House& house;
    State& state;
    Dice& dice;
    const Seconds now;
    std::vector<Room*> rooms; ///< that may be changed
    std::size_t used = 0;     ///< of all rooms
};

} // namespace

std::string changeSomething(House& house, Dice& dice, Seconds now)
{
    // What stands here more than once comes up more often.
    using Move = void (Attempt::*)();
    std::vector<Move> moves = {&Attempt::open,         &Attempt::open,       &Attempt::addCard,
                               &Attempt::startService, &Attempt::endService, &Attempt::leave,
                               &Attempt::clean,        &Attempt::clean,      &Attempt::clean};
    Attempt attempt(house, dice, now);
    while (!moves.empty() && !attempt.isMade && attempt.refusal.empty()) {
        const auto move = moves.begin() + static_cast<std::ptrdiff_t>(dice() % moves.size());
        (attempt.**move)();
        moves.erase(move);
    }
    return attempt.refusal;
}

Others::Others(House& house, Log& log) : house(house), log(log), thread([this] { run(); }) {}

Others::~Others()
{
    {
        const std::lock_guard<std::mutex> lock(house.mutex);
        isEnding = true;
    }
    house.othersChanged.notify_all();
    thread.join();
}

void Others::run()
{
    using Ticks = std::chrono::steady_clock;
    constexpr double longestInterval = 24 * 60 * 60; // s
    std::unique_lock<std::mutex> lock(house.mutex);
    while (!isEnding) {
        const OthersOrder order = house.others;
        const auto isOver = [&] { return isEnding || house.others.number != order.number; };
        if (order.perSecond <= 0) {
            house.othersChanged.wait(lock, isOver);
            continue;
        }
        Dice dice(order.seed);
        const auto interval = std::chrono::duration_cast<Ticks::duration>(
            std::chrono::duration<double>(std::min(1 / order.perSecond, longestInterval)));
        Ticks::time_point due = Ticks::now() + interval;
        while (!house.othersChanged.wait_until(lock, due, isOver)) {
            const std::string refusal = changeSomething(house, dice, house.clock());
            if (!refusal.empty())
                log.line("others: " + refusal);
            // What was missed while the machine was busy isn't made up for.
            due = std::max(due + interval, Ticks::now());
        }
    }
}

} // namespace house
