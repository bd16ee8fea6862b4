#pragma once

#include "dto/ApiRes.h"

/// A package ticket that an order line can be exchanged for.
class TpInfoDto : public QObject
{
    Q_OBJECT
    RECORD(TpInfoDto)
    RECORD_FIELD(QString, id)       // ticket
    RECORD_FIELD(QString, name)     // its name
    RECORD_FIELD(int, isPackTicket) // 1: the ticket is sent as pkgTktId
    RECORD_FIELD(double, price)     // yuan
};
RECORD_LIST(TpInfoDto)

class GetPkgTktsList : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetPkgTktsList, ApiRes)
    RECORD_FIELD(Array<TpInfoDto*>, data)
};

/// A ticket's details, of which the terminal reads nothing.
class TpDetailDto : public QObject
{
    Q_OBJECT
    RECORD(TpDetailDto)
};

/// An item of a ticket, of which the terminal reads nothing.
class TpItemInfoDto : public QObject
{
    Q_OBJECT
    RECORD(TpItemInfoDto)
};
