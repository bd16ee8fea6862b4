// Stand-in for the library of the reader that gives one leading character and twelve digits. A card is
// presented as what stands behind the leading character.

#include "CardSocket.h"
#include "EntryPoint.h"

namespace {

CardSocket cards;
std::string lastAnswer; // lent to the caller until the next call

} // namespace

ENTRY_POINT int FindCk() { return cards.open() ? 1 : 0; }

ENTRY_POINT void CloseCK()
{
    cards.close();
    show("closed");
}

ENTRY_POINT const char* ReadOnLine()
{
    const auto card = cards.takeCard();
    lastAnswer = card ? "S" + *card : std::string();
    return lastAnswer.c_str();
}

ENTRY_POINT int SetReaderVoice(int sound, int times)
{
    show(sound == 1 && times == 1 ? "beep" : "SetReaderVoice with unknown values");
    return 0;
}

ENTRY_POINT void EndforRecv() { show("reception ended"); }
