#include "src/Rights.h"

#include <stdexcept>

namespace house {
namespace {

bool names(const std::string& entry, const RightCode& right)
{
    if (entry == right.id || (entry == right.code && !entry.empty()))
        return true;
    if (entry.empty() || entry.back() != '*')
        return false;
    const std::string start = entry.substr(0, entry.size() - 1);
    return std::string(right.code).compare(0, start.size(), start) == 0;
}

} // namespace

std::set<std::string> rightsOf(const std::vector<std::string>& entries)
{
    std::set<std::string> ids;
    for (const std::string& entry : entries) {
        const bool takesAway = !entry.empty() && entry.front() == '-';
        const std::string pattern = takesAway ? entry.substr(1) : entry;
        bool found = false;
        for (const RightCode& right : rightTable()) {
            if (!names(pattern, right))
                continue;
            found = true;
            if (takesAway)
                ids.erase(right.id);
            else
                ids.insert(right.id);
        }
        if (!found)
            throw std::runtime_error("unknown right \"" + entry + "\"");
    }
    return ids;
}

std::vector<std::string> demandedRights(const std::vector<RightRule>& rules, const nlohmann::json& body)
{
    std::vector<std::string> ids;
    for (const RightRule& rule : rules)
        if (rule.field.empty() || fieldAsText(body, rule.field) == rule.value)
            ids.push_back(rule.id);
    return ids;
}

std::string fieldAsText(const nlohmann::json& body, const std::string& field)
{
    const auto found = body.find(field);
    if (found == body.end())
        return {};
    if (found->is_string())
        return found->get<std::string>();
    if (found->is_boolean())
        return found->get<bool>() ? "1" : "0";
    if (found->is_number())
        return std::to_string(static_cast<long long>(found->get<double>()));
    return {};
}

} // namespace house
