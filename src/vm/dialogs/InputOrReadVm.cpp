#include "vm/dialogs/InputOrReadVm.h"

void InputOrReadVm::readingExec(QString cardId)
{
    if (!cardId.isEmpty())
        Q_EMIT successSignal(cardId);
}
