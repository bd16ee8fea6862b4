#pragma once

#include "dto/ApiRes.h"

/// One entry of the call log.
class HelpCallBashDto : public QObject
{
    Q_OBJECT
    RECORD(HelpCallBashDto)
    RECORD_FIELD(QString, hardCardNo)       // hand card's number
    RECORD_FIELD(QString, hardCardTypeName) // its kind
    RECORD_FIELD(QString, statusVal)        // state of the call, display text
    RECORD_FIELD(qlonglong, callNum)        // times that it was called
    RECORD_FIELD(QString, operatorCode)     // operator's number
    RECORD_FIELD(QString, operatorName)     // unread: his name
    RECORD_FIELD(QString, createTime)       // when it was entered
    RECORD_FIELD(QString, hardCardId)       // hand card
};
RECORD_LIST(HelpCallBashDto)

/// A page of the call log.
class HelpCallBashApiLogDto : public QObject
{
    Q_OBJECT
    RECORD(HelpCallBashApiLogDto)
    RECORD_FIELD(qlonglong, total)              // unread
    RECORD_FIELD(Array<HelpCallBashDto*>, list) // entries
};

class GetHelpCallBashApiLogPageList : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetHelpCallBashApiLogPageList, ApiRes)
    RECORD_FIELD(HelpCallBashApiLogDto*, data)
};
