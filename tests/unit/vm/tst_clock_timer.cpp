// The clock that runs before anything is ordered: how long it ran, what is booked at its end, and its slip.

#include "RoomFixture.h"

#include "common/Clock.h"
#include "common/GlobalConfig.h"
#include "vm/module6/Module6Register.h"
#include "vm/module6/ServiceSlip.h"

#include <QJsonDocument>

namespace {

const QString statusPath = QStringLiteral("/bda02/updateStaffWorkStatus");
const QString bookPath = QStringLiteral("/bca01/batchUpdateOrder");
const QString startText = QStringLiteral("2026-11-23 20:00:00");

qint64 passedSeconds = 0; // since the clock was started

qint64 fakeMs()
{
    return QDateTime::fromString(startText, "yyyy-MM-dd HH:mm:ss").toMSecsSinceEpoch() + passedSeconds * 1000;
}

/// What the steps may use.
const char script[] = R"(
var m, loads, closes
function enter(data, staffId = 'S') {
    f.answer('/bda02/getStaffWorkInfo', data)
    m = p
    loads = closes = 0
    m.setLoaderSignal.connect(() => ++loads)
    m.onCloseSignal.connect(() => ++closes)
    m.init('801', staffId)
    return [m.operStatus, loads, closes]
}
// An area whose items are a service, goods, and a dish at the day's price.
function open() {
    f.answer('/bca01/getTypeList', {typeList: [{id: 'T'}]})
    f.answer('/bca01/getItemList', {itemList: [
        {id: 's', name: '足疗', price: 128, server_type: 2, times: 60}, {id: 'g', name: '茶', price: 10, server_type: 1},
        {id: 'm', name: '鱼', price: 0, server_type: 3, sell_flg: 2}]})
    f.answer('/bda02/updateStaffWorkStatus', null)
    p.init(m.pStaffWorkInfo)
    p.selectArea('A', 'hall')
}
function card() {
    f.answer('/bca01/getCardOrderInfo', {cardInfo: {id: 'C', cardno: '8001', status: 1}})
    return p.getOrderInfo('', '8001')
}
function sell(index, more) {
    const line = p.tapItem(index)
    if (!line.merged)
        p.addNewItem(index, Object.assign(line, more))
}
)";

} // namespace

