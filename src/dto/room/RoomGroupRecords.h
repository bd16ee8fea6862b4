#pragma once

#include "dto/ApiRes.h"

/// A room that can join a group.
class CanMergeRoomDto : public QObject
{
    Q_OBJECT
    RECORD(CanMergeRoomDto)
    RECORD_FIELD(QString, roomId)     // room
    RECORD_FIELD(QString, roomNo)     // its number
    RECORD_FIELD(QString, roomName)   // unread
    RECORD_FIELD(QString, floorName)  // floor
    RECORD_FIELD(QString, hourseName) // name of the room type
    RECORD_FIELD(QString, groupKey)   // group that it is in, empty for a single room
    RECORD_FIELD(QString, groupRoom)  // unread
    RECORD_FIELD(int, status)         // unread: 1 empty 2 massage 3 rest 4 cleaning 5 occupied
    RECORD_FIELD(QString, statusStr)  // unread
};
RECORD_LIST(CanMergeRoomDto)

class GetCanMergeRoomList : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetCanMergeRoomList, ApiRes)
    RECORD_FIELD(Array<CanMergeRoomDto*>, data)
};

/// A hand card that a room refused.
class RoomAddCardErrDto : public QObject
{
    Q_OBJECT
    RECORD(RoomAddCardErrDto)
    RECORD_FIELD(QString, cardNo) // hand card
    RECORD_FIELD(QString, roomNo) // room that holds it
};
RECORD_LIST(RoomAddCardErrDto)

/// Outcome of adding hand cards to a room.
class RoomAddCardDto : public QObject
{
    Q_OBJECT
    RECORD(RoomAddCardDto)
    RECORD_FIELD(bool, flg)                           // all were added
    RECORD_FIELD(Array<RoomAddCardErrDto*>, roomcard) // those that weren't
};

class RoomAddCard : public ApiRes
{
    Q_OBJECT
    RECORD_ON(RoomAddCard, ApiRes)
    RECORD_FIELD(RoomAddCardDto*, data)
};

/// Outcome of hand cards leaving a room.
class LeaveRoomDto : public QObject
{
    Q_OBJECT
    RECORD(LeaveRoomDto)
    RECORD_FIELD(bool, allleave) // no card is left inside
};

class LeaveRoomNew : public ApiRes
{
    Q_OBJECT
    RECORD_ON(LeaveRoomNew, ApiRes)
    RECORD_FIELD(LeaveRoomDto*, data)
};
