#pragma once

#include "dto/system/LineRecords.h"
#include "dto/system/MqttRecords.h"
#include "services/Service.h"

/// Common system data.
class KvsystemService : public Service, public Singleton<KvsystemService>
{
    Q_OBJECT

public:
    /// Goes to the built-in endpoints, not to the line in use.
    GetSysApiReqUrls* getSysApiReqUrls(const QJsonObject& data);
    GetSysMqttInfo* getSysMqttInfo(const QJsonObject& data);

private:
    friend class Singleton<KvsystemService>;
    KvsystemService() : Service(QStringLiteral("/kvsystem")) {}
};
