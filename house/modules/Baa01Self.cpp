#include "src/House.h"

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
    const Card* card = house.state.cardBy(call.text("cardno"), call.text("cardUid"));
    if (!card)
        return Reply::refuse("CARD_ERR_0001", "手牌不存在");
    if (card->status != CardStatus::InUse)
        return Reply::refuse("CARD_ERR_0004", "手牌" + card->number + "不在用，不能录入");
    const Portions portions = portionsOf(house.state, *card);
    return Reply::with({{"cardno", card->number},
                        {"ticketNum", portions.tickets},
                        {"selfNum", portions.entries},
                        {"id", card->id}});
}

/// Each ticket on a card is good for one portion; this is the house's own measure.
Reply selfInput(House& house, const Call& call)
{
    State& state = house.state;
    const Card* card = state.cards.find(call.text("id"));
    const Item* item = state.items.findBy(&Item::name, selfItemName(call));
    if (!card || card->status != CardStatus::InUse)
        return Reply::refuse("CARD_ERR_0001", "手牌不存在或不在用");
    if (!item)
        return Reply::refuse("SELF_ERR_0001", "本终端未设置自助录入项目");
    const Portions portions = portionsOf(state, *card);
    if (portions.entries >= portions.tickets)
        return Reply::refuse("SELF_ERR_0002", "手牌" + card->number + "的门票数量不足，不能再录入");
    Order order = lineOf(*item);
    order.id = state.newId();
    order.batchId = order.id;
    order.cardId = card->id;
    order.areaId = item->areaIds.front();
    order.enteredBy = call.staff->id;
    order.deviceId = call.terminal->id;
    order.createdAt = call.now;
    order.isSelfEntry = true;
    state.orders.add(std::move(order));
    return Reply::done();
}

/// The entries made at this terminal in the running business day, the last one first.
std::vector<const Order*> entriesHere(const House& house, const Call& call)
{
    const std::string startTime = house.seed.document["sysconfig"].value("startTime", "00:00:00");
    const Seconds start = businessDayStart(call.now, startTime);
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
    double amount = 0;
    for (const CardType& type : house.state.cardTypes) {
        const auto count = std::count_if(entries.begin(), entries.end(), [&](const Order* order) {
            return house.state.cards.find(order->cardId)->type == type.id;
        });
        byType.push_back({{"cardTypeName", type.name},
                          {"cardType", type.id},
                          {"itemName", selfItemName(call)},
                          {"sumNum", count}});
    }
    for (const Order* order : entries)
        amount += amountOf(*order);
    return Reply::with(
        {{"sumInfo",
          {{"itemName", selfItemName(call)}, {"sumNum", entries.size()}, {"sumAmount", roundMoney(amount)}}},
         {"cardTypeSumInfo", byType}});
}

Reply getTrmSelfOdrDetail(House& house, const Call& call)
{
    json list = json::array();
    for (const Order* order : entriesHere(house, call))
        list.push_back({{"cardNo", house.state.cardNumber(order->cardId)},
                        {"itemName", order->itemName},
                        {"createtime", timeText(order->createdAt)}});
    return Reply::with(list);
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.get("/baa01/getCardSelfOrder", getCardSelfOrder)
        .takes("cardno", Kind::Text)
        .takes("cardUid", Kind::Text);
    table.post("/baa01/selfInput", selfInput).needs("id", Kind::Text);
    table.get("/baa01/getTrmSelfOdrSum", getTrmSelfOdrSum);
    table.get("/baa01/getTrmSelfOdrDetail", getTrmSelfOdrDetail);
});

} // namespace
} // namespace house
