#pragma once

#include "src/state/Rows.h"
#include "src/state/Table.h"

#include <deque>
#include <map>
#include <string>
#include <vector>

/// The guests who wait for a bath helper, and what is said aloud to them.
namespace house {

enum class CallStatus {
    Waiting = 1,
    Called = 2,
    Serving = 3,
    Done = 4,
    Passed = 5,
    Deleted = 6,
    Cancelled = 7
};

struct QueueEntry
{
    std::string id;
    std::string cardId;
    CallStatus status = CallStatus::Waiting;
    int callNum = 0;
    std::string staffId; ///< who called last, or serves
    Seconds joinedAt = 0;
    Seconds calledAt = 0; ///< the last call
    Seconds since = 0;    ///< when it got its status, or was called again
};

/// A guest who was called and didn't come.
struct PassRecord
{
    std::string cardId;
    CallStatus status = CallStatus::Passed; ///< or deleted
    int callNum = 0;
    std::string staffId;
    Seconds at = 0;
};

inline constexpr char queueFault[] = "CALL_ERR_0001";

/// What can't be done is refused with queueFault.
class CallQueue
{
public:
    using Entries = std::vector<QueueEntry*>;
    using Speech = std::vector<std::string>; ///< ids of cards

    QueueEntry* find(const std::string& id) { return entries.find(id); }
    /// The card's entry that is waiting, called or being served.
    QueueEntry* openEntry(const std::string& cardId);
    Entries waiting(); ///< the longest waiting first
    Entries called();  ///< called or being served, the earliest call first
    /// Whom this helper serves next: the guest he called himself, else another one; null when nobody is due.
    QueueEntry* nextCalled(const std::string& staffId);

    QueueEntry& join(std::string id, const std::string& cardId, Seconds now);
    void cancel(QueueEntry& entry);
    void call(QueueEntry& entry, const std::string& staffId, Seconds now);
    void callAgain(QueueEntry& entry, const std::string& staffId, Seconds now);
    void passOver(QueueEntry& entry, bool isDeleted, const std::string& staffId, Seconds now);
    /// Somebody who was passed over gets a called entry of this id.
    QueueEntry& recall(std::string id, const std::string& cardId, const std::string& staffId, Seconds now);
    void serve(QueueEntry& entry, const std::string& staffId, Seconds now);
    void complete(QueueEntry& entry);

    /// Keeps whom to call aloud; the key fetches it, by several terminals, for a while.
    std::string keepForSpeech(const Entries& calls);
    /// Null when the key is unknown or too old.
    const Speech* spoken(const std::string& key) const;
    const std::vector<PassRecord>& passRecords() const { return passed; }

private:
    Entries inOrder(bool (*isListed)(const QueueEntry&), Seconds QueueEntry::*time);

    Table<QueueEntry> entries;
    std::vector<PassRecord> passed;
    std::map<std::string, Speech> speech;
    std::deque<std::string> speechKeys; ///< oldest first
    long long lastKey = 0;
};

const char* wordOf(CallStatus status);

} // namespace house
