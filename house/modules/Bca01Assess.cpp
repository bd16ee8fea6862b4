#include "src/Asked.h"

#include <algorithm>

namespace house {
namespace {

using nlohmann::json;

/// A service that is over; what is still running can't be judged yet.
bool isGradable(const Order& order)
{
    return order.kind == OrderKind::Help ||
           (order.kind == OrderKind::Technician && order.progress == Progress::Finished);
}

json grades(const House& house)
{
    json list = json::array();
    for (const json& name : house.seed.document["grades"])
        list.push_back({{"id", "40580090000000000" + std::to_string(list.size() + 1)}, {"name", name}});
    return list;
}

Reply getHardCardAssessOrders(House& house, const Call& call)
{
    const Staff& person = actingStaff(house, call);
    const Card& card = guestCard(house, call.text("hardCardNo"), call.text("cardUid"));
    json orders = json::array();
    for (const Order* order : house.state.ordersOfCard(card.id))
        if (isGradable(*order) && !order->isAssessed)
            orders.push_back(
                {{"hardOrderId", order->id}, {"name", order->itemName}, {"num", static_cast<int>(order->num)}});
    return Reply::with({{"assessInfos", grades(house)},
                        {"assessOrders", orders},
                        {"hardCardInfo", {{"cardNo", card.number}, {"hardCardId", card.id}}},
                        {"staffUserInfo", {{"id", person.id}, {"code", person.code}}}});
}

// A guest may change his mind, so a line that has its grade takes another one.
Reply assessHardCardOrders(House& house, const Call& call)
{
    staffOfId(house, call.text("staffId"));
    const Card& card = cardOfId(house, call.text("hardCardId"));
    const json known = grades(house);
    std::vector<Order*> graded;
    for (const json& row : call.body["hardOrderAssess"]) {
        const auto isNamed = [&](const json& grade) { return grade["id"] == row.at("assessInfoId"); };
        demand(std::any_of(known.begin(), known.end(), isNamed), "ASSESS_ERR_0001", "评价项不存在");
        Order* order = house.state.orders.find(row.at("hardOrderId").get<std::string>());
        demand(order && order->cardId == card.id && isGradable(*order), "ASSESS_ERR_0002",
               "订单不属于手牌【" + card.number + "】，不能评价");
        graded.push_back(order);
    }
    demand(!graded.empty(), "ASSESS_ERR_0003", "没有需要评价的订单");
    for (Order* order : graded)
        order->isAssessed = true;
    return Reply::done();
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.get("/bca01/getHardCardAssessOrders", std::string(actingStaffFields) + "cardUid? hardCardNo?",
              getHardCardAssessOrders);
    table.post("/bca01/assessHardCardOrders", "hardCardId staffId hardOrderAssess[]", assessHardCardOrders);
});

} // namespace
} // namespace house
