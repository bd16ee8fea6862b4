// Stand-in for the library of the reader that gives a text. A card is presented as that text.

#include "CardSocket.h"
#include "EntryPoint.h"

#include <cstring>

namespace {

CardSocket cards;

} // namespace

ENTRY_POINT int TP_Configration() { return cards.open() ? 1 : 0; }

ENTRY_POINT int TP_BeepOk()
{
    show("beep");
    return 1;
}

ENTRY_POINT int TP_ReadCardSnr(char* serial)
{
    const auto card = cards.takeCard();
    if (!card)
        return 0;
    std::strcpy(serial, card->c_str());
    return 1;
}
