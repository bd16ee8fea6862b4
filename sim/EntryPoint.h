#pragma once

#include <cstdio>

/// Marks what a stand-in lets others call; all else in it is hidden.
#define ENTRY_POINT extern "C" __attribute__((visibility("default")))

/// Says what a real reader would let be heard or seen.
inline void show(const char* what) { std::fprintf(stderr, "reader: %s\n", what); }
