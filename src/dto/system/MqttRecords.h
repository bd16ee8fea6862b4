#pragma once

#include "dto/ApiRes.h"

/// Topic templates, each holding "%s" for the store.
class MqttTopicsDto : public QObject
{
    Q_OBJECT
    RECORD(MqttTopicsDto)
    RECORD_FIELD(QString, ROOMSTATUS)          // a room changed
    RECORD_FIELD(QString, STAFFSTATUS)         // a staff member's state changed
    RECORD_FIELD(QString, CALLCHGDATA)         // a room's call changed
    RECORD_FIELD(QString, HARDCARDSCALLDATA)   // announcements of the call queue
    RECORD_FIELD(QString, HARDCARDSCALLSTATUS) // the call queue changed
};

/// How the broker is reached.
class SysMqttInfoDto : public QObject
{
    Q_OBJECT
    RECORD(SysMqttInfoDto)
    RECORD_FIELD(QString, username)          // broker user
    RECORD_FIELD(QString, password)          // broker password
    RECORD_FIELD(QString, hostUrl)           // tcp://host:port
    RECORD_FIELD(MqttTopicsDto*, mqttTopics) // topic templates
};

class GetSysMqttInfo : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetSysMqttInfo, ApiRes)
    RECORD_FIELD(SysMqttInfoDto*, data)
};
