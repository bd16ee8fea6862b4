#pragma once

#include "common/Property.h"
#include "vm/module1/ChoiceModels.h"

/// Marks an empty room as specially occupied, with the reason.
class OpenOccupyVm : public QObject
{
    Q_OBJECT
    PROPERTY(bool, isEnabled, setIsEnabled, true)                  // false while it saves
    PROPERTY(QString, remark, setRemark, {})                       // may stay empty
    CONSTANT_PROPERTY(OccupyListModel*, pOccupyListModel, m_kinds) // none checked at first

public:
    explicit OpenOccupyVm(QObject* parent = nullptr);

    Q_INVOKABLE void init(const QString& roomId);
    Q_INVOKABLE void checkOccupy(int index);
    /// True when the room is occupied.
    Q_INVOKABLE bool save();

private:
    OccupyListModel* m_kinds;
    QString m_roomId;
};
