#include "net/RequestText.h"

#include "common/Clock.h"
#include "common/GlobalConfig.h"

#include <QCryptographicHash>
#include <QJsonDocument>
#include <QUrl>

namespace {

const QLatin1String clientIdentifier("kv_panel_v3");
const QLatin1String pathWithoutOperator("/bca01/getHelpCallBashApiLogPageList");

QString percentEncoded(const QString& text) { return QString::fromLatin1(QUrl::toPercentEncoding(text)); }

QJsonObject terminalFields(const GlobalConfig& config)
{
    return {{QStringLiteral("storeId"), config.storeId()},
            {QStringLiteral("compId"), config.compId()},
            {QStringLiteral("deviceId"), config.deviceId()},
            {QStringLiteral("soft_version"), clientIdentifier}};
}

void merge(QJsonObject& json, const QJsonObject& data)
{
    for (auto it = data.constBegin(); it != data.constEnd(); ++it)
        json.insert(it.key(), it.value());
}

RequestText compose(const QString& baseUrl, const BaseRequest& request, const QString& ts, const QString& nonce,
                    const QJsonObject& json)
{
    RequestText text;
    text.json = QString::fromUtf8(QJsonDocument(json).toJson(QJsonDocument::Compact));
    const QString encoded = percentEncoded(text.json);
    text.body = QStringLiteral("data=") + encoded;

    text.url = baseUrl + request.url + QStringLiteral("?timestamp=") + ts + QStringLiteral("&nonce=") + nonce;
    text.logUrl = text.url;
    if (request.method == NetMethod::Get) {
        text.url += QStringLiteral("&data=") + encoded;
        text.logUrl += QStringLiteral("&data=") + text.json;
    }
    for (auto it = request.params.constBegin(); it != request.params.constEnd(); ++it)
        text.url += QLatin1Char('&') + it.key() + QLatin1Char('=') + it.value();
    return text;
}

} // namespace

QString requestTimestamp() { return QString::number(Clock::nowMs() / 1000); }

RequestText signedRequestText(const BaseRequest& request, const QString& ts, const QString& nonce)
{
    const GlobalConfig& config = *GlobalConfig::getInstance();
    const QString staffId = config.userInfo() ? config.userInfo()->staffId() : QString();

    QJsonObject json = terminalFields(config);
    if (request.url != pathWithoutOperator)
        json.insert(QStringLiteral("operator"), staffId);
    json.insert(QStringLiteral("creater"), staffId);
    json.insert(QStringLiteral("ts"), ts);
    json.insert(QStringLiteral("nc"), nonce);
    json.insert(QStringLiteral("tcode"), config.tcode());
    merge(json, request.data);

    RequestText text = compose(config.apiUrl(), request, ts, nonce, json);
    if (!config.secret().isEmpty()) {
        text.url += QStringLiteral("&signature=") +
                    requestSignature(config.token(), ts, nonce, text.json, config.secret());
    }
    return text;
}

RequestText lineRequestText(const QString& baseUrl, const BaseRequest& request, const QString& ts,
                            const QString& nonce)
{
    const GlobalConfig& config = *GlobalConfig::getInstance();
    QJsonObject json = terminalFields(config);
    json.insert(QStringLiteral("ts"), ts);
    json.insert(QStringLiteral("nc"), nonce);
    json.insert(QStringLiteral("tcode"), config.tcode());
    merge(json, request.data);
    return compose(baseUrl, request, ts, nonce, json);
}

QString requestSignature(const QString& token, const QString& ts, const QString& nonce, const QString& json,
                         const QString& secret)
{
    QString text = token + ts + nonce + json + secret;
    text.replace(QLatin1Char('"'), QLatin1Char('\''));
    return QString::fromLatin1(QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Md5).toHex());
}
