#pragma once

#include "dto/staff/ClockKind.h"
#include "dto/staff/ServiceRecords.h"

/// A technician, on the clock pages.
class StaffDetailDto : public QObject
{
    Q_OBJECT
    RECORD(StaffDetailDto)
    RECORD_FIELD(QString, code)           // unread
    RECORD_FIELD(QString, name)           // shown beside his number
    RECORD_FIELD(QString, id)             // technician, sent as staffId
    RECORD_FIELD(QString, sexVal)         // unread
    RECORD_FIELD(QString, statusStr)      // unread
    RECORD_FIELD(QString, orderId)        // pending or running service order, else empty
    RECORD_FIELD(int, status)             // unread
    RECORD_FIELD(QString, workTypeName)   // unread
    RECORD_FIELD(QString, groupId)        // unread
    RECORD_FIELD(QString, typeName)       // unread
    RECORD_FIELD(int, orderStatus)        // unread
    RECORD_FIELD(QString, remark)         // unread
    RECORD_FIELD(QString, hardCardId)     // hand card that the running service is charged to
    RECORD_FIELD(QString, roomId)         // room of the running service, may be empty
    RECORD_FIELD(QString, workTypes)      // unread
    RECORD_FIELD(QString, pushId)         // pusher of the running service
    RECORD_FIELD(int, overStatus)         // unread
    RECORD_FIELD(int, punchStatus)        // unread
    RECORD_FIELD(int, workStatus)         // 1 waiting 2 serving 6 assigned, others keep him off the clock pages
    RECORD_FIELD(QString, workTypeId)     // his work type, sent as typeId and onTypeId
    RECORD_FIELD(QString, staffNo)        // his number
    RECORD_FIELD(QString, roomNo)         // room number of the order, may be empty
    RECORD_FIELD(int, surplus)            // minutes left, negative when overrun
    RECORD_FIELD(QString, cardno)         // hand card's number
    RECORD_FIELD(QString, itemId)         // item of the pending order, chosen beforehand
    RECORD_FIELD(QString, groupName)      // unread
    RECORD_FIELD(QString, startTime)      // unread
    RECORD_FIELD(QString, endTime)        // unread
    RECORD_FIELD(QString, groupStartTime) // unread
    RECORD_FIELD(QString, groupEndTime)   // unread
    RECORD_FIELD(int, realPunchStatus)    // unread
    RECORD_FIELD(bool, iswork)            // unread
    RECORD_FIELD(int, purOverStatus)      // unread
    RECORD_FIELD(QString, pushNo)         // unread
    RECORD_FIELD(int, type)               // ClockKind of the pending or running service
};

/// A technician with his items.
class StaffDetailInfoDto : public QObject
{
    Q_OBJECT
    RECORD(StaffDetailInfoDto)
    RECORD_FIELD(StaffDetailDto*, staffInfo)        // null when there is no such technician
    RECORD_FIELD(Array<OnServerItemDto*>, itemList) // his running lines
    RECORD_FIELD(Array<ServerItemDto*>, serverItem) // unread: the item list has a call of its own
};

class GetStaffInfo : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetStaffInfo, ApiRes)
    RECORD_FIELD(StaffDetailInfoDto*, data)
};

/// A technician in timer-first mode.
class StaffWorkInfoDto : public QObject
{
    Q_OBJECT
    RECORD(StaffWorkInfoDto)
    RECORD_FIELD(QString, id)              // technician
    RECORD_FIELD(QString, name)            // his name
    RECORD_FIELD(QString, code)            // his number
    RECORD_FIELD(int, serverStatus)        // 1: on a service, 0: not
    RECORD_FIELD(QString, serverStartTime) // begin of the running service
};

class GetStaffWorkInfo : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetStaffWorkInfo, ApiRes)
    RECORD_FIELD(StaffWorkInfoDto*, data)
};

/// A technician found by his number.
class StaffInfoDto : public QObject
{
    Q_OBJECT
    RECORD(StaffInfoDto)
    RECORD_FIELD(QString, staffId)   // technician
    RECORD_FIELD(QString, staffNo)   // his number
    RECORD_FIELD(QString, staffName) // his name
};
RECORD_LIST(StaffInfoDto)

class StaffListDto : public QObject
{
    Q_OBJECT
    RECORD(StaffListDto)
    RECORD_FIELD(Array<StaffInfoDto*>, stafflist) // those found
};

class GetStaffList : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetStaffList, ApiRes)
    RECORD_FIELD(StaffListDto*, data)
};
