// The helper's station: what it announces, what comes of the back end's answers, which day the records are of.

#include "RoomFixture.h"
#include "support/BrokerProcess.h"

#include "app/MainClass.h"
#include "app/Voice.h"
#include "common/Clock.h"
#include "common/GlobalConfig.h"
#include "net/MqttClient.h"
#include "services/Bca01Service.h"
#include "vm/module4/Module4Vm.h"
#include "vm/module4/PassRecordVm.h"

#include <QJsonArray>
#include <QSignalSpy>
#include <QtTest>

namespace {

const QString listPath = QStringLiteral("/bca01/getHardCardCallList");
const QString speechPath = QStringLiteral("/bca01/getMqttCallInfoDataByKey");

GlobalConfig* config() { return GlobalConfig::getInstance(); }
MainClass* program() { return MainClass::getInstance(); }
QStringList heard() { return qApp->property("heard").toStringList(); }

QJsonArray calls(const QString& cards)
{
    QJsonArray list;
    for (const QString& card : cards.split(' '))
        list.append(QJsonObject{{"cardNo", card.section('/', 0, 0)}, {"hardCardType", card.section('/', 1)}});
    return list;
}

void announce(const QString& key) { Q_EMIT program()->mqttSignal(config()->MQTT_HARDCARDSCALLDATA(), key); }

qint64 s_nowMs = 0;

} // namespace

class tst_queue_station : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();

    void announcements_data();
    void announcements();
    void announcedInOrder();
    void swipeDuringAnAction();
    void outcomes_data();
    void outcomes();
    void days_data();
    void days();
    void broker();

private:
    std::unique_ptr<RoomFixture> m_terminal;
};

void tst_queue_station::initTestCase()
{
    m_terminal.reset(new RoomFixture);
    QVERIFY(m_terminal->isUp());
    qApp->setProperty("engine", "early");
    program()->initTts();
    program()->findChild<Voice*>()->findChild<QTimer*>()->setInterval(2);
}

void tst_queue_station::cleanupTestCase()
{
    Clock::setSource(nullptr);
    delete program()->findChild<MqttClient*>();
}

void tst_queue_station::init()
{
    m_terminal->reset();
    config()->call_count = 1;
    config()->setZyTtsText({});
    config()->terminalInfo()->set_hardCardTypes("1,2");
    qApp->setProperty("heard", QStringList());
}

void tst_queue_station::announcements_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("kinds");
    QTest::addColumn<QString>("cards"); // number/kind
    QTest::addColumn<QStringList>("spoken");
    const auto usual = [](const QString& number) { return QString("请%1号贵宾前往助浴区").arg(number); };
    QTest::newRow("the usual text") << ""
                                    << "1,2"
                                    << "0012/1 8001/2" << QStringList{usual("0 0 1 2 "), usual("8 0 0 1 ")};
    QTest::newRow("the own text") << "手牌%1请到二楼"
                                  << "2"
                                  << "A7/2" << QStringList{"手牌A 7 请到二楼      "};
    QTest::newRow("a text without a place") << "请到二楼"
                                            << "2"
                                            << "7/2" << QStringList{usual("7 ")};
    QTest::newRow("others' kinds, and none") << ""
                                             << "2"
                                             << "1/1 /2 3/ 4/2 5/22" << QStringList{usual("4 ")};
    QTest::newRow("no kinds") << ""
                              << ""
                              << "1/1" << QStringList();
}

void tst_queue_station::announcements()
{
    QFETCH(QString, text);
    QFETCH(QString, kinds);
    QFETCH(QString, cards);
    QFETCH(QStringList, spoken);
    config()->setZyTtsText(text);
    config()->terminalInfo()->set_hardCardTypes(kinds);
    Module4Vm station;
    m_terminal->answer(speechPath, calls(cards));
    announce({});
    announce("CALL7");
    QTRY_COMPARE(m_terminal->sent(speechPath), QJsonObject({{"key", "CALL7"}}));
    QTRY_COMPARE(heard(), spoken);
    QTest::qWait(20);
    QCOMPARE(heard(), spoken);
    QCOMPARE(m_terminal->seen(speechPath), 1);
}

