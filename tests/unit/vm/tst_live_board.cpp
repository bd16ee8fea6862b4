// The room board with a real broker: what other terminals change arrives, whatever becomes of the channel.

#include "RoomFixture.h"
#include "support/BrokerProcess.h"

#include "app/MainClass.h"
#include "common/GlobalConfig.h"
#include "net/MqttClient.h"
#include "vm/dialogs/CloudVm.h"
#include "vm/module1/Module1Vm.h"

#include <QRegularExpression>
#include <QSignalSpy>
#include <QTimer>
#include <QtTest>

namespace {

const QString boardEnd = QStringLiteral("/bba01/getOverTime"); // the last call of a refresh
const QString initPath = QStringLiteral("/baa00/getSysInitByAuthCode");

GlobalConfig* config() { return GlobalConfig::getInstance(); }
MainClass* program() { return MainClass::getInstance(); }
MqttClient* channel() { return program()->findChild<MqttClient*>(); }

} // namespace

class tst_live_board : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init() { m_fixture->reset(); }

    void newParameters_data();
    void newParameters();
    void newChannel();
    void newLine();
    void storeIdCut_data();
    void storeIdCut();
    void events();
    void eventDuringACall();
    void brokerComesBack();
    void leaving();

private:
    QString topic() const { return config()->MQTT_ROOM_STATUS() + config()->storeId(); }
    int refreshes() { return m_fixture->house().seen(boardEnd); }
    /// A board whose topics the broker knows and whose first refresh is done, null when that fails.
    std::unique_ptr<Module1Vm> listeningBoard();
    int subscriptions() const { return m_broker->log().count("\t" + topic() + " (QoS 0)"); }
    /// The id that the channel's last connection told the broker.
    QString clientId() const;
    bool hasSaidGoodBye(const QString& id) const
    {
        return m_broker->log().contains("Received DISCONNECT from " + id);
    }

    std::unique_ptr<RoomFixture> m_fixture;
    std::unique_ptr<BrokerProcess> m_broker;
};

void tst_live_board::initTestCase()
{
    m_fixture = std::make_unique<RoomFixture>();
    m_broker = std::make_unique<BrokerProcess>();
    QVERIFY(m_fixture->isUp() && m_broker->isRunning());
    config()->setMqttUrl(QStringLiteral("127.0.0.1"));
    config()->setMqttPort(m_broker->port());
    config()->setMqttUser(BrokerProcess::user());
    config()->setMqttPwd(BrokerProcess::password());
    QSignalSpy connected(program(), &MainClass::mqttConnected);
    program()->initMqtt(true);
    QVERIFY(connected.wait());
}

void tst_live_board::cleanupTestCase()
{
    delete channel();
    m_broker.reset();
    m_fixture.reset();
}

std::unique_ptr<Module1Vm> tst_live_board::listeningBoard()
{
    const int before = subscriptions();
    auto board = std::make_unique<Module1Vm>();
    if (!QTest::qWaitFor([&] { return refreshes() > 0 && subscriptions() > before; }))
        return nullptr;
    m_fixture->reset();
    return board;
}

QString tst_live_board::clientId() const
{
    const QString log = m_broker->log();
    const QString sign = " as client_" + config()->storeId() + "_";
    return log.mid(log.lastIndexOf(sign) + 4).section(' ', 0, 0);
}

void tst_live_board::newParameters_data()
{
    QTest::addColumn<QJsonObject>("reply");
    QTest::addColumn<QStringList>("shown");
    QTest::newRow("refused") << QJsonObject{{"code", "500"}, {"msg", "终端已停用"}}
                             << QStringList{"error|终端已停用"};
    QTest::newRow("nothing in it") << QJsonObject{{"code", "200"}} << QStringList{"error|获取mqtt信息出错"};
}

/// Without new parameters the channel stays as it is.
void tst_live_board::newParameters()
{
    QFETCH(QJsonObject, reply);
    const auto* client = channel();
    m_fixture->house().answer(initPath, reply);
    program()->initMqtt(false);
    QTEST(m_fixture->takeShown(), "shown");
    QCOMPARE(channel(), client);
    QCOMPARE(program()->findChildren<MqttClient*>().size(), 1);
    QCOMPARE(config()->mqttPort(), m_broker->port());
}

