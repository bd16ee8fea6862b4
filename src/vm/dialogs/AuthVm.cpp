#include "vm/dialogs/AuthVm.h"

#include "app/MainClass.h"
#include "common/BusyGuard.h"
#include "common/GlobalConfig.h"
#include "services/Baa00Service.h"
#include "services/Reply.h"

AuthVm::AuthVm(QObject* parent) : BaseObject(parent) { MainClass::getInstance()->startReadStaff(this); }

AuthVm::~AuthVm() { MainClass::getInstance()->stopReadStaff(this); }

void AuthVm::readingExec(QString cardId) { login({}, {}, cardId); }

bool AuthVm::login(const QString& userNo, const QString& pwd, const QString& rfid)
{
    const BusyGuard<AuthVm> guard(this);
    if (!guard)
        return false;
    GlobalConfig* config = GlobalConfig::getInstance();
    QJsonObject data{{QStringLiteral("type"), 1}, {QStringLiteral("modCode"), config->currentMod()}};
    if (rfid.isEmpty()) {
        data.insert(QStringLiteral("workNo"), userNo);
        data.insert(QStringLiteral("pwd"), pwd);
    } else {
        data.insert(QStringLiteral("cardUid"), rfid);
    }
    const auto reply = held(Baa00Service::getInstance()->loginMod(data, config->secretKey()));
    if (!isOkOrShown(*reply))
        return false;
    if (!reply->data())
        return false;
    const UserDto* supervisor = reply->data()->userInfo();
    if (!supervisor) {
        MyMessage::getInstance()->showError(QStringLiteral("查询用户信息出错"));
        return false;
    }
    Q_EMIT success(supervisor->staffId(), supervisor->code(), supervisor->name());
    return true;
}
