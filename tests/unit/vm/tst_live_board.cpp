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
#include <QtTest>

namespace {

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
    void cleanupTestCase() { delete channel(); }
    void init() { m_fixture->reset(); }

    void newLine();
    void events();
    void eventDuringACall();
    void brokerComesBack();
    void leaving();

private:
    QString topic() const { return config()->MQTT_ROOM_STATUS() + config()->storeId(); }
    int refreshes() { return m_fixture->house().seen("/bba01/getOverTime"); } // the last call of one
    /// A board whose topics the broker knows and whose first refresh is done, null when that fails.
    std::unique_ptr<Module1Vm> listeningBoard();
    int logged(const QString& text) const { return m_broker->log().count(text); }
    /// The id that the channel's last connection told the broker.
    QString clientId() const
    {
        const QString id = "client_" + config()->storeId() + "_";
        return id + m_broker->log().section(" as " + id, -1).section(' ', 0, 0);
    }

    std::unique_ptr<RoomFixture> m_fixture;
    std::unique_ptr<BrokerProcess> m_broker;
};

void tst_live_board::initTestCase()
{
    m_fixture = std::make_unique<RoomFixture>();
    m_broker = std::make_unique<BrokerProcess>();
    QVERIFY(m_fixture->isUp() && m_broker->isRunning());
    config()->setMqttUrl("127.0.0.1");
    config()->setMqttPort(m_broker->port());
    config()->setMqttUser(BrokerProcess::user());
    config()->setMqttPwd(BrokerProcess::password());
    QSignalSpy connected(program(), &MainClass::mqttConnected);
    program()->initMqtt(true);
    QVERIFY(connected.wait());
}

std::unique_ptr<Module1Vm> tst_live_board::listeningBoard()
{
    const QString subscription = "\t" + topic() + " (QoS 0)";
    const int before = logged(subscription);
    auto board = std::make_unique<Module1Vm>();
    if (!QTest::qWaitFor([&] { return refreshes() > 0 && logged(subscription) > before; }))
        return nullptr;
    m_fixture->reset();
    return board;
}

/// Without new parameters the channel stays as it is. They come through the line that was chosen, and the
/// channel goes where they say.
void tst_live_board::newLine()
{
    const QPointer<MqttClient> client(channel());
    const QString before = clientId();
    m_fixture->refuse(initPath, "终端已停用");
    program()->initMqtt(false);
    m_fixture->house().answer(initPath, QJsonObject{{"code", "200"}});
    program()->initMqtt(false);
    QCOMPARE(m_fixture->takeShown(), (QStringList{"error|终端已停用", "error|获取mqtt信息出错"}));
    QCOMPARE(channel(), client.data());

    const QString url = m_fixture->house().url();
    const QString line = QString(url).replace("127.0.0.1", "0.0.0.0"); // the same without a name
    m_fixture->run(
        QString("f.answer('/kvsystem/common/getSysApiReqUrls', {apiUrl: '%1', lineCheckHttpPath: '/check',"
                "reqLines: [{subLines: [{title: '线路', domain: '%2'}]}]})")
            .arg(url, line));
    const QString address = QString("tcp://127.0.0.1:%1").arg(m_broker->port());
    const QJsonObject parameters{
        {"hostUrl", address}, {"username", BrokerProcess::user()}, {"password", BrokerProcess::password()}};
    m_fixture->answer(initPath, QJsonObject{{"mqttInfo", parameters}});
    m_fixture->house().fault("/check", "delay", 20);
    config()->setMqttUser("nobody");
    config()->setMqttUrl("broker.example");
    CloudVm lines;
    lines.init();
    lines.onChecked(0, 0);
    QSignalSpy connected(program(), &MainClass::mqttConnected);
    QVERIFY2(lines.save(), qPrintable(m_fixture->takeShown().join('\n')));
    QCOMPARE(config()->apiUrl(), line);
    const QJsonObject request = m_fixture->house().lastRequest(initPath);
    const QJsonObject host{{"name", "Host"}, {"value", line.section('/', -1)}};
    QVERIFY(request.value("headers").toArray().contains(host));
    QVERIFY(request.value("target").toString().contains("secretKey=" + config()->secretKey()));
    QTRY_COMPARE(connected.size(), 1);
    QTRY_COMPARE(logged("Received DISCONNECT from " + before), 1);
    QVERIFY(!client && config()->mqttUrl() == "127.0.0.1");
    QVERIFY(QRegularExpression("^client_\\w+_[0-9a-f]{32}$").match(clientId()).hasMatch());
    QVERIFY(clientId() != before);
    QCOMPARE(m_fixture->takeShown(), QStringList());
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
    QVERIFY(m_broker->publish(topic(), {"1", "2", "3", "4", "5"}));
    QTRY_VERIFY(refreshes() > 0);
    QTRY_COMPARE(messages.size(), 7);
    QVERIFY(refreshes() <= 2);
    // The store's id is cut off wherever it stands.
    const QString odd = config()->storeId() + "ODD_" + config()->storeId() + "_X";
    program()->setMqttTopics({odd});
    QTRY_COMPARE(logged("\t" + odd + " (QoS 0)"), 1);
    QVERIFY(m_broker->publish(odd, {"8"}));
    QTRY_COMPARE(messages.size(), 8);
    QCOMPARE(messages.at(7), (QList<QVariant>{"ODD__X", "8"}));
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

/// All three topics are left with the board.
void tst_live_board::leaving()
{
    auto board = listeningBoard();
    QVERIFY(board);
    const QString left = "Received UNSUBSCRIBE from " + clientId();
    const int before = logged(left);
    board.reset();
    QTRY_COMPARE(logged(left), before + 3);
}

QTEST_GUILESS_MAIN(tst_live_board)
#include "tst_live_board.moc"
