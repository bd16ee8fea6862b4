#include "vm/module1/MassChgRoomVm.h"

#include "common/BusyGuard.h"

bool MassChgRoomVm::save()
{
    const BusyGuard<MassChgRoomVm> guard(this);
    constexpr int massageRoom = 2;
    return guard && isRoomChosen() && changeRoom(massageRoom, {});
}
