#include "vm/module6/Module6Register.h"

#include "vm/module6/EndServerVm.h"
#include "vm/module6/Module6Vm.h"
#include "vm/module6/StartServerVm.h"
#include "vm/shared/Register.h"

void Module6Register::init()
{
    registerViewModel<Module6Vm>("Module6Vm");
    registerViewModel<StartServerVm>("StartServerVm");
    registerViewModel<EndServerVm>("EndServerVm");
}
