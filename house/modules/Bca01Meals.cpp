#include "src/Lookup.h"

#include <algorithm>

namespace house {
namespace {

using nlohmann::json;

constexpr char noMealNow[] = "BCA_ERR_0005";
constexpr char mealFault[] = "BCA_ERR_0006";
constexpr Seconds minute = 60;
constexpr std::size_t dateLength = 10; ///< "yyyy-MM-dd"

/// When the meal begins or ends on the day of `now`.
Seconds today(const std::string& timeOfDay, Seconds now)
{
    return timeOf(timeText(now).substr(0, dateLength) + " " + timeOfDay + ":00");
}

const Meal* runningMeal(const House& house, Seconds now)
{
    for (const Meal& meal : house.state.meals)
        if (today(meal.startTime, now) <= now && now < today(meal.endTime, now))
            return &meal;
    return nullptr;
}

const Meal& mealAsked(const House& house, const Call& call)
{
    const Meal* meal = house.state.meals.find(call.text("mealId"));
    if (!meal)
        refuse(mealFault, "餐次不存在");
    return *meal;
}

/// Today's, in the order of their entry.
std::vector<const MealEntry*> entriesOf(const House& house, const Meal& meal, Seconds now)
{
    std::vector<const MealEntry*> found;
    for (const MealEntry& entry : house.state.mealEntries)
        if (entry.mealId == meal.id && entry.at >= today(meal.startTime, now))
            found.push_back(&entry);
    return found;
}

Reply getMealTimesInfo(House& house, const Call& call)
{
    const Meal* meal = runningMeal(house, call.now);
    if (!meal)
        return Reply::refuse(noMealNow, "当前非用餐时间");
    const Seconds left = today(meal->endTime, call.now) - call.now;
    return Reply::with({{"mealId", meal->id},
                        {"mealName", meal->name},
                        {"startTime", meal->startTime},
                        {"endTime", meal->endTime},
                        {"remainingTime", left},
                        {"remainingMinute", left / minute}});
}

Reply getMealTimesStatistics(House& house, const Call& call)
{
    int grownUps = 0;
    int children = 0;
    for (const MealEntry* entry : entriesOf(house, mealAsked(house, call), call.now))
        (entry->isChild ? children : grownUps) += entry->num;
    json list = json::array();
    for (const auto& [name, count] :
         {std::pair{"成人", grownUps}, std::pair{"儿童", children}, std::pair{"合计", grownUps + children}})
        list.push_back({{"id", list.size() + 1}, {"sName", name}, {"num", count}});
    return Reply::with(list);
}

Reply getMealCards(House& house, const Call& call)
{
    std::vector<const MealEntry*> entries = entriesOf(house, mealAsked(house, call), call.now);
    std::reverse(entries.begin(), entries.end());
    json list = json::array();
    for (const MealEntry* entry : entries) {
        const Card& card = cardAsked(house, entry->cardId);
        list.push_back({{"cardNo", card.number},
                        {"cardType", house.state.cardTypes.find(card.type)->name},
                        {"itemTime", timeText(entry->at)},
                        {"itemName", itemOfId(house, entry->itemId).name}});
    }
    return Reply::with(list);
}

// A rule of this house: a hand card gets one portion at a meal, and brings as many children as it likes.
void refuseSecondPortion(const House& house, const Meal& meal, const Card& card, Seconds now)
{
    for (const MealEntry* entry : entriesOf(house, meal, now))
        if (entry->cardId == card.id && !entry->isChild)
            refuse(mealFault, "手牌【" + card.number + "】本餐次已用餐");
}

void book(House& house, const Call& call, const Item& item, const Card& card, int num)
{
    Order order = lineOf(item);
    order.id = order.batchId = house.state.newId();
    order.cardId = card.id;
    order.num = num;
    order.areaId = item.areaIds.front();
    order.staffId = order.enteredBy = call.staff->id;
    order.deviceId = call.terminal->id;
    order.createdAt = call.now;
    house.state.orders.add(std::move(order));
}

Reply addCardMealTimes(House& house, const Call& call)
{
    const Meal& meal = mealAsked(house, call);
    if (runningMeal(house, call.now) != &meal)
        refuse(noMealNow, "当前非用餐时间");
    const bool isChild = call.body["isChild"] == 1;
    const int num = isChild ? call.body.value("childNum", 0) : 1;
    if (num < 1)
        refuse(mealFault, "儿童餐数量不正确");
    const Card& card = guestCard(house, call.text("cardNo"), call.text("cardUid"));
    if (!isChild)
        refuseSecondPortion(house, meal, card, call.now);

    const Item& item = itemOfId(house, isChild ? meal.childItemId : meal.itemId);
    book(house, call, item, card, num);
    house.state.mealEntries.push_back({meal.id, card.id, item.id, num, isChild, call.now});
    return Reply::with({{"cardNo", card.number},
                        {"orderDate", timeText(call.now)},
                        {"itemName", item.name},
                        {"childNum", num},
                        {"price", item.price}});
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.get("/bca01/getMealTimesInfo", getMealTimesInfo);
    table.get("/bca01/getMealTimesStatistics", asked(getMealTimesStatistics)).needs("mealId", Kind::Text);
    table.get("/bca01/getMealCards", asked(getMealCards)).needs("mealId", Kind::Text);
    table.post("/bca01/addCardMealTimes", asked(addCardMealTimes))
        .takes("cardNo", Kind::Text)
        .takes("cardUid", Kind::Text)
        .needs("mealId", Kind::Text)
        .needs("isChild", Kind::Number)
        .takes("childNum", Kind::Number);
});

} // namespace
} // namespace house
