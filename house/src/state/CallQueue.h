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
    Seconds servedAt = 0;
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

/// One card to be spoken.
struct SpokenCall
{
    std::string cardId;
    int callNum = 0;
};

/// What goes wrong is told in Chinese for the user, empty when the thing is done.
class CallQueue
{
public:
    using Entries = std::vector<QueueEntry*>;

    QueueEntry* find(const std::string& id) { return entries.find(id); }
    /// The card's entry that is waiting, called or being served.
    QueueEntry* openEntry(const std::string& cardId);
    Entries waiting(); ///< the longest waiting first
    Entries called();  ///< called or being served, the earliest call first
    QueueEntry*
    nextCalled(const std::string& staffId); ///< whom this helper serves next, null when nobody is due

    std::string join(std::string id, const std::string& cardId, Seconds now);
    std::string cancel(QueueEntry& entry);
    std::string call(QueueEntry& entry, const std::string& staffId, Seconds now);
    std::string callAgain(QueueEntry& entry, const std::string& staffId, Seconds now);
    std::string passOver(QueueEntry& entry, bool isDeleted, const std::string& staffId, Seconds now);
    /// Somebody who was passed over gets a called entry of this id.
    std::string recall(std::string id, const std::string& cardId, const std::string& staffId, Seconds now);
    std::string serve(QueueEntry& entry, const std::string& staffId, Seconds now);
    std::string complete(QueueEntry& entry);

    /// Keeps what is to be spoken; the key fetches it, by several terminals, for a while.
    std::string keepForSpeech(const Entries& calls);
    /// Null when the key is unknown or too old.
    const std::vector<SpokenCall>* spoken(const std::string& key) const;
    const std::vector<PassRecord>& passRecords() const { return passed; }

private:
    Table<QueueEntry> entries;
    std::vector<PassRecord> passed;
    std::map<std::string, std::vector<SpokenCall>> speech;
    std::deque<std::string> speechKeys; ///< oldest first
    long long lastKey = 0;
};

const char* wordOf(CallStatus status);

} // namespace house
