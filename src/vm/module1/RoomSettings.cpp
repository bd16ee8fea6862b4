#include "vm/module1/RoomSettings.h"

#include "common/GlobalConfig.h"
#include "services/Bba01Service.h"

namespace {

constexpr int leastHours = 1;

} // namespace

RoomSettings RoomSettings::ofStore()
{
    RoomSettings settings;
    if (const SysConfigDto* sysConfig = GlobalConfig::getInstance()->sysConfig()) {
        settings.usedRoomMod = sysConfig->usedRoomMod() == 1;
        settings.openMulti = sysConfig->openMulti();
        settings.isNeedCard = sysConfig->isNeedCard();
        settings.defaultTime = qMax(leastHours, sysConfig->defaultTime());
    }
    return settings;
}

void PlanPageVm::fetchPlans(PlanListModel* plans, const QString& roomId)
{
    fetch(&Bba01Service::getRoomPlanNew, planRequest(roomId),
          [plans](const GetPlanListNew& reply) { plans->upate(reply.data()); });
}
