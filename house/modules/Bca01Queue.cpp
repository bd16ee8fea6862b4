#include "src/Lookup.h"

namespace house {
namespace {

using nlohmann::json;

constexpr char queueFault[] = "CALL_ERR_0001";
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
    if (!entry)
        refuse(queueFault, "排队记录不存在");
    return *entry;
}

/// The open entry of the card in the request.
QueueEntry& entryOfCard(House& house, const Call& call)
{
    const Card& card = guestCard(house, call.text("hardCardNo"), call.text("cardUid"));
    QueueEntry* entry = house.state.calls.openEntry(card.id);
    if (!entry)
        refuse(queueFault, "手牌【" + card.number + "】不在排队中");
    return *entry;
}

json recordOf(const House& house, const QueueEntry& entry, int index, Seconds now)
{
    const Seconds since = entry.status == CallStatus::Waiting  ? entry.joinedAt
                          : entry.status == CallStatus::Called ? entry.calledAt
                                                               : entry.servedAt;
    return {{"id", entry.id},
            {"hardCardId", entry.cardId},
            {"cardNo", house.state.cardNumber(entry.cardId)},
            {"status", static_cast<int>(entry.status)},
            {"statusVal", wordOf(entry.status)},
            {"callNum", entry.callNum},
            {"uptime", timeText(since).substr(clockPlace)},
            {"minuteNum", (now - since) / minute},
            {"index", index}};
}

json recordsOf(const House& house, const CallQueue::Entries& entries, Seconds now)
{
    json list = json::array();
    for (const QueueEntry* entry : entries)
        list.push_back(recordOf(house, *entry, static_cast<int>(list.size()) + 1, now));
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
    refuseIf(queueFault, house.state.calls.join(house.state.newId(), card.id, call.now));
    return changed(house, *house.state.calls.openEntry(card.id));
}

Reply cacelWaitCall(House& house, const Call& call)
{
    actingStaff(house, call);
    QueueEntry& entry = entryOf(house, call);
    refuseIf(queueFault, house.state.calls.cancel(entry));
    return changed(house, entry);
}

Reply crossCallInfo(House& house, const Call& call)
{
    QueueEntry& entry = entryOf(house, call);
    const bool isStruckOff = call.body.value("isCall", 0) == strikeOff;
    refuseIf(queueFault, house.state.calls.passOver(entry, isStruckOff, actingStaff(house, call).id, call.now));
    return changed(house, entry);
}

Reply repeatCallInfo(House& house, const Call& call)
{
    QueueEntry& entry = entryOf(house, call);
    refuseIf(queueFault, house.state.calls.callAgain(entry, actingStaff(house, call).id, call.now));
    return called(house, {&entry});
}

Reply callNextHardCards(House& house, const Call& call)
{
    const Staff& helper = actingStaff(house, call);
    const long long wanted = call.body["callNum"].get<long long>();
    if (wanted < 1)
        refuse(queueFault, "呼叫数量不正确");
    CallQueue::Entries calls = house.state.calls.waiting();
    if (calls.empty())
        refuse(queueFault, "当前没有等待的手牌");
    // With fewer guests than wanted, all of them are called.
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
    refuseIf(queueFault, house.state.calls.call(entry, actingStaff(house, call).id, call.now));
    return called(house, {&entry});
}

Reply reCallHardCards(House& house, const Call& call)
{
    const Card& card = cardAsked(house, call.text("hardCardId"));
    if (card.status != CardStatus::InUse)
        refuse(queueFault, "手牌【" + card.number + "】已结账离店，不能重叫");
    refuseIf(queueFault, house.state.calls.recall(house.state.newId(), card.id, call.staff->id, call.now));
    return called(house, {house.state.calls.openEntry(card.id)});
}

Reply startServerCallInfo(House& house, const Call& call)
{
    const Staff& helper = actingStaff(house, call);
    QueueEntry* entry =
        call.body.contains("hardCardNo") ? &entryOfCard(house, call) : house.state.calls.nextCalled(helper.id);
    if (!entry)
        refuse(queueFault, "当前没有已叫号的手牌");
    refuseIf(queueFault, house.state.calls.serve(*entry, helper.id, call.now));
    return changed(house, *entry);
}

Reply completeWaitCall(House& house, const Call& call)
{
    const Staff& helper = actingStaff(house, call);
    QueueEntry& entry = entryOfCard(house, call);
    refuseIf(queueFault, house.state.calls.complete(entry));
    changed(house, entry);
    return Reply::with(
        {{"staffUserInfo", {{"id", helper.id}, {"code", helper.code}}},
         {"hardCardInfo", {{"cardNo", house.state.cardNumber(entry.cardId)}, {"hardCardId", entry.cardId}}}});
}

Reply getMqttCallInfoDataByKey(House& house, const Call& call)
{
    const std::vector<SpokenCall>* calls = house.state.calls.spoken(call.text("key"));
    if (!calls)
        refuse(queueFault, "叫号信息不存在或已过期");
    json list = json::array();
    for (const SpokenCall& spoken : *calls)
        list.push_back({{"cardNo", house.state.cardNumber(spoken.cardId)},
                        {"hardCardType", cardAsked(house, spoken.cardId).type},
                        {"callNum", spoken.callNum}});
    return Reply::with(list);
}

const ModuleRegistration registration([](EndpointTable& table) {
    const auto command = [&table](const std::string& path, Handler handler) -> Endpoint& {
        return withActingStaff(table.post(path, asked(std::move(handler))));
    };
    table.get("/bca01/getHardCardCallList", getHardCardCallList);
    table.get("/bca01/getMqttCallInfoDataByKey", asked(getMqttCallInfoDataByKey)).needs("key", Kind::Text);
    command("/bca01/addWaitCallInfos", addWaitCallInfos)
        .takes("cardUid", Kind::Text)
        .takes("hardCardNo", Kind::Text);
    command("/bca01/cacelWaitCall", cacelWaitCall).needs("id", Kind::Text);
    command("/bca01/crossCallInfo", crossCallInfo).needs("id", Kind::Text).takes("isCall", Kind::Number);
    command("/bca01/repeatCallInfo", repeatCallInfo).needs("id", Kind::Text);
    command("/bca01/callNextHardCards", callNextHardCards).needs("callNum", Kind::Number);
    command("/bca01/callHardCards", callHardCards).needs("id", Kind::Text).needs("hardCardId", Kind::Text);
    command("/bca01/startServerCallInfo", startServerCallInfo).takes("hardCardNo", Kind::Text);
    command("/bca01/completeWaitCall", completeWaitCall)
        .takes("cardUid", Kind::Text)
        .takes("hardCardNo", Kind::Text);
    table.post("/bca01/reCallHardCards", asked(reCallHardCards)).needs("hardCardId", Kind::Text);
});

} // namespace
} // namespace house
