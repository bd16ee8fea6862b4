// The road from the waiting page to the main page.

#include "app/MainClass.h"
#include "app/SysInit.h"
#include "common/DlgManager.h"
#include "common/GlobalConfig.h"
#include "common/MyMessage.h"
#include "services/Baa00Service.h"
#include "services/KvsystemService.h"
#include "services/Reply.h"

#include <QElapsedTimer>
#include <QEventLoop>

namespace {

bool hasLines(const GlobalConfig& config)
{
    return config.sysApiReq() && !config.sysApiReq()->reqLines().isEmpty();
}

/// Lets the user choose another line; whether he has. A dialog that couldn't be shown returns at once; the
/// pause keeps the caller from asking the back end without end.
bool askForLine()
{
    constexpr int leastMs = 1000;
    QElapsedTimer shown;
    shown.start();
    const bool isChosen = DlgManager::getInstance()->showCloudDlg();
    if (shown.elapsed() < leastMs) {
        QEventLoop pause;
        QTimer::singleShot(leastMs - static_cast<int>(shown.elapsed()), &pause, &QEventLoop::quit);
        pause.exec();
    }
    return isChosen;
}

} // namespace

bool MainClass::initSysConfig()
{
    if (!fetchLines())
        return false;
    chooseLine();
    if (!fetchSysInit())
        return false;
    m_config->setISysStatus(2);
    return true;
}

/// The waiting page shows it, with a way to try again; always false.
bool MainClass::failStart(const QString& cause)
{
    setStartFailure(cause.isEmpty() ? QStringLiteral("请求失败") : cause);
    return false;
}

bool MainClass::fetchLines()
{
    const QString authCode = GlobalConfig::getRegValue(QStringLiteral("authCode"));
    const QString cached = getSqlData(QStringLiteral("sys_api_req"));
    if (!cached.isEmpty())
        m_config->setSysApiReq(parseLines(cached));

    const auto reply = held(
        m_kvsystem->getSysApiReqUrls({{QStringLiteral("type"), 2}, {QStringLiteral("tAuthCode"), authCode}}));
    if (isOk(*reply)) {
        if (reply->data()) {
            m_config->setSysApiReq(new SysApiReqDto(reply->data()));
            setSqlData(QStringLiteral("sys_api_req"), linesText(reply->data()));
        }
        return true;
    }
    if (!hasLines(*m_config)) {
        m_message->showError(reply->msg());
        return failStart(reply->msg());
    }
    return askForLine() || failStart(reply->msg());
}

void MainClass::chooseLine()
{
    const SysApiReqDto* lines = m_config->sysApiReq();
    if (!lines)
        return;
    if (!lines->apiUrl().isEmpty())
        m_config->setApiUrl(lines->apiUrl());
    const QString chosen = GlobalConfig::getRegValue(QStringLiteral("cloudUrl"));
    if (chosen.isEmpty())
        return;
    for (const ReqLineDto* platform : lines->reqLines()) {
        for (const SubLineDto* line : platform->subLines()) {
            if (line->domain() == chosen)
                m_config->setApiUrl(chosen);
        }
    }
}

bool MainClass::fetchSysInit()
{
    for (;;) {
        m_config->setSecretKey(GlobalConfig::getRegValue(QStringLiteral("secretKey")));
        const auto reply = held(m_baa00->getSysInitByAuthCode(m_config->secretKey()));
        if (reply->code() == QLatin1String("NET_LINE_ERR_0000") && hasLines(*m_config)) {
            if (!askForLine())
                return failStart(reply->msg());
            continue;
        }
        if (!isOkOrShown(*reply))
            return failStart(reply->msg());
        if (reply->data())
            applySysInit(reply->data(), m_config);
        return true;
    }
}
