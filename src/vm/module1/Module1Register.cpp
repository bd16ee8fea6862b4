#include "vm/module1/Module1Register.h"

#include "vm/module1/ChgRoomVm.h"
#include "vm/module1/MergeRoomVm.h"
#include "vm/module1/Module1Vm.h"
#include "vm/module1/OpenOccupyVm.h"
#include "vm/module1/OpenRoomVm.h"
#include "vm/module1/OpeningVm.h"
#include "vm/module1/RoomCallVm.h"
#include "vm/module1/RoomCardVms.h"
#include "vm/module1/RoomChangeVms.h"
#include "vm/module1/RoomConsumeVm.h"
#include "vm/module1/RoomDetailVm.h"
#include "vm/shared/Register.h"

void Module1Register::init()
{
    registerViewModel<LeaveRoomVm>("LeaveRoomVm");
    registerViewModel<MassChgRestVm>("MassChgRestVm");
    registerViewModel<MassChgRoomVm>("MassChgRoomVm");
    registerViewModel<MergeRoomVm>("MergeRoomVm");
    registerViewModel<Module1Vm>("Module1Vm");
    registerViewModel<OpenMassVm>("OpenMassVm");
    registerViewModel<OpenOccupyVm>("OpenOccupyVm");
    registerViewModel<OpenRestVm>("OpenRestVm");
    registerViewModel<OpenRoomVm>("OpenRoomVm");
    registerViewModel<RestAddTimeVm>("RestAddTimeVm");
    registerViewModel<RestChgMassVm>("RestChgMassVm");
    registerViewModel<RestChgPlanVm>("RestChgPlanVm");
    registerViewModel<RestChgRoomVm>("RestChgRoomVm");
    registerViewModel<RoomAddCardsVm>("RoomAddCardsVm");
    registerViewModel<RoomCallVm>("RoomCallVm");
    registerViewModel<RoomCardSplitVm>("RoomCardSplitVm");
    registerViewModel<RoomConsumeVm>("RoomConsumeVm");
    registerViewModel<RoomDetailVm>("RoomDetailVm");
    registerViewModel<RoomRemarkVm>("RoomRemarkVm");
}
