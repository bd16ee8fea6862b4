// The channel against a real broker: what the broker sees of it, and what becomes of it when the broker goes.

#include "support/BrokerProcess.h"

#include "net/MqttClient.h"

#include <QSignalSpy>
#include <QtTest>

#include <memory>

namespace {

/// Takes what is logged as an error while it lives.
class ErrorWatch
{
public:
    ErrorWatch()
    {
        errors.clear();
        before =
            qInstallMessageHandler([](QtMsgType type, const QMessageLogContext& context, const QString& text) {
                if (type == QtCriticalMsg)
                    errors.append(text);
                else
                    before(type, context, text);
            });
    }
    ~ErrorWatch() { qInstallMessageHandler(before); }
    inline static QStringList errors;

private:
    inline static QtMessageHandler before;
};

const QString roomTopic = QStringLiteral("ROOMSTATUS_101");
const QString staffTopic = QStringLiteral("STAFFSTATUS_101");
const QString callTopic = QStringLiteral("CALLCHGDATA_101");

std::unique_ptr<MqttClient> clientOf(const BrokerProcess& broker,
                                     const QString& password = BrokerProcess::password())
{
    return std::make_unique<MqttClient>("127.0.0.1", broker.port(), BrokerProcess::user(), password,
                                        "client_101_abc");
}

QTimer* waitOf(const MqttClient& client) { return client.findChild<QTimer*>("mqttReconnect"); }

/// Milliseconds that the client waits for its next attempt, 0 when it isn't waiting.
int waited(const MqttClient& client) { return waitOf(client)->isActive() ? waitOf(client)->interval() : 0; }

/// Lets the attempt that is waited for begin now.
void hurry(const MqttClient& client) { waitOf(client)->start(0); }

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

QString lastAsked(const BrokerProcess& broker) { return asked(broker).value(asked(broker).size() - 1); }

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

    void connects();
    void topics();
    void topicsWithoutConnection();
    void topicsWhileWaiting();
    void brokerComesBack();
    void wrongPassword();
    void delays();
    void wrongTopics();
    void refusedTopic();
    void payload();
    void deletedInItsSlot();
    void burst();
    void goodBye();

private:
    std::unique_ptr<BrokerProcess> m_broker;
};

void tst_mqtt::connects()
{
    const auto client = clientOf(*m_broker);
    QSignalSpy connected(client.get(), &MqttClient::connected);
    QVERIFY(connected.wait());
    // p2 is protocol 3.1.1, c1 a clean session, k the keep-alive in seconds.
    QTRY_VERIFY2(m_broker->log().contains("as client_101_abc (p2, c1, k20, u'terminal')"),
                 qPrintable(m_broker->log()));
    QVERIFY(m_broker->log().contains("No will message specified"));
    QCOMPARE(connected.size(), 1);
    QVERIFY(!waitOf(*client)->isActive());
}

void tst_mqtt::topics()
{
    const auto client = clientOf(*m_broker);
    QSignalSpy connected(client.get(), &MqttClient::connected);
    QSignalSpy messages(client.get(), &MqttClient::mqttMsgSignal);
    QVERIFY(connected.wait());
    client->setTopic({roomTopic, staffTopic});
    client->setTopic({staffTopic, callTopic});
    const QStringList expected{"+" + roomTopic,  "+" + staffTopic, "-" + roomTopic,
                               "-" + staffTopic, "+" + staffTopic, "+" + callTopic};
    QTRY_COMPARE(asked(*m_broker), expected);
    QCOMPARE(m_broker->log().count("_101 (QoS 0)"), 4);
    QVERIFY(m_broker->publish(roomTopic, {"not wanted"}));
    QVERIFY(m_broker->publish(callTopic, {"wanted"}));
    QTRY_COMPARE(messages.size(), 1);
    QCOMPARE(messages.at(0), (QList<QVariant>{callTopic, "wanted"}));
    client->setTopic({});
    QTRY_COMPARE(asked(*m_broker).mid(6), (QStringList{"-" + staffTopic, "-" + callTopic}));
}

