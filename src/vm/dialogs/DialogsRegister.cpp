#include "vm/dialogs/DialogsRegister.h"

#include "vm/dialogs/AuthVm.h"
#include "vm/dialogs/CloudVm.h"
#include "vm/dialogs/InputOrReadVm.h"
#include "vm/dialogs/JsServiceVm.h"
#include "vm/dialogs/LoginVm.h"
#include "vm/dialogs/MsgConfirmVm.h"
#include "vm/dialogs/NumKeyVm.h"
#include "vm/dialogs/StaffQueryVm.h"
#include "vm/dialogs/TasteVm.h"
#include "vm/dialogs/TodaySumVm.h"
#include "vm/shared/Register.h"

void DialogsRegister::init()
{
    registerViewModel<LoginVm>("LoginVm");
    registerViewModel<MsgConfirmVm>("MsgConfirmVm");
    registerViewModel<InputOrReadVm>("InputOrReadVm");
    registerViewModel<NumKeyVm>("NumKeyVm");
    registerViewModel<AuthVm>("AuthVm");
    registerViewModel<CloudVm>("CloudVm");
    registerViewModel<StaffQueryVm>("StaffQueryVm");
    registerViewModel<JsServiceVm>("JsServiceVm");
    registerViewModel<TasteVm>("TasteVm");
    registerViewModel<TodaySumVm>("TodaySumVm");
}
