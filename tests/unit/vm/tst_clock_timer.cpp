// The clock that runs before anything is ordered: how long it ran, what is booked at its end, and its slip.

#include "RoomFixture.h"

#include "common/Clock.h"
#include "common/GlobalConfig.h"
#include "vm/module6/Module6Register.h"
#include "vm/module6/ServiceSlip.h"

#include <QJsonDocument>

namespace {

const QDateTime start({2026, 11, 23}, {20, 0});
qint64 passedMinutes = 0; // since then

/// What the steps may use.
const char script[] = R"(
var status = '/bda02/updateStaffWorkStatus', book = '/bca01/batchUpdateOrder', m, loads, closes
function began(time) { return {id: 'S', code: '801', serverStatus: 1, serverStartTime: '2026-11-23 ' + time} }
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
    f.answer('/bca01/getCardOrderInfo', {cardInfo: {id: 'C', cardno: '8001', status: 1}})
    f.answer(status, null)
    p.init(m.pStaffWorkInfo)
    p.selectArea('A', 'hall')
}
function end() {
    const state = [p.stopServer(2), p.isStopped, p.isEnabled, p.isBookingUnsure, p.newAmount]
    return state + ',' + f.sent(book).items[0].roomNo
}
function sell(index, more) {
    const line = p.tapItem(index)
    return line.merged || p.addNewItem(index, Object.assign(line, more))
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
        Clock::setSource([] { return start.addSecs(passedMinutes * 60).toMSecsSinceEpoch(); });
    }
    void init() { m_terminal->reset(); }
    void cleanupTestCase() { Clock::setSource(nullptr); }

    // The answer; the module's page, how often it is loaded and left, and what is said; what can be done on the
    // page of the end, how long the clock ran, whether it can be stopped without a booking, what was asked for.
    void entry_data()
    {
        addRows(R"(
null | -1,1,0 error|未能获取到技师信息 | false,,false,0,0 error|未能获取到技师信息
{}, '' | 0,0,1 | false,,false,0,0 error|未能获取到技师信息
{serverStatus: 0} | 1,1,0 | true,0分钟,false,0,0 error|未能获取到技师信息
began('20:00:00') | 2,1,0 | true,0分钟,true,1,0 success|操作成功
began('19:44:01') | 2,1,0 | true,15分钟,true,1,0 success|操作成功
began('19:44:00') | 2,1,0 | true,16分钟,false,0,0 error|超过允许直接下钟时间
began('?')        | 2,1,0 | true,0分钟,true,1,0 success|操作成功)");
    }
    void entry()
    {
        QFETCH(QStringList, cells);
        passedMinutes = 0;
        m_module.reset(m_terminal->page("Module6Vm"));
        QCOMPARE(m_terminal->told("enter(" + cells[0] + ")"), cells[1]);
        m_page.reset(m_terminal->page("EndServerVm", "open()"));
        QCOMPARE(m_terminal->told("[p.isEnabled, p.timeSpan, p.stopServer(), f.seen(status), f.seen(book)]"),
                 cells[2]);
    }

    void serviceTimes()
    {
        const QStringList texts{serviceTimeText(3599, -1), serviceTimeText(3600, 59),
                                serviceTimeText(9000, 5400)};
        QCOMPARE(texts.join(", "), QString("59分钟 0, 1小时0分钟 0, 2小时30分钟 90"));
    }

    void booking_data()
    {
        addRows("booked | p.roomNo = '101' | true,true,true,false,282.5,101 success|操作成功\n"
                "refused | f.refuse(book, 'no') | false,true,true,false,282.5,undefined error|no\n"
                "lost | f.answer(book, null) | false,true,true,true,282.5,undefined error|请求失败");
    }
    /// What goes out, and the slip of it: 60 minutes twice, ended a minute before they were over. When the
    /// booking fails the clock stands; what is left to do is the booking, and the slip tells the true end.
    void booking()
    {
        QFETCH(QStringList, cells);
        GlobalConfig::getInstance()->stop_server_print_count = 2;
        m_module.reset(m_terminal->page("Module6Vm", "enter(began('20:00:00'))"));
        m_page.reset(m_terminal->page("EndServerVm", "open()"));
        passedMinutes = 119;
        QCOMPARE(m_terminal->told("[p.stopServer(2), p.getOrderInfo('', '8001'), p.stopServer(2)]"),
                 QString("false,true,false error|手牌号不能为空; error|请选择需要录入的项目"));
        m_terminal->run("sell(0); sell(0); sell(1); sell(2, {price: 6.5, num: 1, remark: '清蒸'}); sell(9);"
                        "p.addNum(1, 2); p.subNum(1, 1); p.pushNo = '802'; f.answer(book, null)");
        if (cells[0] == "lost")
            m_terminal->house().fault("/bca01/batchUpdateOrder", "drop");
        QCOMPARE(m_terminal->told(cells[1] + "; end()"), cells[2]);
        QCOMPARE(m_terminal->told("sent(status)"), QString(R"({"serverStatus":0,"staffId":"S"})"));
        if (cells[0] != "booked") {
            QCOMPARE(m_terminal->takePrinted(), QString());
            m_terminal->reset();
            passedMinutes = 180;
            QCOMPARE(
                m_terminal->told("f.answer(book, null); p.roomNo = '101'; [p.stopServer(2), f.seen(status)]"),
                QString("true,0 success|操作成功"));
        }
        QCOMPARE(m_terminal->sent("/bca01/batchUpdateOrder"),
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

private:
    std::unique_ptr<RoomFixture> m_terminal;
    std::unique_ptr<QObject> m_module;
    std::unique_ptr<QObject> m_page;
};

QTEST_GUILESS_MAIN(tst_clock_timer)
#include "tst_clock_timer.moc"
