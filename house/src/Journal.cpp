#include "src/Journal.h"

#include "src/Text.h"

namespace house {
namespace {

constexpr std::size_t keptRequests = 1000;

} // namespace

std::uint64_t Journal::add(const WireRequest& request, Headers headers)
{
    entries.push_back({++lastNumber, request, std::move(headers), {}});
    if (entries.size() > keptRequests)
        entries.pop_front();
    ++counts[request.path].seen;
    return lastNumber;
}

void Journal::noteExecuted(const std::string& path) { ++counts[path].executed; }

void Journal::noteCode(std::uint64_t number, const std::string& code)
{
    // Numbers rise by one, so the place follows from the first number kept.
    if (!entries.empty() && number >= entries.front().number)
        entries[number - entries.front().number].code = code;
}

void Journal::clear()
{
    entries.clear();
    counts.clear();
}

nlohmann::json Journal::requests(const std::string& path) const
{
    nlohmann::json list = nlohmann::json::array();
    for (const Entry& entry : entries) {
        if (!path.empty() && entry.request.path != path)
            continue;
        nlohmann::json headers = nlohmann::json::array();
        for (const auto& [name, value] : entry.headers)
            headers.push_back({{"name", name}, {"value", value}});
        const nlohmann::json json =
            nlohmann::json::parse(decodeLoose(encodedJson(entry.request)), nullptr, false);
        list.push_back({{"method", entry.request.method},
                        {"target", entry.request.target},
                        {"headers", headers},
                        {"body", entry.request.body},
                        {"json", json.is_discarded() ? nlohmann::json() : json},
                        {"code", entry.code}});
    }
    return list;
}

nlohmann::json Journal::stats() const
{
    nlohmann::json all = nlohmann::json::object();
    for (const auto& [path, count] : counts)
        all[path] = {{"seen", count.seen}, {"executed", count.executed}};
    return all;
}

} // namespace house
