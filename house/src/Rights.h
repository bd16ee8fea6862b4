#pragma once

#include <nlohmann/json.hpp>
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
/// "-" takes away what the entries before it gave. Throws std::runtime_error when an entry names no right.
std::set<std::string> rightsOf(const std::vector<std::string>& entries);

/// A right that an endpoint demands when a field of the request has this value; always, without a field.
struct RightRule
{
    std::string id;
    std::string field;
    std::string value;
};

/// The ids demanded by a request, in the order of the rules.
std::vector<std::string> demandedRights(const std::vector<RightRule>& rules, const nlohmann::json& body);

/// A request field as the rules compare it: text as it is, true and false as 1 and 0, a number without its
/// fraction, anything else empty.
std::string fieldAsText(const nlohmann::json& body, const std::string& field);

} // namespace house
