#include "src/Holds.h"

#include "src/Seed.h"
#include "src/state/State.h"

#include <set>

namespace house {
namespace {

constexpr std::size_t idDigits = 18;

/// Fields of every request, none of which names what it is about.
const std::set<std::string> commonFields = {"storeId",  "compId",  "deviceId",    "soft_version",
                                            "operator", "creater", "acode",       "ts",
                                            "nc",       "tcode",   "authOperater"};

} // namespace

void Holds::note(State& state, const Seed& seed, const nlohmann::json& body, Seconds now)
{
    if (body.is_structured()) {
        for (const auto& entry : body.items())
            if (body.is_array() || commonFields.count(entry.key()) == 0)
                note(state, seed, entry.value(), now);
        return;
    }
    if (!body.is_string())
        return;
    const std::string text = body.get<std::string>();
    const bool isId = text.size() == idDigits;
    const auto hold = [&](const auto* row) {
        if (row)
            ends[row->id] = now + holdSeconds;
    };
    hold(isId ? state.rooms.find(text) : state.roomByCode(text));
    hold(isId ? seed.staffById(text) : seed.staffByCode(text));
    hold(isId ? nullptr : seed.staffByCard(text));
    const Card* card = isId ? state.cards.find(text) : state.cardByNumber(text);
    if (!card && !isId)
        card = state.cardByUid(text);
    hold(card);
    hold(card ? state.rooms.find(card->roomId) : nullptr);
}

bool Holds::has(const std::string& id, Seconds now) const
{
    const auto found = ends.find(id);
    return found != ends.end() && now < found->second;
}

} // namespace house
