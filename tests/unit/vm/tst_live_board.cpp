// The room board with a real broker: what other terminals change arrives, whatever becomes of the channel.

#include "RoomFixture.h"
#include "support/BrokerProcess.h"

#include "app/MainClass.h"
#include "common/GlobalConfig.h"
#include "net/MqttClient.h"
#include "vm/module1/Module1Vm.h"

#include <QSignalSpy>
#include <QTimer>
#include <QtTest>

namespace {

const QString boardEnd = QStringLiteral("/bba01/getOverTime"); // the last call of a refresh
const QString initPath = QStringLiteral("/baa00/getSysInitByAuthCode");

GlobalConfig* config() { return GlobalConfig::getInstance(); }
MainClass* program() { return MainClass::getInstance(); }

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
    void events();
    void eventDuringACall();
    void brokerComesBack();
    void leaving();

private:
    QString topic() const { return config()->MQTT_ROOM_STATUS() + config()->storeId(); }
    int refreshes() { return m_fixture->house().seen(boardEnd); }
    /// A board whose topics the broker knows and whose first refresh is done.
    std::unique_ptr<Module1Vm> listeningBoard();

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
    delete program()->findChild<MqttClient*>();
    m_broker.reset();
    m_fixture.reset();
}

std::unique_ptr<Module1Vm> tst_live_board::listeningBoard()
{
    auto board = std::make_unique<Module1Vm>();
    [&] { QTRY_VERIFY(refreshes() > 0 && m_broker->log().contains(topic())); }();
    m_fixture->reset();
    return board;
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
    const auto* client = program()->findChild<MqttClient*>();
    m_fixture->house().answer(initPath, reply);
    program()->initMqtt(false);
    QTEST(m_fixture->takeShown(), "shown");
    QCOMPARE(program()->findChild<MqttClient*>(), client);
    QCOMPARE(program()->findChildren<MqttClient*>().size(), 1);
    QCOMPARE(config()->mqttPort(), m_broker->port());
}

void tst_live_board::newChannel()
{
    const auto address = QStringLiteral("tcp://localhost:%1").arg(m_broker->port());
    const QPointer<MqttClient> before = program()->findChild<MqttClient*>();
    m_fixture->answer(initPath,
                      QJsonObject{{"mqttInfo", QJsonObject{{"hostUrl", address},
                                                           {"username", BrokerProcess::user()},
                                                           {"password", BrokerProcess::password()}}}});
    QSignalSpy connected(program(), &MainClass::mqttConnected);
    program()->initMqtt(false);
    QVERIFY(connected.wait());
    QTRY_VERIFY(!before);
    QCOMPARE(config()->mqttUrl(), QStringLiteral("localhost"));
    QCOMPARE(config()->MQTT_ROOM_STATUS(), QStringLiteral("ROOMSTATUS_"));
    const QRegularExpression id("as client_" + config()->storeId() + "_[0-9a-f]{32} ");
    QCOMPARE(m_broker->log().count(id), 2);
    QTRY_VERIFY(m_broker->log().contains(" disconnected."));
}

void tst_live_board::events()
{
    const auto board = listeningBoard();
    QSignalSpy messages(program(), &MainClass::mqttSignal);
    QVERIFY(m_broker->publish(topic(), {"{\"type\":\"room\"}"}));
    QTRY_COMPARE(refreshes(), 1);
    QCOMPARE(messages.at(0), (QList<QVariant>{config()->MQTT_ROOM_STATUS(), "{\"type\":\"room\"}"}));
    // A staff event arrives and fetches nothing.
    QVERIFY(m_broker->publish(config()->MQTT_STAFF_STATUS() + config()->storeId(), {"x"}));
    QTRY_COMPARE(messages.size(), 2);
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
    m_fixture->house().fault("/bba01/getFloorSum", "delay", 300, 1);
    QVERIFY(m_broker->publish(topic(), {"1"}));
    QTRY_COMPARE(m_fixture->house().seen("/bba01/getFloorSum"), 1);
    QSignalSpy messages(program(), &MainClass::mqttSignal);
    QVERIFY(m_broker->publish(topic(), {"2"}));
    QTRY_COMPARE(messages.size(), 1);
    QTRY_COMPARE(refreshes(), 2);
}

void tst_live_board::brokerComesBack()
{
    const auto board = listeningBoard();
    m_broker->kill();
    auto* wait = program()->findChild<MqttClient*>()->findChild<QTimer*>("mqttReconnect");
    QTRY_VERIFY(wait->isActive());
    QTest::qWait(600); // a tick passes
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
    const int before = m_broker->log().count("Received UNSUBSCRIBE");
    board.reset();
    QTRY_COMPARE(m_broker->log().count("Received UNSUBSCRIBE"), before + 3);
    QVERIFY(m_broker->publish(topic(), {"1"}));
    QTest::qWait(600);
    QCOMPARE(refreshes(), 0);
}

QTEST_GUILESS_MAIN(tst_live_board)
#include "tst_live_board.moc"
