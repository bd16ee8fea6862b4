#pragma once

#include "common/Property.h"
#include "vm/module1/MenuModel.h"

/// An empty room, and what may be done with it.
class OpenRoomVm : public QObject
{
    Q_OBJECT
    PROPERTY(bool, isEnabled, setIsEnabled, true)     // false during an action
    CONSTANT_PROPERTY(MenuModel*, pMenuModel, m_menu) // what state and rights allow
    PROPERTY(QString, roomId, setRoomId, {})
    PROPERTY(QString, roomNo, setRoomNo, {})
    PROPERTY(QString, floorName, setFloorName, {})
    PROPERTY(QString, typeName, setTypeName, {})

public:
    explicit OpenRoomVm(QObject* parent = nullptr);

    /// False when the room can't be read; a refusal has been shown.
    Q_INVOKABLE bool init(const QString& roomId);
    /// Sends the room to cleaning.
    Q_INVOKABLE bool cleanRoom();

private:
    void initMenu(int status);

    MenuModel* m_menu;
};
