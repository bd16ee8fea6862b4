#pragma once

#include <string>

namespace house {

/// Where the house announces its changes. Called under the house's mutex, so it must not wait for anybody.
class Publisher
{
public:
    virtual ~Publisher() = default;
    /// False when nobody took the message; it is lost then.
    virtual bool publish(const std::string& topic, const std::string& payload) = 0;
};

} // namespace house
