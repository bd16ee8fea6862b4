#include "src/Faults.h"

#include "src/Text.h"

#include <stdexcept>

namespace house {
namespace {

const std::map<std::string, FaultKind> faultWords = {
    {"delay", FaultKind::Delay},          {"drop", FaultKind::Drop},       {"drop-after", FaultKind::DropAfter},
    {"http500", FaultKind::Http500},      {"garbage", FaultKind::Garbage}, {"truncate", FaultKind::Truncate},
    {"http500-ok", FaultKind::Http500Ok}, {"hang", FaultKind::Hang},       {"refuse", FaultKind::Refuse},
};

constexpr long long longestDelayMs = 3'600'000;

} // namespace

Fault makeFault(const std::string& text)
{
    const std::size_t colon = text.find(':');
    const std::string word = text.substr(0, colon);
    const std::string argument = colon == std::string::npos ? std::string() : text.substr(colon + 1);
    const auto found = faultWords.find(word);
    if (found == faultWords.end())
        throw std::invalid_argument("unknown fault \"" + word + "\"");
    Fault fault;
    fault.kind = found->second;
    if (fault.kind == FaultKind::Delay) {
        const auto delayMs = decimal(argument);
        if (!delayMs || *delayMs > longestDelayMs)
            throw std::invalid_argument("the fault \"delay\" needs milliseconds, got \"" + argument + "\"");
        fault.delayMs = static_cast<int>(*delayMs);
    }
    if (fault.kind == FaultKind::Refuse && argument.empty())
        throw std::invalid_argument("the fault \"refuse\" needs a code");
    fault.code = argument;
    return fault;
}

} // namespace house
