#include "src/Asked.h"
#include "src/Unread.h"

#include <algorithm>
#include <map>

namespace house {
namespace {

using nlohmann::json;

Reply getHardCardDetail(House& house, const Call& call)
{
    const Card& card = cardOf(house, call.text("cardno"), call.text("cardUid"));
    // The card that is the room's own never is in another one.
    const std::string roomNo = house.state.roomCode(card.roomId);
    return Reply::with(withUnread({{"id", card.id},
                                   {"cardno", card.number},
                                   {"status", static_cast<int>(card.status)},
                                   {"roomNo", roomNo == card.number ? "" : roomNo}},
                                  {"name", "createtime", "remark", "openCardTime", "cardIds", "cardnos"},
                                  {"type"}));
}

std::map<std::string, double> amountsByCard(const State& state)
{
    std::map<std::string, double> amounts;
    for (const Order& order : state.orders)
        if (isOpen(order))
            amounts[order.cardId] = roundMoney(amounts[order.cardId] + amountOf(order));
    return amounts;
}

Reply getHardCardList(House& house, const Call& call)
{
    const std::size_t limit = positive(call, "limit");
    const std::size_t first = (positive(call, "page") - 1) * limit;
    std::vector<const Card*> cards;
    for (const Card& card : house.state.cards)
        if (call.body["status"] == static_cast<int>(card.status))
            cards.push_back(&card);
    const bool byTime = call.body.contains("usedCardSort");
    std::stable_sort(cards.begin(), cards.end(), [&](const Card* a, const Card* b) {
        return byTime ? a->openedAt < b->openedAt
                      : std::pair(a->number.size(), a->number) < std::pair(b->number.size(), b->number);
    });
    std::map<std::string, double> amounts = amountsByCard(house.state);
    json list = json::array();
    for (std::size_t i = first; i < cards.size() && list.size() < limit; ++i)
        list.push_back({{"cardno", cards[i]->number},
                        {"sex", house.state.cardTypes.find(cards[i]->type)->sex},
                        {"createtime", timeText(cards[i]->openedAt)},
                        {"remark", cards[i]->remark},
                        {"amount", amounts[cards[i]->id]}});
    return Reply::with({{"total", cards.size()}, {"list", list}});
}

Reply getPkgTktsList(House& house, const Call& call)
{
    json list = json::array();
    for (const Item& item : house.state.items)
        if (item.kind == OrderKind::Ticket && (item.cardType.empty() || item.cardType == call.text("cardType")))
            list.push_back({{"id", item.id},
                            {"name", item.name},
                            {"isPackTicket", item.isPackTicket},
                            {"price", item.price}});
    return Reply::with(list);
}

Reply editPkgCards(House& house, const Call& call)
{
    Order* order = house.state.orders.find(call.text("orderId"));
    demand(order && order->cardId == call.text("cardId") && order->kind == OrderKind::Ticket && isOpen(*order),
           "CARD_ERR_0002", "该手牌没有这张套票");
    const Item& ticket = itemOfId(house, call.text("pkgTktId"));
    demand(ticket.isPackTicket == 1, "CARD_ERR_0003", "所选票种不能用于更换套票");
    order->itemId = ticket.id;
    order->itemName = ticket.name;
    order->price = ticket.price;
    return Reply::done();
}

/// Cards of each kind for which the test holds.
template <typename Test>
json counts(const State& state, Test test)
{
    json list = json::array();
    for (const CardType& type : state.cardTypes) {
        const auto count = std::count_if(state.cards.begin(), state.cards.end(),
                                         [&](const Card& card) { return card.type == type.id && test(card); });
        list.push_back(withUnread({{"name", type.name}, {"num", count}}, {"backcolor"}));
    }
    return list;
}

Reply getTodaySum(House& house, const Call& call)
{
    const Seconds start = businessDayStart(house, call.now);
    const State& state = house.state;
    return Reply::with(
        {{"onCount", counts(state, [](const Card& card) { return card.status == CardStatus::InUse; })},
         {"inCount", counts(state, [&](const Card& card) { return card.openedAt >= start; })},
         {"exitCount", counts(state, [&](const Card& card) { return card.closedAt >= start; })}});
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.get("/baa01/getHardCardDetail", "cardno? cardUid?", getHardCardDetail);
    table.get("/baa01/getHardCardList", "status# usedCardSort#?", getHardCardList).query({"limit", "page"});
    table.get("/baa01/getPkgTktsList", "cardType", getPkgTktsList);
    table.post("/baa01/editPkgCards", "cardId orderId type# checkMode# pkgTktId?", editPkgCards)
        .guardedBy("405755913397604356", "checkMode", "1")
        .guardedBy("408993957793763329", "checkMode", "2")
        .guardedBy("409020871279382530", "checkMode", "3");
    table.get("/baa01/getTodaySum", "", getTodaySum);
});

} // namespace
} // namespace house
