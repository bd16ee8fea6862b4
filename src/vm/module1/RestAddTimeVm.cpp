#include "vm/module1/RestAddTimeVm.h"

#include "common/BusyGuard.h"
#include "services/Bba01Service.h"
#include "vm/module1/RoomLookups.h"

bool RestAddTimeVm::save()
{
    const BusyGuard<RestAddTimeVm> guard(this);
    if (!guard)
        return false;
    return isDoneOrShown(*held(Bba01Service::getInstance()->restRoomAddTime(
        {{QStringLiteral("roomId"), m_roomId}, {QStringLiteral("hours"), hours()}})));
}
