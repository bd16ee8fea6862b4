#include "src/others/OtherTerminals.h"

#include "src/others/Moves.h"

namespace house {

const char* OtherTerminals::change(Seconds now)
{
    struct Chance
    {
        const Move* move;
        int weight;
    };
    Scene scene(house, dice, now, complain);
    std::vector<Chance> chances;
    int total = 0;
    for (const auto* moves : {&openingMoves(), &stayMoves(), &serviceMoves()}) {
        for (const Move& move : *moves) {
            chances.push_back({&move, move.weight(scene)});
            total += chances.back().weight;
        }
    }
    while (total > 0) {
        int roll = dice.below(total);
        auto chance = chances.begin();
        for (; roll >= chance->weight; ++chance)
            roll -= chance->weight;
        if (chance->move->make(scene))
            return chance->move->name;
        total -= chance->weight;
        chance->weight = 0;
    }
    return nullptr;
}

} // namespace house
