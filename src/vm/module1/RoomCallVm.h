#pragma once

#include "common/Property.h"
#include "dto/room/RoomDetailRecords.h"
#include "vm/module1/RoomCallModel.h"

/// Calls services to a room: one call for each service that is wanted.
class RoomCallVm : public QObject
{
    Q_OBJECT
    PROPERTY(bool, isEnabled, setIsEnabled, true) // false while it calls
    CONSTANT_PROPERTY(RoomCallModel*, pRoomCallModel, m_services)

public:
    explicit RoomCallVm(QObject* parent = nullptr);

    /// Takes room and services from the record; nothing without one.
    Q_INVOKABLE void init(RoomDetailDto* room);
    /// True when every call went through. What went through isn't called again by the next save().
    Q_INVOKABLE bool save();

private:
    RoomCallModel* m_services;
    QString m_roomId;
};
