// The road from the waiting page to the main page.

#include "app/MainClass.h"
#include "app/SysInit.h"
#include "common/DlgManager.h"
#include "common/GlobalConfig.h"
#include "common/MyMessage.h"
#include "serialization/QJsonSerializer.h"
#include "services/Baa00Service.h"
#include "services/KvsystemService.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QJsonDocument>

#include <memory>

namespace {

struct DeleteLater
{
    void operator()(QObject* object) const { object->deleteLater(); }
};

/// Holds a reply until the scope ends.
template <typename T>
using Reply = std::unique_ptr<T, DeleteLater>;

bool hasLines(const GlobalConfig& config)
{
    return config.sysApiReq() && !config.sysApiReq()->reqLines().isEmpty();
}

SysApiReqDto* parseLines(const QString& text)
{
    auto* lines = new SysApiReqDto;
    QJsonSerializer().deserializeObject(QJsonDocument::fromJson(text.toUtf8()).object(), lines,
                                        &SysApiReqDto::staticMetaObject);
    return lines;
}

QString linesText(const SysApiReqDto* lines)
{
    const QJsonObject json = QJsonSerializer().serializeObject(lines, &SysApiReqDto::staticMetaObject);
    return QString::fromUtf8(QJsonDocument(json).toJson(QJsonDocument::Compact));
}

/// Lets the user choose another line. A dialog that couldn't be shown returns at once; the pause keeps the
/// caller from asking the back end without end.
void askForLine()
{
    constexpr int leastMs = 1000;
    QElapsedTimer shown;
    shown.start();
    DlgManager::getInstance()->showCloudDlg();
    if (shown.elapsed() < leastMs) {
        QEventLoop pause;
        QTimer::singleShot(leastMs - static_cast<int>(shown.elapsed()), &pause, &QEventLoop::quit);
        pause.exec();
    }
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

bool MainClass::fetchLines()
{
    const QString authCode = GlobalConfig::getRegValue(QStringLiteral("authCode"));
    const QString cached = getSqlData(QStringLiteral("sys_api_req"));
    if (!cached.isEmpty())
        m_config->setSysApiReq(parseLines(cached));

    const Reply<GetSysApiReqUrls> reply(
        m_kvsystem->getSysApiReqUrls({{QStringLiteral("type"), 2}, {QStringLiteral("tAuthCode"), authCode}}));
    if (reply->code() == QLatin1String("200")) {
        if (reply->data()) {
            m_config->setSysApiReq(new SysApiReqDto(reply->data()));
            setSqlData(QStringLiteral("sys_api_req"), linesText(reply->data()));
        }
        return true;
    }
    if (!hasLines(*m_config)) {
        m_message->showError(reply->msg());
        return false;
    }
    askForLine();
    return true;
}

void MainClass::chooseLine()
{
    const SysApiReqDto* lines = m_config->sysApiReq();
    if (!lines)
        return;
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
        const Reply<GetSysInitByAuthCode> reply(m_baa00->getSysInitByAuthCode(m_config->secretKey()));
        if (reply->code() == QLatin1String("NET_LINE_ERR_0000") && hasLines(*m_config)) {
            askForLine();
            continue;
        }
        if (reply->code() != QLatin1String("200")) {
            m_message->showError(reply->msg());
            return false;
        }
        if (reply->data())
            applySysInit(reply->data(), m_config);
        return true;
    }
}
