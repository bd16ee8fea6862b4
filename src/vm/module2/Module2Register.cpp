#include "vm/module2/Module2Register.h"

#include "vm/module2/AllInCardsVm.h"
#include "vm/module2/ChgTpVm.h"
#include "vm/module2/Module2Vm.h"
#include "vm/module2/SellSumVm.h"
#include "vm/shared/Register.h"

void Module2Register::init()
{
    registerViewModel<Module2Vm>("Module2Vm");
    registerViewModel<SellSumVm>("SellSumVm");
    registerViewModel<ChgTpVm>("ChgTpVm");
    registerViewModel<AllInCardsVm>("AllInCardsVm");
}
