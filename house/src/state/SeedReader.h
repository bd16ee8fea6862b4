#pragma once

#include "src/Seed.h"
#include "src/state/State.h"

#include <stdexcept>
#include <string>

/// What the parts of the furnishing share; not for the rest of the house.
namespace house {

/// Rows of the seed name each other by what people call them; a name that nothing bears is a
/// std::runtime_error.
template <typename Row>
Row& named(Table<Row>& table, std::string Row::*field, const std::string& name)
{
    if (Row* row = table.findBy(field, name))
        return *row;
    throw std::runtime_error("nothing is called \"" + name + "\"");
}

enum SeedTable {
    FloorIds = 1,
    RoomTypeIds,
    RoomIds,
    PlanIds,
    OccupationIds,
    ContentIds,
    CardIds,
    CategoryIds = 11,
    ItemIds,
    TasteIds,
    ChoiceIds,
    MealIds
};

/// The id of a row that the seed gives none, the same at every start; rows count from 1.
std::string seedId(SeedTable table, std::size_t row);

/// For the row that the table gets next.
template <typename Row>
std::string nextId(SeedTable table, const Table<Row>& rows)
{
    return seedId(table, rows.size() + 1);
}

void furnishGoods(const Seed& seed, State& state, int itemCount);
/// After the cards.
void furnishQueue(const Seed& seed, State& state, Seconds now);

} // namespace house
