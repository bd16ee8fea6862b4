#pragma once

#include "dto/room/RoomDetailRecords.h"
#include "vm/module1/RoomMenu.h"
#include "vm/shared/ActionVm.h"

/// A room in use: its record, and what may be done with it. The record is read once; what happens to the room
/// later doesn't show.
class RoomDetailVm : public ActionVm
{
    Q_OBJECT
    OWNED_PROPERTY(RoomDetailDto, pRoomDetail, setPRoomDetail) // null until the room has been read
    CONSTANT_PROPERTY(MenuModel*, pMenuModel, m_menu)          // what state and rights allow
    PROPERTY(QString, roomId, setRoomId, {})
    PROPERTY(QString, roomNo, setRoomNo, {})
    PROPERTY(QString, roomType, setRoomType, {})
    PROPERTY(QString, roomFloor, setRoomFloor, {})
    PROPERTY(QString, statusStr, setStatusStr, {})
    PROPERTY(QString, planName, setPlanName, {})
    PROPERTY(QString, openHours, setOpenHours, {})
    PROPERTY(QString, openTime, setOpenTime, {})
    PROPERTY(QString, usedHours, setUsedHours, {})
    PROPERTY(QString, leftHours, setLeftHours, {}) // empty when none are left
    PROPERTY(QString, overHours, setOverHours, {}) // empty unless the room has overrun
    PROPERTY(QString, staffNo, setStaffNo, {})     // who opened it, number and name
    PROPERTY(QString, remark, setRemark, {})
    PROPERTY(QString, groupRoom, setGroupRoom, {})

public:
    explicit RoomDetailVm(QObject* parent = nullptr);

    /// False when the room can't be read or is no longer in use; the user has been told.
    Q_INVOKABLE bool init(const QString& roomId);
    /// Undoes the opening.
    Q_INVOKABLE bool cancelRoom();
    /// Takes the room out of its group; the others stay together.
    Q_INVOKABLE bool cancelTeam();
    Q_INVOKABLE bool resetTime();

private:
    void fill(const RoomDetailDto& room);

    MenuModel* m_menu;
};