void tst_mqtt::topicsWithoutConnection()
{
    const auto client = clientOf(*m_broker);
    client->setTopic({roomTopic});
    client->setTopic({staffTopic});
    QSignalSpy connected(client.get(), &MqttClient::connected);
    QVERIFY(connected.wait());
    QSignalSpy messages(client.get(), &MqttClient::mqttMsgSignal);
    QTRY_COMPARE(lastAsked(*m_broker), "+" + staffTopic);
    QVERIFY(!asked(*m_broker).contains("+" + roomTopic));
    QVERIFY(m_broker->publish(staffTopic, {"1"}));
    QTRY_COMPARE(messages.size(), 1);
}

/// New topics bring the next attempt forward; they don't call it off.
void tst_mqtt::topicsWhileWaiting()
{
    m_broker->stop();
    const auto client = clientOf(*m_broker);
    for (const int delayMs : {1000, 16000, 31000}) {
        QTRY_COMPARE(waited(*client), delayMs);
        hurry(*client);
    }
    QTRY_COMPARE(waited(*client), 46000);
    client->setTopic({roomTopic});
    QCOMPARE(waited(*client), 1000);
    QVERIFY(m_broker->start());
    QSignalSpy connected(client.get(), &MqttClient::connected);
    QVERIFY(connected.wait());
    QTRY_COMPARE(lastAsked(*m_broker), "+" + roomTopic);
}

void tst_mqtt::brokerComesBack()
{
    const auto client = clientOf(*m_broker);
    client->setTopic({roomTopic});
    QSignalSpy connected(client.get(), &MqttClient::connected);
    QSignalSpy messages(client.get(), &MqttClient::mqttMsgSignal);
    QVERIFY(connected.wait());
    for (int i = 0; i < 2; ++i) {
        QTRY_COMPARE(asked(*m_broker).count("+" + roomTopic), i + 1); // written down before it is killed
        i == 0 ? m_broker->kill() : m_broker->stop();
        QTRY_COMPARE(waited(*client), 1000);
        QVERIFY(m_broker->start());
        QVERIFY(connected.wait());
        QCOMPARE(connected.size(), i + 2);
        QTRY_COMPARE(asked(*m_broker).count("+" + roomTopic), i + 2);
        QVERIFY(m_broker->publish(roomTopic, {"back"}));
        QTRY_COMPARE(messages.size(), i + 1);
        QCOMPARE(client->currentDelayMs(), 1000);
    }
}

void tst_mqtt::wrongPassword()
{
    const auto client = clientOf(*m_broker, "wrong");
    QSignalSpy connected(client.get(), &MqttClient::connected);
    for (const int delayMs : {1000, 16000, 31000}) {
        QTRY_COMPARE(waited(*client), delayMs);
        hurry(*client);
    }
    QTRY_COMPARE(waited(*client), 46000);
    QCOMPARE(m_broker->log().count("not authorised"), 4);
    QCOMPARE(connected.size(), 0);
}

void tst_mqtt::delays()
{
    m_broker->stop();
    const auto client = clientOf(*m_broker);
    for (int attempt = 0; attempt < 65; ++attempt) {
        QTRY_COMPARE(waited(*client), qMin(1000 + attempt * 15000, 901000));
        const QString logged = QStringLiteral("reconnect times: %1").arg(qMin(attempt + 1, 60));
        QTest::ignoreMessage(QtDebugMsg, qPrintable(logged));
        hurry(*client);
    }
    // A success ends the long waits.
    QTRY_COMPARE(waited(*client), 901000);
    QVERIFY(m_broker->start());
    QSignalSpy connected(client.get(), &MqttClient::connected);
    hurry(*client);
    QVERIFY(connected.wait());
    m_broker->kill();
    QTRY_COMPARE(waited(*client), 1000);
}

