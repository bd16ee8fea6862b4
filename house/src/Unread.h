#pragma once

#include <initializer_list>
#include <nlohmann/json.hpp>

namespace house {

/// The record with further fields that every terminal expects and none reads: empty texts, zeros, and false.
inline nlohmann::json withUnread(nlohmann::json record, std::initializer_list<const char*> texts,
                                 std::initializer_list<const char*> numbers = {},
                                 std::initializer_list<const char*> flags = {})
{
    for (const char* field : texts)
        record[field] = "";
    for (const char* field : numbers)
        record[field] = 0;
    for (const char* field : flags)
        record[field] = false;
    return record;
}

} // namespace house
