#pragma once

#include "dto/ApiRes.h"

/// One line to the back end.
class SubLineDto : public QObject
{
    Q_OBJECT
    RECORD(SubLineDto)
    RECORD_FIELD(QString, title)  // name
    RECORD_FIELD(QString, domain) // base URL, what the user's choice stores
};
RECORD_LIST(SubLineDto)

/// One platform of lines.
class ReqLineDto : public QObject
{
    Q_OBJECT
    RECORD(ReqLineDto)
    RECORD_FIELD(QString, title)               // name
    RECORD_FIELD(QString, icon)                // URL of its image
    RECORD_FIELD(Array<SubLineDto*>, subLines) // its lines
};
RECORD_LIST(ReqLineDto)

/// The lines to the back end; its JSON is also what the settings table caches.
class SysApiReqDto : public QObject
{
    Q_OBJECT
    RECORD(SysApiReqDto)
    RECORD_FIELD(QString, apiUrl)              // base URL of the default line
    RECORD_FIELD(QString, lineCheckHttpPath)   // path that the speed test appends to a line
    RECORD_FIELD(Array<ReqLineDto*>, reqLines) // the platforms
};

class GetSysApiReqUrls : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetSysApiReqUrls, ApiRes)
    RECORD_FIELD(SysApiReqDto*, data)
};
