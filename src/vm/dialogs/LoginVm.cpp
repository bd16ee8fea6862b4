#include "vm/dialogs/LoginVm.h"

#include "app/MainClass.h"
#include "common/BusyGuard.h"
#include "common/GlobalConfig.h"
#include "common/RightsTables.h"
#include "services/Baa00Service.h"
#include "services/Reply.h"

namespace {

QJsonObject credentials(const QString& userNo, const QString& pwd, const QString& rfid, const QString& modCode)
{
    QJsonObject data{{QStringLiteral("modCode"), modCode}};
    if (!rfid.isEmpty()) {
        data.insert(QStringLiteral("cardUid"), rfid);
    } else {
        data.insert(QStringLiteral("workNo"), userNo);
        data.insert(QStringLiteral("pwd"), pwd);
    }
    return data;
}

} // namespace

LoginVm::~LoginVm() { MainClass::getInstance()->stopReadStaff(this); }

void LoginVm::init(bool isRead)
{
    if (isRead)
        MainClass::getInstance()->startReadStaff(this);
}

void LoginVm::readingExec(QString cardId) { login({}, {}, cardId); }

bool LoginVm::login(const QString& userNo, const QString& pwd, const QString& rfid)
{
    const BusyGuard<LoginVm> guard(this);
    if (!guard)
        return false;
    if (!tryLogin(userNo, pwd, rfid)) {
        Q_EMIT loginErrorSignal();
        return false;
    }
    const UserDto& user = *GlobalConfig::getInstance()->userInfo();
    Q_EMIT loginSuccessSignal(user.staffId(), user.code(), user.name(), rfid);
    return true;
}

bool LoginVm::tryLogin(const QString& userNo, const QString& pwd, const QString& rfid)
{
    GlobalConfig* config = GlobalConfig::getInstance();
    const auto reply = held(
        Baa00Service::getInstance()->loginMod(credentials(userNo, pwd, rfid, modCode()), config->secretKey()));
    if (!isOk(*reply)) {
        MyMessage::getInstance()->ShowError(reply->msg());
        return false;
    }
    const LoginDto* session = reply->data();
    if (!session)
        return false;
    if (modCode() == QLatin1String("HELP_BASH_WAIT")) {
        config->setLoginRfid(rfid);
        config->setLoginUser(userNo);
        config->setLoginPwd(pwd);
    }
    config->setTokenTimeStamp(session->timestamp());
    config->setToken(session->token());
    config->setSecret(session->secret());
    if (!session->userInfo()) {
        MyMessage::getInstance()->ShowError(QStringLiteral("查询用户信息出错"));
        return false;
    }
    config->userInfo()->update(session->userInfo());
    Q_EMIT config->userInfoChanged();
    takeWorkAreas(session);
    return checkLoginAuth() && getAllAuth();
}

void LoginVm::takeWorkAreas(const LoginDto* session)
{
    GlobalConfig* config = GlobalConfig::getInstance();
    QVector<work_area_struct>& areas = *config->workAreaList();
    areas.clear();
    const QString served = config->terminalInfo() ? config->terminalInfo()->areaIds() : QString();
    if (session->workarealist().isEmpty() || served.isEmpty())
        return;
    for (const QString& areaId : served.split(QLatin1Char(','))) {
        for (const WorkAreaDto* area : session->workarealist()) {
            if (area->areaId() == areaId) {
                areas.append({area->areaId(), area->areaName()});
                break;
            }
        }
    }
}

bool LoginVm::checkLoginAuth()
{
    MyMessage* message = MyMessage::getInstance();
    if (modCode().isEmpty()) {
        message->ShowError(QStringLiteral("权限码不能为空"));
        return false;
    }
    const QString right = Rights::idOfModuleWord(modCode());
    if (right.isEmpty()) {
        message->ShowError(QStringLiteral("为获取到登录代码"));
        return false;
    }
    const auto reply = held(
        Baa00Service::getInstance()->getAuthInfoByCodes({{QStringLiteral("authCodes"), QJsonArray{right}}}));
    if (!isOk(*reply)) {
        message->ShowError(reply->msg());
        return false;
    }
    const AuthInfoDto* answer = reply->data().hash().value(right);
    if (!answer)
        return false;
    if (!answer->isHave()) {
        message->ShowError(QStringLiteral("无当前模块权限"));
        return false;
    }
    return true;
}

bool LoginVm::getAllAuth()
{
    GlobalConfig* config = GlobalConfig::getInstance();
    const auto reply = held(
        Baa00Service::getInstance()->getAuthInfoByCodes({{QStringLiteral("authCodes"), config->getACodes()}}));
    if (!isOk(*reply)) {
        MyMessage::getInstance()->ShowError(reply->msg());
        return false;
    }
    QSet<QString> codes;
    const Dictionary<AuthInfoDto*> answers = reply->data();
    for (auto it = answers.hash().constBegin(); it != answers.hash().constEnd(); ++it) {
        const QString code = Rights::codeOfId(it.key());
        if (it.value()->isHave() && !code.isEmpty())
            codes.insert(code);
    }
    config->setRights(codes);
    return true;
}
