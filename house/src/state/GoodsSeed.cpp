#include "src/state/SeedReader.h"

#include <map>

namespace house {
namespace {

using nlohmann::json;

constexpr long firstTagId = 101;

/// The tag ids of the tastes by their name.
std::map<std::string, long> furnishTastes(const Seed& seed, State& state)
{
    std::map<std::string, long> tagIds;
    std::size_t choices = 0;
    for (const json& row : seed.document.at("tastes")) {
        const long tagId = firstTagId + static_cast<long>(tagIds.size());
        tagIds[row.at("taste").get<std::string>()] = tagId;
        for (const json& groupRow : row.at("groups")) {
            TasteGroup group;
            group.id = nextId(TasteIds, state.tastes);
            group.name = groupRow.at("name").get<std::string>();
            group.tagId = tagId;
            group.isMultiple = groupRow.at("multiple").get<bool>();
            for (const json& choice : groupRow.at("choices"))
                group.choices.push_back({seedId(ChoiceIds, ++choices), choice.get<std::string>()});
            state.tastes.add(std::move(group));
        }
    }
    return tagIds;
}

/// What most goods of a category share stands at the category.
Item readItem(const json& category, const json& row, const std::map<std::string, long>& tagIds)
{
    Item item;
    item.name = row.at("name").get<std::string>();
    item.price = row.at("price").get<double>();
    item.unit = row.at("unit").get<std::string>();
    item.initials = row.at("initials").get<std::string>();
    item.kind = static_cast<OrderKind>(category.value("kind", static_cast<int>(OrderKind::Goods)));
    item.workerType = category.value("worker", "");
    item.commission = category.value("commission", 0.0);
    item.picture = "items/" + category.at("picture").get<std::string>() + "/" + item.initials + ".png";
    item.needsDesk = category.value("desk", 0) == 1;
    item.minutes = row.value("minutes", 0);
    item.barCode = row.value("bar", "");
    item.cardType = row.value("cardType", "");
    item.isPackTicket = item.kind == OrderKind::Ticket ? row.value("pack", 1) : 0;
    item.sellFlg = row.value("market", 0) == 1 ? marketPriceSale : 1;
    item.tagId = row.contains("taste") ? tagIds.at(row["taste"].get<std::string>()) : 0;
    return item;
}

/// The goods come again under further names until there are so many; a ticket is one of a kind.
void addCopies(Table<Item>& items, std::size_t itemCount)
{
    const std::vector<Item> originals(items.begin(), items.end());
    for (std::size_t i = 0; items.size() < itemCount; ++i) {
        Item copy = originals[i % originals.size()];
        if (copy.kind == OrderKind::Ticket)
            continue;
        copy.id = nextId(ItemIds, items);
        copy.name += std::to_string(items.size() + 1);
        copy.barCode.clear();
        items.add(std::move(copy));
    }
}

} // namespace

void furnishGoods(const Seed& seed, State& state, int itemCount)
{
    const std::map<std::string, long> tagIds = furnishTastes(seed, state);
    for (const json& row : seed.document.at("categories")) {
        Category category;
        category.id = nextId(CategoryIds, state.categories);
        category.name = row.at("name").get<std::string>();
        for (const json& itemRow : row.at("items")) {
            Item item = readItem(row, itemRow, tagIds);
            item.id = nextId(ItemIds, state.items);
            item.typeId = category.id;
            for (const json& name : row.at("areas"))
                item.areaIds.push_back(seed.areaNamed(name.get<std::string>()).id);
            state.items.add(std::move(item));
        }
        state.categories.add(std::move(category));
    }
    addCopies(state.items, static_cast<std::size_t>(itemCount));
    for (const json& row : seed.document.at("meals")) {
        Meal meal;
        meal.id = nextId(MealIds, state.meals);
        meal.name = row.at("name").get<std::string>();
        meal.startTime = row.at("start").get<std::string>();
        meal.endTime = row.at("end").get<std::string>();
        meal.itemId = named(state.items, &Item::name, row.at("item").get<std::string>()).id;
        meal.childItemId = named(state.items, &Item::name, row.at("childItem").get<std::string>()).id;
        state.meals.add(std::move(meal));
    }
}

} // namespace house
