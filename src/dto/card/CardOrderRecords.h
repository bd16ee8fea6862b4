#pragma once

#include "dto/sales/OrderRecords.h"

/// The hand card that consumption is entered on.
class HandCardInfoDto : public QObject
{
    Q_OBJECT
    RECORD(HandCardInfoDto)
    RECORD_FIELD(QString, id)      // hand card, sent as hardCardId
    RECORD_FIELD(QString, type)    // its kind, package tickets are listed by it
    RECORD_FIELD(QString, cardno)  // number printed on it
    RECORD_FIELD(int, status)      // 1: in use, others take no consumption
    RECORD_FIELD(QString, room_id) // room that holds it, sent as roomId
};

/// A hand card in a room.
class RoomCardDto : public QObject
{
    Q_OBJECT
    RECORD(RoomCardDto)
    RECORD_FIELD(QString, cardno) // number
};
RECORD_LIST(RoomCardDto)

/// The room that consumption is entered on.
class RoomInfoDto : public QObject
{
    Q_OBJECT
    RECORD(RoomInfoDto)
    RECORD_FIELD(QString, code)                 // room number
    RECORD_FIELD(QString, id)                   // room, sent as roomId
    RECORD_FIELD(int, status)                   // status of the room, 2 and 6 take consumption
    RECORD_FIELD(int, openType)                 // way of opening, 2 takes consumption in every status
    RECORD_FIELD(Array<RoomCardDto*>, cardList) // unread
};

/// What a guest has consumed so far.
class GetCardOrderDto : public QObject
{
    Q_OBJECT
    RECORD(GetCardOrderDto)
    RECORD_FIELD(HandCardInfoDto*, cardInfo)         // when a card was asked for, else null
    RECORD_FIELD(RoomInfoDto*, roomInfo)             // when a room was asked for, else null
    RECORD_FIELD(double, amount)                     // amount of the stored lines, yuan
    RECORD_FIELD(Array<OldOrderItemDto*>, orderList) // the stored lines
};

class GetCardOrderInfo : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetCardOrderInfo, ApiRes)
    RECORD_FIELD(GetCardOrderDto*, data)
};
