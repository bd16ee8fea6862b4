#pragma once

#include "dto/ApiRes.h"

/// A line of the work voucher. Money in yuan.
class EndServerItemDto : public QObject
{
    Q_OBJECT
    RECORD(EndServerItemDto)
    RECORD_FIELD(QString, itemName)   // item
    RECORD_FIELD(QString, assignType) // clock kind, display text
    RECORD_FIELD(double, price)       // of one
    RECORD_FIELD(double, num)         // quantity
    RECORD_FIELD(double, amount)      // of the line
    RECORD_FIELD(QString, startTime)  // begin, display text
    RECORD_FIELD(QString, endTime)    // end, display text
};
RECORD_LIST(EndServerItemDto)

/// Outcome of ending a service, for the work voucher.
class EndServerDto : public QObject
{
    Q_OBJECT
    RECORD(EndServerDto)
    RECORD_FIELD(QString, staffNo)                    // technician
    RECORD_FIELD(QString, roomNo)                     // room
    RECORD_FIELD(QString, cardNo)                     // hand card
    RECORD_FIELD(int, surplus)                        // minutes left at the end, negative when overrun
    RECORD_FIELD(Array<EndServerItemDto*>, printlist) // lines in the order of time
};

class EndServer : public ApiRes
{
    Q_OBJECT
    RECORD_ON(EndServer, ApiRes)
    RECORD_FIELD(EndServerDto*, data)
};
