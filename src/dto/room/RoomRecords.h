#pragma once

#include "dto/ApiRes.h"

/// One room on the board. Money in yuan.
class RoomDto : public QObject
{
    Q_OBJECT
    RECORD(RoomDto)
    RECORD_REFRESH(RoomDto, reFresh)
    RECORD_FIELD(QString, id)
    RECORD_FIELD(QString, code)                               // number that people use
    RECORD_FIELD(QString, name)                               // display name, the number when there is none
    RECORD_FIELD(QString, floorname)                          // floor
    RECORD_FIELD_AS(QString, typename, typeName, setTypeName) // name of the room type
    RECORD_FIELD(int, status)                                 // 1 empty 2 massage 3 rest 4 cleaning 5 occupied
    RECORD_FIELD(QString, statusStr)                          // status as a word
    RECORD_FIELD(int, openType)                               // way of opening, 2: guest room
    RECORD_FIELD(QString, cardnos)                            // hand cards inside, display text
    RECORD_FIELD(QString, staffnos)                           // technicians at work, display text
    RECORD_FIELD(QString, completedStaffnos)                  // technicians done, display text
    RECORD_FIELD(QString, cooName)                            // kind of occupation in status 5
    RECORD_FIELD(int, hours)                                  // opened for, hours
    RECORD_FIELD(qlonglong, surplus)                          // minutes left, negative when overrun
    RECORD_FIELD(QString, start_time)                         // unread: opening time
    RECORD_FIELD(QString, last_time)                          // unread
    RECORD_FIELD(QString, lastSvrTime)                        // last service, display text in status 2
    RECORD_FIELD(QString, group_key)                          // unread: group, empty without one
    RECORD_FIELD(QString, groupRoom)                          // rooms of the group, display text
    RECORD_FIELD(bool, isStaffOrder)                          // unread
    RECORD_FIELD(int, callCount)                              // unread
    RECORD_FIELD(double, needPayAmount)                       // amount due
    RECORD_FIELD(bool, isSettle)                              // paid while still occupied, recolours the tile
    RECORD_FIELD(bool, roomLock)                              // empty but reserved, not to be opened directly
    RECORD_FIELD(QString, remark)                             // remark
    RECORD_FIELD(QString, cleanerNo)                          // cleaner's number
    RECORD_FIELD(QString, cleanerName)                        // cleaner's name
    RECORD_FIELD(int, cleanFlg)                               // cleaning: 0 to do, 1 begun, 2 done
    RECORD_FIELD(bool, dirtyFlg)                              // waits for cleaning
    RECORD_FIELD(bool, todayLeave)                            // unread
    RECORD_FIELD(double, groupDepositAmt)                     // unread
    RECORD_FIELD(double, groupPayAmt)                         // unread
    RECORD_FIELD(QString, srcAlias)                           // unread
    RECORD_FIELD(int, innum)                                  // second number of the tile's pair
    RECORD_FIELD(int, num)                                    // first number of the tile's pair
};
RECORD_LIST(RoomDto)

class GetRoomListDto : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetRoomListDto, ApiRes)
    RECORD_FIELD(Array<RoomDto*>, data)
};

/// The rooms of one type, for the board's grouped form.
class RoomSortDto : public QObject
{
    Q_OBJECT
    RECORD(RoomSortDto)
    RECORD_FIELD(QString, id)               // room type
    RECORD_FIELD(QString, name)             // its name
    RECORD_FIELD(Array<RoomDto*>, roomList) // its rooms
};
RECORD_LIST(RoomSortDto)

class GetRoomSortDto : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetRoomSortDto, ApiRes)
    RECORD_FIELD(Array<RoomSortDto*>, data)
};

/// A room that is used longer than it was opened for.
class RoomOverTimeDto : public QObject
{
    Q_OBJECT
    RECORD(RoomOverTimeDto)
    RECORD_REFRESH(RoomOverTimeDto, refresh)
    RECORD_FIELD(QString, code)        // room number
    RECORD_FIELD(QString, id)          // room
    RECORD_FIELD(QString, name)        // its name
    RECORD_FIELD(qlonglong, overtimes) // overrun, minutes
};
RECORD_LIST(RoomOverTimeDto)

class GetOverTimeDto : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetOverTimeDto, ApiRes)
    RECORD_FIELD(Array<RoomOverTimeDto*>, data)
};
