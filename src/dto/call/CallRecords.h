#pragma once

#include "dto/ApiRes.h"

/// A hand card in the call queue.
class QueneCallDto : public QObject
{
    Q_OBJECT
    RECORD(QueneCallDto)
    RECORD_REFRESH(QueneCallDto, refresh)
    RECORD_FIELD(QString, id)         // entry, what every action on it sends
    RECORD_FIELD(QString, hardCardId) // unread: hand card
    RECORD_FIELD(QString, cardNo)     // hand card's number
    RECORD_FIELD(int, status)         // among the called: 2 called, 3 being served
    RECORD_FIELD(QString, statusVal)  // status as a word
    RECORD_FIELD(int, callNum)        // times that it was called
    RECORD_FIELD(QString, uptime)     // time shown below the minutes, display text
    RECORD_FIELD(int, minuteNum)      // minutes waited, or since the call or the begin of the service
    RECORD_FIELD(int, index)          // unread
};
RECORD_LIST(QueneCallDto)

/// The call queue.
class QueneCallListDto : public QObject
{
    Q_OBJECT
    RECORD(QueneCallListDto)
    RECORD_FIELD(Array<QueneCallDto*>, waitCallInfos) // waiting, in their order
    RECORD_FIELD(Array<QueneCallDto*>, callInfos)     // called or being served
};

class GetHardCardCallList : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetHardCardCallList, ApiRes)
    RECORD_FIELD(QueneCallListDto*, data)
};

/// The operator, as the back end identified him.
class ComplateCallStaffDto : public QObject
{
    Q_OBJECT
    RECORD(ComplateCallStaffDto)
    RECORD_FIELD(QString, id)   // staff member
    RECORD_FIELD(QString, code) // unread: his number
};

/// The hand card of an action.
class ComplateCallCardDto : public QObject
{
    Q_OBJECT
    RECORD(ComplateCallCardDto)
    RECORD_FIELD(QString, cardNo)     // its number
    RECORD_FIELD(QString, hardCardId) // hand card
};

/// Outcome of completing a call.
class ComplateCallDto : public QObject
{
    Q_OBJECT
    RECORD(ComplateCallDto)
    RECORD_FIELD(ComplateCallStaffDto*, staffUserInfo) // who did it
    RECORD_FIELD(ComplateCallCardDto*, hardCardInfo)   // for which card
};

class CompleteWaitCall : public ApiRes
{
    Q_OBJECT
    RECORD_ON(CompleteWaitCall, ApiRes)
    RECORD_FIELD(ComplateCallDto*, data)
};

/// A hand card to announce by voice.
class CallInfoDataDto : public QObject
{
    Q_OBJECT
    RECORD(CallInfoDataDto)
    RECORD_FIELD(QString, cardNo)       // number to speak
    RECORD_FIELD(QString, hardCardType) // kind, the terminal announces only some
    RECORD_FIELD(int, callNum)          // unread
};
RECORD_LIST(CallInfoDataDto)

class GetMqttCallInfoDataByKey : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetMqttCallInfoDataByKey, ApiRes)
    RECORD_FIELD(Array<CallInfoDataDto*>, data)
};
