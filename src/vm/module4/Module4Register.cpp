#include "vm/module4/Module4Register.h"

#include "vm/module4/Module4Vm.h"
#include "vm/module4/PassRecordVm.h"
#include "vm/module4/ServiceEvalVm.h"
#include "vm/shared/Register.h"

void Module4Register::init()
{
    registerViewModel<Module4Vm>("Module4Vm");
    registerViewModel<ServiceEvalVm>("ServiceEvalVm");
    registerViewModel<PassRecordVm>("PassRecordVm");
    // Handed from page to view-model.
    qRegisterMetaType<AssessInfoModel*>();
}