/// The answers to a burst can't overtake each other.
void tst_queue_station::announcedInOrder()
{
    config()->call_count = 2;
    config()->setZyTtsText("%1");
    Module4Vm station;
    for (int i = 0; i < 3; ++i)
        call(&Bca01Service::callNextHardCards, {{"callNum", 1}});
    m_terminal->house().fault(speechPath, "delay", 60, 1);
    for (const char* key : {"CALL1", "CALL2", "CALL3"})
        announce(key);
    QTRY_COMPARE(heard().join("").remove(' '), QString("804280428043804360326032"));
}

/// A guest who swipes his card has gone on: the card is sent whatever the helper does.
void tst_queue_station::swipeDuringAnAction()
{
    Module4Vm station;
    m_terminal->house().fault("/bca01/callNextHardCards", "delay", 150, 1);
    m_terminal->answer("/bca01/callNextHardCards", {});
    m_terminal->answer("/bca01/addWaitCallInfos", {});
    QTimer::singleShot(40, &station, [&] {
        QVERIFY(!station.isEnabled());
        station.startServer({}, {}, {});
        station.readingExec("49748974");
        station.readingHandExec("");
    });
    station.callNext(1, {}, {}, {});
    QCOMPARE(m_terminal->seen("/bca01/startServerCallInfo"), 0);
    QCOMPARE(m_terminal->sent("/bca01/addWaitCallInfos"), QJsonObject({{"cardUid", "49748974"}}));
    QCOMPARE(m_terminal->seen("/bca01/addWaitCallInfos"), 1);
    QCOMPARE(m_terminal->takeShown(), (QStringList{done, done}));
}

void tst_queue_station::outcomes_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("signalled");
    const QString card = R"("hardCardInfo": {"cardNo": "8001", "hardCardId": "H"})";
    const QString staff = R"("staffUserInfo": {"id": "S"})";
    const QString order = R"("assessOrders": [{"hardOrderId": "O"}])";
    const QString grade = R"("assessInfos": [{"id": "G"}])";
    const auto row = [](const char* name, const QStringList& fields, const QString& shown,
                        const QString& signalled) {
        QTest::newRow(name) << "{" + fields.join(", ") + "}" << shown << signalled;
    };
    row("finished", {card, staff}, "", "8001 u p r S");
    row("finished by nobody", {card}, "", "");
    row("finished without a card", {staff}, "", "");
    row("graded", {card, staff, order, grade}, "", "H S 1 1");
    row("graded without a card", {staff, order, grade}, "", "");
    row("graded by nobody", {card, order, grade}, "", "");
    row("graded without orders", {card, staff, R"("assessOrders": [])"}, "error|当前手牌无未评价订单", "");
    row("graded without grades", {card, staff, order}, "error|未设置评价,请联系系统管理员", "");
}

void tst_queue_station::outcomes()
{
    QFETCH(QString, answer);
    QFETCH(QString, shown);
    QFETCH(QString, signalled);
    const bool isGrading = QString(QTest::currentDataTag()).startsWith("graded");
    m_terminal->answer(isGrading ? "/bca01/getHardCardAssessOrders" : "/bca01/completeWaitCall",
                       QJsonDocument::fromJson(answer.toUtf8()).object());
    Module4Vm station;
    QString signal;
    connect(&station, &Module4Vm::beginConsumeSignal, this,
            [&](const QString& cardNo, const QString& user, const QString& pwd, const QString& rfid,
                const QString& staffId) {
                QVERIFY(station.isEnabled());
                signal = QStringList{cardNo, user, pwd, rfid, staffId}.join(' ');
            });
    connect(&station, &Module4Vm::assessSignal, this,
            [&](const QString& cardId, const QString& staffId, const QList<assess_info_struct>& grades,
                const QList<assess_order_struct>& orders) {
                QVERIFY(station.isEnabled() && station.assessOrderList() == orders);
                signal = QString("%1 %2 %3 %4").arg(cardId, staffId).arg(grades.size()).arg(orders.size());
            });
    if (isGrading)
        station.assess("8001", {}, "u", "p", {});
    else
        station.complate("8001", {}, "u", "p", "r");
    QCOMPARE(signal, signalled);
    QCOMPARE(m_terminal->takeShown().join(' '), shown);
}

