#include "vm/dialogs/NumKeyVm.h"

#include "app/MainClass.h"
#include "common/GlobalConfig.h"

NumKeyVm::~NumKeyVm()
{
    if (m_reader == Reader::Hand)
        MainClass::getInstance()->stopReadHand(this);
    else if (m_reader == Reader::Staff)
        MainClass::getInstance()->stopReadStaff(this);
}

void NumKeyVm::init(bool isReading, int readType)
{
    if (!isReading)
        return;
    if (readType == 1 && GlobalConfig::getInstance()->hand_card_device == 1) {
        m_reader = Reader::Hand;
        MainClass::getInstance()->startReadHand(this);
    } else {
        m_reader = Reader::Staff;
        MainClass::getInstance()->startReadStaff(this);
    }
}

void NumKeyVm::readingExec(QString cardId)
{
    if (!cardId.isEmpty())
        Q_EMIT successSignal(cardId);
}

void NumKeyVm::readingHandExec(QString cardId) { readingExec(cardId); }
