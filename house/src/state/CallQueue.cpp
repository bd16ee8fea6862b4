#include "src/state/CallQueue.h"

#include <algorithm>

namespace house {
namespace {

constexpr std::size_t keptSpeeches = 200;

bool isOpen(const QueueEntry& entry)
{
    return entry.status == CallStatus::Waiting || entry.status == CallStatus::Called ||
           entry.status == CallStatus::Serving;
}

constexpr char notCalled[] = "该手牌不是已叫号状态，不能操作";
constexpr char notWaiting[] = "该手牌已不在等待，不能操作";

void noteCall(QueueEntry& entry, const std::string& staffId, Seconds now)
{
    entry.status = CallStatus::Called;
    entry.staffId = staffId;
    entry.calledAt = now;
    ++entry.callNum;
}

} // namespace

QueueEntry* CallQueue::openEntry(const std::string& cardId)
{
    for (QueueEntry& entry : entries)
        if (entry.cardId == cardId && isOpen(entry))
            return &entry;
    return nullptr;
}

CallQueue::Entries CallQueue::waiting()
{
    Entries found;
    for (QueueEntry& entry : entries)
        if (entry.status == CallStatus::Waiting)
            found.push_back(&entry);
    std::stable_sort(found.begin(), found.end(), [](const QueueEntry* left, const QueueEntry* right) {
        return left->joinedAt < right->joinedAt;
    });
    return found;
}

CallQueue::Entries CallQueue::called()
{
    Entries found;
    for (QueueEntry& entry : entries)
        if (isOpen(entry) && entry.status != CallStatus::Waiting)
            found.push_back(&entry);
    std::stable_sort(found.begin(), found.end(), [](const QueueEntry* left, const QueueEntry* right) {
        return left->calledAt < right->calledAt;
    });
    return found;
}

// A rule of this house: a helper serves the guest he called himself before those of his colleagues.
QueueEntry* CallQueue::nextCalled(const std::string& staffId)
{
    QueueEntry* next = nullptr;
    for (QueueEntry* entry : called())
        if (entry->status == CallStatus::Called &&
            (!next || (next->staffId != staffId && entry->staffId == staffId)))
            next = entry;
    return next;
}

std::string CallQueue::join(std::string id, const std::string& cardId, Seconds now)
{
    if (openEntry(cardId))
        return "该手牌已在排队中";
    QueueEntry entry;
    entry.id = std::move(id);
    entry.cardId = cardId;
    entry.joinedAt = now;
    entries.add(std::move(entry));
    return {};
}

std::string CallQueue::cancel(QueueEntry& entry)
{
    if (entry.status != CallStatus::Waiting)
        return notWaiting;
    entry.status = CallStatus::Cancelled;
    return {};
}

std::string CallQueue::call(QueueEntry& entry, const std::string& staffId, Seconds now)
{
    if (entry.status != CallStatus::Waiting)
        return notWaiting;
    noteCall(entry, staffId, now);
    return {};
}

std::string CallQueue::callAgain(QueueEntry& entry, const std::string& staffId, Seconds now)
{
    if (entry.status != CallStatus::Called)
        return notCalled;
    noteCall(entry, staffId, now);
    return {};
}

std::string CallQueue::passOver(QueueEntry& entry, bool isDeleted, const std::string& staffId, Seconds now)
{
    if (entry.status != CallStatus::Called)
        return notCalled;
    entry.status = isDeleted ? CallStatus::Deleted : CallStatus::Passed;
    passed.push_back({entry.cardId, entry.status, entry.callNum, staffId, now});
    return {};
}

std::string CallQueue::recall(std::string id, const std::string& cardId, const std::string& staffId,
                              Seconds now)
{
    const auto record = std::find_if(passed.rbegin(), passed.rend(),
                                     [&](const PassRecord& row) { return row.cardId == cardId; });
    if (record == passed.rend())
        return "该手牌没有过号记录";
    if (std::string fault = join(id, cardId, now); !fault.empty())
        return fault;
    QueueEntry& entry = *entries.find(id);
    entry.callNum = record->callNum;
    noteCall(entry, staffId, now);
    return {};
}

std::string CallQueue::serve(QueueEntry& entry, const std::string& staffId, Seconds now)
{
    if (entry.status != CallStatus::Called)
        return notCalled;
    entry.status = CallStatus::Serving;
    entry.staffId = staffId;
    entry.servedAt = now;
    return {};
}

std::string CallQueue::complete(QueueEntry& entry)
{
    if (entry.status != CallStatus::Serving)
        return "该手牌还未开始服务";
    entry.status = CallStatus::Done;
    return {};
}

std::string CallQueue::keepForSpeech(const Entries& calls)
{
    const std::string key = "CALL" + std::to_string(++lastKey);
    for (const QueueEntry* entry : calls)
        speech[key].push_back({entry->cardId, entry->callNum});
    speechKeys.push_back(key);
    if (speechKeys.size() > keptSpeeches) {
        speech.erase(speechKeys.front());
        speechKeys.pop_front();
    }
    return key;
}

const std::vector<SpokenCall>* CallQueue::spoken(const std::string& key) const
{
    const auto found = speech.find(key);
    return found == speech.end() ? nullptr : &found->second;
}

const char* wordOf(CallStatus status)
{
    switch (status) {
    case CallStatus::Waiting:
        return "等待中";
    case CallStatus::Called:
        return "已叫号";
    case CallStatus::Serving:
        return "服务中";
    case CallStatus::Done:
        return "已完成";
    case CallStatus::Passed:
        return "已过号";
    case CallStatus::Deleted:
        return "已删除";
    case CallStatus::Cancelled:
        return "已取消";
    }
    return "";
}

} // namespace house
