// The clock that runs before anything is ordered: how long it ran, what is booked at its end, and its slip.

#include "RoomFixture.h"

#include "common/Clock.h"
#include "common/GlobalConfig.h"
#include "vm/module6/EndServerVm.h"
#include "vm/module6/Module6Vm.h"
#include "vm/module6/ServiceSlip.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QtTest>

namespace {

const QString workPath = QStringLiteral("/bda02/getStaffWorkInfo");
const QString statusPath = QStringLiteral("/bda02/updateStaffWorkStatus");
const QString bookPath = QStringLiteral("/bca01/batchUpdateOrder");
const QString startText = QStringLiteral("2026-11-23 20:00:00");

qint64 passedSeconds = 0; // since the clock was started

qint64 fakeMs()
{
    return QDateTime::fromString(startText, "yyyy-MM-dd HH:mm:ss").toMSecsSinceEpoch() + passedSeconds * 1000;
}

QJsonObject json(const QString& text) { return QJsonDocument::fromJson(text.toUtf8()).object(); }

} // namespace

class tst_clock_timer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_terminal.reset(new RoomFixture);
        QVERIFY(m_terminal->isUp());
    }
    void init()
    {
        m_terminal->reset();
        GlobalConfig::getInstance()->stop_server_print_count = 0;
        Clock::setSource(fakeMs);
    }
    void cleanup() { Clock::setSource(nullptr); }
    void entry();
    void quit_data();
    void quit();
    void serviceTimes();
    void booking();
    void failedBooking_data();
    void failedBooking();

private:
    /// The page of a running clock, with an area whose items are a service, goods, and a dish at the day's
    /// price.
    std::unique_ptr<EndServerVm> page(const QString& start = startText)
    {
        m_terminal->answer("/bca01/getTypeList", json(R"({"typeList":[{"id":"T"}]})"));
        m_terminal->answer("/bca01/getItemList", json(R"({"itemList":[
            {"id":"s","name":"足疗","price":128,"server_type":2,"times":60},{"id":"g","name":"茶","price":10,"server_type":1},
            {"id":"m","name":"鱼","price":0,"server_type":3,"sell_flg":2}]})"));
        m_terminal->answer(statusPath, QJsonValue());
        std::unique_ptr<EndServerVm> vm(new EndServerVm);
        StaffWorkInfoDto staff;
        staff.set_id("S");
        staff.set_code("801");
        staff.set_serverStartTime(start);
        vm->init(&staff);
        vm->selectArea("A", "hall");
        return vm;
    }
    void sell(EndServerVm& vm, int index, const QVariantMap& more = {})
    {
        QVariantMap line = vm.tapItem(index);
        for (auto value = more.begin(); value != more.end(); ++value)
            line.insert(value.key(), value.value());
        if (!line.contains("merged"))
            vm.addNewItem(index, line);
    }
    void takeCard(EndServerVm& vm)
    {
        m_terminal->answer("/bca01/getCardOrderInfo",
                           json(R"({"cardInfo":{"id":"C","cardno":"8001","status":1}})"));
        QVERIFY(vm.getOrderInfo({}, "8001"));
    }
    QString shown() { return m_terminal->takeShown().join("; "); }

    std::unique_ptr<RoomFixture> m_terminal;
};

/// The page follows from the answer; one without a technician closes the module, and so does a login without.
void tst_clock_timer::entry()
{
    const auto entered = [&](const QJsonValue& data, const QString& staffId = "S") {
        m_terminal->answer(workPath, data);
        Module6Vm module;
        QSignalSpy closes(&module, &Module6Vm::onCloseSignal);
        QSignalSpy loads(&module, &Module6Vm::setLoaderSignal);
        module.init("801", staffId);
        return QString("%1 %2 %3 %4")
            .arg(module.operStatus())
            .arg(loads.size())
            .arg(closes.size())
            .arg(shown());
    };
    QCOMPARE(entered(QJsonObject{{"serverStatus", 0}}), QString("1 1 0 "));
    QCOMPARE(entered(QJsonObject{{"serverStatus", 1}}), QString("2 1 0 "));
    QCOMPARE(entered({}), QString("-1 1 0 error|未能获取到技师信息"));
    QCOMPARE(entered(QJsonObject{}, ""), QString("0 0 1 "));
}

void tst_clock_timer::quit_data()
{
    addRows(R"(
2026-11-23 20:00:00 | 0    | 0分钟  | allowed
2026-11-23 20:00:00 | 959  | 15分钟 | allowed
2026-11-23 20:00:00 | 960  | 16分钟 |
yesterday           | 9999 | 0分钟  | allowed)");
}

