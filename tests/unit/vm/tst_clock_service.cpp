// The technician's clock: who may use it, what it starts, and what it does to a running service.

#include "RoomFixture.h"

#include "common/GlobalConfig.h"
#include "vm/module3/Module3Register.h"

#include <QJsonDocument>

namespace {

QJsonObject json(const QString& text) { return QJsonDocument::fromJson(text.toUtf8()).object(); }

/// What the steps may use.
const char script[] = R"(
var info = '/bda02/getStaffInfo', items = '/bda02/getStaffItemList', end = '/bda02/endServer'
var m, loads, closes
// The house's answer about a technician with two items and one running line.
function staff(workStatus, fields) {
    const ids = {id: 'S', staffNo: '801', hardCardId: 'H', pushId: 'P', roomId: 'R', workTypeId: 'T'}
    f.answer(info, {staffInfo: Object.assign(ids, {workStatus}, fields), itemList: [{orderId: 'L'}]})
    f.answer(items, {itemlist: [{itemId: 'i1', times: 60}, {itemId: 'i2'}]})
}
function enter(staffNo) {
    m = p
    loads = closes = 0
    m.setLoaderSignal.connect(() => ++loads)
    m.onCloseSignal.connect(() => ++closes)
    m.init(staffNo)
}
function open() {
    p.init(m.pStaffDetail, m.pServerList, m.pOnServerList)
    return p.onCloseSignal && p.onCloseSignal.connect(() => ++closes)
}
function start() {
    const push = (p.isAssigned || p.pServerModel.onChecked(0), p.checkPushNo())
    return push + ' ' + p.save(push == 2 ? '802' : '')
}
function stop(printlist, surplus) {
    f.answer(end, {staffNo: '801', cardNo: '8001', roomNo: '101', surplus, printlist})
    return p.stopServer()
}
)";

} // namespace

