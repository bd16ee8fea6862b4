// The technician's clock: who may use it, what it starts, and what it does to a running service.

#include "RoomFixture.h"

#include "common/GlobalConfig.h"
#include "services/Bda02Service.h"
#include "vm/module3/DownServerVm.h"
#include "vm/module3/Module3Vm.h"
#include "vm/module3/UpServerVm.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QtTest>

namespace {

const QString infoPath = QStringLiteral("/bda02/getStaffInfo");
const QString itemsPath = QStringLiteral("/bda02/getStaffItemList");
const QString endPath = QStringLiteral("/bda02/endServer");

QJsonObject json(const QString& text) { return QJsonDocument::fromJson(text.toUtf8()).object(); }

QString compact(const QJsonObject& object) { return QJsonDocument(object).toJson(QJsonDocument::Compact); }

} // namespace

class tst_clock_service : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void entry_data();
    void entry();
    void starts_data();
    void starts();
    void shift();
    void changes_data();
    void changes();
    void refreshes();
    void vouchers();

private:
    /// The house's answer about a technician with two items and one running line.
    void tell(const QJsonObject& staff, const QJsonArray& lines = {QJsonObject{{"orderId", "L"}}})
    {
        m_terminal->answer(infoPath, QJsonObject{{"staffInfo", staff}, {"itemList", lines}});
        m_terminal->answer(itemsPath, json(R"({"itemlist":[{"itemId":"i1","times":60},{"itemId":"i2"}]})"));
    }
    /// Reads the technician and opens his page.
    template <typename Page>
    std::unique_ptr<Page> open(const QString& staffNo = "801")
    {
        m_module.reset(new Module3Vm);
        m_module->init(staffNo);
        std::unique_ptr<Page> page(new Page);
        if constexpr (std::is_same<Page, UpServerVm>::value)
            page->init(m_module->pStaffDetail(), m_module->pServerList());
        else
            page->init(m_module->pStaffDetail(), m_module->pServerList(), m_module->pOnServerList());
        return page;
    }
    QString shown() { return m_terminal->takeShown().join("; "); }

    std::unique_ptr<RoomFixture> m_terminal;
    std::unique_ptr<Module3Vm> m_module;
};

void tst_clock_service::initTestCase()
{
    m_terminal.reset(new RoomFixture);
    QVERIFY(m_terminal->isUp());
}

void tst_clock_service::init()
{
    m_terminal->reset();
    GlobalConfig* config = GlobalConfig::getInstance();
    config->js_assign_type = 1;
    config->stop_server_print_count = 0;
    config->planConfig()->set_noAlarmType("");
    config->planConfig()->set_isPush(0);
    config->sysConfig()->set_custCanAssign(false);
    config->setRights({"0303", "0304", "0314", "0316", "0319", "0324"});
}

void tst_clock_service::entry_data()
{
    addRows(R"(
{"staffInfo":{"workStatus":1}} | 1 | 0 |
{"staffInfo":{"workStatus":6}} | 1 | 0 |
{"staffInfo":{"workStatus":2}} | 2 | 0 |
{"staffInfo":{"workStatus":3}} | 0 | 1 | error|工号【801】非[待钟/上钟]状态不允许操作
{"itemList":[]}                | 0 | 1 | error|未找到工号【801】信息
null                           | 0 | 1 | error|未找到工号【801】信息
refused                        | 0 | 0 | error|refused
items refused                  | 0 | 0 | error|items)");
}

