#pragma once

#include "dto/ApiRes.h"

/// What every entry of the board's filters carries on top of the wire: the user's choice. As a field of the
/// base class it is never read from a reply.
class RoomFilterDto : public QObject
{
    Q_OBJECT
    RECORD(RoomFilterDto)
    RECORD_FIELD(bool, isChecked) // the rooms of this entry are shown
};

/// A floor to filter the board by.
class RoomFloorDto : public RoomFilterDto
{
    Q_OBJECT
    RECORD_ON(RoomFloorDto, RoomFilterDto)
    RECORD_FIELD(QString, id)     // floor
    RECORD_FIELD(QString, name)   // its name
    RECORD_FIELD(int, roomUseSum) // rooms in use
    RECORD_FIELD(int, roomAllSum) // all rooms

    /// Takes over every field, the choice included: a row may come to stand for another floor.
    void refresh(RoomFloorDto* other)
    {
        copyPlainFields(other, this, &staticMetaObject);
        set_isChecked(other->isChecked());
    }
};
RECORD_LIST(RoomFloorDto)

class RoomFloorListDto : public QObject
{
    Q_OBJECT
    RECORD(RoomFloorListDto)
    RECORD_FIELD(Array<RoomFloorDto*>, floorList) // all floors
};

class GetRoomFloorSum : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetRoomFloorSum, ApiRes)
    RECORD_FIELD(RoomFloorListDto*, data)
};

/// A room type to filter the board by.
class RoomTypeDto : public RoomFilterDto
{
    Q_OBJECT
    RECORD_ON(RoomTypeDto, RoomFilterDto)
    RECORD_FIELD(QString, id)     // room type
    RECORD_FIELD(QString, name)   // its name
    RECORD_FIELD(int, roomUseSum) // rooms in use
    RECORD_FIELD(int, roomAllSum) // all rooms

    /// As with a floor.
    void refresh(RoomTypeDto* other)
    {
        copyPlainFields(other, this, &staticMetaObject);
        set_isChecked(other->isChecked());
    }
};
RECORD_LIST(RoomTypeDto)

class RoomTypeListDto : public QObject
{
    Q_OBJECT
    RECORD(RoomTypeListDto)
    RECORD_FIELD(Array<RoomTypeDto*>, roomTypeList) // all room types
};

class GetRoomTypeSum : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetRoomTypeSum, ApiRes)
    RECORD_FIELD(RoomTypeListDto*, data)
};
