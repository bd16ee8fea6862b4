#include "common/GlobalConfig.h"
#include "dto/system/LineRecords.h"
#include "net/LogText.h"
#include "net/NetServer.h"
#include "services/Baa00Service.h"
#include "services/KvsystemService.h"
#include "services/Reply.h"
#include "support/DeadEndpoint.h"
#include "support/HouseProcess.h"
#include "support/Rows.h"
#include "support/SelfSignedCertificate.h"

#include <QTcpServer>
#include <QTcpSocket>

namespace {

const QString sysInit = "/baa00/getSysInitByAuthCode";
const QString loginMod = "/baa00/loginMod";
const QString lines = "/kvsystem/common/getSysApiReqUrls";
const QString secretKey = "demo-secret-key-0001";

GlobalConfig* config() { return GlobalConfig::getInstance(); }

Reply<GetSysInitByAuthCode> callGet()
{
    return held(Baa00Service::getInstance()->getSysInitByAuthCode(secretKey));
}

Reply<LoginMod> callPost()
{
    return held(Baa00Service::getInstance()->loginMod(
        {{"workNo", "1001"}, {"pwd", "1001"}, {"modCode", "ROOMINFO_CTRL"}}, secretKey));
}

Reply<GetSysApiReqUrls> callLines()
{
    return held(KvsystemService::getInstance()->getSysApiReqUrls({{"type", 2}, {"tAuthCode", "KV-DEMO-0001"}}));
}

int testLine(const QString& url) { return NetWorkUtls::NetServer(false, nullptr).testApi(url); }

/// What an HTTP server gets that answers every request with an empty object.
class RawServer : public QTcpServer
{
public:
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
    QString url() const { return QString("http://127.0.0.1:%1").arg(serverPort()); }

    QByteArray request;
};

constexpr qint64 megabyte = 1024 * 1024;

/// Answers with a body of so many megabytes, or of 0 without end.
class LongReply : public QTcpServer
{
public:
    explicit LongReply(int megabytes)
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this, megabytes] {
            ++connections;
            QTcpSocket* socket = nextPendingConnection();
            connect(socket, &QTcpSocket::bytesWritten, this, [=] {
                if (socket->bytesToWrite() > 0)
                    return;
                if (megabytes > 0 && written == megabytes * megabyte)
                    socket->disconnectFromHost();
                else
                    written += socket->write(QByteArray(megabyte, ' '));
            });
            socket->write("HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n");
        });
    }
    QString url() const { return QString("http://127.0.0.1:%1").arg(serverPort()); }

    int connections = 0;
    qint64 written = 0;
};

using FailureRows = Rows<QString, QString, QString, int>;

} // namespace

