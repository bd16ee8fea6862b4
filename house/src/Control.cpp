#include "src/Control.h"

#include "src/Text.h"
#include "src/state/StateSeed.h"

#include <array>
#include <set>

namespace house {
namespace {

using nlohmann::json;

ControlAnswer answer(const json& value, int status = 200)
{
    return {status, value.dump(-1, ' ', false, json::error_handler_t::replace) + "\n"};
}

ControlAnswer complain(const std::string& error) { return answer({{"error", error}}, 400); }

/// The kind may hold its argument as on the command line, or "arg" holds it as a number or a text.
std::string faultText(const json& order)
{
    std::string kind = order.at("kind").get<std::string>();
    const json argument = order.value("arg", json());
    if (argument.is_null() || kind.find(':') != std::string::npos)
        return kind;
    return kind + ":" + (argument.is_string() ? argument.get<std::string>() : argument.dump());
}

ControlAnswer setFault(House& house, const json& order)
{
    const auto fault = makeFault(faultText(order));
    if (const std::string* error = std::get_if<std::string>(&fault))
        return complain(*error);
    house.faults.set(order.at("path").get<std::string>(), std::get<Fault>(fault), order.value("count", -1));
    return answer({{"ok", true}});
}

ControlAnswer setAnswer(House& house, const json& order)
{
    const json& body = order.at("body");
    const std::string text = body.is_string() ? body.get<std::string>() : body.dump();
    house.answers.set(order.at("path").get<std::string>(), {text}, order.value("count", -1));
    return answer({{"ok", true}});
}

ControlAnswer clear(House& house, const json& order)
{
    if (order.contains("path")) {
        house.faults.clear(order["path"].get<std::string>());
        house.answers.clear(order["path"].get<std::string>());
    } else {
        house.faults.clear();
        house.answers.clear();
    }
    return answer({{"ok", true}});
}

ControlAnswer reset(House& house, const json&)
{
    house.faults.clear();
    house.answers.clear();
    house.journal.clear();
    return answer({{"ok", true}});
}

ControlAnswer endSessions(House& house, const json&)
{
    house.sessions.endAll();
    return answer({{"ok", true}});
}

/// "ok" tells whether a broker took it.
ControlAnswer publish(House& house, const json& order)
{
    const std::string topic = order.at("topic").get<std::string>();
    return answer({{"ok", house.publisher->publish(topic, order.value("payload", ""))}});
}

ControlAnswer setOthers(House& house, const json& order)
{
    const double perSecond = order.at("perSecond").get<double>();
    if (!(perSecond >= 0 && perSecond <= OthersOrder::highestPerSecond))
        return complain("\"perSecond\" must be a number of changes per second");
    orderOthers(house, perSecond, order.value("seed", OthersOrder().seed));
    return answer({{"ok", true}});
}

/// The records of the system-init answer that hold a setting: one for the store, or one for each terminal.
std::vector<json*> recordsWith(House& house, const std::string& setting)
{
    for (const char* section : {"sysconfig", "planconfig", "cardconfig"})
        if (json& record = house.seed.document[section]; record.contains(setting))
            return {&record};
    static const std::set<std::string> identity = {"id", "secretKey", "storeId", "compId"};
    std::vector<json*> records;
    for (Terminal& terminal : house.seed.terminals)
        if (terminal.record.contains(setting) && identity.count(setting) == 0)
            records.push_back(&terminal.record);
    return records;
}

bool isOfSameKind(const json& left, const json& right)
{
    return left.is_number() ? right.is_number() : left.type() == right.type();
}

/// Changes settings, all or none; "before" holds what they were. A terminal sees them at its next start.
ControlAnswer setConfig(House& house, const json& order)
{
    json before = json::object();
    for (const auto& [setting, value] : order.items()) {
        const std::vector<json*> records = recordsWith(house, setting);
        if (records.empty())
            return complain("no such setting: " + setting);
        before[setting] = records.front()->at(setting);
        if (!isOfSameKind(before[setting], value))
            return complain(setting + " is of another kind, such as " + before[setting].dump());
    }
    for (const auto& [setting, value] : order.items())
        for (json* record : recordsWith(house, setting))
            (*record)[setting] = value;
    if (order.value("usedRoomMod", 0) == 1)
        for (const Room& room : house.state.rooms)
            furnishRoomCard(house.state, room);
    return answer({{"ok", true}, {"before", before}});
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

constexpr std::array<ControlPath, 10> controlPaths{{
    {"POST", "/_control/fault", setFault},
    {"POST", "/_control/answer", setAnswer},
    {"POST", "/_control/clear", clear},
    {"POST", "/_control/reset", reset},
    {"POST", "/_control/endSessions", endSessions},
    {"POST", "/_control/publish", publish},
    {"POST", "/_control/others", setOthers},
    {"POST", "/_control/config", setConfig},
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
        } catch (const json::exception& error) {
            return complain(error.what());
        }
    }
    return answer({{"error", "no such control path: " + request.method + " " + request.path}}, 404);
}

} // namespace house
