#include "vm/dialogs/DialogsRegister.h"

#include "vm/dialogs/AuthVm.h"
#include "vm/dialogs/CloudVm.h"
#include "vm/dialogs/InputOrReadVm.h"
#include "vm/dialogs/LoginVm.h"
#include "vm/dialogs/MsgConfirmVm.h"
#include "vm/dialogs/NumKeyVm.h"

#include <QtQml>

void DialogsRegister::init()
{
    qmlRegisterType<LoginVm>("LoginVm", 1, 0, "LoginVm");
    qmlRegisterType<MsgConfirmVm>("MsgConfirmVm", 1, 0, "MsgConfirmVm");
    qmlRegisterType<InputOrReadVm>("InputOrReadVm", 1, 0, "InputOrReadVm");
    qmlRegisterType<NumKeyVm>("NumKeyVm", 1, 0, "NumKeyVm");
    qmlRegisterType<AuthVm>("AuthVm", 1, 0, "AuthVm");
    qmlRegisterType<CloudVm>("CloudVm", 1, 0, "CloudVm");
}
