#include "common/GlobalConfig.h"
#include "dto/system/LineRecords.h"
#include "net/NetServer.h"
#include "net/libcurl.h"
#include "services/Baa00Service.h"
#include "services/KvsystemService.h"
#include "services/Reply.h"
#include "support/DeadEndpoint.h"
#include "support/HouseProcess.h"
#include "support/SelfSignedCertificate.h"

#include <QSignalSpy>
#include <QTcpServer>
#include <QtTest>

#include <memory>

namespace {

const QString sysInit = QStringLiteral("/baa00/getSysInitByAuthCode");
const QString loginMod = QStringLiteral("/baa00/loginMod");
const QString keepLogin = QStringLiteral("/baa00/keepLogin");
const QString lines = QStringLiteral("/kvsystem/common/getSysApiReqUrls");
const QString secretKey = QStringLiteral("demo-secret-key-0001");
const QString deadEndpoint = deadEndpointUrl();

GlobalConfig* config() { return GlobalConfig::getInstance(); }

Reply<GetSysInitByAuthCode> callGet()
{
    return Reply<GetSysInitByAuthCode>(Baa00Service::getInstance()->getSysInitByAuthCode(secretKey));
}

Reply<LoginMod> callPost()
{
    return Reply<LoginMod>(Baa00Service::getInstance()->loginMod(
        {{"workNo", "1001"}, {"pwd", "1001"}, {"modCode", "ROOMINFO_CTRL"}}, secretKey));
}

Reply<GetSysApiReqUrls> callLines()
{
    return Reply<GetSysApiReqUrls>(
        KvsystemService::getInstance()->getSysApiReqUrls({{"type", 2}, {"tAuthCode", "KV-DEMO-0001"}}));
}

int testLine(const QString& url) { return NetWorkUtls::NetServer(false, nullptr).testApi(url); }

} // namespace

class tst_transport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_house.reset(new HouseProcess);
        QVERIFY(m_house->isReady());
        QVERIFY(config()->initLibcurl());
    }
    void init()
    {
        m_house->reset();
        config()->setApiUrl(m_house->url());
        config()->setApiUrls({m_house->url()});
    }
    void cleanup()
    {
        config()->setToken({});
        config()->setSecret({});
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void failures_data();
    void failures();
    void getRecovers();
    void getWithoutRetries();
    void postIsNeverRepeated();
    void tokenTravels_data();
    void tokenTravels();
    void headersAsTold();
    void lineFetchTakesTheFirstAnswer();
    void lineFetchGivesUp();
    void lineTest();
    void selfSignedTls();

private:
    std::unique_ptr<HouseProcess> m_house;
};

void tst_transport::failures_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("isPost");
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("msg");
    QTest::addColumn<int>("tries");
    const QString noConnection = QStringLiteral("连接服务器失败，请检查网络是否正常");
    const QString failed = QStringLiteral("请求失败");
    QTest::newRow("GET dropped") << "drop" << false << "CONNECT_ERR" << noConnection << 5;
    QTest::newRow("GET truncated") << "truncate" << false << "CONNECT_ERR" << noConnection << 5;
    QTest::newRow("POST dropped") << "drop" << true << "-2" << failed << 1;
    QTest::newRow("POST truncated") << "truncate" << true << "-2" << failed << 1;
    QTest::newRow("POST garbage") << "garbage" << true << ""
                                  << "" << 1;
}

void tst_transport::failures()
{
    QFETCH(QString, kind);
    QFETCH(bool, isPost);
    QFETCH(QString, code);
    QFETCH(QString, msg);
    QFETCH(int, tries);

    const QString path = isPost ? loginMod : sysInit;
    m_house->fault(path, kind);
    QElapsedTimer timer;
    timer.start();
    QString gotCode;
    QString gotMsg;
    if (isPost) {
        const Reply<LoginMod> reply = callPost();
        gotCode = reply->code();
        gotMsg = reply->msg();
        QVERIFY(!reply->data());
    } else {
        const Reply<GetSysInitByAuthCode> reply = callGet();
        gotCode = reply->code();
        gotMsg = reply->msg();
        QVERIFY(!reply->data());
    }
    QCOMPARE(gotCode, code);
    QCOMPARE(gotMsg, msg);
    QCOMPARE(m_house->seen(path), tries);
    QVERIFY(timer.elapsed() >= (tries - 1) * 1000); // the pauses between the tries
}

