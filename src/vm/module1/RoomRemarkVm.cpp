#include "vm/module1/RoomRemarkVm.h"

#include "common/BusyGuard.h"
#include "services/Bba01Service.h"
#include "services/Reply.h"
#include "vm/module1/RoomLookups.h"

#include <QJsonObject>

void RoomRemarkVm::init(RoomDetailDto* room)
{
    if (!room)
        return;
    setRoomId(room->id());
    setRemark(room->remark());
}

bool RoomRemarkVm::save()
{
    const BusyGuard<RoomRemarkVm> guard(this);
    if (!guard)
        return false;
    const auto reply = held(Bba01Service::getInstance()->setRemark(
        {{QStringLiteral("id"), roomId()}, {QStringLiteral("remark"), remark()}}));
    return isDoneOrShown(*reply);
}
