#pragma once

#include <string>

namespace house {

/// Ends what a request has begun. Whoever throws it has changed nothing yet.
struct Refusal
{
    std::string code;
    std::string msg; ///< Chinese, for the user
};

[[noreturn]] inline void refuse(const std::string& code, const std::string& msg) { throw Refusal{code, msg}; }

inline void demand(bool holds, const std::string& code, const std::string& msg)
{
    if (!holds)
        refuse(code, msg);
}

} // namespace house