class tst_transport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_house.isReady() && config()->initLibcurl()); }
    void init()
    {
        m_house.reset();
        config()->setApiUrl(m_house.url());
    }
    void cleanup()
    {
        config()->setToken({});
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void failures_data()
    {
        const QString noConnection = "连接服务器失败，请检查网络是否正常";
        FailureRows::add({{"GET dropped", "drop", "CONNECT_ERR", noConnection, 5},
                          {"GET truncated", "truncate", "CONNECT_ERR", noConnection, 5},
                          {"POST dropped", "drop", "-2", "请求失败", 1},
                          {"POST truncated", "truncate", "-2", "请求失败", 1},
                          // The work was done and the answer got lost: done again, it would be done twice.
                          {"POST dropped after its work", "drop-after", "-2", "请求失败", 1}});
    }
    void failures()
    {
        const auto& [name, kind, code, msg, tries] = FailureRows::current();
        const bool isPost = tries == 1;
        m_house.fault(isPost ? loginMod : sysInit, kind);
        QElapsedTimer timer;
        timer.start();
        const Reply<ApiRes> reply = isPost ? Reply<ApiRes>(callPost()) : Reply<ApiRes>(callGet());
        QCOMPARE(reply->code(), code);
        QCOMPARE(reply->msg(), msg);
        QVERIFY(reply->property("data").value<QObject*>() == nullptr);
        QVERIFY(timer.elapsed() >= (tries - 1) * 1000); // the pauses between the tries
        if (kind == "drop-after")
            QTest::qWait(1500);
        QCOMPARE(m_house.seen(isPost ? loginMod : sysInit), tries);
        QVERIFY(m_house.executed(loginMod) <= 1);
    }
    void longReplies()
    {
        for (const auto& [isPost, megabytes, code] :
             Table<bool, int, QString>{{false, 31, ""}, {false, 0, "-2"}, {true, 0, "-2"}}) {
            LongReply server(megabytes);
            config()->setApiUrl(server.url());
            const Reply<ApiRes> reply = isPost ? Reply<ApiRes>(callPost()) : Reply<ApiRes>(callGet());
            QCOMPARE(reply->code(), code);
            QCOMPARE(server.connections, 1); // it would be as long again
            QVERIFY2(server.written < 64 * megabyte, qPrintable(QString::number(server.written)));
        }
    }
    void getRecovers()
    {
        m_house.fault(sysInit, "truncate", 0, 2);
        const auto reply = callGet();
        QCOMPARE(reply->code(), QString("200"));
        QVERIFY(reply->data() && reply->data()->terminalInfo()); // nothing of the halves is left in the body
        QCOMPARE(m_house.seen(sysInit), 3);
    }
    void headers()
    {
        for (const auto& [path, token, travels] :
             Table<QString, QByteArray, bool>{{"/baa00/keepLogin", "abc", true},
                                              {"/baa00/keepLogin", "", false},
                                              {loginMod, "abc", false},
                                              {"/caa04/getTerminalList", "abc", false},
                                              {"", "abc", true}}) { // the line test
            RawServer server;
            config()->setToken(token);
            config()->setApiUrl(server.url());
            if (path.isEmpty())
                testLine(server.url());
            else
                held(NetWorkUtls::NetServer(false, nullptr)
                         .api<ApiRes>({NetMethod::Post, path, {}, {{"X-Trace", "前台"}}, {}}));
            // No blank behind the colon.
            QCOMPARE(server.request.contains("\r\nAuthorization:" + token + "\r\n"), travels);
            QCOMPARE(server.request.contains("Authorization"), travels);
            QVERIFY(
                server.request.startsWith(path.isEmpty() ? "GET / " : "POST " + path.toUtf8() + "?timestamp="));
            QVERIFY(server.request.contains(
                "\r\nContent-Type:application/x-www-form-urlencoded;charset=UTF-8\r\n"));
            QVERIFY(
                server.request.contains("\r\nUser-Agent: Mozilla/5.0 (Windows NT 10.0; Win64; x64) AppleWebKit/"
                                        "537.36 (KHTML, like Gecko) Chrome/120.0.0.0 Safari/537.36\r\n"));
            QVERIFY(path.isEmpty() || server.request.contains("\r\nX-Trace: 前台\r\n"));
            QVERIFY(path.isEmpty() || server.request.contains("\r\n\r\ndata=%7B%22compId%22"));
        }
    }

    void logText()
    {
        // Single quotes stand for double ones.
        for (const auto& [text, logged] : Table<QString, QString>{
                 {"{'token':'a\\'b','x':'kept'}", "{'token':'***','x':'kept'}"},
                 {"{'mqttInfo':{'password' : 'p','username':'u'}}",
                  "{'mqttInfo':{'password' : '***','username':'u'}}"},
                 {"{'pwd':1001,'staffPwd':'','SECRET':null}", "{'pwd':'***','staffPwd':'***','SECRET':'***'}"},
                 {"{'secretKey':'demo-sec", "{'secretKey':'***'"},
                 {"{'secret':'demo\\", "{'secret':'***'"},
                 {"{'a':'token','token':{'secret':'s'}}", "{'a':'token','token':{'secret':'***'}}"},
                 {"http://a.example/x?secretKey=k&a=1&pwd=p", "http://a.example/x?secretKey=***&a=1&pwd=***"},
                 {"{'token':'" + QString(100000, 'x') + "'}", "{'token':'***'}"}})
            QCOMPARE(masked(QString(text).replace('\'', '"')), QString(logged).replace('\'', '"'));
        const QByteArray fits(65536, 'x');
        QCOMPARE(loggedReply(fits), QString(fits));
        QCOMPARE(loggedReply(fits + "yz"), fits + QString("… (65538 bytes)"));
    }

    void lineFetch()
    {
        config()->setApiUrls({deadEndpointUrl(), m_house.url(), deadEndpointUrl()});
        const auto good = callLines();
        QCOMPARE(good->code(), QString("200"));
        QVERIFY(good->data() && good->data()->reqLines().size() >= 2 &&
                good->data()->apiUrl() == m_house.url());
        const QJsonObject sent = m_house.lastRequest(lines).value("json").toObject();
        QVERIFY(!sent.contains("operator") && !sent.contains("creater") && !sent.contains("acode"));

        // A refusal is an answer too: the next endpoint isn't asked.
        m_house.fault(lines, "refuse:LINE_ERR", 0, 1);
        config()->setApiUrls({m_house.url(), m_house.url()});
        QCOMPARE(callLines()->code(), QString("LINE_ERR"));
        QCOMPARE(m_house.seen(lines), 2);

        m_house.reset();
        m_house.fault(lines, "hang");
        config()->setApiUrls({deadEndpointUrl(), m_house.url()});
        QElapsedTimer timer;
        timer.start();
        const auto none = callLines();
        QVERIFY(timer.elapsed() >= 2900 && timer.elapsed() < 10000); // three seconds for each, not thirty
        QCOMPARE(none->code() + none->msg(), QString("-1请求服务器失败"));
        QCOMPARE(m_house.seen(lines), 1);
    }
    void lineTest()
    {
        const QString check = "/line/check";
        QVERIFY(testLine(m_house.url() + check) >= 0);
        QVERIFY(testLine(m_house.url() + "/no/such/page") >= 0);
        for (const QString& url : {deadEndpointUrl(), QString("file:///dev/null")})
            QCOMPARE(testLine(url), -1);
        m_house.fault(check, "delay", 300);
        QVERIFY(testLine(m_house.url() + check) >= 300);
        m_house.reset();
        m_house.fault(check, "hang");
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(testLine(m_house.url() + check), -1);
        QVERIFY(timer.elapsed() >= 1900 && timer.elapsed() < 8000); // two seconds, not thirty
        QCOMPARE(m_house.seen(check), 1);
    }
    void selfSignedTls()
    {
        const SelfSignedCertificate files;
        QVERIFY(files.isMade());
        HouseProcess house({"--tls", files.certificate(), files.key()});
        QVERIFY(house.url().startsWith("https://"));
        config()->setApiUrl(house.url());
        QCOMPARE(callGet()->code(), QString("200"));
        QCOMPARE(callPost()->code(), QString("200"));
    }

private:
    HouseProcess m_house;
};

QTEST_GUILESS_MAIN(tst_transport)
#include "tst_transport.moc"
