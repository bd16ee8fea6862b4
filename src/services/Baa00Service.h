#pragma once

#include "dto/system/LoginRecords.h"
#include "dto/system/TerminalRecords.h"
#include "services/Service.h"

/// Terminal start and staff login.
class Baa00Service : public Service, public Singleton<Baa00Service>
{
    Q_OBJECT

public:
    GetSysInitByAuthCode* getSysInitByAuthCode(const QString& secretKey)
    {
        return get("/getSysInitByAuthCode", {}, {{QStringLiteral("secretKey"), secretKey}});
    }
    LoginMod* loginMod(Fields data, const QString& secretKey)
    {
        return post("/loginMod", data, {{QStringLiteral("secretKey"), secretKey}});
    }
    /// Keeps the session alive; nothing in the reply is of use.
    GetAuthInfoByCode* keepLogin() { return post("/keepLogin"); }
    GetAuthInfoByCode* getAuthInfoByCodes(Fields data) { return post("/getAuthInfoByCodes", data); }

private:
    friend class Singleton<Baa00Service>;
    Baa00Service() : Service(QStringLiteral("/baa00")) {}
};
