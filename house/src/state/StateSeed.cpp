#include "src/state/StateSeed.h"

#include "src/Refusal.h"
#include "src/state/RoomDesk.h"
#include "src/state/SeedReader.h"

#include <sstream>

namespace house {
namespace {

using nlohmann::json;

constexpr Seconds minute = 60;
constexpr long long firstSerial = 5000000000; ///< of cards that the seed doesn't name

std::vector<std::string> words(const std::string& text)
{
    std::istringstream stream(text);
    std::vector<std::string> found;
    for (std::string word; stream >> word;)
        found.push_back(word);
    return found;
}

Card& addCard(State& state, const std::string& number, const std::string& uid, const std::string& type)
{
    Card card;
    card.id = nextId(CardIds, state.cards);
    card.number = number;
    card.uid = uid;
    card.type = type;
    return state.cards.add(std::move(card));
}

class Furnisher
{
public:
    Furnisher(const Seed& seed, Seconds now) : seed(seed), document(seed.document), now(now) {}

    State furnish(int roomCount, int itemCount)
    {
        furnishGoods(seed, state, itemCount);
        furnishClocks();
        furnishHouse();
        furnishCards();
        furnishRooms(roomCount);
        for (const json& row : document.at("atLarge")) {
            admit(row.at("card").get<std::string>(), ago(row));
            furnishOrders(row, {}, 0);
        }
        for (const json& row : document.at("gone")) {
            Card& card = named(state.cards, &Card::number, row.at("card").get<std::string>());
            card.closedAt = ago(row);
            card.openedAt = card.closedAt - row.at("stayedMinutes").get<int>() * minute;
        }
        furnishQueue(seed, state, now);
        return std::move(state);
    }

private:
    Seconds ago(const json& row) const { return now - row.at("minutesAgo").get<int>() * minute; }

    std::string staffId(const json& row, const char* field) const
    {
        const Staff* person = seed.staffByCode(row.value(field, ""));
        return person ? person->id : std::string();
    }

    void furnishClocks()
    {
        for (const Staff& person : seed.staff) {
            Clock clock;
            clock.id = person.id;
            clock.workStatus = person.active && person.role == "technician" ? WorkWaiting : WorkOffDuty;
            state.clocks.add(std::move(clock));
        }
    }

    void furnishNames(Table<Named>& table, SeedTable ids, const char* key)
    {
        for (const json& name : document.at(key))
            table.add({nextId(ids, table), name.get<std::string>()});
    }

    void furnishHouse()
    {
        furnishNames(state.floors, FloorIds, "floors");
        furnishNames(state.occupationTypes, OccupationIds, "occupationTypes");
        furnishNames(state.callContents, ContentIds, "callContents");
        for (const json& row : document.at("roomTypes")) {
            const RoomType& type = state.roomTypes.add(
                {nextId(RoomTypeIds, state.roomTypes), row.at("name").get<std::string>(),
                 row.at("capacity").get<int>(), seed.areaNamed(row.at("area").get<std::string>()).id});
            for (const json& plan : row.at("plans"))
                state.plans.add({nextId(PlanIds, state.plans), plan.at("name").get<std::string>(), type.id,
                                 plan.at("hours").get<int>(), plan.at("fee").get<double>()});
        }
    }

    void furnishCards()
    {
        for (const json& row : document.at("cardTypes"))
            state.cardTypes.add(
                {row.at("id").get<std::string>(), row.at("name").get<std::string>(), row.at("sex").get<int>()});
        for (const json& block : document.at("cards")) {
            int number = block.at("first").get<int>();
            for (const std::string& uid : words(block.at("uids").get<std::string>()))
                addCard(state, std::to_string(number++), uid, block.at("type").get<std::string>());
        }
        for (const json& mark : document.at("cardMarks")) {
            Card& card = named(state.cards, &Card::number, mark.at("card").get<std::string>());
            card.status = static_cast<CardStatus>(mark.at("status").get<int>());
            card.remark = mark.at("remark").get<std::string>();
        }
    }

    /// The rooms of copy 0 are those of the seed; a further copy has its number before every room and card.
    void furnishRooms(int roomCount)
    {
        const json& stays = document.at("stays");
        int count = 0;
        for (int copy = 0; copy == 0 || count < roomCount; ++copy) {
            for (const json& row : document.at("rooms")) {
                for (const std::string& code : words(row.at("codes").get<std::string>())) {
                    if (roomCount > 0 && count == roomCount)
                        return;
                    ++count;
                    addRoom(row, code, copy);
                    for (const json& stay : stays)
                        if (stay.at("room") == code)
                            apply(stay, *state.roomByCode(copied(code, copy)), copy);
                }
            }
        }
    }

    static std::string copied(const std::string& number, int copy)
    {
        return copy == 0 ? number : std::to_string(copy) + number;
    }

    void addRoom(const json& row, const std::string& code, int copy)
    {
        Room room;
        room.id = nextId(RoomIds, state.rooms);
        room.code = copied(code, copy);
        room.name = document.at("roomNames").value(code, room.code);
        room.floorId = named(state.floors, &Floor::name, row.at("floor").get<std::string>()).id;
        room.typeId = named(state.roomTypes, &RoomType::name, row.at("type").get<std::string>()).id;
        state.rooms.add(std::move(room));
    }

