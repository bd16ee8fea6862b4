#include "vm/module1/RestChgRoomVm.h"

#include "common/BusyGuard.h"
#include "dto/room/RoomStatus.h"
#include "vm/module1/RoomLookups.h"

#include <QPointer>

RestChgRoomVm::RestChgRoomVm(QObject* parent) : ChgRoomVm(parent), m_plans(new PlanListModel(this)) {}

void RestChgRoomVm::takeRooms(const QList<temp_struct>& rooms)
{
    m_plans->clear();
    ChgRoomVm::takeRooms(rooms);
}

void RestChgRoomVm::selectRoom(int index)
{
    pEmptyRoomModel()->onChecked(index);
    const QString newRoomId = pEmptyRoomModel()->getIndexId(index);
    if (newRoomId.isEmpty())
        return;
    const QPointer<RestChgRoomVm> self(this);
    PlanListModel fetched;
    fetchPlans(newRoomId, &fetched);
    // The answer may come after that of a room that was chosen later.
    if (!self || pEmptyRoomModel()->checkedId() != newRoomId)
        return;
    fetched.onChecked(0);
    m_plans->refresh(fetched.getAll());
    m_plansRoomId = newRoomId;
}

void RestChgRoomVm::checkPlan(int index) { m_plans->onChecked(index); }

bool RestChgRoomVm::save()
{
    const BusyGuard<RestChgRoomVm> guard(this);
    if (!guard || !isRoomChosen())
        return false;
    const int plan = m_plansRoomId == pEmptyRoomModel()->checkedId() ? m_plans->checkedIndex() : -1;
    if (plan < 0) {
        MyMessage::getInstance()->ShowError(QStringLiteral("请选择新房间的计费方案"));
        return false;
    }
    return changeRoom(RoomRest, {{QStringLiteral("planId"), m_plans->getAll().at(plan).id},
                                 {QStringLiteral("newPlanFlg"), 1}});
}
