#pragma once

#include "common/Property.h"
#include "dto/room/RoomDetailRecords.h"

/// Changes a room's remark; an empty text clears it.
class RoomRemarkVm : public QObject
{
    Q_OBJECT
    PROPERTY(bool, isEnabled, setIsEnabled, true) // false while it saves
    PROPERTY(QString, roomId, setRoomId, {})
    PROPERTY(QString, remark, setRemark, {})

public:
    explicit RoomRemarkVm(QObject* parent = nullptr) : QObject(parent) {}

    /// Takes room and remark from the record; nothing without one.
    Q_INVOKABLE void init(RoomDetailDto* room);
    Q_INVOKABLE bool save();
};
