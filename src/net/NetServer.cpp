#include "net/NetServer.h"

#include "common/CallNames.h"
#include "common/CallWatch.h"
#include "common/Clock.h"
#include "common/DlgManager.h"
#include "common/GlobalConfig.h"
#include "common/RightsTables.h"
#include "net/EventLoopFilter.h"
#include "net/LogText.h"
#include "net/Nonce.h"
#include "net/RequestText.h"
#include "net/libcurl.h"
#include "serialization/QJsonSerializer.h"

#include <QDebug>
#include <QJsonArray>
#include <QJsonDocument>

#include <limits>

namespace {

constexpr int lineFetchTimeoutSeconds = 3;
constexpr int lineTestTimeoutSeconds = 2;
constexpr int mostMsgChars = 1000; ///< nobody reads more, and laying it out would hold the screen

/// Cut, not rounded; what an int can't hold becomes the nearest one that it can.
int wholePart(double number)
{
    constexpr double least = std::numeric_limits<int>::min();
    constexpr double most = std::numeric_limits<int>::max();
    return static_cast<int>(qBound(least, number, most));
}

void fillReply(ApiRes* reply, const QByteArray& body, const QMetaObject* meta)
{
    const QJsonObject envelope = QJsonDocument::fromJson(body).object();
    if (envelope.contains(QStringLiteral("data")))
        QJsonSerializer().deserializeObject(envelope, reply, meta);
    if (envelope.contains(QStringLiteral("code")))
        reply->setCode(envelope.value(QStringLiteral("code")).toString());
    if (envelope.contains(QStringLiteral("msg")))
        reply->setMsg(envelope.value(QStringLiteral("msg")).toString().left(mostMsgChars));
}

/// A POST's nonce was fixed before it began; it leaves its place at once, so that a call that starts during
/// this one can't take the same.
QString takeNonce(NetMethod method)
{
    if (method == NetMethod::Get)
        return Nonce::next();
    GlobalConfig* config = GlobalConfig::getInstance();
    const QString nonce = config->postNonce().isEmpty() ? Nonce::next() : config->postNonce();
    config->setPostNonce(Nonce::next());
    return nonce;
}

} // namespace

