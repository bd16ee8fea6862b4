// Stand-in for the libraries of the readers that give four bytes. A card is presented as eight hexadecimal
// digits.

#include "CardSocket.h"
#include "EntryPoint.h"

#include <cstdlib>

namespace {

constexpr size_t serialBytes = 4;

CardSocket cards;

} // namespace

ENTRY_POINT int ReadRFID(unsigned char* serial)
{
    const auto card = cards.takeCard();
    if (!card)
        return 1;
    if (card->size() != 2 * serialBytes ||
        card->find_first_not_of("0123456789abcdefABCDEF") != std::string::npos) {
        show("a card of this kind has eight hexadecimal digits");
        return 1;
    }
    for (size_t i = 0; i < serialBytes; ++i)
        serial[i] = static_cast<unsigned char>(std::stoul(card->substr(2 * i, 2), nullptr, 16));
    return 0;
}

ENTRY_POINT int RDSound(int sound)
{
    show(sound == 1 ? "beep" : "RDSound with an unknown sound");
    return 0;
}