void tst_clock_service::entry()
{
    QFETCH(QStringList, cells);
    if (cells[0] == "refused")
        m_terminal->refuse(infoPath, "refused");
    else if (cells[0] == "items refused")
        m_terminal->refuse(itemsPath, "items"); // of one whom the house knows
    else
        m_terminal->answer(infoPath, cells[0] == "null" ? QJsonValue() : QJsonValue(json(cells[0])));
    if (cells[0] != "items refused")
        m_terminal->answer(itemsPath, QJsonObject{});
    Module3Vm module;
    QSignalSpy closes(&module, &Module3Vm::onCloseSignal);
    QSignalSpy loads(&module, &Module3Vm::setLoaderSignal);
    module.init("801");
    QCOMPARE(QString::number(module.operStatus()), cells[1]);
    QCOMPARE(loads.size(), cells[1] == "0" ? 0 : 1);
    QCOMPARE(QString::number(closes.size()), cells[2]);
    QCOMPARE(shown(), cells.value(3));
}

void tst_clock_service::starts_data()
{
    // The technician; plan, store and terminal; the kinds; whether the pusher is asked for; what is sent, what
    // said
    addRows(R"(
{"workStatus":1} | {"cust":true} | 点  钟* 轮  钟 选  钟 | 1
    | {"staffId":"S","itemId":"i1","cardNo":"","orderType":1} | success|起钟成功
{"workStatus":1} | {"cust":true,"js":2} | 点  钟 轮  钟 选  钟* | 1
    | {"staffId":"S","itemId":"i1","cardNo":"","orderType":2} | success|起钟成功
{"workStatus":1} | {"cust":true,"js":7} | 点  钟* 轮  钟 选  钟 | 1
    | {"staffId":"S","itemId":"i1","cardNo":"","orderType":1} | success|起钟成功
{"workStatus":1} | {"cust":true,"kinds":"5,7,x, 2,1","push":1} | 轮  钟* 点  钟 | 2
    | {"staffId":"S","itemId":"i1","cardNo":"","orderType":5,"pushNo":"802"} | success|起钟成功
{"workStatus":1} | {"cust":true,"kinds":"9"} |  | 1 | {"never":"sent"} | error|起钟类别不能为空
{"workStatus":1} | {} | 点  钟* 轮  钟 选  钟 | 0 | {"never":"sent"} | error|请输入手牌; error|请输入手牌
{"workStatus":6,"orderId":"O","itemId":"i2","type":2,"cardno":"8001","roomNo":"101"} | {"kinds":"5","push":1}
    | 点  钟 轮  钟 选  钟* | 1
    | {"staffId":"S","itemId":"i2","cardNo":"8001","orderType":2,"roomNo":"101","orderId":"O"} |
{"workStatus":6,"orderId":"O","itemId":"gone","type":3} | {"cust":true} | 点  钟* 轮  钟 选  钟 | 0
    | {"never":"sent"} | error|请选择起钟项目; error|请选择起钟项目)");
}

void tst_clock_service::starts()
{
    QFETCH(QStringList, cells);
    GlobalConfig* config = GlobalConfig::getInstance();
    const QJsonObject settings = json(cells[1]);
    config->sysConfig()->set_custCanAssign(settings["cust"].toBool());
    config->planConfig()->set_noAlarmType(settings["kinds"].toString());
    config->planConfig()->set_isPush(settings["push"].toInt());
    config->js_assign_type = settings["js"].toInt(1);
    QJsonObject staff = json(cells[0]);
    staff["id"] = "S";
    const bool isAssigned = staff.contains("orderId");
    tell(staff);
    const QString path = isAssigned ? "/bda02/startServer" : "/bda02/startServerWithoutOrder";
    m_terminal->answer(path, QJsonValue());
    const auto page = open<UpServerVm>();
    QCOMPARE(m_terminal->listed(page->pTypeModel(), "typeName"), cells[2]);
    QCOMPARE(page->isTypeEnabled(), !isAssigned && settings.contains("kinds"));
    if (!isAssigned)
        page->pServerModel()->onChecked(0);
    const int push = page->checkPushNo();
    QCOMPARE(QString::number(push), cells[3]);
    QCOMPARE(page->save(push == 2 ? "802" : ""), !cells[4].contains("never"));
    QCOMPARE(m_terminal->sent(path), json(cells[4]));
    QCOMPARE(shown(), cells.value(5));
}

