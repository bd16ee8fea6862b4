#include "support/HouseProcess.h"

#include <QEventLoop>
#include <QJsonDocument>
#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QUrlQuery>

#include <memory>

QString HouseProcess::programFolder() { return QStringLiteral(KV_PROGRAM_FOLDER); }

HouseProcess::HouseProcess(const QStringList& options)
{
    m_process.setProgram(programFolder() + QStringLiteral("/kv_house"));
    m_process.setArguments(QStringList{QStringLiteral("--seed"),
                                       QStringLiteral(KV_SOURCE_FOLDER "/house/seed/house.json"),
                                       QStringLiteral("--port"), QStringLiteral("0")} +
                           options);
    m_process.start();
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(10000)) {
            qWarning("kv_house did not start: %s", m_process.readAllStandardError().constData());
            return;
        }
    }
    m_url = QString::fromUtf8(m_process.readLine()).trimmed().section(QLatin1Char(' '), -1);
}

HouseProcess::~HouseProcess()
{
    m_process.terminate();
    if (!m_process.waitForFinished(5000)) {
        m_process.kill();
        m_process.waitForFinished();
    }
}

QByteArray HouseProcess::control(const QString& command, const QJsonObject& body)
{
    // The test's own client, so that what is tested can't hide what it did.
    QNetworkAccessManager client;
    client.setProxy(QNetworkProxy::NoProxy);
    QNetworkRequest request(QUrl(m_url + QStringLiteral("/_control/") + command));
    request.setHeader(QNetworkRequest::ContentTypeHeader, QStringLiteral("application/json"));
    QSslConfiguration tls = request.sslConfiguration();
    tls.setPeerVerifyMode(QSslSocket::VerifyNone);
    request.setSslConfiguration(tls);
    const bool isQuestion = body.isEmpty() && command != QLatin1String("reset");
    const std::unique_ptr<QNetworkReply> reply(isQuestion ? client.get(request)
                                                          : client.post(request, QJsonDocument(body).toJson()));
    QEventLoop loop;
    QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
    loop.exec();
    if (reply->error() != QNetworkReply::NoError)
        qWarning("control path %s: %s", qPrintable(command), qPrintable(reply->errorString()));
    return reply->readAll();
}

void HouseProcess::fault(const QString& path, const QString& kind, int arg, int count)
{
    QJsonObject body{{"path", path}, {"kind", arg > 0 ? kind + ':' + QString::number(arg) : kind}};
    if (count >= 0)
        body.insert("count", count);
    control(QStringLiteral("fault"), body);
}

void HouseProcess::answer(const QString& path, const QJsonValue& answer, int count)
{
    QJsonObject body{{"path", path}, {"body", answer}};
    if (count >= 0)
        body.insert("count", count);
    control(QStringLiteral("answer"), body);
}

void HouseProcess::config(const QJsonObject& settings) { control(QStringLiteral("config"), settings); }

QJsonArray HouseProcess::books(const QString& guest)
{
    return QJsonDocument::fromJson(control(QStringLiteral("orders?guest=") + guest)).array();
}

void HouseProcess::reset() { control(QStringLiteral("reset"), {}); }

QJsonArray HouseProcess::requests(const QString& path)
{
    const QByteArray answer = control(QStringLiteral("requests?path=") + path);
    return QJsonDocument::fromJson(answer).array();
}

QJsonObject HouseProcess::lastRequest(const QString& path)
{
    const QJsonArray all = requests(path);
    return all.isEmpty() ? QJsonObject() : all.last().toObject();
}

int HouseProcess::seen(const QString& path)
{
    return QJsonDocument::fromJson(control(QStringLiteral("stats")))
        .object()
        .value(path)
        .toObject()
        .value("seen")
        .toInt();
}

int HouseProcess::executed(const QString& path)
{
    return QJsonDocument::fromJson(control(QStringLiteral("stats")))
        .object()
        .value(path)
        .toObject()
        .value("executed")
        .toInt();
}

QString HouseProcess::log()
{
    m_process.waitForReadyRead(50);
    return QString::fromUtf8(m_process.readAllStandardError());
}
