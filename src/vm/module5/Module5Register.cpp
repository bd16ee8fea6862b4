#include "vm/module5/Module5Register.h"

#include "vm/module5/ChecksVm.h"
#include "vm/module5/Module5Vm.h"
#include "vm/shared/Register.h"

void Module5Register::init()
{
    registerViewModel<Module5Vm>("Module5Vm");
    registerViewModel<ChecksVm>("ChecksVm");
}
