#pragma once

#include "dto/ApiRes.h"

/// A line of the sales report; the terminal makes a group's summary row of the same kind. Money in yuan.
class SellSumItemDto : public QObject
{
    Q_OBJECT
    RECORD(SellSumItemDto)
    RECORD_FIELD(QString, itemId)      // unread: item
    RECORD_FIELD(QString, name)        // item's name, or the title of a summary row
    RECORD_FIELD(double, num)          // quantity
    RECORD_FIELD(double, price)        // of one
    RECORD_FIELD(QString, unit)        // unit
    RECORD_FIELD(double, amount)       // of the line
    RECORD_FIELD(QString, statusVal)   // status as a word, kept but not shown
    RECORD_FIELD(bool, isParent)       // summary row, set where the terminal makes one
    RECORD_FIELD(double, performerAmt) // commission of the person that it is credited to
};
RECORD_LIST(SellSumItemDto)

/// A group of items in the sales report.
class SellParentDto : public QObject
{
    Q_OBJECT
    RECORD(SellParentDto)
    RECORD_FIELD(QString, parentName)               // title
    RECORD_FIELD(Array<SellSumItemDto*>, orderList) // its lines; the area's own list has a small l
};
RECORD_LIST(SellParentDto)

/// An area of the sales report. Money in yuan.
class SellSumDto : public QObject
{
    Q_OBJECT
    RECORD(SellSumDto)
    RECORD_FIELD(QString, areaName)                 // name
    RECORD_FIELD(double, totalNum)                  // quantity of all lines
    RECORD_FIELD(double, totalAmount)               // amount of all lines
    RECORD_FIELD(Array<SellSumItemDto*>, orderlist) // lines without groups, they go before the groups
    RECORD_FIELD(Array<SellParentDto*>, parentList) // groups, counted only when there are no lines without
};
RECORD_LIST(SellSumDto)

class GetSumList : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetSumList, ApiRes)
    RECORD_FIELD(Array<SellSumDto*>, data)
};

/// A counter of today's summary.
class TodaySumDto : public QObject
{
    Q_OBJECT
    RECORD(TodaySumDto)
    RECORD_FIELD(QString, name)      // label
    RECORD_FIELD(qlonglong, num)     // count
    RECORD_FIELD(QString, backcolor) // unread
};
RECORD_LIST(TodaySumDto)

class TodaySumListDto : public QObject
{
    Q_OBJECT
    RECORD(TodaySumListDto)
    RECORD_FIELD(Array<TodaySumDto*>, onCount)   // guests inside
    RECORD_FIELD(Array<TodaySumDto*>, inCount)   // came in today
    RECORD_FIELD(Array<TodaySumDto*>, exitCount) // left today
};

class GetTodaySum : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetTodaySum, ApiRes)
    RECORD_FIELD(TodaySumListDto*, data)
};
