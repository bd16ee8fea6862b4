#pragma once

#include <map>
#include <optional>
#include <string>

/// Misbehaviour that can be switched on for a path, and answers laid down by a test.
namespace house {

enum class FaultKind {
    None,
    Delay,     ///< executes, then answers late
    Drop,      ///< closes the connection without executing
    DropAfter, ///< executes, then closes the connection without an answer
    Http500,   ///< doesn't execute; status 500 with an error envelope
    Http500Ok, ///< executes; status 500 with the true answer
    Garbage,   ///< doesn't execute; bytes that are no JSON
    Truncate,  ///< executes; announces the whole answer and sends half of it
    Hang,      ///< doesn't execute and never answers
    Refuse,    ///< checks the request, doesn't execute, answers the given code
};

struct Fault
{
    FaultKind kind = FaultKind::Drop;
    int delayMs = 0;
    std::string code; ///< of a refusal
};

/// Builds a fault from "KIND" or "KIND:ARG": "delay" needs milliseconds, "refuse" a code. Throws
/// std::invalid_argument, which tells what is wrong.
Fault makeFault(const std::string& text);

/// One entry for a path; "*" stands for every path without an entry of its own. An entry with a count goes away
/// when it has served that many requests.
template <typename T>
class PerPath
{
public:
    /// A count below 0 is without end; one of 0 takes the entry away.
    void set(const std::string& path, T value, int count)
    {
        if (count == 0)
            entries.erase(path);
        else
            entries[path] = {std::move(value), count};
    }

    /// The entry that this request meets, counted.
    std::optional<T> take(const std::string& path)
    {
        auto found = entries.find(path);
        if (found == entries.end())
            found = entries.find("*");
        if (found == entries.end())
            return {};
        T value = found->second.value;
        if (found->second.left > 0 && --found->second.left == 0)
            entries.erase(found);
        return value;
    }

    void clear() { entries.clear(); }

private:
    struct Entry
    {
        T value;
        int left = -1;
    };
    std::map<std::string, Entry> entries;
};

} // namespace house
