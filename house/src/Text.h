#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Pure functions on the text that travels: query strings, percent-encoding, the form of the JSON, digests.
namespace house {

struct QueryItem
{
    std::string key;
    std::string value; ///< as it travelled, not decoded
};

/// Splits "a=1&b=2" in the order received; an item without "=" gets an empty value.
std::vector<QueryItem> splitQuery(std::string_view query);

/// What stands behind the first "?" of a request target, empty without one.
std::string_view queryOf(std::string_view target);

/// Decodes text of which everything but letters, digits and "-._~" must be escaped with upper-case digits.
/// Nothing on any deviation; `fault` then tells it in Chinese.
std::optional<std::string> decodeStrict(std::string_view raw, std::string& fault);

/// Decodes whatever can be decoded and leaves the rest as it stands.
std::string decodeLoose(std::string_view raw);

/// Parses an object in compact form with sorted, unrepeated keys. Nothing on any deviation; `fault` then tells
/// it in Chinese.
std::optional<nlohmann::json> parseSorted(const std::string& text, std::string& fault);

/// 32 lower-case hexadecimal digits.
std::string md5Hex(std::string_view bytes);

/// As many lower-case hexadecimal digits as asked for, from the system's random source.
std::string randomHex(std::size_t digits);

bool isLowerHex(std::string_view text, std::size_t digits);

/// A non-negative decimal number without sign or blanks, nothing if it is none or has more than 15 digits.
std::optional<long long> decimal(std::string_view text);

} // namespace house
