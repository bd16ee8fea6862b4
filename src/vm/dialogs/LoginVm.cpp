#include "vm/dialogs/LoginVm.h"

#include "common/RightsTables.h"
#include "services/Baa00Service.h"

namespace {

QJsonObject credentials(const QString& userNo, const QString& pwd, const QString& rfid, const QString& modCode)
{
    QJsonObject data{{"modCode", modCode}};
    if (!rfid.isEmpty()) {
        data.insert("cardUid", rfid);
    } else {
        data.insert("workNo", userNo);
        data.insert("pwd", pwd);
    }
    return data;
}

} // namespace

void LoginVm::init(bool isRead)
{
    if (isRead)
        m_reader.listenToStaff();
}

void LoginVm::readingExec(QString cardId) { login({}, {}, cardId); }

bool LoginVm::login(const QString& userNo, const QString& pwd, const QString& rfid)
{
    return act([&] {
        if (!tryLogin(userNo, pwd, rfid)) {
            Q_EMIT loginErrorSignal();
            return false;
        }
        const UserDto& user = *GlobalConfig::getInstance()->userInfo();
        Q_EMIT loginSuccessSignal(user.staffId(), user.code(), user.name(), rfid);
        return true;
    });
}

bool LoginVm::tryLogin(const QString& userNo, const QString& pwd, const QString& rfid)
{
    GlobalConfig* config = GlobalConfig::getInstance();
    const auto reply = held(
        Baa00Service::getInstance()->loginMod(credentials(userNo, pwd, rfid, modCode()), config->secretKey()));
    if (!isOkOrShown(*reply, Refusal::Shown))
        return false;
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
    if (!require(session->userInfo(), "查询用户信息出错"))
        return false;
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
    const QString right = Rights::idOfModuleWord(modCode());
    if (!require(!modCode().isEmpty(), "权限码不能为空") || !require(!right.isEmpty(), "为获取到登录代码"))
        return false;
    const auto reply = call(&Baa00Service::getAuthInfoByCodes, {{"authCodes", QJsonArray{right}}});
    if (!isOkOrShown(*reply, Refusal::Shown))
        return false;
    const AuthInfoDto* answer = reply->data().hash().value(right);
    return answer && require(answer->isHave(), "无当前模块权限");
}

bool LoginVm::getAllAuth()
{
    GlobalConfig* config = GlobalConfig::getInstance();
    const auto reply = call(&Baa00Service::getAuthInfoByCodes, {{"authCodes", config->getACodes()}});
    if (!isOkOrShown(*reply, Refusal::Shown))
        return false;
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
