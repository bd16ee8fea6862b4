#pragma once

#include "src/others/Scene.h"

#include <vector>

namespace house {

/// One kind of change that the other terminals make.
struct Move
{
    const char* name;
    int (*weight)(const Scene&); ///< how likely it is beside the others; 0 for never
    bool (*make)(Scene&);        ///< false when nothing in the house calls for it
};

/// A weight that doesn't depend on the house.
template <int weight>
int always(const Scene&)
{
    return weight;
}

const std::vector<Move>& openingMoves(); ///< rooms are opened, left, cleaned and kept for a purpose
const std::vector<Move>& stayMoves();    ///< what happens while guests are in a room
const std::vector<Move>& serviceMoves(); ///< goods, technicians and calls

} // namespace house
