#include "common/GlobalConfig.h"

#include "DeploymentValues.h"
#include "common/RightsTables.h"
#include "common/WebAddress.h"
#include "platform/CurlLibrary.h"
#include "platform/UserValues.h"

#include <QDebug>

namespace {

QList<QString> builtInUrls()
{
    QString list = qEnvironmentVariable("KV_PANEL_API_URLS");
    if (list.isEmpty())
        list = QString::fromUtf8(Deployment::apiUrls);
    QList<QString> urls;
    for (const QString& url : list.split(QLatin1Char(','), Qt::SkipEmptyParts))
        urls.append(url.trimmed());
    return urls;
}

} // namespace

GlobalConfig::GlobalConfig() : m_curl(new CurlLibrary)
{
    m_apiUrls = builtInUrls();
    if (!m_apiUrls.isEmpty())
        m_apiUrl = m_apiUrls.first();
    m_vendorText = QString::fromUtf8(Deployment::vendorText).split(QLatin1Char(';'), Qt::SkipEmptyParts);
    m_mqttUrl = QString::fromUtf8(Deployment::mqttUrl);
    m_mqttUser = QString::fromUtf8(Deployment::mqttUser);
    m_mqttPwd = QString::fromUtf8(Deployment::mqttPassword);
}

void GlobalConfig::setApiUrl(const QString& url)
{
    if (isWebAddress(url))
        m_apiUrl = url;
}

QString GlobalConfig::getRegValue(const QString& key) { return UserValues::read(key); }

void GlobalConfig::setRegValue(const QString& key, const QString& value)
{
    if (!UserValues::write(key, value))
        qCritical().noquote() << "The user's value could not be stored:" << key;
}

QJsonArray GlobalConfig::getACodes() const { return QJsonArray::fromStringList(Rights::codeTable().keys()); }

bool GlobalConfig::initLibcurl()
{
    if (!m_curl->load()) {
        qCritical().noquote() << m_curl->errorString();
        return false;
    }
    qDebug().noquote() << QStringLiteral("初始化libcurl成功");
    return true;
}