void tst_transport::getRecovers()
{
    m_house->fault(sysInit, QStringLiteral("truncate"), 0, 2);
    const Reply<GetSysInitByAuthCode> reply = callGet();
    QCOMPARE(reply->code(), QStringLiteral("200"));
    QVERIFY(reply->data() && reply->data()->terminalInfo()); // nothing of the halves is left in the body
    QCOMPARE(m_house->seen(sysInit), 3);
}

void tst_transport::getWithoutRetries()
{
    m_house->fault(sysInit, QStringLiteral("drop"));
    libcurl worker;
    QCOMPARE(worker.timeout(), 30);
    QVERIFY(worker.isReconnect());
    worker.setIsReconnect(false);
    QSignalSpy finished(&worker, &QThread::finished);
    worker.api(m_house->url() + sysInit, {}, NetMethod::Get, {}, sysInit);
    QVERIFY(finished.wait());
    worker.wait();
    QCOMPARE(worker.getStatus(), static_cast<int>(libcurl::Failed));
    QCOMPARE(m_house->seen(sysInit), 1);
}

void tst_transport::postIsNeverRepeated()
{
    // The back end does the work and the answer gets lost: the call fails, and the work was done once.
    m_house->fault(loginMod, QStringLiteral("drop-after"));
    QCOMPARE(callPost()->code(), QStringLiteral("-2"));
    QTest::qWait(1500);
    QCOMPARE(m_house->executed(loginMod), 1);
    QCOMPARE(m_house->seen(loginMod), 1);
}

void tst_transport::tokenTravels_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("token");
    QTest::addColumn<bool>("travels");
    QTest::newRow("ordinary call") << keepLogin << "abc" << true;
    QTest::newRow("no token") << keepLogin << "" << false;
    QTest::newRow("login") << loginMod << "abc" << false;
    QTest::newRow("terminal list") << "/caa04/getTerminalList"
                                   << "abc" << false;
    QTest::newRow("line test") << ""
                               << "abc" << true;
}

namespace {

/// Takes one HTTP request and answers it with an empty object.
class RawServer : public QTcpServer
{
public:
    QByteArray request;

    RawServer()
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket* socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] {
                request += socket->readAll();
                socket->write("HTTP/1.1 200 OK\r\nContent-Length: 2\r\nConnection: close\r\n\r\n{}");
                socket->disconnectFromHost();
            });
        });
    }
    QString url() const { return QStringLiteral("http://127.0.0.1:%1").arg(serverPort()); }
};

} // namespace

void tst_transport::tokenTravels()
{
    QFETCH(QString, path);
    QFETCH(QString, token);
    QFETCH(bool, travels);
    RawServer server;
    config()->setToken(token);
    if (path.isEmpty()) {
        QVERIFY(testLine(server.url()) >= 0);
    } else {
        config()->setApiUrl(server.url());
        Reply<ApiRes>(NetWorkUtls::NetServer(false, nullptr).api<ApiRes>({NetMethod::Post, path, {}, {}, {}}));
    }
    QCOMPARE(server.request.contains("\r\nAuthorization: "), false); // no blank behind the colon
    QCOMPARE(server.request.contains("\r\nAuthorization:" + token.toUtf8() + "\r\n"), travels);
    QCOMPARE(server.request.contains("Authorization"), travels);
}