    void apply(const json& stay, Room& room, int copy)
    {
        room.isReserved = stay.value("reserved", false);
        const std::string as = stay.value("as", "");
        if (as.empty())
            return;
        room.remark = stay.value("remark", "");
        room.cleanerId = staffId(stay, "cleaner");
        room.cleanFlg = stay.value("cleanFlg", 0);
        room.isDirty = stay.value("dirty", false);
        if (as == "cleaning") {
            room.status = RoomStatus::Cleaning;
        } else if (as == "occupied") {
            room.status = RoomStatus::Occupied;
            room.occupationTypeId =
                named(state.occupationTypes, &OccupationType::name, stay.at("reason").get<std::string>()).id;
        } else {
            occupyByGuests(stay, as, room, copy);
        }
    }

    void occupyByGuests(const json& stay, const std::string& as, Room& room, int copy)
    {
        room.status = as == "massage" ? RoomStatus::Massage
                      : as == "guest" ? RoomStatus::Guest
                                      : RoomStatus::Rest;
        const bool isLet = as == "guest" || as == "guestRest";
        room.openType = isLet ? guestRoomOpening : houseOpening;
        room.openedAt = ago(stay);
        room.hours = stay.value("hours", 0);
        room.openedBy = staffId(stay, "openedBy");
        room.isSettled = stay.value("settled", false);
        if (stay.contains("group"))
            room.groupKey = "G" + std::to_string(copy) + stay["group"].get<std::string>();
        for (const json& number : stay.value("cards", json::array()))
            state.seat(admit(copied(number.get<std::string>(), copy), room.openedAt), room, now);
        if (stay.contains("plan")) {
            const Plan& plan = named(state.plans, &Plan::name, stay["plan"].get<std::string>());
            room.planId = plan.id;
            room.hours = plan.hours;
            addRoomFee(state, room, plan.name, plan.fee, 1, room.openedBy, room.openedAt);
        }
        furnishOrders(stay, room.id, copy);
    }

    /// A guest comes in: his card is in use and holds his ticket.
    Card& admit(const std::string& number, Seconds at)
    {
        Card* card = state.cardByNumber(number);
        if (!card) {
            const std::string origin = number.substr(number.size() - 4);
            card = &addCard(state, number, std::to_string(firstSerial + std::stoll(number)),
                            named(state.cards, &Card::number, origin).type);
        }
        card->status = CardStatus::InUse;
        card->openedAt = at;
        for (const json& type : document.at("cardTypes"))
            if (type.at("id") == card->type)
                addOrder(named(state.items, &Item::name, type.at("ticket").get<std::string>()), *card, {}, at);
        return *card;
    }

    Order& addOrder(const Item& item, const Card& card, const std::string& roomId, Seconds at)
    {
        Order order = lineOf(item);
        order.cardId = card.id;
        order.roomId = roomId;
        order.deviceId = seed.terminals.front().id;
        order.createdAt = at;
        return state.addOrder(std::move(order));
    }

    Order& addOrder(const json& row, const std::string& roomId, Seconds at, int copy)
    {
        return addOrder(named(state.items, &Item::name, row.at("item").get<std::string>()),
                        named(state.cards, &Card::number, copied(row.at("card").get<std::string>(), copy)),
                        roomId, at);
    }

    void furnishOrders(const json& stay, const std::string& roomId, int copy)
    {
        for (const json& row : stay.value("goods", json::array())) {
            Order& order = addOrder(row, roomId, ago(row), copy);
            order.num = row.at("num").get<double>();
            if (row.contains("from"))
                order.oldCardNo = copied(row["from"].get<std::string>(), copy);
            order.status = row.value("gift", false) ? LineStatus::Gift : LineStatus::Normal;
            order.staffId = order.enteredBy = staffId(row, "by");
        }
        for (const json& row : stay.value("services", json::array())) {
            Order& order = addOrder(row, roomId, ago(row), copy);
            order.startedAt = order.createdAt;
            order.progress = row.value("finished", false) ? Progress::Finished : Progress::Running;
            if (order.progress == Progress::Finished)
                order.endedAt = order.startedAt + order.minutes * minute;
            employ(order, row, copy);
        }
        for (const json& row : stay.value("pending", json::array())) {
            Order& order = addOrder(row, roomId, now, copy);
            order.progress = Progress::Pending;
            employ(order, row, copy);
        }
    }

    /// A technician works in the seed's own rooms; those of the copies only look so.
    void employ(Order& order, const json& row, int copy)
    {
        order.clockKind = row.at("clock").get<int>();
        order.staffId = staffId(row, "staff");
        order.pushId = staffId(row, "push");
        order.enteredBy = order.pushId.empty() ? order.staffId : order.pushId;
        if (copy != 0 || order.progress == Progress::Finished)
            return;
        Clock& clock = *state.clocks.find(order.staffId);
        clock.workStatus = order.progress == Progress::Pending ? WorkAssigned : WorkServing;
        clock.orderId = order.id;
    }

    const Seed& seed;
    const json& document;
    const Seconds now;
    State state;
};

} // namespace

std::string seedId(SeedTable table, std::size_t row)
{
    const std::string number = std::to_string(row);
    const std::string kind = std::to_string(table);
    return "4058" + std::string(3 - kind.size(), '0') + kind + std::string(11 - number.size(), '0') + number;
}

void furnishRoomCard(State& state, Room& room, Seconds now)
{
    if (state.cardByNumber(room.code))
        return;
    Card& card = addCard(state, room.code, std::to_string(2 * firstSerial + std::stoll(room.code)),
                         state.cardTypes.begin()->id);
    if (isInUse(room))
        state.seat(card, room, now);
}

State furnish(const Seed& seed, int roomCount, Seconds now, int itemCount)
{
    try {
        return Furnisher(seed, now).furnish(roomCount, itemCount);
    } catch (const Refusal& refusal) {
        throw std::runtime_error("the house can't be furnished: " + refusal.msg);
    }
}

} // namespace house
