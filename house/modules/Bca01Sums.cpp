#include "src/House.h"

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
    return {{"itemId", order.itemId},
            {"name", order.itemName},
            {"num", order.num},
            {"price", order.price},
            {"unit", item ? item->unit : ""},
            {"amount", amount},
            {"statusVal", order.status == LineStatus::Gift ? "赠送" : "正常"},
            {"isParent", false},
            {"performerAmt", item ? roundMoney(amount * item->commission) : 0.0}};
}

void add(json& sum, const json& line, std::initializer_list<const char*> fields)
{
    for (const char* field : fields)
        sum[field] = roundMoney(sum[field].get<double>() + line[field].get<double>());
}

/// One line for each item at each price and status.
json mergedLines(const House& house, const std::vector<const Order*>& orders)
{
    json lines = json::array();
    for (const Order* order : orders) {
        const json line = lineRecord(house, *order);
        json* same = nullptr;
        for (json& other : lines)
            if (other["itemId"] == line["itemId"] && other["price"] == line["price"] &&
                other["statusVal"] == line["statusVal"])
                same = &other;
        if (same)
            add(*same, line, {"num", "amount", "performerAmt"});
        else
            lines.push_back(line);
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
    if (range.start == 0 || range.end == 0 || range.start > range.end)
        return Reply::refuse("SUM_ERR_0001", "查询时间不正确");
    std::map<std::string, std::vector<const Order*>> byArea;
    for (const Order& order : house.state.orders)
        if (isCounted(house, call, order, range))
            byArea[order.areaId].push_back(&order);
    const bool isMerged = call.body["isOneItem"] == 1;
    json list = json::array();
    for (const auto& [areaId, orders] : byArea) {
        json area = {{"areaName", house.seed.area(areaId)->name},
                     {"totalNum", 0.0},
                     {"totalAmount", 0.0},
                     {"orderlist", json::array()},
                     {"parentList", json::array()}};
        for (const Order* order : orders) {
            area["totalNum"] = area["totalNum"].get<double>() + order->num;
            area["totalAmount"] = roundMoney(area["totalAmount"].get<double>() + amountOf(*order));
        }
        area[isMerged ? "orderlist" : "parentList"] =
            isMerged ? mergedLines(house, orders) : groupedLines(house, orders);
        list.push_back(std::move(area));
    }
    return Reply::with(list);
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.get("/bca01/getSumList", getSumList)
        .needs("starttime", Kind::Text)
        .needs("endtime", Kind::Text)
        .needs("isOneItem", Kind::Number)
        .needs("selectLocal", Kind::Any)
        .needs("orderType", Kind::Number)
        .takes("code", Kind::Text)
        .takes("areaId", Kind::Text);
});

} // namespace
} // namespace house
