#include "support/BrokerListener.h"
#include "support/HouseProcess.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QtTest>

/// The house as a program, with a broker beside it.
class tst_live : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { mosquitto_lib_init(); }
    void cleanupTestCase() { mosquitto_lib_cleanup(); }
    void othersAreHeard_data();
    void othersAreHeard();
};

void tst_live::othersAreHeard_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("order"); // to the control path; empty: none
    QTest::newRow("from the start") << QStringList{"--others", "50"} << QByteArray();
    QTest::newRow("by order") << QStringList{} << QByteArray(R"({"perSecond":50,"seed":7})");
    QTest::newRow("by rooms") << QStringList{"--others", "50", "--room-mode"} << QByteArray();
}

void tst_live::othersAreHeard()
{
    QFETCH(QStringList, options);
    QFETCH(QByteArray, order);
    BrokerProcess broker;
    QVERIFY(broker.isRunning());
    BrokerListener listener;
    QTRY_VERIFY_WITH_TIMEOUT(listener.listen(broker.port()), 20000);
    HouseProcess house(options + QStringList{"--mqtt-url", broker.url(), "--mqtt-user", BrokerProcess::user(),
                                             "--mqtt-pwd", BrokerProcess::password()});
    QVERIFY(house.isReady());
    if (!order.isEmpty()) {
        QNetworkAccessManager client;
        QNetworkRequest request(QUrl(house.url() + "/_control/others"));
        request.setHeader(QNetworkRequest::ContentTypeHeader, "application/json");
        const std::unique_ptr<QNetworkReply> reply(client.post(request, order));
        QTRY_VERIFY(reply->isFinished());
        QCOMPARE(reply->error(), QNetworkReply::NoError);
    }
    QTRY_VERIFY_WITH_TIMEOUT(listener.received().count("ROOMSTATUS_405800100000000101") >= 20, 20000);
    QVERIFY2(!house.log().contains("others:"), qPrintable(house.log()));
}

QTEST_GUILESS_MAIN(tst_live)
#include "tst_live.moc"
