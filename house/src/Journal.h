#pragma once

#include "src/RequestCheck.h"

#include <cstdint>
#include <deque>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

namespace house {

/// Remembers what travelled, so that a test can look at it.
class Journal
{
public:
    using Headers = std::vector<std::pair<std::string, std::string>>;

    /// Returns the number under which the request's outcome is noted.
    std::uint64_t add(const WireRequest& request, Headers headers);
    void noteExecuted(const std::string& path);
    /// The code of the answer; empty while the endpoint wasn't reached.
    void noteCode(std::uint64_t number, const std::string& code);
    void clear();

    /// The requests to a path, or all for an empty path, oldest first.
    nlohmann::json requests(const std::string& path) const;
    /// Per path the number of requests seen and of those executed.
    nlohmann::json stats() const;

private:
    struct Entry
    {
        std::uint64_t number = 0;
        WireRequest request;
        Headers headers;
        std::string code;
    };
    struct Count
    {
        long seen = 0;
        long executed = 0;
    };
    std::deque<Entry> entries;
    std::map<std::string, Count> counts;
    std::uint64_t lastNumber = 0;
};

} // namespace house
