#include "vm/module1/Module1Register.h"

#include "vm/module1/LeaveRoomVm.h"
#include "vm/module1/MassChgRestVm.h"
#include "vm/module1/MassChgRoomVm.h"
#include "vm/module1/MergeRoomVm.h"
#include "vm/module1/Module1Vm.h"
#include "vm/module1/OpenMassVm.h"
#include "vm/module1/OpenOccupyVm.h"
#include "vm/module1/OpenRestVm.h"
#include "vm/module1/OpenRoomVm.h"
#include "vm/module1/RestAddTimeVm.h"
#include "vm/module1/RestChgMassVm.h"
#include "vm/module1/RestChgPlanVm.h"
#include "vm/module1/RestChgRoomVm.h"
#include "vm/module1/RoomAddCardsVm.h"
#include "vm/module1/RoomCallVm.h"
#include "vm/module1/RoomCardSplitVm.h"
#include "vm/module1/RoomConsumeVm.h"
#include "vm/module1/RoomDetailVm.h"
#include "vm/module1/RoomRemarkVm.h"

#include <QtQml>

void Module1Register::init()
{
    qmlRegisterType<LeaveRoomVm>("LeaveRoomVm", 1, 0, "LeaveRoomVm");
    qmlRegisterType<MassChgRestVm>("MassChgRestVm", 1, 0, "MassChgRestVm");
    qmlRegisterType<MassChgRoomVm>("MassChgRoomVm", 1, 0, "MassChgRoomVm");
    qmlRegisterType<MergeRoomVm>("MergeRoomVm", 1, 0, "MergeRoomVm");
    qmlRegisterType<Module1Vm>("Module1Vm", 1, 0, "Module1Vm");
    qmlRegisterType<OpenMassVm>("OpenMassVm", 1, 0, "OpenMassVm");
    qmlRegisterType<OpenOccupyVm>("OpenOccupyVm", 1, 0, "OpenOccupyVm");
    qmlRegisterType<OpenRestVm>("OpenRestVm", 1, 0, "OpenRestVm");
    qmlRegisterType<OpenRoomVm>("OpenRoomVm", 1, 0, "OpenRoomVm");
    qmlRegisterType<RestAddTimeVm>("RestAddTimeVm", 1, 0, "RestAddTimeVm");
    qmlRegisterType<RestChgMassVm>("RestChgMassVm", 1, 0, "RestChgMassVm");
    qmlRegisterType<RestChgPlanVm>("RestChgPlanVm", 1, 0, "RestChgPlanVm");
    qmlRegisterType<RestChgRoomVm>("RestChgRoomVm", 1, 0, "RestChgRoomVm");
    qmlRegisterType<RoomAddCardsVm>("RoomAddCardsVm", 1, 0, "RoomAddCardsVm");
    qmlRegisterType<RoomCallVm>("RoomCallVm", 1, 0, "RoomCallVm");
    qmlRegisterType<RoomCardSplitVm>("RoomCardSplitVm", 1, 0, "RoomCardSplitVm");
    qmlRegisterType<RoomConsumeVm>("RoomConsumeVm", 1, 0, "RoomConsumeVm");
    qmlRegisterType<RoomDetailVm>("RoomDetailVm", 1, 0, "RoomDetailVm");
    qmlRegisterType<RoomRemarkVm>("RoomRemarkVm", 1, 0, "RoomRemarkVm");
}
