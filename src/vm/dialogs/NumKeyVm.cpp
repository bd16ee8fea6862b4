#include "vm/dialogs/NumKeyVm.h"

void NumKeyVm::init(bool isReading, int readType)
{
    constexpr int handCards = 1;
    if (!isReading)
        return;
    if (readType == handCards)
        m_reader.listenToCards();
    else
        m_reader.listenToStaff();
}

void NumKeyVm::readingExec(QString cardId)
{
    if (!cardId.isEmpty())
        Q_EMIT successSignal(cardId);
}

void NumKeyVm::readingHandExec(QString cardId) { readingExec(cardId); }