/// Topics that no packet can carry, at which a broker would hang up, don't hinder the others.
void tst_mqtt::wrongTopics()
{
    const ErrorWatch log;
    const auto client = clientOf(*m_broker);
    QSignalSpy connected(client.get(), &MqttClient::connected);
    QSignalSpy messages(client.get(), &MqttClient::mqttMsgSignal);
    QVERIFY(connected.wait());
    client->setTopic({"", QString(QChar::Null) + roomTopic, QString(65536, 'x'), "a#b", roomTopic});
    QCOMPARE(log.errors.size(), 4);
    QCOMPARE(log.errors.at(0), QString("\"\" is no mqtt topic"));
    QVERIFY(log.errors.at(3).startsWith("mqtt topic \"a#b\" isn't subscribed: "));
    QTRY_COMPARE(asked(*m_broker), QStringList{"+" + roomTopic});
    QVERIFY(m_broker->publish(roomTopic, {"1"}));
    QTRY_COMPARE(messages.size(), 1);
    client->setTopic({});
    QTRY_COMPARE(asked(*m_broker), (QStringList{"+" + roomTopic, "-" + roomTopic}));
    QCOMPARE(connected.size(), 1);
    QCOMPARE(waited(*client), 0);
}

void tst_mqtt::refusedTopic()
{
    const ErrorWatch log;
    BrokerProcess refusing(BrokerProcess::RefuseTopics);
    const auto client = clientOf(refusing);
    client->setTopic({roomTopic, staffTopic});
    const QString refused = "mqtt topic \"%1\" isn't subscribed: the broker refuses it";
    QTRY_COMPARE(log.errors, (QStringList{refused.arg(roomTopic), refused.arg(staffTopic)}));
}

void tst_mqtt::payload()
{
    const auto client = clientOf(*m_broker);
    client->setTopic({roomTopic});
    QSignalSpy messages(client.get(), &MqttClient::mqttMsgSignal);
    QTRY_VERIFY(asked(*m_broker).contains("+" + roomTopic));
    QVERIFY(m_broker->publish(roomTopic, {QByteArray("\xe4\xb8\x00z", 4), QByteArray()}));
    QTRY_COMPARE(messages.size(), 2);
    QCOMPARE(messages.at(0).at(1).toString(), QString::fromLatin1("\xe4\xb8\0z", 4));
    QCOMPARE(messages.at(1).at(1).toString(), QString());
}

void tst_mqtt::deletedInItsSlot()
{
    for (const bool isAtConnect : {true, false}) {
        auto* client = clientOf(*m_broker).release();
        const QPointer<MqttClient> alive(client);
        client->setTopic({roomTopic});
        if (isAtConnect) {
            connect(client, &MqttClient::connected, [client] { delete client; });
        } else {
            connect(client, &MqttClient::connected, qApp, [this] {
                QVERIFY(m_broker->publish(roomTopic, {"1", "2", "3"}));
            });
            connect(client, &MqttClient::mqttMsgSignal, [client] { delete client; });
        }
        QTRY_VERIFY(!alive);
    }
}

void tst_mqtt::burst()
{
    constexpr int count = 10000;
    const auto client = clientOf(*m_broker);
    client->setTopic({roomTopic});
    QTRY_VERIFY(asked(*m_broker).contains("+" + roomTopic));
    QByteArrayList payloads;
    for (int i = 0; i < count; ++i)
        payloads.append(QByteArray::number(i));
    QStringList received;
    connect(client.get(), &MqttClient::mqttMsgSignal, this,
            [&](const QString&, const QString& text) { received.append(text); });
    QVERIFY(m_broker->publish(roomTopic, payloads));
    QTRY_COMPARE_WITH_TIMEOUT(received.size(), count, 30000);
    for (int i = 0; i < count; ++i)
        QCOMPARE(received.at(i), QString::number(i));
}

void tst_mqtt::goodBye()
{
    auto client = clientOf(*m_broker);
    client->setTopic({roomTopic});
    QTRY_VERIFY(asked(*m_broker).contains("+" + roomTopic));
    client.reset();
    QTRY_VERIFY(m_broker->log().contains("Received DISCONNECT from client_101_abc"));
    QCOMPARE(lastAsked(*m_broker), "-" + roomTopic);
}

QTEST_GUILESS_MAIN(tst_mqtt)
#include "tst_mqtt.moc"
