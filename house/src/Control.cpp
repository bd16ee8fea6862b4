#include "src/Control.h"

#include "src/Text.h"
#include "src/state/StateSeed.h"

#include <array>
#include <stdexcept>

namespace house {
namespace {

using nlohmann::json;

ControlAnswer answer(const json& value, int status = 200)
{
    return {status, value.dump(-1, ' ', false, json::error_handler_t::replace) + "\n"};
}

ControlAnswer done() { return answer({{"ok", true}}); }

ControlAnswer setFault(House& house, const json& order)
{
    const Fault fault = makeFault(order.at("kind").get<std::string>());
    house.faults.set(order.at("path").get<std::string>(), fault, order.value("count", -1));
    return done();
}

ControlAnswer setAnswer(House& house, const json& order)
{
    const json& body = order.at("body");
    house.answers.set(order.at("path").get<std::string>(),
                      body.is_string() ? body.get<std::string>() : body.dump(), order.value("count", -1));
    return done();
}

ControlAnswer clear(House& house, const json&)
{
    house.faults.clear();
    house.answers.clear();
    return done();
}

ControlAnswer reset(House& house, const json& order)
{
    house.journal.clear();
    return clear(house, order);
}

/// "ok" tells whether a broker took it.
ControlAnswer publish(House& house, const json& order)
{
    const std::string topic = order.at("topic").get<std::string>();
    return answer({{"ok", house.publisher && house.publisher->publish(topic, order.value("payload", ""))}});
}

ControlAnswer setOthers(House& house, const json& order)
{
    const double perSecond = order.at("perSecond").get<double>();
    if (!(perSecond >= 0 && perSecond <= OthersOrder::highestPerSecond))
        throw std::invalid_argument("\"perSecond\" must be a number of changes per second");
    orderOthers(house, perSecond, order.value("seed", OthersOrder().seed));
    return done();
}

/// Where the system-init answer holds a setting: once for the store, or once for each terminal.
std::vector<json*> placesOf(House& house, const std::string& setting)
{
    std::vector<json*> places;
    for (const char* section : {"sysconfig", "planconfig", "cardconfig"})
        if (json& record = house.seed.document[section]; record.contains(setting))
            places.push_back(&record[setting]);
    for (Terminal& terminal : house.seed.terminals)
        if (terminal.record.contains(setting))
            places.push_back(&terminal.record[setting]);
    if (places.empty())
        throw std::invalid_argument("no such setting: " + setting);
    return places;
}

/// A terminal sees changed settings at its next start, the house follows them at once.
ControlAnswer setConfig(House& house, const json& order)
{
    json before = json::object();
    for (const auto& [setting, value] : order.items()) {
        before[setting] = *placesOf(house, setting).front();
        if (before[setting].type() != value.type())
            throw std::invalid_argument(setting + " is of another kind, such as " + before[setting].dump());
    }
    for (const auto& [setting, value] : order.items())
        for (json* place : placesOf(house, setting))
            *place = value;
    if (order.value("usedRoomMod", 0) == 1)
        for (Room& room : house.state.rooms)
            furnishRoomCard(house.state, room, house.clock());
    return answer({{"ok", true}, {"before", before}});
}

/// Serves a meal for so many seconds and none afterwards, none for an empty name, without a name by the clock.
ControlAnswer setMeal(House& house, const json& order)
{
    MealSwitch wanted;
    if (const auto name = order.find("meal"); name != order.end()) {
        const Meal* meal = house.state.meals.findBy(&Meal::name, name->get<std::string>());
        if (!meal && !name->get<std::string>().empty())
            throw std::invalid_argument("no such meal: " + name->get<std::string>());
        constexpr Seconds anHour = 3600;
        wanted = {true, meal ? meal->id : "", meal ? house.clock() + order.value("seconds", anHour) : 0};
    }
    house.state.mealSwitch = wanted;
    return done();
}

/// The books: every line that is still to be paid, in the order of entry; of the card or room of this number,
/// where one is given.
ControlAnswer orders(House& house, const json& order)
{
    const std::string guest = order.value("guest", "");
    json list = json::array();
    for (const Order& line : house.state.orders) {
        const std::string account =
            line.cardId.empty() ? house.state.roomCode(line.roomId) : house.state.cardNumber(line.cardId);
        if (!isOpen(line) || (!guest.empty() && guest != account))
            continue;
        const Staff* person = house.seed.staffById(line.staffId);
        const Staff* pusher = house.seed.staffById(line.pushId);
        list.push_back({{"id", line.id},
                        {"guest", account},
                        {"isRoom", line.cardId.empty()},
                        {"item", line.itemId},
                        {"num", line.num},
                        {"price", line.price},
                        {"status", static_cast<int>(line.status)},
                        {"area", line.areaId},
                        {"staff", person ? person->code : ""},
                        {"pusher", pusher ? pusher->code : ""},
                        {"clockKind", line.clockKind},
                        {"isOvertime", line.isOvertime},
                        {"remark", line.remark},
                        {"tastes", line.tasteIds},
                        {"desk", line.deskNo}});
    }
    return answer(list);
}

ControlAnswer stats(House& house, const json&) { return answer(house.journal.stats()); }

ControlAnswer requests(House& house, const json& order)
{
    return answer(house.journal.requests(order.value("path", "")));
}

struct ControlPath
{
    const char* method;
    const char* path;
    ControlAnswer (*serve)(House&, const json& order);
};

constexpr std::array<ControlPath, 11> controlPaths{{
    {"POST", "/_control/fault", setFault},
    {"POST", "/_control/answer", setAnswer},
    {"POST", "/_control/clear", clear},
    {"POST", "/_control/reset", reset},
    {"POST", "/_control/publish", publish},
    {"POST", "/_control/others", setOthers},
    {"POST", "/_control/config", setConfig},
    {"POST", "/_control/meal", setMeal},
    {"GET", "/_control/orders", orders},
    {"GET", "/_control/stats", stats},
    {"GET", "/_control/requests", requests},
}};

/// The order of a control request: the JSON body of a POST, the query of a GET.
json orderOf(const WireRequest& request)
{
    if (request.method == "POST")
        return request.body.empty() ? json::object() : json::parse(request.body);
    json order = json::object();
    for (const QueryItem& item : splitQuery(queryOf(request.target)))
        order[item.key] = decodeLoose(item.value);
    return order;
}

} // namespace

ControlAnswer handleControl(House& house, const WireRequest& request)
{
    for (const ControlPath& entry : controlPaths) {
        if (request.path != entry.path || request.method != entry.method)
            continue;
        try {
            const json order = orderOf(request);
            const std::lock_guard<std::mutex> lock(house.mutex);
            return entry.serve(house, order);
        } catch (const std::exception& error) {
            return answer({{"error", error.what()}}, 400);
        }
    }
    return answer({{"error", "no such control path: " + request.method + " " + request.path}}, 404);
}

} // namespace house
