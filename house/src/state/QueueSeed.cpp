#include "src/state/SeedReader.h"

namespace house {
namespace {

constexpr Seconds minute = 60;

/// Brings an entry where the seed has it, along the same road as in the running house.
void advance(CallQueue& calls, QueueEntry& entry, const std::string& as, const std::string& staffId,
             Seconds calledAt)
{
    if (as != "waiting")
        calls.call(entry, staffId, calledAt);
    if (as == "serving")
        calls.serve(entry, staffId, calledAt + minute);
    if (as == "passed")
        calls.passOver(entry, false, staffId, calledAt + minute);
}

} // namespace

void furnishQueue(const Seed& seed, State& state, Seconds now)
{
    for (const nlohmann::json& row : seed.document.at("callQueue")) {
        const Card& card = named(state.cards, &Card::number, row.at("card").get<std::string>());
        const Staff* helper = seed.staffByCode(row.value("by", ""));
        QueueEntry& entry =
            state.calls.join(state.newId(), card.id, now - row.at("minutesAgo").get<int>() * minute);
        advance(state.calls, entry, row.value("as", "waiting"), helper ? helper->id : std::string(),
                now - row.value("calledMinutesAgo", 0) * minute);
    }
}

} // namespace house
