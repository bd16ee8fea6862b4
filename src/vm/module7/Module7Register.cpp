#include "vm/module7/Module7Register.h"

#include "vm/module7/Module7Vm.h"
#include "vm/shared/Register.h"

void Module7Register::init() { registerViewModel<Module7Vm>("Module7Vm"); }
