#include "src/state/SeedReader.h"

namespace house {
namespace {

constexpr Seconds minute = 60;

/// Brings an entry where the seed has it, along the same road as in the running house.
void advance(CallQueue& calls, QueueEntry& entry, const std::string& as, const std::string& staffId,
             Seconds calledAt)
{
    if (as == "waiting")
        return;
    calls.call(entry, staffId, calledAt);
    if (as == "serving")
        calls.serve(entry, staffId, calledAt + minute);
    else if (as == "passed")
        calls.passOver(entry, false, staffId, calledAt + minute);
    else if (as != "called")
        throw FurnishError("a guest in the queue can't be \"" + as + "\"");
}

} // namespace

void furnishQueue(const Seed& seed, State& state, Seconds now)
{
    for (const nlohmann::json& row : seed.document.at("callQueue")) {
        const Card& card = named(state.cards, &Card::number, row.at("card").get<std::string>());
        const Staff* helper = seed.staffByCode(row.value("by", ""));
        const std::string id = state.newId();
        const Seconds joinedAt = now - row.at("minutesAgo").get<int>() * minute;
        const std::string fault = state.calls.join(id, card.id, joinedAt);
        if (!fault.empty() || card.status != CardStatus::InUse)
            throw FurnishError("card " + card.number + " can't stand in the queue");
        advance(state.calls, *state.calls.find(id), row.value("as", "waiting"),
                helper ? helper->id : std::string(), now - row.value("calledMinutesAgo", 0) * minute);
    }
}

} // namespace house
