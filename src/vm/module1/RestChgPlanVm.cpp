#include "vm/module1/RestChgPlanVm.h"

#include "common/BusyGuard.h"
#include "services/Bba01Service.h"
#include "vm/module1/RoomLookups.h"

RestChgPlanVm::RestChgPlanVm(QObject* parent) : QObject(parent), m_plans(new PlanListModel(this)) {}

void RestChgPlanVm::init(const QString& roomId)
{
    m_roomId = roomId;
    fetchPlans(roomId, m_plans);
}

void RestChgPlanVm::selectPlan(int index) { m_plans->onChecked(index); }

bool RestChgPlanVm::save()
{
    const BusyGuard<RestChgPlanVm> guard(this);
    if (!guard)
        return false;
    const int plan = m_plans->checkedIndex();
    if (plan < 0) {
        MyMessage::getInstance()->ShowError(QStringLiteral("请选择计费方案"));
        return false;
    }
    return isDoneOrShown(*held(Bba01Service::getInstance()->changeFeePlan(
        {{QStringLiteral("roomId"), m_roomId},
         {QStringLiteral("newPlanFlg"), 1},
         {QStringLiteral("planId"), m_plans->getAll().at(plan).id}})));
}