void tst_live_board::newChannel()
{
    const auto address = QStringLiteral("tcp://127.0.0.1:%1").arg(m_broker->port());
    const QString before = clientId();
    m_fixture->answer(initPath,
                      QJsonObject{{"mqttInfo", QJsonObject{{"hostUrl", address},
                                                           {"username", BrokerProcess::user()},
                                                           {"password", BrokerProcess::password()}}}});
    QSignalSpy connected(program(), &MainClass::mqttConnected);
    const QString key = config()->secretKey();
    config()->setSecretKey("another-key");
    config()->setMqttUrl(QStringLiteral("broker.example"));
    program()->initMqtt(false);
    config()->setSecretKey(key);
    const QString target = m_fixture->house().lastRequest(initPath).value("target").toString();
    QVERIFY2(target.contains("secretKey=another-key&") || target.endsWith("secretKey=another-key"),
             qPrintable(target));
    QTRY_COMPARE(connected.size(), 1);
    QTRY_VERIFY(hasSaidGoodBye(before));
    QCOMPARE(program()->findChildren<MqttClient*>().size(), 1);
    QCOMPARE(config()->mqttUrl(), QStringLiteral("127.0.0.1"));
    QCOMPARE(config()->MQTT_ROOM_STATUS(), QStringLiteral("ROOMSTATUS_"));
    const QRegularExpression id("^client_" + config()->storeId() + "_[0-9a-f]{32}$");
    QVERIFY2(id.match(clientId()).hasMatch(), qPrintable(clientId()));
    QVERIFY(clientId() != before);
    QVERIFY(!hasSaidGoodBye(clientId()));
}

/// The parameters come through the line that was chosen, and the channel goes where they say.
void tst_live_board::newLine()
{
    const QString line = m_fixture->house().url().replace("127.0.0.1", "localhost");
    const QString before = clientId();
    const QString user = BrokerProcess::user();
    m_fixture->answer(
        "/kvsystem/common/getSysApiReqUrls",
        QJsonObject{
            {"apiUrl", m_fixture->house().url()},
            {"lineCheckHttpPath", "/check"},
            {"reqLines", QJsonArray{QJsonObject{
                             {"title", "平台"},
                             {"subLines", QJsonArray{QJsonObject{{"title", "线路"}, {"domain", line}}}}}}}});
    m_fixture->answer(
        initPath,
        QJsonObject{{"mqttInfo", QJsonObject{{"username", user}, {"password", BrokerProcess::password()}}}});
    m_fixture->house().fault("/check", "delay", 20);
    config()->setMqttUser("nobody");
    CloudVm lines;
    lines.init();
    lines.onChecked(0, 0);
    QSignalSpy connected(program(), &MainClass::mqttConnected);
    QVERIFY2(lines.save(), qPrintable(m_fixture->takeShown().join('\n')));
    QCOMPARE(config()->apiUrl(), line);
    QCOMPARE(m_fixture->house().seen(initPath), 1);
    const QJsonValue headers = m_fixture->house().lastRequest(initPath).value("headers");
    QVERIFY(headers.toArray().contains(QJsonObject{{"name", "Host"}, {"value", line.section('/', -1)}}));
    QTRY_COMPARE(connected.size(), 1);
    QCOMPARE(config()->mqttUser(), user);
    QTRY_VERIFY(hasSaidGoodBye(before));
    QCOMPARE(m_fixture->takeShown(), QStringList());
}

void tst_live_board::storeIdCut_data()
{
    const QString id = config()->storeId();
    QTest::addColumn<QString>("topic");
    QTest::addColumn<QString>("shortTopic");
    QTest::newRow("at the end") << "ROOM_" + id << "ROOM_";
    QTest::newRow("elsewhere, and again") << id + "ROOM_" + id + "_X"
                                          << "ROOM__X";
    QTest::newRow("nowhere") << "ROOM_of_another_store"
                             << "ROOM_of_another_store";
}

