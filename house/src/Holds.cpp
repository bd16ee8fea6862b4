#include "src/Holds.h"

#include "src/Seed.h"
#include "src/state/State.h"

namespace house {
namespace {

constexpr std::size_t idDigits = 18;

} // namespace

void Holds::note(State& state, const Seed& seed, const nlohmann::json& value, Seconds now)
{
    if (value.is_structured()) {
        for (const auto& part : value)
            note(state, seed, part, now);
        return;
    }
    if (!value.is_string())
        return;
    const std::string text = value.get<std::string>();
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
