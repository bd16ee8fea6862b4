#pragma once

#include "src/Seed.h"
#include "src/state/State.h"

#include <stdexcept>
#include <string>

/// What the parts of the furnishing share; not for the rest of the house.
namespace house {

struct FurnishError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

/// Rows of the seed name each other by what people call them; a name that nothing bears is an error.
template <typename Row>
Row& named(Table<Row>& table, std::string Row::*field, const std::string& name)
{
    if (Row* row = table.findBy(field, name))
        return *row;
    throw FurnishError("nothing is called \"" + name + "\"");
}

/// The id of a row that the seed gives none, the same at every start.
std::string seedId(int table, int row);

void furnishGoods(const Seed& seed, State& state);
/// After the cards.
void furnishQueue(const Seed& seed, State& state, Seconds now);

} // namespace house
