#include "src/state/Asked.h"

#include <algorithm>
#include <map>

namespace house {
namespace {

using nlohmann::json;

constexpr char counterBackColor[] = "#08A0D3";

Reply noSuchCard() { return Reply::refuse("CARD_ERR_0001", "手牌不存在"); }

Card* cardOf(House& house, const Call& call)
{
    return house.state.cardBy(call.text("cardno"), call.text("cardUid"));
}

Reply getHardCardDetail(House& house, const Call& call)
{
    const Card* card = cardOf(house, call);
    if (!card)
        return noSuchCard();
    std::vector<std::string> ids = {card->id};
    const Room* room = house.state.rooms.find(card->roomId);
    if (room)
        ids = room->cardIds;
    // The card that is the room's own never is in another one.
    const std::string roomNo = room && room->code != card->number ? room->code : std::string();
    std::vector<std::string> numbers;
    for (const std::string& id : ids)
        numbers.push_back(house.state.cardNumber(id));
    return Reply::with({{"id", card->id},
                        {"cardno", card->number},
                        {"name", house.state.cardTypes.find(card->type)->name},
                        {"status", static_cast<int>(card->status)},
                        {"type", std::stoi(card->type)},
                        {"createtime", timeText(card->openedAt)},
                        {"remark", card->remark},
                        {"openCardTime", timeText(card->openedAt)},
                        {"cardIds", joined(ids)},
                        {"cardnos", joined(numbers)},
                        {"roomNo", roomNo}});
}

std::map<std::string, double> amountsByCard(const State& state)
{
    std::map<std::string, double> amounts;
    for (const Order& order : state.orders)
        if (isOpen(order))
            amounts[order.cardId] = roundMoney(amounts[order.cardId] + amountOf(order));
    return amounts;
}

std::size_t numberOf(const Call& call, const char* param)
{
    const std::string& text = call.params.at(param);
    const bool isNumber = !text.empty() && text.size() < 9 &&
                          text.find_first_not_of("0123456789") == std::string::npos && std::stoul(text) > 0;
    if (!isNumber)
        throw Refusal{Reply::refuse("REQ_ERR_QUERY", std::string("请求错误：") + param + "须是正整数")};
    return std::stoul(text);
}

Reply getHardCardList(House& house, const Call& call)
{
    const std::size_t limit = numberOf(call, "limit");
    const std::size_t first = (numberOf(call, "page") - 1) * limit;
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
    if (!order || order->cardId != call.text("cardId") || order->kind != OrderKind::Ticket || !isOpen(*order))
        return Reply::refuse("CARD_ERR_0002", "该手牌没有这张套票");
    const Item* ticket = house.state.items.find(call.text("pkgTktId"));
    if (!ticket || ticket->isPackTicket != 1)
        return Reply::refuse("CARD_ERR_0003", "所选票种不能用于更换套票");
    order->itemId = ticket->id;
    order->itemName = ticket->name;
    order->price = ticket->price;
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
        list.push_back({{"name", type.name}, {"num", count}, {"backcolor", counterBackColor}});
    }
    return list;
}

Reply getTodaySum(House& house, const Call& call)
{
    const std::string startTime = house.seed.document["sysconfig"].value("startTime", "00:00:00");
    const Seconds start = businessDayStart(call.now, startTime);
    const State& state = house.state;
    return Reply::with(
        {{"onCount", counts(state, [](const Card& card) { return card.status == CardStatus::InUse; })},
         {"inCount", counts(state, [&](const Card& card) { return card.openedAt >= start; })},
         {"exitCount", counts(state, [&](const Card& card) { return card.closedAt >= start; })}});
}

const ModuleRegistration registration([](EndpointTable& table) {
    table.get("/baa01/getHardCardDetail", getHardCardDetail)
        .takes("cardno", Kind::Text)
        .takes("cardUid", Kind::Text);
    table.get("/baa01/getHardCardList", asked(getHardCardList))
        .query({"limit", "page"})
        .needs("status", Kind::Number)
        .takes("usedCardSort", Kind::Number);
    table.get("/baa01/getPkgTktsList", getPkgTktsList).needs("cardType", Kind::Text);
    table.post("/baa01/editPkgCards", editPkgCards)
        .needs("cardId", Kind::Text)
        .needs("orderId", Kind::Text)
        .needs("type", Kind::Number)
        .needs("checkMode", Kind::Number)
        .takes("pkgTktId", Kind::Text)
        .guardedBy({"405755913397604356", "checkMode", "1", "", ""})
        .guardedBy({"408993957793763329", "checkMode", "2", "", ""})
        .guardedBy({"409020871279382530", "checkMode", "3", "", ""});
    table.get("/baa01/getTodaySum", getTodaySum);
});

} // namespace
} // namespace house