void tst_live_board::storeIdCut()
{
    QFETCH(QString, topic);
    QSignalSpy messages(program(), &MainClass::mqttSignal);
    program()->setMqttTopics({topic});
    QTRY_VERIFY(m_broker->log().contains("\t" + topic + " (QoS 0)"));
    QVERIFY(m_broker->publish(topic, {"text"}));
    QTRY_COMPARE(messages.size(), 1);
    QFETCH(QString, shortTopic);
    QCOMPARE(messages.at(0), (QList<QVariant>{shortTopic, "text"}));
    program()->setMqttTopics({});
}

void tst_live_board::events()
{
    const auto board = listeningBoard();
    QVERIFY(board);
    QSignalSpy messages(program(), &MainClass::mqttSignal);
    QVERIFY(m_broker->publish(topic(), {"{\"type\":\"room\"}"}));
    QTRY_COMPARE(refreshes(), 1);
    QCOMPARE(messages.at(0), (QList<QVariant>{config()->MQTT_ROOM_STATUS(), "{\"type\":\"room\"}"}));
    // A staff event arrives and fetches nothing.
    QVERIFY(m_broker->publish(config()->MQTT_STAFF_STATUS() + config()->storeId(), {"x"}));
    QTRY_COMPARE(messages.size(), 2);
    board->timeEvent();
    QCOMPARE(refreshes(), 1);
    // A burst costs one refresh for each tick that it lasts.
    m_fixture->reset();
    QVERIFY(m_broker->publish(topic(), QByteArrayList{} << "1"
                                                        << "2"
                                                        << "3"
                                                        << "4"
                                                        << "5"));
    QTRY_VERIFY(refreshes() > 0);
    QTRY_COMPARE(messages.size(), 7);
    QVERIFY(refreshes() <= 2);
}

/// What comes while the board is being fetched is fetched after it.
void tst_live_board::eventDuringACall()
{
    const auto board = listeningBoard();
    QVERIFY(board);
    auto* tick = board->findChild<QTimer*>("eventTick");
    tick->stop(); // from here on it comes by hand
    QSignalSpy messages(program(), &MainClass::mqttSignal);
    QVERIFY(m_broker->publish(topic(), {"1"}));
    QTRY_COMPARE(messages.size(), 1);
    m_fixture->house().fault("/bba01/getFloorSum", "delay", 1500, 1);
    QTimer::singleShot(700, board.get(), [&] { m_broker->publish(topic(), {"2"}); });
    for (const int expected : {1, 2, 2}) {
        board->timeEvent();
        tick->stop();
        QCOMPARE(messages.size(), 2); // the second one during the first fetch
        QCOMPARE(refreshes(), expected);
    }
}

void tst_live_board::brokerComesBack()
{
    const auto board = listeningBoard();
    QVERIFY(board);
    m_broker->kill();
    auto* wait = channel()->findChild<QTimer*>("mqttReconnect");
    QTRY_VERIFY(wait->isActive());
    board->timeEvent();
    QCOMPARE(refreshes(), 0);
    QVERIFY(m_broker->start());
    wait->start(0);
    QTRY_COMPARE(refreshes(), 1);
    QVERIFY(m_broker->publish(topic(), {"1"}));
    QTRY_COMPARE(refreshes(), 2);
}

void tst_live_board::leaving()
{
    auto board = listeningBoard();
    QVERIFY(board);
    const QString left = "Received UNSUBSCRIBE from " + clientId();
    const int before = m_broker->log().count(left);
    const QString delivered = "Sending PUBLISH to " + clientId();
    QVERIFY(m_broker->publish(topic(), {"1"}));
    QTRY_VERIFY(m_broker->log().contains(delivered));
    board.reset();
    QTRY_COMPARE(m_broker->log().count(left), before + 3);
    const int deliveries = m_broker->log().count(delivered);
    QVERIFY(m_broker->publish(topic(), {"2"}));
    QVERIFY(m_broker->publish(topic(), {"3"})); // when the broker has this one, it is done with that before
    QCOMPARE(m_broker->log().count(delivered), deliveries);
}

QTEST_GUILESS_MAIN(tst_live_board)
#include "tst_live_board.moc"
