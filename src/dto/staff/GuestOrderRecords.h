#pragma once

#include "dto/ApiRes.h"

/// A hand card whose orders are to move.
class CardInfoDto : public QObject
{
    Q_OBJECT
    RECORD(CardInfoDto)
    RECORD_FIELD(QString, id)     // hand card
    RECORD_FIELD(QString, cardno) // its number
    RECORD_FIELD(QString, name)   // unread
    RECORD_FIELD(QString, status) // status
};

/// One order of a hand card. Money in yuan.
class OrderInfoDto : public QObject
{
    Q_OBJECT
    RECORD(OrderInfoDto)
    RECORD_FIELD(QString, orderId)    // order
    RECORD_FIELD(QString, itemName)   // item's name
    RECORD_FIELD(QString, itemId)     // unread: item
    RECORD_FIELD(double, num)         // quantity
    RECORD_FIELD(double, price)       // of one
    RECORD_FIELD(QString, createtime) // when it was entered
    RECORD_FIELD(QString, cardno)     // hand card's number
};
RECORD_LIST(OrderInfoDto)

/// A hand card with its orders.
class HandCardOrderInfoDto : public QObject
{
    Q_OBJECT
    RECORD(HandCardOrderInfoDto)
    RECORD_FIELD(CardInfoDto*, cardinfo)          // the card
    RECORD_FIELD(Array<OrderInfoDto*>, orderinfo) // its orders
};

class GetOrderListNew : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetOrderListNew, ApiRes)
    RECORD_FIELD(HandCardOrderInfoDto*, data)
};
