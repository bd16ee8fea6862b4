#include "vm/module1/Module1Register.h"

#include <QtQml>

void Module1Register::init() {}
