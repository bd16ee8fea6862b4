#include "vm/dialogs/AuthVm.h"

#include "services/Baa00Service.h"

void AuthVm::readingExec(QString cardId) { login({}, {}, cardId); }

bool AuthVm::login(const QString& userNo, const QString& pwd, const QString& rfid)
{
    return act([&] { return tryLogin(userNo, pwd, rfid); });
}

bool AuthVm::tryLogin(const QString& userNo, const QString& pwd, const QString& rfid)
{
    GlobalConfig* config = GlobalConfig::getInstance();
    QJsonObject data{{"type", 1}, {"modCode", config->currentMod()}};
    if (rfid.isEmpty()) {
        data.insert("workNo", userNo);
        data.insert("pwd", pwd);
    } else {
        data.insert("cardUid", rfid);
    }
    const auto reply = held(Baa00Service::getInstance()->loginMod(data, config->secretKey()));
    if (!isOkOrShown(*reply) || !reply->data())
        return false;
    const UserDto* supervisor = reply->data()->userInfo();
    if (!supervisor) {
        MyMessage::getInstance()->showError(QStringLiteral("查询用户信息出错"));
        return false;
    }
    Q_EMIT success(supervisor->staffId(), supervisor->code(), supervisor->name());
    return true;
}