void tst_clock_timer::quit()
{
    QFETCH(QStringList, cells);
    const bool isAllowed = !cells[3].isEmpty();
    passedSeconds = cells[1].toInt();
    const auto vm = page(cells[0]);
    QCOMPARE(vm->timeSpan(), cells[2]);
    QCOMPARE(vm->stopServer(), isAllowed);
    QCOMPARE(shown(), isAllowed ? "success|操作成功" : "error|超过允许直接下钟时间");
    QCOMPARE(m_terminal->seen(statusPath), isAllowed ? 1 : 0);
    QCOMPARE(m_terminal->seen(bookPath), 0);
    EndServerVm unknown;
    unknown.init(nullptr);
    QVERIFY(!unknown.isEnabled() && !unknown.stopServer());
}

void tst_clock_timer::serviceTimes()
{
    QCOMPARE(serviceTimeText(3540, -60), QString("59分钟 -1"));
    QCOMPARE(serviceTimeText(3599, -1), QString("59分钟 0"));
    QCOMPARE(serviceTimeText(3600, 59), QString("1小时0分钟 0"));
    QCOMPARE(serviceTimeText(9000, 5400), QString("2小时30分钟 90"));
}

/// What goes out, and the slip of it: 60 minutes twice, ended a minute before they were over.
void tst_clock_timer::booking()
{
    passedSeconds = 119 * 60;
    GlobalConfig::getInstance()->stop_server_print_count = 2;
    const auto vm = page();
    QVERIFY(!vm->stopServer(2));
    takeCard(*vm);
    QVERIFY(!vm->stopServer(2));
    QCOMPARE(shown(), QString("error|手牌号不能为空; error|请选择需要录入的项目"));
    sell(*vm, 0);
    sell(*vm, 0);
    sell(*vm, 1);
    sell(*vm, 2, {{"price", 6.5}, {"num", 1.0}, {"remark", "清蒸"}});
    sell(*vm, 9);
    vm->addNum(1, 2);
    vm->subNum(1, 1);
    QCOMPARE(vm->newAmount(), 256 + 20 + 6.5);
    QCOMPARE(vm->newItemList()->row(0).pushNo, QString());
    vm->setPushNo("802");
    vm->setRoomNo("101");
    m_terminal->answer(bookPath, QJsonValue());
    QVERIFY(vm->stopServer(2));
    QCOMPARE(m_terminal->sent(statusPath), QJsonObject({{"staffId", "S"}, {"serverStatus", 0}}));
    QCOMPARE(m_terminal->sent(bookPath), json(R"({"opType":2,"mode":0,"hardCardId":"C","items":[
        {"areaId":"A","id":"s","status":1,"orderType":2,"num":2,"staffNo":"801","pushNo":"802","type":5,"overFlg":0,
         "isNormal":true,"roomNo":"101"},
        {"areaId":"A","id":"g","status":1,"orderType":1,"num":2,"achiNo":"801","isNormal":true,"roomNo":"101"},
        {"areaId":"A","id":"m","status":1,"orderType":3,"num":1,"price":6.5,"achiNo":"801","remark":"清蒸",
         "isNormal":true,"roomNo":"101"}]})"));
    const QString slip = m_terminal->takePrinted();
    QCOMPARE(slip.count("结钟单"), 2);
    for (const QString text : {"技师号: 801", "手牌号: 8001", "位置号: 101", "起钟时间: 2026-11-23 20:00:00",
                               "应停时间: 2026-11-23 22:00:00", "实际时间: 2026-11-23 21:59:00",
                               "服务时长: 1小时59分钟 -1", "总数量: 5", "总金额: 282.50"})
        QVERIFY2(slip.contains(text), qPrintable(text + " in " + slip));
}

void tst_clock_timer::failedBooking_data()
{
    QTest::addColumn<QString>("fault"); // empty: a refusal
    QTest::newRow("refused") << "";
    QTest::newRow("not answered") << "drop";
}

/// The clock stands; what is left to do is the booking, and the slip tells the true end.
void tst_clock_timer::failedBooking()
{
    QFETCH(QString, fault);
    passedSeconds = 3600;
    GlobalConfig::getInstance()->stop_server_print_count = 1;
    const auto vm = page();
    takeCard(*vm);
    sell(*vm, 1);
    if (fault.isEmpty())
        m_terminal->refuse(bookPath, "no");
    else
        m_terminal->house().fault(bookPath, fault);
    QVERIFY(!vm->stopServer(2));
    QVERIFY(vm->isStopped() && vm->isEnabled());
    QCOMPARE(vm->isBookingUnsure(), !fault.isEmpty());
    QCOMPARE(vm->newItemList()->rowCount(), 1);
    QCOMPARE(m_terminal->takePrinted(), QString());
    m_terminal->reset();
    m_terminal->answer(bookPath, QJsonValue());
    passedSeconds = 7200;
    QVERIFY(vm->stopServer(2));
    QCOMPARE(m_terminal->seen(statusPath), 0);
    QVERIFY(m_terminal->takePrinted().contains("实际时间: 2026-11-23 21:00:00"));
    QCOMPARE(m_terminal->sent(bookPath)["items"].toArray()[0].toObject().contains("roomNo"), false);
}

QTEST_GUILESS_MAIN(tst_clock_timer)
#include "tst_clock_timer.moc"
