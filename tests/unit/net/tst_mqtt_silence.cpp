// Brokers that take the connection and then say nothing: only time tells, so that this takes half a minute.

#include "support/BrokerProcess.h"

#include "net/MqttClient.h"

#include <QSignalSpy>
#include <QTcpServer>
#include <QtTest>

class tst_mqtt_silence : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void silence();
};

void tst_mqtt_silence::silence()
{
    constexpr int limitMs = 60000;
    BrokerProcess broker;
    MqttClient frozen("127.0.0.1", broker.port(), BrokerProcess::user(), BrokerProcess::password(), "frozen");
    QSignalSpy connected(&frozen, &MqttClient::connected);
    QVERIFY(connected.wait());
    broker.freeze();

    QTcpServer mute; // takes the connection, never answers
    QVERIFY(mute.listen(QHostAddress::LocalHost));
    MqttClient unanswered("127.0.0.1", mute.serverPort(), "u", "p", "unanswered");

    for (const MqttClient* client : {&unanswered, &frozen}) {
        auto* wait = client->findChild<QTimer*>("mqttReconnect");
        QTRY_VERIFY_WITH_TIMEOUT(wait->isActive(), limitMs);
        QCOMPARE(wait->interval(), 1000);
    }
    broker.thaw();
    QVERIFY(connected.wait());
}

QTEST_GUILESS_MAIN(tst_mqtt_silence)
#include "tst_mqtt_silence.moc"
