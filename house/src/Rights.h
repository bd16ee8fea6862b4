#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <string>
#include <vector>

/// The rights that the house knows, and which of them a request demands.
namespace house {

struct RightCode
{
    const char* code; ///< word or four digits; empty for a right that only endpoints ask for
    const char* id;   ///< 18 digits, the key on the wire
};

/// Every right, each id once.
const std::vector<RightCode>& rightTable();

/// Turns a role's list into right ids. An entry is a code, a bare id, or the start of a code with "*"; a
/// leading
/// "-" takes away what the entries before it gave. Nothing on an entry that names no right; `fault` is that
/// entry.
std::optional<std::set<std::string>> rightsOf(const std::vector<std::string>& entries, std::string& fault);

/// One condition under which an endpoint demands a right; empty field names are no condition.
struct RightRule
{
    std::string id;
    std::string field;
    std::string value;
    std::string field1;
    std::string value1;
};

/// The ids demanded by a request, in the order of the rules.
std::vector<std::string> demandedRights(const std::vector<RightRule>& rules, const nlohmann::json& body);

/// A request field as the rules compare it: text as it is, true and false as 1 and 0, a number without its
/// fraction, anything else empty.
std::string fieldAsText(const nlohmann::json& body, const std::string& field);

} // namespace house
