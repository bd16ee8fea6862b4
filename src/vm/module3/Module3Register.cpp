#include "vm/module3/Module3Register.h"

#include "vm/module3/DownServerVm.h"
#include "vm/module3/Module3Vm.h"
#include "vm/module3/UpServerVm.h"
#include "vm/shared/Register.h"

void Module3Register::init()
{
    registerViewModel<Module3Vm>("Module3Vm");
    registerViewModel<UpServerVm>("UpServerVm");
    registerViewModel<DownServerVm>("DownServerVm");
}
