#include "support/BrokerListener.h"
#include "support/HouseProcess.h"

#include <QNetworkAccessManager>
#include <QNetworkInterface>
#include <QNetworkReply>
#include <QtTest>

/// The house as a program: faults that are switched on and off, and its broker.
class tst_house_live : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { mosquitto_lib_init(); }
    void cleanupTestCase() { mosquitto_lib_cleanup(); }

    void faultsGoOnAndOff();
    /// The house starts before its broker, and loses it again; what other terminals change is published.
    void changesAreHeard()
    {
        BrokerProcess broker;
        broker.stop();
        HouseProcess house({"--mqtt-url", broker.url(), "--mqtt-user", BrokerProcess::user(), "--mqtt-pwd",
                            BrokerProcess::password(), "--others", "50"});
        for (int round = 0; round < 2; ++round) {
            QVERIFY(broker.start());
            BrokerListener listener;
            QTRY_VERIFY_WITH_TIMEOUT(listener.listen(broker.port()), 20000);
            QTRY_VERIFY_WITH_TIMEOUT(listener.received().count("ROOMSTATUS_405800100000000101") >= 20, 30000);
            broker.kill();
        }
        QVERIFY2(!house.log().contains("others:"), qPrintable(house.log()));
    }
    /// They may call it, and not steer it.
    void fromOtherMachines()
    {
        HouseProcess house({"--no-publish", "--host", "0.0.0.0"});
        QVERIFY(house.isReady());
        QCOMPARE(status(house.url() + "/_control/clear", "{}"), 200);
        for (const QHostAddress& address : QNetworkInterface::allAddresses()) {
            if (address.isLoopback() || address.protocol() != QAbstractSocket::IPv4Protocol)
                continue;
            const QString url = QString(house.url()).replace("127.0.0.1", address.toString());
            QCOMPARE(status(url + "/line/check"), 200);
            QCOMPARE(status(url + "/_control/clear", "{}"), 403);
        }
    }

private:
    /// The status of the answer to a POST of JSON, or to a GET without it; 0 when none came.
    int status(const QString& url, const QByteArray& json = {})
    {
        QNetworkRequest request{QUrl(url)};
        request.setHeader(QNetworkRequest::ContentTypeHeader, "application/json");
        const std::unique_ptr<QNetworkReply> reply(json.isEmpty() ? m_client.get(request)
                                                                  : m_client.post(request, json));
        QSignalSpy(reply.get(), &QNetworkReply::finished).wait(20000);
        return reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    }

    QNetworkAccessManager m_client;
};

/// What each kind does is seen where the terminal meets it.
void tst_house_live::faultsGoOnAndOff()
{
    HouseProcess house({"--no-publish", "--fault", "/line/check=http500"});
    const QString path = "/line/check";
    const auto check = [&] { return status(house.url() + path); };
    QCOMPARE(check(), 500);
    house.reset();
    QCOMPARE(check(), 200);
    house.fault("*", "http500-ok");
    house.fault(path, "http500", 0, 2);
    QVector<int> executed;
    for (int call = 0; call < 4; ++call) {
        QCOMPARE(check(), 500);
        executed << house.executed(path);
    }
    QCOMPARE(executed, (QVector<int>{1, 1, 2, 3})); // the path's own fault goes before that of all, and is over
    QCOMPARE(status(house.url() + "/_control/clear", "{}"), 200);
    QCOMPARE(check(), 200);
    QCOMPARE(house.seen(path), 6);
    for (const char* order : {R"({"path":"*","kind":"burn"})", R"({"path":"*","kind":"delay"})", "{", "[]"})
        QCOMPARE(status(house.url() + "/_control/fault", order), 400);
    for (const auto& [settings, code] :
         {std::pair(R"({"isCleaning":false,"nothing":1})", 400), std::pair(R"({"isCleaning":1})", 400),
          std::pair(R"({"isPush":1})", 200)})
        QCOMPARE(status(house.url() + "/_control/config", settings), code);
}

QTEST_GUILESS_MAIN(tst_house_live)
#include "tst_house_live.moc"
