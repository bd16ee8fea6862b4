// The channel against a real broker: what the broker sees of it, and what becomes of it when the broker goes.

#include "MqttChannel.h"
#include "support/ErrorLog.h"

#include <QTcpServer>
#include <QTcpSocket>

#include <memory>

namespace {

const QString roomTopic = "ROOMSTATUS_101";
const QString staffTopic = "STAFFSTATUS_101";
const QString callTopic = "CALLCHGDATA_101";

/// The topics that the broker was asked for and about, in their order: "+room" or "-room".
QStringList asked(const BrokerProcess& broker)
{
    QStringList topics;
    QString sign;
    for (const QString& line : broker.log().split('\n')) {
        const QString text = line.section(": ", 1);
        if (text.startsWith("Received SUBSCRIBE"))
            sign = "+";
        else if (text.startsWith("Received UNSUBSCRIBE"))
            sign = "-";
        else if (text.startsWith('\t') && !sign.isEmpty())
            topics.append(sign + text.trimmed().section(' ', 0, 0));
        else
            sign.clear();
    }
    return topics;
}

} // namespace

class tst_mqtt : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_broker = std::make_unique<BrokerProcess>();
        QVERIFY(m_broker->isRunning());
    }
    void cleanup() { m_broker.reset(); }

    void session()
    {
        {
            MqttChannel other(*m_broker);
            QVERIFY(other.connected.wait());
        }
        QTRY_VERIFY(m_broker->log().contains("Received DISCONNECT from client_101_abc"));
        auto channel = std::make_unique<MqttChannel>(*m_broker);
        MqttClient& client = channel->client;
        QVERIFY(channel->connected.wait());
        QCOMPARE(channel->waited(), 0);
        // p2 is protocol 3.1.1, c1 a clean session, k the keep-alive in seconds.
        QTRY_VERIFY2(m_broker->log().contains("as client_101_abc (p2, c1, k20, u'terminal')"),
                     qPrintable(m_broker->log()));
        QVERIFY(m_broker->log().contains("No will message specified"));
        client.setTopic({roomTopic, staffTopic});
        client.setTopic({staffTopic, callTopic});
        const QStringList expected{"+" + roomTopic,  "+" + staffTopic, "-" + roomTopic,
                                   "-" + staffTopic, "+" + staffTopic, "+" + callTopic};
        QTRY_COMPARE(asked(*m_broker), expected);
        QCOMPARE(m_broker->log().count("_101 (QoS 0)"), 4);

        QVERIFY(m_broker->publish(roomTopic, {"not wanted"}));
        QVERIFY(m_broker->publish(callTopic, {QByteArray("\xe4\xb8\x00z", 4), QByteArray()}));
        QTRY_COMPARE(channel->messages.size(), 2);
        QCOMPARE(channel->messages.at(0), (QVariantList{callTopic, QString::fromLatin1("\xe4\xb8\0z", 4)}));
        QCOMPARE(channel->messages.at(1), (QVariantList{callTopic, QString()}));

        client.setTopic({roomTopic});
        QTRY_COMPARE(asked(*m_broker).mid(6),
                     (QStringList{"-" + staffTopic, "-" + callTopic, "+" + roomTopic}));
        QCOMPARE(channel->connected.size(), 1);
        QVERIFY(m_broker->publish(roomTopic, {"3"}));
        QTRY_COMPARE(channel->messages.size(), 3); // all that the broker sent is read: its end isn't a reset
        channel.reset();
        QTRY_COMPARE(asked(*m_broker).last(), "-" + roomTopic);
    }

    void burst()
    {
        MqttChannel channel(*m_broker);
        channel.client.setTopic({staffTopic}); // both before there is a connection
        channel.client.setTopic({roomTopic});
        QTRY_VERIFY(asked(*m_broker).contains("+" + roomTopic));
        QVERIFY(!asked(*m_broker).contains("+" + staffTopic));
        QByteArrayList payloads;
        for (int i = 0; i < 10000; ++i)
            payloads.append(QByteArray::number(i));
        QByteArrayList received;
        connect(&channel.client, &MqttClient::mqttMsgSignal, this,
                [&](const QString&, const QString& text) { received.append(text.toLatin1()); });
        QVERIFY(m_broker->publish(roomTopic, payloads));
        QTRY_COMPARE_WITH_TIMEOUT(received.size(), payloads.size(), 30000);
        QVERIFY(received == payloads);
        QVERIFY(m_broker->publish(roomTopic, {QByteArray(5000000, 'x')}));
        QTRY_COMPARE(received.size(), payloads.size() + 1);
        QCOMPARE(received.last().size(), 65536);
    }

    void brokerComesBack()
    {
        MqttChannel channel(*m_broker);
        channel.client.setTopic({roomTopic});
        QVERIFY(channel.connected.wait());
        for (int i = 0; i < 2; ++i) {
            QTRY_COMPARE(asked(*m_broker).count("+" + roomTopic), i + 1); // written down before it is killed
            i == 0 ? m_broker->kill() : m_broker->stop();
            QTRY_COMPARE(channel.waited(), 1000);
            QVERIFY(m_broker->start());
            QVERIFY(channel.connected.wait());
            QTRY_COMPARE(asked(*m_broker).count("+" + roomTopic), i + 2);
            QVERIFY(m_broker->publish(roomTopic, {"back"}));
            QTRY_COMPARE(channel.messages.size(), i + 1);
            QCOMPARE(channel.client.currentDelayMs(), 1000);
        }
        QCOMPARE(channel.connected.size(), 3);
    }

    void delays()
    {
        m_broker->stop();
        MqttChannel channel(*m_broker);
        for (int attempt = 0; attempt < 65; ++attempt) {
            QTRY_COMPARE(channel.waited(), qMin(1000 + attempt * 15000, 901000));
            const QString logged = QString("reconnect times: %1").arg(qMin(attempt + 1, 60));
            QTest::ignoreMessage(QtDebugMsg, qPrintable(logged));
            channel.hurry();
        }
        // New topics bring the next attempt forward; they don't call it off.
        QTRY_COMPARE(channel.waited(), 901000);
        channel.client.setTopic({roomTopic});
        QCOMPARE(channel.waited(), 1000);
        for (const int delayMs : {1000, 16000}) {
            QTRY_COMPARE(channel.waited(), delayMs);
            channel.hurry();
        }
        // A success ends the long waits.
        QTRY_COMPARE(channel.waited(), 31000);
        QVERIFY(m_broker->start());
        channel.hurry();
        QVERIFY(channel.connected.wait());
        QTRY_VERIFY(asked(*m_broker).endsWith("+" + roomTopic));
        m_broker->kill();
        QTRY_COMPARE(channel.waited(), 1000);
    }

    void wrongPassword()
    {
        MqttChannel channel(*m_broker, "wrong");
        for (const int delayMs : {1000, 16000}) {
            QTRY_COMPARE(channel.waited(), delayMs);
            channel.hurry();
        }
        QTRY_COMPARE(m_broker->log().count("not authorised"), 3);
        QCOMPARE(channel.connected.size(), 0);
    }

    /// Topics that no packet can carry, at which a broker would hang up, don't hinder the others.
    void wrongTopics()
    {
        const ErrorLog log;
        MqttChannel channel(*m_broker);
        QVERIFY(channel.connected.wait());
        channel.client.setTopic({"", QString(QChar::Null) + roomTopic, QString(65536, 'x'), "a#b", roomTopic});
        QCOMPARE(log.lines.size(), 4);
        QCOMPARE(log.lines.at(0), QString("\"\" is no mqtt topic"));
        QVERIFY(log.lines.at(3).startsWith("mqtt topic \"a#b\" isn't subscribed: "));
        QTRY_COMPARE(asked(*m_broker), QStringList{"+" + roomTopic});
        QVERIFY(m_broker->publish(roomTopic, {"1"}));
        QTRY_COMPARE(channel.messages.size(), 1);
        channel.client.setTopic({});
        QTRY_COMPARE(asked(*m_broker), (QStringList{"+" + roomTopic, "-" + roomTopic}));
        QCOMPARE(channel.connected.size(), 1);

        log.lines.clear();
        BrokerProcess refusing(BrokerProcess::RefuseTopics);
        MqttChannel refused(refusing);
        refused.client.setTopic({roomTopic, staffTopic});
        const QString line = "mqtt topic \"%1\" isn't subscribed: the broker refuses it";
        QTRY_COMPARE(log.lines, (QStringList{line.arg(roomTopic), line.arg(staffTopic)}));
    }

    /// An address with colons is no name.
    void sixthVersion()
    {
        QTcpServer listener;
        if (!listener.listen(QHostAddress::LocalHostIPv6))
            QSKIP("no IPv6 here");
        const MqttChannel channel("::1", listener.serverPort());
        QTRY_VERIFY(listener.hasPendingConnections());
        QTcpSocket* line = listener.nextPendingConnection();
        QTRY_VERIFY(line->peek(100).contains("client_101_abc"));
    }

    void deletedInItsSlot()
    {
        for (const bool isAtConnect : {true, false}) {
            auto channel = std::make_unique<MqttChannel>(*m_broker);
            MqttClient* client = &channel->client;
            client->setTopic({roomTopic});
            if (isAtConnect) {
                connect(client, &MqttClient::connected, [&] { channel.reset(); });
            } else {
                connect(client, &MqttClient::connected, qApp, [this] {
                    QVERIFY(m_broker->publish(roomTopic, {"1", "2", "3"}));
                });
                connect(client, &MqttClient::mqttMsgSignal, [&] { channel.reset(); });
            }
            QTRY_VERIFY(!channel);
        }
    }

private:
    std::unique_ptr<BrokerProcess> m_broker;
};

QTEST_GUILESS_MAIN(tst_mqtt)
#include "tst_mqtt.moc"
