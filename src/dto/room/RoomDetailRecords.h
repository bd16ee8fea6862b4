#pragma once

#include "dto/ApiRes.h"

/// Entry of either list of a room's detail: a hand card, or a service that can be called.
class RoomCardsDto : public QObject
{
    Q_OBJECT
    RECORD(RoomCardsDto)
    RECORD_FIELD(QString, cardno)   // hand card's number, may occur several times in one list
    RECORD_FIELD(QString, cardId)   // hand card
    RECORD_FIELD(QString, contId)   // service
    RECORD_FIELD(QString, contName) // its name
};
RECORD_LIST(RoomCardsDto)

/// One room, in the detail dialog.
class RoomDetailDto : public QObject
{
    Q_OBJECT
    RECORD(RoomDetailDto)
    RECORD_FIELD(QString, id)                    // room
    RECORD_FIELD(QString, roomNo)                // its number
    RECORD_FIELD(QString, roomName)              // shown as its type
    RECORD_FIELD(QString, floorName)             // floor
    RECORD_FIELD(int, status)                    // 1 empty 2 massage 3 rest 4 cleaning 5 occupied
    RECORD_FIELD(QString, statusStr)             // status as a word
    RECORD_FIELD(int, openType)                  // way of opening, 2: guest room
    RECORD_FIELD(int, hours)                     // opened for, hours
    RECORD_FIELD(QString, startTime)             // opening time, display text
    RECORD_FIELD(QString, start_time)            // unread
    RECORD_FIELD(int, useTime)                   // time used, stands where the hours are shown
    RECORD_FIELD(int, overTime)                  // overrun, minutes
    RECORD_FIELD(int, surplus)                   // minutes left
    RECORD_FIELD(QString, planId)                // unread: charging plan
    RECORD_FIELD(QString, planName)              // name of the charging plan
    RECORD_FIELD(QString, remark)                // remark
    RECORD_FIELD(QString, cooRemark)             // unread
    RECORD_FIELD(QString, group_key)             // group, empty without one
    RECORD_FIELD(QString, groupRoom)             // rooms of the group, display text
    RECORD_FIELD(QString, staffNo)               // who opened it: his number
    RECORD_FIELD(QString, staffName)             // and name
    RECORD_FIELD(QString, occType)               // unread
    RECORD_FIELD(QString, lockNo)                // unread
    RECORD_FIELD(qlonglong, dai)                 // unread
    RECORD_FIELD(QString, roomUid)               // unread
    RECORD_FIELD(Array<RoomCardsDto*>, cardlist) // hand cards inside
    RECORD_FIELD(Array<RoomCardsDto*>, calllist) // services that can be called to it
};

class GetRoomDetailNew : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetRoomDetailNew, ApiRes)
    RECORD_FIELD(RoomDetailDto*, data)
};

/// One line of a room's consumption. Money in yuan.
class RoomOrderDto : public QObject
{
    Q_OBJECT
    RECORD(RoomOrderDto)
    RECORD_FIELD(QString, id)           // line
    RECORD_FIELD(QString, cardNo)       // hand card that it is booked on
    RECORD_FIELD(QString, srcOldCardNo) // hand card that it was moved from, else empty
    RECORD_FIELD(QString, itemId)       // unread: item
    RECORD_FIELD(QString, itemName)     // item's name
    RECORD_FIELD(double, num)           // quantity
    RECORD_FIELD(double, price)         // of one
    RECORD_FIELD(double, amount)        // of the line
    RECORD_FIELD(QString, staffNo)      // person that it is credited to
    RECORD_FIELD(QString, pushNo)       // person who pushed the clock
    RECORD_FIELD(QString, startTime)    // unread
    RECORD_FIELD(QString, endTime)      // unread
    RECORD_FIELD(int, cmtFlg)           // 0: not finished
    RECORD_FIELD(int, serverType)       // unread
    RECORD_FIELD(QString, workerType)   // unread
    RECORD_FIELD(QString, staffId)      // unread
    RECORD_FIELD(QString, createtime)   // when it was entered
};
RECORD_LIST(RoomOrderDto)

class GetRoomConsList : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetRoomConsList, ApiRes)
    RECORD_FIELD(Array<RoomOrderDto*>, data)
};
