#include "vm/module8/Module8Register.h"

#include "vm/module8/Module8Vm.h"
#include "vm/shared/Register.h"

void Module8Register::init() { registerViewModel<Module8Vm>("Module8Vm"); }
