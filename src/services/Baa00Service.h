#pragma once

#include "dto/system/LoginRecords.h"
#include "dto/system/TerminalRecords.h"
#include "services/Service.h"

/// Terminal start and staff login.
class Baa00Service : public Service, public Singleton<Baa00Service>
{
    Q_OBJECT

public:
    GetSysInitByAuthCode* getSysInitByAuthCode(const QString& secretKey);
    LoginMod* loginMod(const QJsonObject& data, const QString& secretKey);
    /// Keeps the session alive; nothing in the reply is of use.
    GetAuthInfoByCode* keepLogin();
    GetAuthInfoByCode* getAuthInfoByCodes(const QJsonObject& data);

private:
    friend class Singleton<Baa00Service>;
    Baa00Service() : Service(QStringLiteral("/baa00")) {}
};
