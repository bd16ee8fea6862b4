#include "services/Baa00Service.h"

GetSysInitByAuthCode* Baa00Service::getSysInitByAuthCode(const QString& secretKey)
{
    return get<GetSysInitByAuthCode>("/getSysInitByAuthCode", {}, {{QStringLiteral("secretKey"), secretKey}});
}

LoginMod* Baa00Service::loginMod(const QJsonObject& data, const QString& secretKey)
{
    return post<LoginMod>("/loginMod", data, {{QStringLiteral("secretKey"), secretKey}});
}

GetAuthInfoByCode* Baa00Service::keepLogin() { return post<GetAuthInfoByCode>("/keepLogin"); }

GetAuthInfoByCode* Baa00Service::getAuthInfoByCodes(const QJsonObject& data)
{
    return post<GetAuthInfoByCode>("/getAuthInfoByCodes", data);
}
