#include "vm/module1/MassChgRoomVm.h"

#include "common/BusyGuard.h"
#include "dto/room/RoomStatus.h"

bool MassChgRoomVm::save()
{
    const BusyGuard<MassChgRoomVm> guard(this);
    return guard && isRoomChosen() && changeRoom(RoomMassage, {});
}
