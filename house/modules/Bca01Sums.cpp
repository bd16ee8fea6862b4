#include "src/Asked.h"
#include "src/Unread.h"

#include <algorithm>
#include <map>

namespace house {
namespace {

using nlohmann::json;

struct Range
{
    Seconds start = 0;
    Seconds end = 0;
};

/// Whose sale it is: the person it counts for, else whoever entered it.
const Staff* sellerOf(const House& house, const Order& order)
{
    return house.seed.staffById(order.staffId.empty() ? order.enteredBy : order.staffId);
}

bool isCounted(const House& house, const Call& call, const Order& order, const Range& range)
{
    const std::string code = call.text("code");
    const std::string areaId = call.text("areaId");
    const Staff* seller = sellerOf(house, order);
    return order.status != LineStatus::Void && !order.areaId.empty() && order.createdAt >= range.start &&
           order.createdAt <= range.end && (code.empty() || (seller && seller->code == code)) &&
           (areaId.empty() || order.areaId == areaId) &&
           (fieldAsText(call.body, "selectLocal") != "1" || order.deviceId == call.terminal->id);
}

json lineRecord(const House& house, const Order& order)
{
    const Item* item = house.state.items.find(order.itemId);
    const double amount = amountOf(order);
    return withUnread({{"name", order.itemName},
                       {"num", order.num},
                       {"price", order.price},
                       {"unit", item ? item->unit : ""},
                       {"amount", amount},
                       {"statusVal", order.status == LineStatus::Gift ? "赠送" : "正常"},
                       {"isParent", false},
                       {"performerAmt", item ? roundMoney(amount * item->commission) : 0.0}},
                      {"itemId"});
}

/// One line for each item at each price and status.
json mergedLines(const House& house, const std::vector<const Order*>& orders)
{
    json lines = json::array();
    for (const Order* order : orders) {
        const json line = lineRecord(house, *order);
        const auto same = std::find_if(lines.begin(), lines.end(), [&](const json& other) {
            return other["name"] == line["name"] && other["price"] == line["price"] &&
                   other["statusVal"] == line["statusVal"];
        });
        if (same == lines.end())
            lines.push_back(line);
        else
            for (const char* field : {"num", "amount", "performerAmt"})
                (*same)[field] = roundMoney((*same)[field].get<double>() + line[field].get<double>());
    }
    return lines;
}

/// Every line by itself, under its category.
json groupedLines(const House& house, const std::vector<const Order*>& orders)
{
    std::map<std::string, json> groups;
    for (const Order* order : orders)
        if (const Item* item = house.state.items.find(order->itemId))
            groups[item->typeId].push_back(lineRecord(house, *order));
    json list = json::array();
    for (auto& [typeId, lines] : groups)
        list.push_back({{"parentName", house.state.categories.find(typeId)->name}, {"orderList", lines}});
    return list;
}

Reply getSumList(House& house, const Call& call)
{
    const Range range{timeOf(call.text("starttime")), timeOf(call.text("endtime"))};
    demand(range.start != 0 && range.start <= range.end, "SUM_ERR_0001", "查询时间不正确");
    std::map<std::string, std::vector<const Order*>> byArea;
    for (const Order& order : house.state.orders)
        if (isCounted(house, call, order, range))
            byArea[order.areaId].push_back(&order);
    const bool isMerged = call.body["isOneItem"] == 1;
    json list = json::array();
    for (const auto& [areaId, orders] : byArea) {
        double num = 0;
        double amount = 0;
        for (const Order* order : orders) {
            num += order->num;
            amount += amountOf(*order);
        }
        list.push_back({{"areaName", house.seed.area(areaId)->name},
                        {"totalNum", num},
                        {"totalAmount", roundMoney(amount)},
                        {"orderlist", isMerged ? mergedLines(house, orders) : json::array()},
                        {"parentList", isMerged ? json::array() : groupedLines(house, orders)}});
    }
    return Reply::with(list);
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.get("/bca01/getSumList", "starttime endtime isOneItem# selectLocal* orderType# code? areaId?",
              getSumList);
});

} // namespace
} // namespace house
