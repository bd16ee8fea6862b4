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

// own text | kinds announced here | number/kind of those called | what is said, parted by ";"
const char announcementTable[] = R"(
- | 1,2 | 0012/1 8001/2 | 请0 0 1 2 号贵宾前往助浴区;请8 0 0 1 号贵宾前往助浴区
手牌%1请到二楼 | 2 | A7/2 | 手牌A 7 请到二楼______
请到二楼 | 2 | 7/2 | 请7 号贵宾前往助浴区
- | 2 | 1/1 /2 3/ 4/2 5/22 | 请4 号贵宾前往助浴区
- | | 1/1 |
)";

// what is done | the fields of the answer | what is shown | what the page is told
const char outcomeTable[] = R"(
finish | card staff | | 8001 u p r S
finish | card | |
finish | staff | |
grade | card staff orders grades | | H S 1 1
grade | staff orders grades | |
grade | card orders grades | |
grade | card staff | error|当前手牌无未评价订单 |
grade | card staff orders | error|未设置评价,请联系系统管理员 |
)";

// the day's start | now | 1 today, 2 yesterday | from | to
const char dayTable[] = R"(
06:00:00 | 2026-11-23 05:00:00 | 1 | 2026-11-22 06:00:00 | 2026-11-23 05:59:59
06:00:00 | 2026-11-23 07:00:00 | 1 | 2026-11-23 06:00:00 | 2026-11-24 05:59:59
06:00:00 | 2026-11-23 05:00:00 | 2 | 2026-11-21 06:00:00 | 2026-11-22 05:59:59
06:00:00 | 2026-11-23 06:00:00 | 2 | 2026-11-22 06:00:00 | 2026-11-23 05:59:59
00:00:00 | 2026-11-23 00:00:00 | 1 | 2026-11-23 00:00:00 | 2026-11-23 23:59:59
)";

} // namespace

class tst_queue_station : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();

    void announcements_data() { addRows(announcementTable); }
    void announcements();
    void announcedInOrder();
    void swipeDuringAnAction();
    void outcomes_data() { addRows(outcomeTable); }
    void outcomes();
    void days_data() { addRows(dayTable); }
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

void tst_queue_station::announcements()
{
    QFETCH(QStringList, cells);
    const QStringList spoken = QString(cells[3]).replace('_', ' ').split(';', Qt::SkipEmptyParts);
    config()->setZyTtsText(cells[0] == "-" ? QString() : cells[0]);
    config()->terminalInfo()->set_hardCardTypes(cells[1]);
    Module4Vm station;
    m_terminal->answer(speechPath, calls(cells[2]));
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

void tst_queue_station::outcomes()
{
    const QJsonObject all{{"card", QJsonObject{{"cardNo", "8001"}, {"hardCardId", "H"}}},
                          {"staff", QJsonObject{{"id", "S"}}},
                          {"orders", QJsonArray{QJsonObject{{"hardOrderId", "O"}}}},
                          {"grades", QJsonArray{QJsonObject{{"id", "G"}}}}};
    const QMap<QString, QString> keys{{"card", "hardCardInfo"},
                                      {"staff", "staffUserInfo"},
                                      {"orders", "assessOrders"},
                                      {"grades", "assessInfos"}};
    QFETCH(QStringList, cells);
    const bool isGrading = cells[0] == "grade";
    QJsonObject answer;
    for (const QString& field : cells[1].split(' '))
        answer.insert(keys[field], all[field]);
    m_terminal->answer(isGrading ? "/bca01/getHardCardAssessOrders" : "/bca01/completeWaitCall", answer);
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
    QCOMPARE(m_terminal->takeShown().join(' '), cells[2]);
    QCOMPARE(signal, cells.value(3));
}

void tst_queue_station::days()
{
    QFETCH(QStringList, cells);
    s_nowMs = QDateTime::fromString(cells[1], "yyyy-MM-dd HH:mm:ss").toMSecsSinceEpoch();
    Clock::setSource([] { return s_nowMs; });
    const QString before = config()->sysConfig()->startTime();
    config()->sysConfig()->set_startTime(cells[0]);
    m_terminal->answer("/bca01/getHelpCallBashApiLogPageList", QJsonObject{{"list", QJsonArray{}}});
    PassRecordVm records;
    records.setDateType(cells[2].toInt());
    QVERIFY(records.getRecords());
    Clock::setSource(nullptr);
    config()->sysConfig()->set_startTime(before);
    const QJsonObject sent = m_terminal->sent("/bca01/getHelpCallBashApiLogPageList");
    QCOMPARE(sent, QJsonObject({{"startTime", cells[3]}, {"endTime", cells[4]}}));
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