namespace NetWorkUtls {

int NetServer::s_underWay = 0;

ApiRes* NetServer::call(BaseRequest request, ApiRes* (*makeReply)(), const QMetaObject* replyMeta)
{
    m_elapsed.start();
    Authoriser authoriser;
    for (;;) {
        const QString nonce = takeNonce(request.method);
        const QString ts = requestTimestamp();
        chechAuth(request.url, request.data);
        const RequestText text = signedRequestText(request, ts, nonce);

        libcurl worker;
        waitFor(worker, text.url, request, text.body);

        ApiRes* reply = makeReply();
        if (worker.getStatus() != libcurl::Done) {
            const bool noAnswer = worker.getStatus() == libcurl::NoAnswer;
            reply->setCode(noAnswer ? QStringLiteral("CONNECT_ERR") : QStringLiteral("-2"));
            reply->setMsg(noAnswer ? QStringLiteral("连接服务器失败，请检查网络是否正常")
                                   : QStringLiteral("请求失败"));
            return reply;
        }
        const QByteArray body = worker.readAll();
        logExchange(text.logUrl, text.json, body);
        fillReply(reply, body, replyMeta);

        if (reply->code() == QLatin1String("AUTH_ERR_0002")) {
            authoriser = DlgManager::getInstance()->showAuthDlg(nameOfCall(request.url));
            if (!authoriser.id.isEmpty()) {
                request.data.insert(QStringLiteral("authOperater"), authoriser.id);
                reply->deleteLater();
                continue;
            }
        }
        reply->setAuthId(authoriser.id);
        reply->setAuthNo(authoriser.no);
        reply->setAuthName(authoriser.name);
        return reply;
    }
}

GetSysApiReqUrls* NetServer::getApiUrls(const BaseRequest& request)
{
    m_elapsed.start();
    const QString nonce = Nonce::next();
    const QString ts = requestTimestamp();
    auto* reply = new GetSysApiReqUrls;
    for (const QString& endpoint : GlobalConfig::getInstance()->apiUrls()) {
        const RequestText text = lineRequestText(endpoint, request, ts, nonce);
        libcurl worker;
        worker.setIsReconnect(false);
        worker.setTimeout(lineFetchTimeoutSeconds);
        waitFor(worker, text.url, request, text.body);
        if (worker.getStatus() != libcurl::Done) {
            qDebug().noquote() << masked(text.logUrl);
            continue;
        }
        const QByteArray body = worker.readAll();
        logExchange(text.logUrl, text.json, body);
        fillReply(reply, body, &GetSysApiReqUrls::staticMetaObject);
        return reply;
    }
    reply->setCode(QStringLiteral("-1"));
    reply->setMsg(QStringLiteral("请求服务器失败"));
    return reply;
}

int NetServer::testApi(const QString& url)
{
    libcurl worker;
    worker.setIsReconnect(false);
    worker.setTimeout(lineTestTimeoutSeconds);
    m_elapsed.start();
    waitFor(worker, url, BaseRequest(), QString());
    return worker.getStatus() == libcurl::Done ? static_cast<int>(m_elapsed.elapsed()) : -1;
}

void NetServer::waitFor(libcurl& worker, const QString& url, const BaseRequest& request, const QString& body)
{
    auto* loop = new EventLoopFilter;
    loop->setIsThread(m_isThread);
    connect(&worker, &QThread::finished, loop, &QEventLoop::quit);
    worker.api(url, request.headers, request.method, body, request.url);
    // A thread that couldn't be made never ends; the worker stands as failed.
    if (worker.isRunning() || worker.isFinished()) {
        ++s_underWay;
        CallWatch::getInstance()->setIsWaiting(true);
        loop->exec();
        --s_underWay;
        CallWatch::getInstance()->setIsWaiting(s_underWay > 0);
    }
    // The loop ends without the worker only when the whole program does.
    if (worker.isRunning())
        worker.requestInterruption();
    worker.quit();
    worker.wait();
    GlobalConfig::getInstance()->setPostNonce(Nonce::next());
    disconnect(&worker, nullptr, loop, nullptr);
    loop->deleteLater();
}

void NetServer::logExchange(const QString& url, const QString& json, const QByteArray& reply) const
{
    qDebug().noquote() << QStringLiteral("%1(%2)\r\n%3\r\nparam:%4\r\n%5")
                              .arg(Clock::now().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss")),
                                   QString::number(m_elapsed.elapsed()), masked(url), masked(json),
                                   loggedReply(reply));
}

void NetServer::chechAuth(const QString& path, QJsonObject& data)
{
    const QVector<Rights::Rule> rules = Rights::rulesOf(path);
    if (rules.isEmpty())
        return;
    const auto holds = [&data](const char* field, const char* value) {
        return !field || jsonVal2Str(data, QLatin1String(field)) == QLatin1String(value);
    };
    QJsonArray needed;
    for (const Rights::Rule& rule : rules) {
        if (holds(rule.code, rule.value) && holds(rule.code1, rule.value1))
            needed.append(QLatin1String(rule.acode));
    }
    data.remove(QStringLiteral("acode")); // one of an earlier try
    if (!needed.isEmpty())
        data.insert(QStringLiteral("acode"), needed);
}

QString NetServer::jsonVal2Str(const QJsonObject& json, const QString& key)
{
    const QJsonValue value = json.value(key);
    switch (value.type()) {
    case QJsonValue::String:
        return value.toString();
    case QJsonValue::Bool:
        return value.toBool() ? QStringLiteral("1") : QStringLiteral("0");
    case QJsonValue::Double:
        return QString::number(wholePart(value.toDouble()));
    default:
        return {};
    }
}

QString NetServer::getUuid() { return Nonce::next(); }

QString NetServer::Auth(const QString& token, const QString& ts, const QString& nonce, const QString& json,
                        const QString& secret)
{
    return requestSignature(token, ts, nonce, json, secret);
}

} // namespace NetWorkUtls
