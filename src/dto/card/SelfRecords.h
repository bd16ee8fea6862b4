#pragma once

#include "dto/ApiRes.h"

/// A hand card in self entry.
class CardSelfOrderDto : public QObject
{
    Q_OBJECT
    RECORD(CardSelfOrderDto)
    RECORD_FIELD(QString, cardno) // number printed on it
    RECORD_FIELD(int, ticketNum)  // tickets that it holds
    RECORD_FIELD(int, selfNum)    // entries made with it
    RECORD_FIELD(QString, id)     // what an entry sends
};

class GetCardSelfOrder : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetCardSelfOrder, ApiRes)
    RECORD_FIELD(CardSelfOrderDto*, data)
};

/// All self entries of this terminal.
class SelfSumInfoDto : public QObject
{
    Q_OBJECT
    RECORD(SelfSumInfoDto)
    RECORD_FIELD(QString, itemName) // unread
    RECORD_FIELD(int, sumNum)       // portions
    RECORD_FIELD(double, sumAmount) // unread
};

/// The self entries of one kind of hand card.
class SelfCardSumDto : public QObject
{
    Q_OBJECT
    RECORD(SelfCardSumDto)
    RECORD_FIELD(QString, cardTypeName) // kind of card
    RECORD_FIELD(QString, cardType)     // unread
    RECORD_FIELD(QString, itemName)     // unread
    RECORD_FIELD(int, sumNum)           // portions
};
RECORD_LIST(SelfCardSumDto)

class TrmSelfOrderSumDto : public QObject
{
    Q_OBJECT
    RECORD(TrmSelfOrderSumDto)
    RECORD_FIELD(SelfSumInfoDto*, sumInfo)                // in all
    RECORD_FIELD(Array<SelfCardSumDto*>, cardTypeSumInfo) // by kind of card
};

class GetTrmSelfOrderSum : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetTrmSelfOrderSum, ApiRes)
    RECORD_FIELD(TrmSelfOrderSumDto*, data)
};

/// One self entry.
class TrmSelfOrderDetailDto : public QObject
{
    Q_OBJECT
    RECORD(TrmSelfOrderDetailDto)
    RECORD_FIELD(QString, cardNo)     // hand card
    RECORD_FIELD(QString, itemName)   // unread
    RECORD_FIELD(QString, createtime) // when it was made
};
RECORD_LIST(TrmSelfOrderDetailDto)

class GetTrmSelfOrderDetail : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetTrmSelfOrderDetail, ApiRes)
    RECORD_FIELD(Array<TrmSelfOrderDetailDto*>, data)
};
