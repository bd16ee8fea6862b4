#include "services/KvsystemService.h"

GetSysApiReqUrls* KvsystemService::getSysApiReqUrls(const QJsonObject& data)
{
    return NetWorkUtls::NetServer(false, nullptr)
        .getApiUrls(request(NetMethod::Get, "/common/getSysApiReqUrls", data, {}));
}

GetSysMqttInfo* KvsystemService::getSysMqttInfo(const QJsonObject& data)
{
    return get<GetSysMqttInfo>("/common/getSysMqttInfo", data);
}