/// The house itself: an assigned technician whose last line is taken back, and one whom another terminal stops.
void tst_clock_service::shift()
{
    for (const QString staffNo : {"808", "807"}) {
        const auto start = open<UpServerVm>(staffNo);
        if (!start->isAssigned()) {
            start->pServerModel()->onChecked(0);
            QVERIFY(start->getOrderInfo({}, "8042"));
        }
        QVERIFY(start->save({}));
        const auto page = open<DownServerVm>(staffNo);
        QCOMPARE(m_module->operStatus(), int(Module3Vm::EndPage));
        const int planned = page->surplus();
        const server_struct item = page->pServerModel()->row(0);
        page->addServer(item.itemId, 2);
        QCOMPARE(page->surplus(), planned + 2 * item.times);
        page->chgHandCard("8043");
        QCOMPARE(page->cardNo(), QString("8043"));
        page->chargeBack(page->pOnServerModel()->row(1).orderId);
        const QString left = page->pOnServerModel()->row(0).orderId;
        QCOMPARE(shown().right(12), QString("success|退钟成功"));
        QSignalSpy closes(page.get(), &DownServerVm::onCloseSignal);
        if (staffNo == "808") {
            page->chargeBack(left);
            QCOMPARE(shown(), QString("error|当前技师状态发生变化; success|退钟成功"));
        } else {
            call(&Bda02Service::endServer, {{"orderId", left}, {"pageType", 1}});
            QVERIFY(!page->stopServer() && page->isEnabled());
        }
        QCOMPARE(closes.size(), staffNo == "808" ? 1 : 0);
    }
}

void tst_clock_service::changes_data()
{
    addRows(R"(
addServer | {"staffId":"S","hardCardId":"H","itemId":"i","typeId":"T","onTypeId":"T","pushId":"P","num":1,"roomId":"R"}
    | 加钟成功
changeServer | {"orderId":"L","itemId":"i","typeId":"T","onTypeId":"T"} | 换钟成功
chgAssignType | {"newType":5,"orderId":"O"} | 更换成功
changeCard | {"staffId":"S","cardId":"H","cardNo":"8001","roomId":"R"} | 加钟成功
chargeBack | {"staffId":"S","orderIds":["L"]} | 退钟成功)");
}

void tst_clock_service::changes()
{
    QFETCH(QStringList, cells);
    const QString path = "/bda02/" + cells[0];
    const auto change = [&](DownServerVm& page) {
        page.onChecked(0);
        if (cells[0] == "addServer")
            page.addServer("i", 0);
        else if (cells[0] == "changeServer")
            page.changeServer("i");
        else if (cells[0] == "changeCard")
            page.chgHandCard("8001");
        else if (cells[0] == "chargeBack")
            page.chargeBack("L");
        else
            for (const int kind : {0, 7, -1, 1}) // the one in force, two that aren't there
                page.chgAssignType(kind);
    };
    tell({{"workStatus", 2},
          {"id", "S"},
          {"orderId", "O"},
          {"hardCardId", "H"},
          {"pushId", "P"},
          {"roomId", "R"},
          {"workTypeId", "T"},
          {"type", 1}});
    m_terminal->answer(path, QJsonValue(), 1);
    const auto page = open<DownServerVm>();
    change(*page);
    QCOMPARE(compact(m_terminal->sent(path)), compact(json(cells[1])));
    QCOMPARE(shown(), "success|" + cells[2]);
    QCOMPARE(m_terminal->seen(infoPath), 2);
    QVERIFY(!page->isSelectedItem());
    // A refusal changes nothing, and nothing is read again.
    m_terminal->refuse(path, "no");
    change(*page);
    QCOMPARE(shown(), QString("error|no"));
    QCOMPARE(m_terminal->seen(infoPath), 2);
    QVERIFY(page->isSelectedItem() && page->isEnabled());
}

