#pragma once

#include "dto/ApiRes.h"

/// A stored order line of a hand card or a room. Money in yuan.
class OldOrderItemDto : public QObject
{
    Q_OBJECT
    RECORD(OldOrderItemDto)
    RECORD_FIELD(QString, item_id)    // item
    RECORD_FIELD(QString, itemname)   // its name
    RECORD_FIELD(double, num)         // quantity, the list cuts the fraction off
    RECORD_FIELD(int, orderStatus)    // 1 normal 2 gift, 5: not listed
    RECORD_FIELD(double, price)       // of one
    RECORD_FIELD(int, server_type)    // kind of line, as with an item; 5: a ticket that may be exchanged
    RECORD_FIELD(QString, id)         // line, sent as oldOrderId or orderId
    RECORD_FIELD(QString, areaName)   // name of the area of the sale
    RECORD_FIELD(QString, staffNo)    // number of the person that it is credited to
    RECORD_FIELD(QString, staffId)    // unread
    RECORD_FIELD(QString, staffName)  // unread
    RECORD_FIELD(int, is_pack_ticket) // not 0: package ticket, can't be charged back
    RECORD_FIELD(QString, pushNo)     // unread
    RECORD_FIELD(QString, areaId)     // area of the sale
    RECORD_FIELD(QString, createtime) // when it was sold, display text
};
RECORD_LIST(OldOrderItemDto)

/// Answer to a saved order, for the order slip.
class BatchUpdateDto : public QObject
{
    Q_OBJECT
    RECORD(BatchUpdateDto)
    RECORD_FIELD(QString, orderArea) // name of the area
    RECORD_FIELD(QString, orderDate) // date of the order
    RECORD_FIELD(QString, workNo)    // unread
    RECORD_FIELD(QString, roomNo)    // room number
    RECORD_FIELD(QString, deskNo)    // desk number
    RECORD_FIELD(int, mode)          // unread
};

class BatchUpdateOrder : public ApiRes
{
    Q_OBJECT
    RECORD_ON(BatchUpdateOrder, ApiRes)
    RECORD_FIELD(BatchUpdateDto*, data)
};

/// A line of an order that is printed again.
class ReprintDto : public QObject
{
    Q_OBJECT
    RECORD(ReprintDto)
    RECORD_FIELD(QString, cardno)     // hand card
    RECORD_FIELD(QString, itemName)   // item
    RECORD_FIELD(QString, areaName)   // area
    RECORD_FIELD(double, num)         // quantity
    RECORD_FIELD(QString, wrokNo)     // unread: the back end's spelling
    RECORD_FIELD(QString, createtime) // when it was sold
    RECORD_FIELD(double, total)       // of the line, yuan
};
RECORD_LIST(ReprintDto)

class GetRePrintOrderList : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetRePrintOrderList, ApiRes)
    RECORD_FIELD(Array<ReprintDto*>, data)
};