class tst_clock_service : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_terminal.reset(new RoomFixture);
        QVERIFY(m_terminal->isUp());
        Module3Register().init();
        m_terminal->run(script);
    }
    void init() { m_terminal->reset(); }

    // The answer; the module's page, how often it is loaded and left, and what is said; the same of a running
    // service's page after a change, which stands, though the page may not stay.
    void entry_data()
    {
        addRows(R"(
staff(1) | 1,1,0 | 1 error|当前技师状态发生变化; success|加钟成功
staff(6) | 1,1,0 | 1 error|当前技师状态发生变化; success|加钟成功
staff(2) | 2,1,0 | 0 success|加钟成功
staff(3) | 0,0,1 error|工号【801】非[待钟/上钟]状态不允许操作 | 1 error|当前技师状态发生变化; success|加钟成功
f.answer(info, {itemList: []}) | 0,0,1 error|未找到工号【801】信息 | 1 error|未找到工号【801】信息; success|加钟成功
f.answer(info, null)           | 0,0,1 error|未找到工号【801】信息 | 1 error|未找到工号【801】信息; success|加钟成功
f.refuse(info, 'no')           | 0,0,0 error|no | 1 error|no; success|加钟成功
f.refuse(items, 'no')          | 0,0,0 error|no | 1 error|no; success|加钟成功)");
    }
    void entry()
    {
        QFETCH(QStringList, cells);
        m_terminal->run("staff(2); " + cells[0]);
        m_module.reset(m_terminal->page("Module3Vm", "enter('801')"));
        QCOMPARE(told("[m.operStatus, loads, closes]"), cells[1]);
        m_terminal->answer("/bda02/addServer", QJsonValue());
        open("DownServerVm", "staff(2)");
        QCOMPARE(told(cells[0] + "; p.addServer('i', 1); closes"), cells[2]);
    }

    // The technician; plan, store and terminal; the kinds, and whether they are his to choose; whether the
    // pusher is asked for, whether it starts, and what is said; what is sent
    void starts_data()
    {
        addRows(R"(
staff(1) | {"cust":true} | 点  钟* 轮  钟 选  钟 false | 1 true success|起钟成功
    | {"staffId":"S","itemId":"i1","cardNo":"","orderType":1}
staff(1) | {"cust":true,"js":2} | 点  钟 轮  钟 选  钟* false | 1 true success|起钟成功
    | {"staffId":"S","itemId":"i1","cardNo":"","orderType":2}
staff(1) | {"cust":true,"js":7} | 点  钟* 轮  钟 选  钟 false | 1 true success|起钟成功
    | {"staffId":"S","itemId":"i1","cardNo":"","orderType":1}
staff(1) | {"cust":true,"kinds":"5,7,x, 2,1","push":1} | 轮  钟* 点  钟 true | 2 true success|起钟成功
    | {"staffId":"S","itemId":"i1","cardNo":"","orderType":5,"pushNo":"802"}
staff(1) | {"cust":true,"kinds":"9"} | true | 1 false error|起钟类别不能为空 | {"never":"sent"}
staff(1) | {} | 点  钟* 轮  钟 选  钟 false | 0 false error|请输入手牌; error|请输入手牌 | {"never":"sent"}
staff(6, {orderId: 'O', itemId: 'i2', type: 2, cardno: '8001', roomNo: '101'}) | {"kinds":"5","push":1}
    | 点  钟 轮  钟 选  钟* false | 1 true
    | {"staffId":"S","itemId":"i2","cardNo":"8001","orderType":2,"roomNo":"101","orderId":"O"}
staff(6, {orderId: 'O', itemId: 'gone', type: 3}) | {"cust":true} | 点  钟* 轮  钟 选  钟 false
    | 0 false error|请选择起钟项目; error|请选择起钟项目 | {"never":"sent"})");
    }
    void starts()
    {
        QFETCH(QStringList, cells);
        const QJsonObject settings = json(cells[1]);
        GlobalConfig* config = GlobalConfig::getInstance();
        config->sysConfig()->set_custCanAssign(settings["cust"].toBool());
        config->planConfig()->set_noAlarmType(settings["kinds"].toString());
        config->planConfig()->set_isPush(settings["push"].toInt());
        config->js_assign_type = settings["js"].toInt(1);
        const bool isAssigned = cells[0].contains("orderId");
        const QString path = isAssigned ? "/bda02/startServer" : "/bda02/startServerWithoutOrder";
        m_terminal->answer(path, QJsonValue());
        open("UpServerVm", cells[0]);
        QCOMPARE(told("show('pTypeModel', 'typeName') + ' ' + p.isTypeEnabled"), cells[2]);
        QCOMPARE(told("start()"), cells[3]);
        QCOMPARE(m_terminal->sent(path), json(cells[4]));
    }

    /// The house itself: an assigned technician, whose lines are taken back, the last one with the page.
    void shift()
    {
        open("UpServerVm", "", "808");
        QCOMPARE(told("p.save('')"), QString("true"));
        open("DownServerVm", "var lines = () => show('pOnServerModel', 'orderId').split(' ')", "808");
        m_terminal->run(
            "var planned = p.surplus; p.addServer(show('pServerModel', 'itemId').split(' ')[0], 2)");
        QCOMPARE(told("(p.surplus - planned) / parseInt(show('pServerModel', 'times'))"),
                 QString("2 success|加钟成功"));
        QCOMPARE(told("p.chgHandCard('8043'); p.cardNo"), QString("8043 success|加钟成功"));
        QCOMPARE(told("p.chargeBack(lines()[1]); closes"), QString("0 success|退钟成功"));
        QCOMPARE(told("p.chargeBack(lines()[0]); closes"),
                 QString("1 error|当前技师状态发生变化; success|退钟成功"));
    }

    /// The house books every kind, with a hand card and without, for a pusher; who was stopped at another
    /// terminal meanwhile is told.
    void kinds()
    {
        GlobalConfig* config = GlobalConfig::getInstance();
        config->sysConfig()->set_custCanAssign(true);
        m_terminal->house().config({{"custCanAssign", true}});
        config->planConfig()->set_noAlarmType("1,2,3,4,5,6");
        config->planConfig()->set_isPush(1);
        config->js_assign_type = 1;
        QStringList booked;
        for (int number = 801, kind = 0; number <= 820 && kind < 6; ++number) {
            const QString staffNo = QString::number(number);
            open("UpServerVm", {}, staffNo);
            if (told("[m.operStatus, p.isAssigned]") != "1,false")
                continue;
            const QString card = kind % 2 ? "p.getOrderInfo('', '8043');" : "";
            QCOMPARE(told(QString("%1 p.pTypeModel.onChecked(%2); start()").arg(card).arg(kind)),
                     QString("2 true success|起钟成功"));
            open("DownServerVm", {}, staffNo);
            booked.append(told("[show('pOnServerModel', 'typeName'), p.cardNo]"));
            m_terminal->run("var here = p");
            const std::unique_ptr<QObject> elsewhere(m_terminal->page("DownServerVm", "open()"));
            QCOMPARE(told("p.stopServer()"), QString("true success|停钟成功"));
            QVERIFY(told("here.stopServer()").startsWith("false error|"));
            ++kind;
        }
        m_terminal->house().config({{"custCanAssign", false}});
        QCOMPARE(booked.join('|'), QString("点  钟,|选  钟,8043|CALL钟,|捡  钟,8043|轮  钟,|加  钟,8043"));
    }

    void changes_data()
    {
        addRows(R"(
addServer | p.addServer('i', 0) | {"staffId":"S","hardCardId":"H","itemId":"i","typeId":"T","onTypeId":"T",
    "pushId":"P","num":1,"roomId":"R"} | 加钟成功
changeServer | p.changeServer('i') | {"orderId":"L","itemId":"i","typeId":"T","onTypeId":"T"} | 换钟成功
chgAssignType | [0, 7, -1, 1].map(p.chgAssignType) | {"newType":5,"orderId":"O"} | 更换成功
changeCard | p.chgHandCard('8001') | {"staffId":"S","cardId":"H","cardNo":"8001","roomId":"R"} | 加钟成功
chargeBack | p.chargeBack('L') | {"staffId":"S","orderIds":["L"]} | 退钟成功)");
    }
    /// A refusal changes nothing, and nothing is read again.
    void changes()
    {
        QFETCH(QStringList, cells);
        const QString path = "/bda02/" + cells[0];
        m_terminal->answer(path, QJsonValue(), 1);
        open("DownServerVm", "staff(2, {orderId: 'O', type: 1})");
        const QString change = "p.onChecked(0);" + cells[1] + "; [p.isSelectedItem, p.isEnabled, f.seen(info)]";
        QCOMPARE(told(change), "false,true,2 success|" + cells[3]);
        QCOMPARE(m_terminal->sent(path), json(cells[2]));
        m_terminal->refuse(path, "no");
        QCOMPARE(told(change), QString("true,true,2 error|no"));
    }

    /// Lines of one item, kind and price are one, in the order of their texts; the period is that of the whole.
    void vouchers()
    {
        open("DownServerVm", R"(staff(2, {orderId: 'O'}); var served = [
            ['b', '轮钟', 128, 1, '19:30', '20:30'], ['a', '加钟', 98, 0.5, '20:00', '21:00'],
            ['b', '轮钟', 128, 1, '20:10', '21:10'], ['b', '轮钟', 98, 1, '20:20', '21:20'],
            ['a', '加钟', 98, 1, '20:30', '21:30']].map(([itemName, assignType, price, num, startTime, endTime]) =>
            ({itemName, assignType, price, num, amount: num * price, startTime, endTime})))");
        const auto printed = [&](int copies, const QString& steps) {
            GlobalConfig::getInstance()->stop_server_print_count = copies;
            const QString said = told(steps);
            return said + m_terminal->takePrinted();
        };
        QCOMPARE(printed(0, "stop(served, 5)"), QString("true success|停钟成功"));
        const QString slip = printed(2, "stop(served, 5)");
        QCOMPARE(m_terminal->sent("/bda02/endServer"), json(R"({"orderId":"O","pageType":1})"));
        QCOMPARE(slip.count("[801][技师工作凭证]"), 2);
        const QRegularExpression lines(
            "(?s)手牌: 8001.*房间: 101.*项目: a<加钟>.*数量: 2, 单价: 98.00, 金额: 147.00"
            ".*项目: b<轮钟>.*数量: 2, 单价: 128.00, 金额: 256.00"
            ".*项目: b<轮钟>.*数量: 1, 单价: 98.00, 金额: 98.00"
            ".*时间: 19:30-21:30<提前5分钟>.*数量: 5, 金额: 501.00.*工号:801");
        QVERIFY2(slip.contains(lines), qPrintable(slip));
        const QString empty = printed(1, "stop([], -5)");
        QVERIFY(empty.contains("[801][技师工作凭证]") && !empty.contains("项目"));
        QCOMPARE(printed(1, "f.refuse(end, 'no'); [p.stopServer(), p.isEnabled]"),
                 QString("false,true error|no"));
    }

private:
    /// Reads the technician, of whom the house tells this, and opens his page.
    void open(const QString& type, const QString& staff, const QString& staffNo = "801")
    {
        m_terminal->run(staff);
        m_module.reset(m_terminal->page("Module3Vm", "enter('" + staffNo + "')"));
        m_page.reset(m_terminal->page(type, "open()"));
    }
    QString told(const QString& steps) { return m_terminal->told(steps); }

    std::unique_ptr<RoomFixture> m_terminal;
    std::unique_ptr<QObject> m_module;
    std::unique_ptr<QObject> m_page;
};

QTEST_GUILESS_MAIN(tst_clock_service)
#include "tst_clock_service.moc"
