#include "src/state/CallQueue.h"

#include "src/Refusal.h"

#include <algorithm>

namespace house {
namespace {

constexpr std::size_t keptSpeeches = 200;
constexpr char notCalled[] = "该手牌不是已叫号状态，不能操作";
constexpr char notWaiting[] = "该手牌已不在等待，不能操作";

bool isWaiting(const QueueEntry& entry) { return entry.status == CallStatus::Waiting; }

bool isCalled(const QueueEntry& entry)
{
    return entry.status == CallStatus::Called || entry.status == CallStatus::Serving;
}

void noteCall(QueueEntry& entry, const std::string& staffId, Seconds now)
{
    entry.status = CallStatus::Called;
    entry.staffId = staffId;
    entry.calledAt = entry.since = now;
    ++entry.callNum;
}

} // namespace

QueueEntry* CallQueue::openEntry(const std::string& cardId)
{
    for (QueueEntry& entry : entries)
        if (entry.cardId == cardId && (isWaiting(entry) || isCalled(entry)))
            return &entry;
    return nullptr;
}

CallQueue::Entries CallQueue::inOrder(bool (*isListed)(const QueueEntry&), Seconds QueueEntry::*time)
{
    Entries found;
    for (QueueEntry& entry : entries)
        if (isListed(entry))
            found.push_back(&entry);
    std::stable_sort(found.begin(), found.end(), [&](const QueueEntry* left, const QueueEntry* right) {
        return left->*time < right->*time;
    });
    return found;
}

CallQueue::Entries CallQueue::waiting() { return inOrder(isWaiting, &QueueEntry::joinedAt); }

CallQueue::Entries CallQueue::called() { return inOrder(isCalled, &QueueEntry::calledAt); }

QueueEntry* CallQueue::nextCalled(const std::string& staffId)
{
    QueueEntry* next = nullptr;
    for (QueueEntry* entry : called())
        if (entry->status == CallStatus::Called &&
            (!next || (next->staffId != staffId && entry->staffId == staffId)))
            next = entry;
    return next;
}

QueueEntry& CallQueue::join(std::string id, const std::string& cardId, Seconds now)
{
    demand(!openEntry(cardId), queueFault, "该手牌已在排队中");
    QueueEntry entry;
    entry.id = std::move(id);
    entry.cardId = cardId;
    entry.joinedAt = entry.since = now;
    return entries.add(std::move(entry));
}

void CallQueue::cancel(QueueEntry& entry)
{
    demand(isWaiting(entry), queueFault, notWaiting);
    entry.status = CallStatus::Cancelled;
}

void CallQueue::call(QueueEntry& entry, const std::string& staffId, Seconds now)
{
    demand(isWaiting(entry), queueFault, notWaiting);
    noteCall(entry, staffId, now);
}

void CallQueue::callAgain(QueueEntry& entry, const std::string& staffId, Seconds now)
{
    demand(entry.status == CallStatus::Called, queueFault, notCalled);
    noteCall(entry, staffId, now);
}

void CallQueue::passOver(QueueEntry& entry, bool isDeleted, const std::string& staffId, Seconds now)
{
    demand(entry.status == CallStatus::Called, queueFault, notCalled);
    entry.status = isDeleted ? CallStatus::Deleted : CallStatus::Passed;
    passed.push_back({entry.cardId, entry.status, entry.callNum, staffId, now});
}

QueueEntry& CallQueue::recall(std::string id, const std::string& cardId, const std::string& staffId,
                              Seconds now)
{
    const auto record = std::find_if(passed.rbegin(), passed.rend(),
                                     [&](const PassRecord& row) { return row.cardId == cardId; });
    demand(record != passed.rend(), queueFault, "该手牌没有过号记录");
    QueueEntry& entry = join(std::move(id), cardId, now);
    entry.callNum = record->callNum;
    noteCall(entry, staffId, now);
    return entry;
}

void CallQueue::serve(QueueEntry& entry, const std::string& staffId, Seconds now)
{
    demand(entry.status == CallStatus::Called, queueFault, notCalled);
    entry.status = CallStatus::Serving;
    entry.staffId = staffId;
    entry.since = now;
}

void CallQueue::complete(QueueEntry& entry)
{
    demand(entry.status == CallStatus::Serving, queueFault, "该手牌还未开始服务");
    entry.status = CallStatus::Done;
}

std::string CallQueue::keepForSpeech(const Entries& calls)
{
    const std::string key = "CALL" + std::to_string(++lastKey);
    for (const QueueEntry* entry : calls)
        speech[key].push_back(entry->cardId);
    speechKeys.push_back(key);
    if (speechKeys.size() > keptSpeeches) {
        speech.erase(speechKeys.front());
        speechKeys.pop_front();
    }
    return key;
}

const CallQueue::Speech* CallQueue::spoken(const std::string& key) const
{
    const auto found = speech.find(key);
    return found == speech.end() ? nullptr : &found->second;
}

const char* wordOf(CallStatus status)
{
    static constexpr const char* words[] = {"",       "等待中", "已叫号", "服务中",
                                            "已完成", "已过号", "已删除", "已取消"};
    return words[static_cast<int>(status)];
}

} // namespace house
