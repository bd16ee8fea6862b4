#include "vm/module9/Module9Register.h"

#include "vm/module9/Module9Vm.h"
#include "vm/module9/TransferCardsVm.h"
#include "vm/shared/Register.h"

void Module9Register::init()
{
    registerViewModel<Module9Vm>("Module9Vm");
    registerViewModel<TransferCardsVm>("TransferCardsVm");
}
