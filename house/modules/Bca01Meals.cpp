#include "src/Asked.h"
#include "src/Unread.h"

#include <algorithm>

namespace house {
namespace {

using nlohmann::json;

constexpr char noMealNow[] = "BCA_ERR_0005";
constexpr char mealFault[] = "BCA_ERR_0006";

const Meal* runningMeal(const House& house, Seconds now)
{
    const MealSwitch& order = house.state.mealSwitch;
    if (order.isSet)
        return now < order.endsAt ? house.state.meals.find(order.mealId) : nullptr;
    for (const Meal& meal : house.state.meals)
        if (timeOn(now, meal.startTime + ":00") <= now && now < timeOn(now, meal.endTime + ":00"))
            return &meal;
    return nullptr;
}

Seconds endOf(const House& house, const Meal& meal, Seconds now)
{
    const MealSwitch& order = house.state.mealSwitch;
    return order.isSet ? order.endsAt : timeOn(now, meal.endTime + ":00");
}

const Meal& mealAsked(const House& house, const Call& call)
{
    const Meal* meal = house.state.meals.find(call.text("mealId"));
    demand(meal, mealFault, "餐次不存在");
    return *meal;
}

/// Those of the business day, in the order of their entry.
std::vector<const MealEntry*> entriesOf(const House& house, const Meal& meal, Seconds now)
{
    std::vector<const MealEntry*> found;
    for (const MealEntry& entry : house.state.mealEntries)
        if (entry.mealId == meal.id && entry.at >= businessDayStart(house, now))
            found.push_back(&entry);
    return found;
}

Reply getMealTimesInfo(House& house, const Call& call)
{
    const Meal* meal = runningMeal(house, call.now);
    demand(meal, noMealNow, "当前非用餐时间");
    return Reply::with(withUnread({{"mealId", meal->id},
                                   {"mealName", meal->name},
                                   {"startTime", meal->startTime},
                                   {"endTime", meal->endTime},
                                   {"remainingTime", endOf(house, *meal, call.now) - call.now}},
                                  {}, {"remainingMinute"}));
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
        list.push_back(withUnread({{"sName", name}, {"num", count}}, {}, {"id"}));
    return Reply::with(list);
}

Reply getMealCards(House& house, const Call& call)
{
    std::vector<const MealEntry*> entries = entriesOf(house, mealAsked(house, call), call.now);
    std::reverse(entries.begin(), entries.end());
    json list = json::array();
    for (const MealEntry* entry : entries)
        list.push_back(withUnread({{"cardNo", house.state.cardNumber(entry->cardId)},
                                   {"itemTime", timeText(entry->at)},
                                   {"itemName", itemOfId(house, entry->itemId).name}},
                                  {"cardType"}));
    return Reply::with(list);
}

/// A rule of this house: a hand card gets one portion at a meal, and brings as many children as it likes.
Reply addCardMealTimes(House& house, const Call& call)
{
    const Meal& meal = mealAsked(house, call);
    demand(runningMeal(house, call.now) == &meal, noMealNow, "当前非用餐时间");
    const bool isChild = call.body["isChild"] == 1;
    const int num = isChild ? call.body.value("childNum", 0) : 1;
    demand(num > 0, mealFault, "儿童餐数量不正确");
    const Card& card = guestCard(house, call.text("cardNo"), call.text("cardUid"));
    for (const MealEntry* entry : entriesOf(house, meal, call.now))
        demand(isChild || entry->isChild || entry->cardId != card.id, mealFault,
               "手牌【" + card.number + "】本餐次已用餐");

    const Item& item = itemOfId(house, isChild ? meal.childItemId : meal.itemId);
    Order order = lineOf(item);
    order.cardId = card.id;
    order.num = num;
    order.staffId = order.enteredBy = call.staff->id;
    order.deviceId = call.terminal->id;
    order.createdAt = call.now;
    house.state.addOrder(std::move(order));
    house.state.mealEntries.push_back({meal.id, card.id, item.id, num, isChild, call.now});
    return Reply::with({{"cardNo", card.number},
                        {"orderDate", timeText(call.now)},
                        {"itemName", item.name},
                        {"childNum", num},
                        {"price", item.price}});
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.get("/bca01/getMealTimesInfo", "", getMealTimesInfo);
    table.get("/bca01/getMealTimesStatistics", "mealId", getMealTimesStatistics);
    table.get("/bca01/getMealCards", "mealId", getMealCards);
    table.post("/bca01/addCardMealTimes", "cardNo? cardUid? mealId isChild# childNum#?", addCardMealTimes);
});

} // namespace
} // namespace house
