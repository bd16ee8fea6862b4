#pragma once

#include "vm/module1/RoomMenu.h"
#include "vm/shared/ActionVm.h"

/// An empty room, and what may be done with it.
class OpenRoomVm : public ActionVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(MenuModel*, pMenuModel, m_menu) // what state and rights allow
    PROPERTY(QString, roomId, setRoomId, {})
    PROPERTY(QString, roomNo, setRoomNo, {})
    PROPERTY(QString, floorName, setFloorName, {})
    PROPERTY(QString, typeName, setTypeName, {})

public:
    explicit OpenRoomVm(QObject* parent = nullptr) : ActionVm(parent), m_menu(new MenuModel(this)) {}

    /// False when the room can't be read; a refusal has been shown.
    Q_INVOKABLE bool init(const QString& roomId);
    /// Sends the room to cleaning.
    Q_INVOKABLE bool cleanRoom();

private:
    MenuModel* m_menu;
};
