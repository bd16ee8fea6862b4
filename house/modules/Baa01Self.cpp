#include "src/Asked.h"
#include "src/Unread.h"

#include <algorithm>

namespace house {
namespace {

using nlohmann::json;

struct Portions
{
    int tickets = 0;
    int entries = 0;
};

Portions portionsOf(State& state, const Card& card)
{
    Portions portions;
    for (const Order* order : state.ordersOfCard(card.id)) {
        portions.tickets += order->kind == OrderKind::Ticket ? static_cast<int>(order->num) : 0;
        portions.entries += order->isSelfEntry ? 1 : 0;
    }
    return portions;
}

std::string selfItemName(const Call& call) { return call.terminal->record.value("selfItemName", ""); }

Reply getCardSelfOrder(House& house, const Call& call)
{
    const Card& card = guestCard(house, call.text("cardno"), call.text("cardUid"));
    const Portions portions = portionsOf(house.state, card);
    return Reply::with({{"cardno", card.number},
                        {"ticketNum", portions.tickets},
                        {"selfNum", portions.entries},
                        {"id", card.id}});
}

/// Each ticket on a card is good for one portion; this is the house's own measure.
Reply selfInput(House& house, const Call& call)
{
    const Card& card = cardOfId(house, call.text("id"));
    const Item* item = house.state.items.findBy(&Item::name, selfItemName(call));
    demand(card.status == CardStatus::InUse, "CARD_ERR_0002", "手牌" + card.number + "不在用，不能录入");
    demand(item, "SELF_ERR_0001", "本终端未设置自助录入项目");
    const Portions portions = portionsOf(house.state, card);
    demand(portions.entries < portions.tickets, "SELF_ERR_0002",
           "手牌" + card.number + "的门票数量不足，不能再录入");
    Order order = lineOf(*item);
    order.cardId = card.id;
    order.enteredBy = call.staff->id;
    order.deviceId = call.terminal->id;
    order.createdAt = call.now;
    order.isSelfEntry = true;
    house.state.addOrder(std::move(order));
    return Reply::done();
}

/// The entries made at this terminal in the running business day, the last one first.
std::vector<const Order*> entriesHere(const House& house, const Call& call)
{
    const Seconds start = businessDayStart(house, call.now);
    std::vector<const Order*> entries;
    for (const Order& order : house.state.orders)
        if (order.isSelfEntry && order.status != LineStatus::Void && order.createdAt >= start &&
            order.deviceId == call.terminal->id)
            entries.push_back(&order);
    std::reverse(entries.begin(), entries.end());
    return entries;
}

Reply getTrmSelfOdrSum(House& house, const Call& call)
{
    const std::vector<const Order*> entries = entriesHere(house, call);
    json byType = json::array();
    for (const CardType& type : house.state.cardTypes) {
        const auto count = std::count_if(entries.begin(), entries.end(), [&](const Order* order) {
            return house.state.cards.find(order->cardId)->type == type.id;
        });
        byType.push_back(
            withUnread({{"cardTypeName", type.name}, {"sumNum", count}}, {"cardType", "itemName"}));
    }
    const json sum = withUnread({{"sumNum", entries.size()}}, {"itemName"}, {"sumAmount"});
    return Reply::with({{"sumInfo", sum}, {"cardTypeSumInfo", byType}});
}

Reply getTrmSelfOdrDetail(House& house, const Call& call)
{
    json list = json::array();
    for (const Order* order : entriesHere(house, call))
        list.push_back(withUnread(
            {{"cardNo", house.state.cardNumber(order->cardId)}, {"createtime", timeText(order->createdAt)}},
            {"itemName"}));
    return Reply::with(list);
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.get("/baa01/getCardSelfOrder", "cardno? cardUid?", getCardSelfOrder);
    table.post("/baa01/selfInput", "id", selfInput);
    table.get("/baa01/getTrmSelfOdrSum", "", getTrmSelfOdrSum);
    table.get("/baa01/getTrmSelfOdrDetail", "", getTrmSelfOdrDetail);
});

} // namespace
} // namespace house
