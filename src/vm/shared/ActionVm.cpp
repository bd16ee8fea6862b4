#include "vm/shared/ActionVm.h"

bool ActionVm::require(bool condition, const char* refusal)
{
    if (!condition)
        MyMessage::getInstance()->ShowError(QString::fromUtf8(refusal));
    return condition;
}