void tst_queue_station::days_data()
{
    QTest::addColumn<QString>("dayStart");
    QTest::addColumn<QString>("now");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("range");
    const auto row = [](const char* dayStart, const char* now, int type, const char* range) {
        QTest::addRow("%s %s %d", dayStart, now, type) << dayStart << now << type << range;
    };
    row("06:00:00", "2026-11-23 05:00:00", 1, "2026-11-22 06:00:00 2026-11-23 05:59:59");
    row("06:00:00", "2026-11-23 07:00:00", 1, "2026-11-23 06:00:00 2026-11-24 05:59:59");
    row("06:00:00", "2026-11-23 05:00:00", 2, "2026-11-21 06:00:00 2026-11-22 05:59:59");
    row("06:00:00", "2026-11-23 06:00:00", 2, "2026-11-22 06:00:00 2026-11-23 05:59:59");
    row("00:00:00", "2026-11-23 00:00:00", 1, "2026-11-23 00:00:00 2026-11-23 23:59:59");
}

void tst_queue_station::days()
{
    QFETCH(QString, dayStart);
    QFETCH(QString, now);
    QFETCH(int, type);
    QFETCH(QString, range);
    s_nowMs = QDateTime::fromString(now, "yyyy-MM-dd HH:mm:ss").toMSecsSinceEpoch();
    Clock::setSource([] { return s_nowMs; });
    const QString before = config()->sysConfig()->startTime();
    config()->sysConfig()->set_startTime(dayStart);
    m_terminal->answer("/bca01/getHelpCallBashApiLogPageList", QJsonObject{{"list", QJsonArray{}}});
    PassRecordVm records;
    records.setDateType(type);
    QVERIFY(records.getRecords());
    Clock::setSource(nullptr);
    config()->sysConfig()->set_startTime(before);
    const QJsonObject sent = m_terminal->sent("/bca01/getHelpCallBashApiLogPageList");
    QCOMPARE(sent.value("startTime").toString() + " " + sent.value("endTime").toString(), range);
    const QString target =
        m_terminal->house().lastRequest("/bca01/getHelpCallBashApiLogPageList").value("target").toString();
    QVERIFY(target.contains("page=1") && target.contains("limit=200"));
}

/// With a real broker: messages fetch, and so does a broker that comes back.
void tst_queue_station::broker()
{
    BrokerProcess broker;
    QVERIFY(broker.isRunning());
    config()->setMqttUrl("127.0.0.1");
    config()->setMqttPort(broker.port());
    config()->setMqttUser(BrokerProcess::user());
    config()->setMqttPwd(BrokerProcess::password());
    QSignalSpy connected(program(), &MainClass::mqttConnected);
    program()->initMqtt(true);
    QVERIFY(connected.wait());
    config()->setZyTtsText("%1");
    m_terminal->answer(speechPath, calls("8001/1"));
    Module4Vm station;
    station.init();
    QCOMPARE(m_terminal->seen(listPath), 1);
    const QString store = config()->storeId();
    QTRY_VERIFY(broker.log().contains("HARDCARDSCALLSTATUS_" + store + " (QoS 0)"));
    QByteArrayList burst;
    for (int i = 0; i < 50; ++i)
        burst.append("x");
    QVERIFY(broker.publish("HARDCARDSCALLSTATUS_" + store, burst));
    QVERIFY(broker.publish("HARDCARDSCALLDATA_" + store, {"CALL1"}));
    QTRY_COMPARE(heard(), QStringList{"8 0 0 1       "});
    QTRY_VERIFY(m_terminal->seen(listPath) >= 2);
    QVERIFY(m_terminal->seen(listPath) <= 3);
    broker.kill();
    auto* wait = program()->findChild<MqttClient*>()->findChild<QTimer*>("mqttReconnect");
    QTRY_VERIFY(wait->isActive() && program()->isBrokerAway());
    const int before = m_terminal->seen(listPath);
    QVERIFY(broker.start());
    wait->start(0);
    QTRY_VERIFY(m_terminal->seen(listPath) > before);
}

QTEST_GUILESS_MAIN(tst_queue_station)
#include "tst_queue_station.moc"
