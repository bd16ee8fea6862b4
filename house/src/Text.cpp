#include "src/Text.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <openssl/evp.h>
#include <openssl/rand.h>

namespace house {
namespace {

constexpr char lowerHexDigits[] = "0123456789abcdef";

bool isUnreserved(unsigned char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '.' ||
           c == '_' || c == '~';
}

int hexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return -1;
}

std::string toHex(const unsigned char* bytes, std::size_t count)
{
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += lowerHexDigits[bytes[i] >> 4];
        text += lowerHexDigits[bytes[i] & 15];
    }
    return text;
}

bool hasBlankOutsideStrings(const std::string& text)
{
    bool inString = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (inString && c == '\\')
            ++i;
        else if (c == '"')
            inString = !inString;
        else if (!inString && std::isspace(static_cast<unsigned char>(c)))
            return true;
    }
    return false;
}

} // namespace

std::vector<QueryItem> splitQuery(std::string_view query)
{
    std::vector<QueryItem> items;
    while (!query.empty()) {
        const std::size_t end = std::min(query.find('&'), query.size());
        const std::string_view item = query.substr(0, end);
        const std::size_t equals = item.find('=');
        if (equals == std::string_view::npos)
            items.push_back({std::string(item), {}});
        else
            items.push_back({std::string(item.substr(0, equals)), std::string(item.substr(equals + 1))});
        query.remove_prefix(std::min(end + 1, query.size()));
    }
    return items;
}

std::string_view queryOf(std::string_view target)
{
    const std::size_t mark = target.find('?');
    return mark == std::string_view::npos ? std::string_view{} : target.substr(mark + 1);
}

std::optional<std::string> decodeStrict(std::string_view raw, std::string& fault)
{
    std::string decoded;
    for (std::size_t i = 0; i < raw.size(); ++i) {
        if (isUnreserved(static_cast<unsigned char>(raw[i]))) {
            decoded += raw[i];
            continue;
        }
        const std::string place = "，位置" + std::to_string(i);
        if (raw[i] != '%') {
            fault = "存在未转义的字符" + place;
            return {};
        }
        const int high = i + 2 < raw.size() ? hexValue(raw[i + 1]) : -1;
        const int low = i + 2 < raw.size() ? hexValue(raw[i + 2]) : -1;
        if (high < 0 || low < 0) {
            fault = "转义不完整" + place;
            return {};
        }
        if (std::islower(static_cast<unsigned char>(raw[i + 1])) ||
            std::islower(static_cast<unsigned char>(raw[i + 2]))) {
            fault = "转义须用大写十六进制" + place;
            return {};
        }
        const unsigned char byte = static_cast<unsigned char>(high * 16 + low);
        if (isUnreserved(byte)) {
            fault = "不应转义的字符被转义" + place;
            return {};
        }
        decoded += static_cast<char>(byte);
        i += 2;
    }
    return decoded;
}

std::string decodeLoose(std::string_view raw)
{
    std::string decoded;
    for (std::size_t i = 0; i < raw.size(); ++i) {
        const int high = raw[i] == '%' && i + 2 < raw.size() ? hexValue(raw[i + 1]) : -1;
        const int low = high < 0 ? -1 : hexValue(raw[i + 2]);
        if (low < 0) {
            decoded += raw[i];
        } else {
            decoded += static_cast<char>(high * 16 + low);
            i += 2;
        }
    }
    return decoded;
}

std::optional<nlohmann::json> parseSorted(const std::string& text, std::string& fault)
{
    using Json = nlohmann::json;
    std::map<int, std::string> lastKeys; // by depth of their object
    const auto noteKey = [&](int depth, Json::parse_event_t event, Json& value) {
        if (event == Json::parse_event_t::object_start)
            lastKeys.erase(depth + 1);
        if (event != Json::parse_event_t::key)
            return true;
        const std::string key = value;
        const auto last = lastKeys.find(depth);
        if (last != lastKeys.end() && key <= last->second && fault.empty())
            fault = (key == last->second ? "JSON键重复：" : "JSON键未排序：") + key;
        lastKeys[depth] = key;
        return true;
    };
    try {
        Json parsed = Json::parse(text, noteKey);
        if (fault.empty() && !parsed.is_object())
            fault = "JSON须是一个对象";
        if (fault.empty() && hasBlankOutsideStrings(text))
            fault = "JSON须是紧凑格式，不得有空白";
        return fault.empty() ? std::make_optional(std::move(parsed)) : std::nullopt;
    } catch (const Json::parse_error& error) {
        fault = "不是合法的JSON，位置" + std::to_string(error.byte);
        return {};
    }
}

std::string md5Hex(std::string_view bytes)
{
    unsigned char digest[EVP_MAX_MD_SIZE];
    unsigned int size = 0;
    EVP_Digest(bytes.data(), bytes.size(), digest, &size, EVP_md5(), nullptr);
    return toHex(digest, size);
}

std::string randomHex(std::size_t digits)
{
    std::vector<unsigned char> bytes((digits + 1) / 2);
    RAND_bytes(bytes.data(), static_cast<int>(bytes.size()));
    return toHex(bytes.data(), bytes.size()).substr(0, digits);
}

bool isLowerHex(std::string_view text, std::size_t digits)
{
    return text.size() == digits && text.find_first_not_of(lowerHexDigits) == std::string_view::npos;
}

std::optional<long long> decimal(std::string_view text)
{
    if (text.empty() || text.size() > 15 || text.find_first_not_of("0123456789") != std::string_view::npos)
        return {};
    return std::stoll(std::string(text));
}

} // namespace house
