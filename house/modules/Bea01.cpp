#include "src/Asked.h"
#include "src/Unread.h"

namespace house {
namespace {

using nlohmann::json;

Reply getOrderListNew(House& house, const Call& call)
{
    const Card& card = cardOf(house, call.text("cardno"), {});
    json orders = json::array();
    for (const Order* order : house.state.ordersOfCard(card.id))
        orders.push_back(withUnread({{"orderId", order->id},
                                     {"itemName", order->itemName},
                                     {"num", order->num},
                                     {"price", order->status == LineStatus::Gift ? 0.0 : order->price},
                                     {"createtime", timeText(order->createdAt)},
                                     {"cardno", card.number}},
                                    {"itemId"}));
    const json info = withUnread(
        {{"id", card.id}, {"cardno", card.number}, {"status", std::to_string(static_cast<int>(card.status))}},
        {"name"});
    return Reply::with({{"cardinfo", info}, {"orderinfo", orders}});
}

/// Looks at everything first, so that a refused transfer moves nothing.
Reply transferAct(House& house, const Call& call)
{
    const Card& target = cardOfId(house, call.text("newCardId"));
    demand(target.number == call.text("newCardNo") && target.status == CardStatus::InUse, "CARD_ERR_0004",
           "转入手牌不处于在用状态");
    std::vector<Order*> moved;
    for (const json& source : call.body["srcCardInfo"]) {
        const Card& card = cardOfId(house, source.at("cardId").get<std::string>());
        for (const std::string& orderId : textsOf(source, "orderIds")) {
            Order* order = house.state.orders.find(orderId);
            demand(order && order->cardId == card.id && isOpen(*order), "CARD_ERR_0005",
                   "手牌" + card.number + "的消费已变化，请重新查询后再转账");
            moved.push_back(order);
        }
    }
    demand(!moved.empty(), "CARD_ERR_0006", "请选择需要转账的手牌或消费");
    for (Order* order : moved)
        house.state.moveLine(*order, target);
    return roomsChanged(house);
}

Reply getStaffList(House& house, const Call& call)
{
    const std::string start = call.text("staffNo");
    json list = json::array();
    for (const Staff& person : house.seed.staff)
        if (person.active && person.code.compare(0, start.size(), start) == 0)
            list.push_back({{"staffId", person.id}, {"staffNo", person.code}, {"staffName", person.name}});
    return Reply::with({{"stafflist", list}});
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.get("/bea01/getOrderListNew", "cardno", getOrderListNew);
    table.post("/bea01/transferAct", "srcCardInfo[] newCardId newCardNo", transferAct);
    table.get("/bea01/getStaffList", "staffNo", getStaffList);
});

} // namespace
} // namespace house
