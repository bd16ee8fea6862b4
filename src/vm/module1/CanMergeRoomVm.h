#pragma once

#include "common/Property.h"
#include "vm/module1/ChoiceModels.h"

/// Rooms that a room can be joined with: those of one group, or all that stand alone.
class CanMergeRoomVm : public QObject
{
    Q_OBJECT
    PROPERTY(QString, name, setName, {})
    PROPERTY(QString, key, setKey, {})                     // the group's, empty for rooms that stand alone
    CONSTANT_PROPERTY(TempDataModel*, pRoomModel, m_rooms) // the selected ones are joined

public:
    explicit CanMergeRoomVm(QObject* parent = nullptr);
    CanMergeRoomVm(const QString& name, const QString& key, const QList<temp_struct>& rooms, QObject* parent);

    /// Toggles this room alone, whatever its group.
    Q_INVOKABLE void selectRoom(int index) { m_rooms->onSelected(index); }

private:
    TempDataModel* m_rooms;
};