/// What was changed stands, but the page can't stay.
void tst_clock_service::refreshes()
{
    const auto addAfter = [&](const std::function<void()>& spoil) {
        tell({{"workStatus", 2}});
        m_terminal->answer("/bda02/addServer", QJsonValue());
        const auto page = open<DownServerVm>();
        spoil();
        QSignalSpy closes(page.get(), &DownServerVm::onCloseSignal);
        page->addServer("i", 1);
        return QString("%1 %2").arg(closes.size()).arg(shown());
    };
    QCOMPARE(addAfter([&] { m_terminal->refuse(infoPath, "no"); }), QString("1 error|no; success|加钟成功"));
    QCOMPARE(addAfter([&] { m_terminal->answer(infoPath, QJsonObject{}); }),
             QString("1 error|未找到工号【】信息; success|加钟成功"));
    QCOMPARE(addAfter([&] {
                 tell({{"workStatus", 1}});
             }),
             QString("1 error|当前技师状态发生变化; success|加钟成功"));
    QCOMPARE(addAfter([&] { m_terminal->refuse(itemsPath, "no"); }), QString("1 error|no; success|加钟成功"));
}

/// Lines of one item, kind and price are one; the order is that of their texts, the period that of the whole.
void tst_clock_service::vouchers()
{
    const QJsonArray lines = json(R"({"a":[
        {"itemName":"b","assignType":"轮钟","price":128,"num":1,"amount":128,"startTime":"19:30","endTime":"20:30"},
        {"itemName":"a","assignType":"加钟","price":98,"num":0.5,"amount":49,"startTime":"20:00","endTime":"21:00"},
        {"itemName":"b","assignType":"轮钟","price":128,"num":1,"amount":128,"startTime":"20:10","endTime":"21:10"},
        {"itemName":"b","assignType":"轮钟","price":98,"num":1,"amount":98,"startTime":"20:20","endTime":"21:20"},
        {"itemName":"a","assignType":"加钟","price":98,"num":1,"amount":98,"startTime":"20:30","endTime":"21:30"}]})")
                                 .value("a")
                                 .toArray();
    tell({{"workStatus", 2}, {"orderId", "O"}});
    const auto stop = [&](int count, const QJsonArray& printed, int surplus) {
        GlobalConfig::getInstance()->stop_server_print_count = count;
        QJsonObject end = json(R"({"staffNo":"801","cardNo":"8001","roomNo":"101"})");
        end["surplus"] = surplus;
        end["printlist"] = printed;
        m_terminal->answer(endPath, end);
        return open<DownServerVm>()->stopServer();
    };
    QVERIFY(stop(0, lines, 5));
    QCOMPARE(m_terminal->takePrinted(), QString());
    QVERIFY(stop(2, lines, 5));
    QCOMPARE(m_terminal->sent(endPath), QJsonObject({{"orderId", "O"}, {"pageType", 1}}));
    const QString slip = m_terminal->takePrinted();
    QCOMPARE(slip.count("[801][技师工作凭证]"), 2);
    int at = 0;
    for (const QString text :
         {"手牌: 8001", "房间: 101", "项目: a<加钟>", "数量: 2, 单价: 98.00, 金额: 147.00", "项目: b<轮钟>",
          "数量: 2, 单价: 128.00, 金额: 256.00", "项目: b<轮钟>", "数量: 1, 单价: 98.00, 金额: 98.00",
          "时间: 19:30-21:30<提前5分钟>", "数量: 5, 金额: 501.00", "工号:801"}) {
        at = slip.indexOf(text, at);
        QVERIFY2(at >= 0, qPrintable(text + " in " + slip));
        at += text.size();
    }
    QVERIFY(stop(1, {}, -5));
    const QString empty = m_terminal->takePrinted();
    QVERIFY(empty.contains("[801][技师工作凭证]") && !empty.contains("项目"));
    QVERIFY(shown().endsWith("success|停钟成功"));
}

QTEST_GUILESS_MAIN(tst_clock_service)
#include "tst_clock_service.moc"
