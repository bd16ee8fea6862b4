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
    GetSysApiReqUrls* getSysApiReqUrls(Fields data)
    {
        return NetWorkUtls::NetServer(false, nullptr)
            .getApiUrls(request(NetMethod::Get, "/common/getSysApiReqUrls", data, {}));
    }
    GetSysMqttInfo* getSysMqttInfo(Fields data) { return get("/common/getSysMqttInfo", data); }

private:
    friend class Singleton<KvsystemService>;
    KvsystemService() : Service(QStringLiteral("/kvsystem")) {}
};