class tst_clock_timer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_terminal.reset(new RoomFixture);
        QVERIFY(m_terminal->isUp());
        Module6Register().init();
        m_terminal->run(script);
    }
    void init()
    {
        m_terminal->reset();
        GlobalConfig::getInstance()->stop_server_print_count = 0;
        Clock::setSource(fakeMs);
    }
    void cleanup() { Clock::setSource(nullptr); }

    void entry_data()
    {
        addRows(R"(
Module6Vm | enter({serverStatus: 0}) | 1,1,0
Module6Vm | enter({serverStatus: 1}) | 2,1,0
Module6Vm | enter(null) | -1,1,0 error|未能获取到技师信息
Module6Vm | enter({}, '') | 0,0,1
EndServerVm | p.init(null); [p.isEnabled, p.stopServer()] | false,false error|未能获取到技师信息)");
    }
    /// The page follows from the answer; one without a technician closes the module, and so does a login
    /// without.
    void entry()
    {
        QFETCH(QStringList, cells);
        m_page.reset(m_terminal->page(cells[0]));
        QCOMPARE(told(cells[1]), cells[2]);
    }

    void quit_data()
    {
        addRows(R"(
2026-11-23 20:00:00 | 0    | 0分钟  | true success|操作成功
2026-11-23 20:00:00 | 959  | 15分钟 | true success|操作成功
2026-11-23 20:00:00 | 960  | 16分钟 | false error|超过允许直接下钟时间
yesterday           | 9999 | 0分钟  | true success|操作成功)");
    }
    void quit()
    {
        QFETCH(QStringList, cells);
        open(cells[1].toInt(), cells[0]);
        QCOMPARE(told("p.timeSpan"), cells[2]);
        QCOMPARE(told("p.stopServer()"), cells[3]);
        QCOMPARE(m_terminal->seen(statusPath), cells[3].startsWith("true") ? 1 : 0);
        QCOMPARE(m_terminal->seen(bookPath), 0);
    }

    void serviceTimes()
    {
        QCOMPARE(serviceTimeText(3540, -60), QString("59分钟 -1"));
        QCOMPARE(serviceTimeText(3599, -1), QString("59分钟 0"));
        QCOMPARE(serviceTimeText(3600, 59), QString("1小时0分钟 0"));
        QCOMPARE(serviceTimeText(9000, 5400), QString("2小时30分钟 90"));
    }

    /// What goes out, and the slip of it: 60 minutes twice, ended a minute before they were over.
    void booking()
    {
        GlobalConfig::getInstance()->stop_server_print_count = 2;
        open(119 * 60);
        QCOMPARE(told("[p.stopServer(2), card(), p.stopServer(2)]"),
                 QString("false,true,false error|手牌号不能为空; error|请选择需要录入的项目"));
        m_terminal->run("sell(0); sell(0); sell(1); sell(2, {price: 6.5, num: 1, remark: '清蒸'}); sell(9);"
                        "p.addNum(1, 2); p.subNum(1, 1); p.pushNo = '802'; p.roomNo = '101'");
        m_terminal->answer(bookPath, QJsonValue());
        QCOMPARE(told("[p.newAmount, p.stopServer(2)]"), QString("282.5,true success|操作成功"));
        QCOMPARE(told("JSON.stringify(f.sent('" + statusPath + "'))"),
                 QString(R"({"serverStatus":0,"staffId":"S"})"));
        QCOMPARE(m_terminal->sent(bookPath),
                 QJsonDocument::fromJson(R"({"opType":2,"mode":0,"hardCardId":"C","items":[
            {"areaId":"A","id":"s","status":1,"orderType":2,"num":2,"staffNo":"801","pushNo":"802","type":5,"overFlg":0,
             "isNormal":true,"roomNo":"101"},
            {"areaId":"A","id":"g","status":1,"orderType":1,"num":2,"achiNo":"801","isNormal":true,"roomNo":"101"},
            {"areaId":"A","id":"m","status":1,"orderType":3,"num":1,"price":6.5,"achiNo":"801","remark":"清蒸",
             "isNormal":true,"roomNo":"101"}]})")
                     .object());
        const QString slip = m_terminal->takePrinted();
        QCOMPARE(slip.count("结钟单"), 2);
        for (const QString text :
             {"技师号: 801", "手牌号: 8001", "位置号: 101", "起钟时间: 2026-11-23 20:00:00",
              "应停时间: 2026-11-23 22:00:00", "实际时间: 2026-11-23 21:59:00", "服务时长: 1小时59分钟 -1",
              "总数量: 5", "总金额: 282.50"})
            QVERIFY2(slip.contains(text), qPrintable(text + " in " + slip));
    }

    void failedBooking_data()
    {
        addRows("refused | false,true,true,false error|no\n"
                "not answered | false,true,true,true error|请求失败");
    }
    /// The clock stands; what is left to do is the booking, and the slip tells the true end.
    void failedBooking()
    {
        QFETCH(QStringList, cells);
        GlobalConfig::getInstance()->stop_server_print_count = 1;
        open(3600);
        if (cells[0] == "refused")
            m_terminal->refuse(bookPath, "no");
        else
            m_terminal->house().fault(bookPath, "drop");
        QCOMPARE(told("card(); sell(1); [p.stopServer(2), p.isStopped, p.isEnabled, p.isBookingUnsure]"),
                 cells[1]);
        QCOMPARE(m_terminal->takePrinted(), QString());
        m_terminal->reset();
        m_terminal->answer(bookPath, QJsonValue());
        passedSeconds = 7200;
        QCOMPARE(told("p.stopServer(2)"), QString("true success|操作成功"));
        QCOMPARE(m_terminal->seen(statusPath), 0);
        QVERIFY(m_terminal->takePrinted().contains("实际时间: 2026-11-23 21:00:00"));
        QCOMPARE(told("f.sent('" + bookPath + "').items.map(line => line.id + line.roomNo)"),
                 QString("gundefined"));
    }

private:
    /// The page of a clock that has been running for so long.
    void open(int seconds, const QString& start = startText)
    {
        passedSeconds = seconds;
        m_module.reset(m_terminal->page(
            "Module6Vm", "enter({id: 'S', code: '801', serverStatus: 1, serverStartTime: '" + start + "'})"));
        m_page.reset(m_terminal->page("EndServerVm", "open()"));
    }
    /// What the steps give, and what is said meanwhile.
    QString told(const QString& steps)
    {
        const QString value = m_terminal->run(steps).toString();
        return (value + " " + m_terminal->takeShown().join("; ")).trimmed();
    }

    std::unique_ptr<RoomFixture> m_terminal;
    std::unique_ptr<QObject> m_module;
    std::unique_ptr<QObject> m_page;
};

QTEST_GUILESS_MAIN(tst_clock_timer)
#include "tst_clock_timer.moc"
