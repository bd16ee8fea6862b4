#include "src/state/Asked.h"

namespace house {
namespace {

using nlohmann::json;

Reply getOrderListNew(House& house, const Call& call)
{
    const Card* card = house.state.cardByNumber(call.text("cardno"));
    if (!card)
        return Reply::refuse("CARD_ERR_0001", "手牌" + call.text("cardno") + "不存在");
    json orders = json::array();
    for (const Order* order : house.state.ordersOfCard(card->id))
        orders.push_back({{"orderId", order->id},
                          {"itemName", order->itemName},
                          {"itemId", order->itemId},
                          {"num", order->num},
                          {"price", order->status == LineStatus::Gift ? 0.0 : order->price},
                          {"createtime", timeText(order->createdAt)},
                          {"cardno", card->number}});
    return Reply::with({{"cardinfo",
                         {{"id", card->id},
                          {"cardno", card->number},
                          {"name", house.state.cardTypes.find(card->type)->name},
                          {"status", std::to_string(static_cast<int>(card->status))}}},
                        {"orderinfo", orders}});
}

/// Looks at everything first, so that a refused transfer moves nothing.
Reply transferAct(House& house, const Call& call)
{
    const Card& target = cardAsked(house, call.text("newCardId"));
    if (target.number != call.text("newCardNo") || target.status != CardStatus::InUse)
        return Reply::refuse("CARD_ERR_0004", "转入手牌不处于在用状态");
    std::vector<Order*> moved;
    for (const json& source : call.body["srcCardInfo"]) {
        const Card& card = cardAsked(house, source.at("cardId").get<std::string>());
        for (const std::string& orderId : textsOf(source, "orderIds")) {
            Order* order = house.state.orders.find(orderId);
            if (!order || order->cardId != card.id || !isOpen(*order))
                return Reply::refuse("CARD_ERR_0005",
                                     "手牌" + card.number + "的消费已变化，请重新查询后再转账");
            moved.push_back(order);
        }
    }
    if (moved.empty())
        return Reply::refuse("CARD_ERR_0006", "请选择需要转账的手牌或消费");
    for (Order* order : moved) {
        if (order->cardId == target.id)
            continue;
        order->oldCardNo = house.state.cardNumber(order->cardId);
        order->cardId = target.id;
    }
    announceRooms(house);
    return Reply::done();
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
    table.get("/bea01/getOrderListNew", getOrderListNew).needs("cardno", Kind::Text);
    table.post("/bea01/transferAct", asked(transferAct))
        .needs("srcCardInfo", Kind::Array)
        .needs("newCardId", Kind::Text)
        .needs("newCardNo", Kind::Text);
    table.get("/bea01/getStaffList", getStaffList).needs("staffNo", Kind::Text);
});

} // namespace
} // namespace house
