#pragma once

#include "common/Property.h"
#include "vm/module1/ChoiceModels.h"

/// Puts a rest room in use under another plan.
class RestChgPlanVm : public QObject
{
    Q_OBJECT
    PROPERTY(bool, isEnabled, setIsEnabled, true)              // false while it saves
    CONSTANT_PROPERTY(PlanListModel*, pPlanListModel, m_plans) // none checked at first

public:
    explicit RestChgPlanVm(QObject* parent = nullptr);

    /// Fetches the room's plans; a refusal is shown.
    Q_INVOKABLE void init(const QString& roomId);
    Q_INVOKABLE void selectPlan(int index);
    Q_INVOKABLE bool save();

private:
    PlanListModel* m_plans;
    QString m_roomId;
};
