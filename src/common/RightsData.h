#pragma once

#include "common/RightsTables.h"

/// The rows behind the look-ups.
namespace Rights {

struct ModuleWord
{
    const char* word;
    const char* id;
};

struct RightCode
{
    const char* id;
    const char* code;
};

constexpr int moduleWordCount = 10;
constexpr int rightCodeCount = 197;
constexpr int ruleCount = 54;

extern const ModuleWord moduleWords[moduleWordCount];
extern const RightCode rightCodes[rightCodeCount];
extern const Rule rules[ruleCount]; ///< the rules of a path stand in the order in which they are tried

} // namespace Rights
