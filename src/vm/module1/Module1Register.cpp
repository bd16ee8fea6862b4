#include "vm/module1/Module1Register.h"

#include "vm/module1/Module1Vm.h"

#include <QtQml>

void Module1Register::init() { qmlRegisterType<Module1Vm>("Module1Vm", 1, 0, "Module1Vm"); }
