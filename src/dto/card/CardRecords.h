#pragma once

#include "dto/ApiRes.h"

/// A hand card in full.
class CardDetailDto : public QObject
{
    Q_OBJECT
    RECORD(CardDetailDto)
    RECORD_FIELD(QString, id)           // hand card
    RECORD_FIELD(QString, cardno)       // number printed on it
    RECORD_FIELD(QString, name)         // unread
    RECORD_FIELD(int, status)           // 1: usable
    RECORD_FIELD(int, type)             // unread
    RECORD_FIELD(QString, createtime)   // unread
    RECORD_FIELD(QString, remark)       // unread
    RECORD_FIELD(QString, openCardTime) // unread
    RECORD_FIELD(QString, cardIds)      // unread
    RECORD_FIELD(QString, cardnos)      // unread
    RECORD_FIELD(QString, roomNo)       // room that holds it
};

class GetHardCardDetail : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetHardCardDetail, ApiRes)
    RECORD_FIELD(CardDetailDto*, data)
};

/// A hand card on the premises.
class HandCardDto : public QObject
{
    Q_OBJECT
    RECORD(HandCardDto)
    RECORD_FIELD(QString, cardno)     // number printed on it
    RECORD_FIELD(int, sex)            // 1 male 0 female
    RECORD_FIELD(QString, createtime) // time on the tile
    RECORD_FIELD(QString, remark)     // remark
    RECORD_FIELD(double, amount)      // amount on it, yuan
};
RECORD_LIST(HandCardDto)

class HandCardListDto : public QObject
{
    Q_OBJECT
    RECORD(HandCardListDto)
    RECORD_FIELD(int, total)                // unread
    RECORD_FIELD(Array<HandCardDto*>, list) // the cards
};

class GetHandCardList : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetHandCardList, ApiRes)
    RECORD_FIELD(HandCardListDto*, data)
};