void tst_transport::headersAsTold()
{
    RawServer server;
    config()->setApiUrl(server.url());
    BaseRequest request{NetMethod::Post, QStringLiteral("/x"), {}, {{"X-Trace", "前台"}}, {}};
    Reply<ApiRes>(NetWorkUtls::NetServer(false, nullptr).api<ApiRes>(request));
    QVERIFY(server.request.startsWith("POST /x?timestamp="));
    QVERIFY(server.request.contains("\r\nContent-Type:application/x-www-form-urlencoded;charset=UTF-8\r\n"));
    QVERIFY(server.request.contains("\r\nX-Trace: \xE5\x89\x8D\xE5\x8F\xB0\r\n"));
    QVERIFY(
        server.request.contains("\r\nUser-Agent: Mozilla/5.0 (Windows NT 10.0; Win64; x64) AppleWebKit/537.36 "
                                "(KHTML, like Gecko) Chrome/120.0.0.0 Safari/537.36\r\n"));
    QVERIFY(server.request.contains("\r\n\r\ndata=%7B%22compId%22"));
}

void tst_transport::lineFetchTakesTheFirstAnswer()
{
    config()->setApiUrls({deadEndpoint, m_house->url(), deadEndpointUrl()});
    const Reply<GetSysApiReqUrls> good = callLines();
    QCOMPARE(good->code(), QStringLiteral("200"));
    QVERIFY(good->data() && good->data()->reqLines().size() >= 2);
    QCOMPARE(good->data()->apiUrl(), m_house->url());

    // A refusal is an answer too: the next endpoint isn't asked.
    m_house->fault(lines, QStringLiteral("refuse:LINE_ERR"), 0, 1);
    config()->setApiUrls({m_house->url(), m_house->url()});
    QCOMPARE(callLines()->code(), QStringLiteral("LINE_ERR"));
    QCOMPARE(m_house->seen(lines), 2);
    const QJsonObject sent = m_house->lastRequest(lines).value("json").toObject();
    QVERIFY(!sent.contains("operator") && !sent.contains("creater") && !sent.contains("acode"));
}

void tst_transport::lineFetchGivesUp()
{
    config()->setApiUrls({deadEndpoint, m_house->url()});
    m_house->fault(lines, QStringLiteral("hang"));
    QElapsedTimer timer;
    timer.start();
    const Reply<GetSysApiReqUrls> reply = callLines();
    QCOMPARE(reply->code(), QStringLiteral("-1"));
    QCOMPARE(reply->msg(), QStringLiteral("请求服务器失败"));
    QCOMPARE(m_house->seen(lines), 1);
    QVERIFY(timer.elapsed() >= 2900 && timer.elapsed() < 10000); // three seconds for each, not thirty
}

void tst_transport::lineTest()
{
    const QString check = QStringLiteral("/line/check");
    QVERIFY(testLine(m_house->url() + check) >= 0);
    QVERIFY(testLine(m_house->url() + QStringLiteral("/no/such/page")) >= 0);
    QCOMPARE(testLine(deadEndpoint), -1);
    m_house->fault(check, QStringLiteral("delay"), 300);
    QVERIFY(testLine(m_house->url() + check) >= 300);
    m_house->reset();
    m_house->fault(check, QStringLiteral("hang"));
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(testLine(m_house->url() + check), -1);
    QVERIFY(timer.elapsed() >= 1900 && timer.elapsed() < 8000); // two seconds, not thirty
    QCOMPARE(m_house->seen(check), 1);
}

void tst_transport::selfSignedTls()
{
    const SelfSignedCertificate files;
    QVERIFY(files.isMade());
    HouseProcess house({QStringLiteral("--tls"), files.certificate(), files.key()});
    QVERIFY(house.isReady());
    QVERIFY(house.url().startsWith(QStringLiteral("https://")));
    config()->setApiUrl(house.url());
    QCOMPARE(callGet()->code(), QStringLiteral("200"));
    QCOMPARE(callPost()->code(), QStringLiteral("200"));
}

QTEST_GUILESS_MAIN(tst_transport)
#include "tst_transport.moc"
