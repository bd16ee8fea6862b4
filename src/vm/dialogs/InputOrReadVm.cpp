#include "vm/dialogs/InputOrReadVm.h"

#include "app/MainClass.h"

InputOrReadVm::InputOrReadVm(QObject* parent) : BaseObject(parent)
{
    MainClass::getInstance()->startReadStaff(this);
}

InputOrReadVm::~InputOrReadVm() { MainClass::getInstance()->stopReadStaff(this); }

void InputOrReadVm::readingExec(QString cardId)
{
    if (!cardId.isEmpty())
        Q_EMIT successSignal(cardId);
}
