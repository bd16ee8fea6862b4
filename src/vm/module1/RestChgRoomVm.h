#pragma once

#include "vm/module1/ChgRoomVm.h"

/// Moves a rest room in use to an empty room, under a plan of that room.
class RestChgRoomVm : public ChgRoomVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(PlanListModel*, pPlanListModel, m_plans) // those of the chosen room

public:
    explicit RestChgRoomVm(QObject* parent = nullptr);

    /// Fetches the room's plans too and checks the first; none are left when that fails.
    Q_INVOKABLE void selectRoom(int index) override;
    Q_INVOKABLE void checkPlan(int index);
    Q_INVOKABLE bool save();

protected:
    void takeRooms(const QList<temp_struct>& rooms) override;

private:
    PlanListModel* m_plans;
    QString m_plansRoomId; ///< the room that the plans are for
};
