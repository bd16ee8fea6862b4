#include "src/Asked.h"
#include "src/Unread.h"

namespace house {
namespace {

using nlohmann::json;

/// What crossCallInfo has in "isCall" when the called guest is struck off instead of passed over.
constexpr int strikeOff = 2;
constexpr Seconds minute = 60;
constexpr std::size_t clockPlace = 11; ///< of the time of day in a date and time

/// The lists have changed: whoever shows them fetches them again.
Reply changed(House& house, const QueueEntry& entry)
{
    announce(house, "HARDCARDSCALLSTATUS", entry.id);
    return Reply::done();
}

Reply called(House& house, const CallQueue::Entries& calls)
{
    announce(house, "HARDCARDSCALLDATA", house.state.calls.keepForSpeech(calls));
    return changed(house, *calls.front());
}

QueueEntry& entryOf(House& house, const Call& call)
{
    QueueEntry* entry = house.state.calls.find(call.text("id"));
    demand(entry, queueFault, "排队记录不存在");
    return *entry;
}

/// The open entry of the card in the request.
QueueEntry& entryOfCard(House& house, const Call& call)
{
    const Card& card = guestCard(house, call.text("hardCardNo"), call.text("cardUid"));
    QueueEntry* entry = house.state.calls.openEntry(card.id);
    demand(entry, queueFault, "手牌【" + card.number + "】不在排队中");
    return *entry;
}

json recordsOf(const House& house, const CallQueue::Entries& entries, Seconds now)
{
    json list = json::array();
    for (const QueueEntry* entry : entries)
        list.push_back(withUnread({{"id", entry->id},
                                   {"cardNo", house.state.cardNumber(entry->cardId)},
                                   {"status", static_cast<int>(entry->status)},
                                   {"statusVal", wordOf(entry->status)},
                                   {"callNum", entry->callNum},
                                   {"uptime", timeText(entry->since).substr(clockPlace)},
                                   {"minuteNum", (now - entry->since) / minute}},
                                  {"hardCardId"}, {"index"}));
    return list;
}

Reply getHardCardCallList(House& house, const Call& call)
{
    CallQueue& calls = house.state.calls;
    return Reply::with({{"waitCallInfos", recordsOf(house, calls.waiting(), call.now)},
                        {"callInfos", recordsOf(house, calls.called(), call.now)}});
}

Reply addWaitCallInfos(House& house, const Call& call)
{
    actingStaff(house, call);
    const Card& card = guestCard(house, call.text("hardCardNo"), call.text("cardUid"));
    return changed(house, house.state.calls.join(house.state.newId(), card.id, call.now));
}

Reply cacelWaitCall(House& house, const Call& call)
{
    actingStaff(house, call);
    QueueEntry& entry = entryOf(house, call);
    house.state.calls.cancel(entry);
    return changed(house, entry);
}

Reply crossCallInfo(House& house, const Call& call)
{
    QueueEntry& entry = entryOf(house, call);
    const bool isStruckOff = call.body.value("isCall", 0) == strikeOff;
    house.state.calls.passOver(entry, isStruckOff, actingStaff(house, call).id, call.now);
    return changed(house, entry);
}

Reply repeatCallInfo(House& house, const Call& call)
{
    QueueEntry& entry = entryOf(house, call);
    house.state.calls.callAgain(entry, actingStaff(house, call).id, call.now);
    return called(house, {&entry});
}

/// With fewer guests than wanted, all of them are called.
Reply callNextHardCards(House& house, const Call& call)
{
    const Staff& helper = actingStaff(house, call);
    const long long wanted = call.body["callNum"].get<long long>();
    CallQueue::Entries calls = house.state.calls.waiting();
    demand(wanted > 0, queueFault, "呼叫数量不正确");
    demand(!calls.empty(), queueFault, "当前没有等待的手牌");
    if (calls.size() > static_cast<std::size_t>(wanted))
        calls.resize(static_cast<std::size_t>(wanted));
    for (QueueEntry* entry : calls)
        house.state.calls.call(*entry, helper.id, call.now);
    return called(house, calls);
}

// The terminal has only the entry's id to put into "hardCardId", so that field isn't read.
Reply callHardCards(House& house, const Call& call)
{
    QueueEntry& entry = entryOf(house, call);
    house.state.calls.call(entry, actingStaff(house, call).id, call.now);
    return called(house, {&entry});
}

Reply reCallHardCards(House& house, const Call& call)
{
    const Card& card = cardOfId(house, call.text("hardCardId"));
    demand(card.status == CardStatus::InUse, queueFault, "手牌【" + card.number + "】已结账离店，不能重叫");
    return called(house, {&house.state.calls.recall(house.state.newId(), card.id, call.staff->id, call.now)});
}

Reply startServerCallInfo(House& house, const Call& call)
{
    const Staff& helper = actingStaff(house, call);
    QueueEntry* entry =
        call.body.contains("hardCardNo") ? &entryOfCard(house, call) : house.state.calls.nextCalled(helper.id);
    demand(entry, queueFault, "当前没有已叫号的手牌");
    house.state.calls.serve(*entry, helper.id, call.now);
    return changed(house, *entry);
}

Reply completeWaitCall(House& house, const Call& call)
{
    const Staff& helper = actingStaff(house, call);
    QueueEntry& entry = entryOfCard(house, call);
    house.state.calls.complete(entry);
    changed(house, entry);
    return Reply::with(
        {{"staffUserInfo", withUnread({{"id", helper.id}}, {"code"})},
         {"hardCardInfo", {{"cardNo", house.state.cardNumber(entry.cardId)}, {"hardCardId", entry.cardId}}}});
}

Reply getMqttCallInfoDataByKey(House& house, const Call& call)
{
    const CallQueue::Speech* calls = house.state.calls.spoken(call.text("key"));
    demand(calls, queueFault, "叫号信息不存在或已过期");
    json list = json::array();
    for (const std::string& cardId : *calls) {
        const Card& card = cardOfId(house, cardId);
        list.push_back(withUnread({{"cardNo", card.number}, {"hardCardType", card.type}}, {}, {"callNum"}));
    }
    return Reply::with(list);
}

const ModuleRegistration registration([](EndpointTable& table) {
    const std::string actor = actingStaffFields;
    table.get("/bca01/getHardCardCallList", "", getHardCardCallList);
    table.get("/bca01/getMqttCallInfoDataByKey", "key", getMqttCallInfoDataByKey);
    table.post("/bca01/addWaitCallInfos", actor + "cardUid? hardCardNo?", addWaitCallInfos);
    table.post("/bca01/cacelWaitCall", actor + "id", cacelWaitCall);
    table.post("/bca01/crossCallInfo", actor + "id isCall#?", crossCallInfo);
    table.post("/bca01/repeatCallInfo", actor + "id", repeatCallInfo);
    table.post("/bca01/callNextHardCards", actor + "callNum#", callNextHardCards);
    table.post("/bca01/callHardCards", actor + "id hardCardId", callHardCards);
    table.post("/bca01/startServerCallInfo", actor + "hardCardNo?", startServerCallInfo);
    table.post("/bca01/completeWaitCall", actor + "cardUid? hardCardNo?", completeWaitCall);
    table.post("/bca01/reCallHardCards", "hardCardId", reCallHardCards);
});

} // namespace
} // namespace house
