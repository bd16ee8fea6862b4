#pragma once

#include "dto/ApiRes.h"

/// A charging plan of rest rooms. Money in yuan.
class RoomPlanDto : public QObject
{
    Q_OBJECT
    RECORD(RoomPlanDto)
    RECORD_FIELD(QString, id)       // plan
    RECORD_FIELD(QString, name)     // its name
    RECORD_FIELD(int, min_time)     // duration, hours in spite of its name
    RECORD_FIELD(double, min_fee)   // fee
    RECORD_FIELD(QString, remark)   // unread
    RECORD_FIELD(double, day_price) // unread
};
RECORD_LIST(RoomPlanDto)

class GetPlanListNew : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetPlanListNew, ApiRes)
    RECORD_FIELD(Array<RoomPlanDto*>, data)
};

/// A kind of special occupation.
class RoomOccupyDto : public QObject
{
    Q_OBJECT
    RECORD(RoomOccupyDto)
    RECORD_FIELD(QString, id)        // kind
    RECORD_FIELD(QString, type_name) // its name
};
RECORD_LIST(RoomOccupyDto)

class GetOccTypeList : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetOccTypeList, ApiRes)
    RECORD_FIELD(Array<RoomOccupyDto*>, data)
};

/// An empty room that guests can move to.
class EmptyRoomDto : public QObject
{
    Q_OBJECT
    RECORD(EmptyRoomDto)
    RECORD_FIELD(QString, id)   // room
    RECORD_FIELD(QString, vals) // ready display text
};
RECORD_LIST(EmptyRoomDto)

class GetEmptyRoomList : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetEmptyRoomList, ApiRes)
    RECORD_FIELD(Array<EmptyRoomDto*>, data)
};
