// What the till does with its lines, and what it sends of them.

#include "RoomFixture.h"

#include "common/GlobalConfig.h"
#include "vm/module2/Module2Vm.h"

#include <QAbstractItemModelTester>
#include <QJsonArray>
#include <QJsonDocument>
#include <QtTest>

namespace {

const QString guestPath = QStringLiteral("/bca01/getCardOrderInfo");
const QString itemPath = QStringLiteral("/bca01/getItemList");
const QString cardSave = QStringLiteral("/bca01/batchUpdateOrder");
const QString roomSave = QStringLiteral("/bca01/batchUpdateRoomOrder");

QJsonObject json(const QByteArray& text)
{
    QJsonParseError error;
    const QJsonObject object = QJsonDocument::fromJson(text, &error).object();
    return error.error == QJsonParseError::NoError ? object : QJsonObject{{"not", "JSON"}};
}

QJsonArray array(const QByteArray& text) { return json("{\"a\":" + text + "}").value("a").toArray(); }

QJsonObject with(QJsonObject fields, const QJsonObject& more)
{
    for (auto field = more.begin(); field != more.end(); ++field)
        fields.insert(field.key(), field.value());
    return fields;
}

QJsonObject item(const QString& id, const QByteArray& more = "{}")
{
    return with({{"id", id}, {"name", "name of " + id}, {"price", 10}, {"server_type", 1}}, json(more));
}

QJsonObject stored(const QString& id, int num, const QByteArray& more = "{}")
{
    return with(with({{"id", id}, {"item_id", "i" + id}, {"itemname", "sold " + id}, {"num", num}},
                     json(R"({"orderStatus":1,"price":5,"server_type":1,"areaId":"A1",
                              "createtime":"2026-11-23 20:00:00"})")),
                json(more));
}

} // namespace

class tst_sales_lines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup() { m_vm.reset(); }
    void catalogue();
    void tapRoads_data();
    void tapRoads();
    void limits_data();
    void limits();
    void chargeback_data();
    void chargeback();
    void guests_data();
    void guests();
    void refusedGuestLeavesNone();
    void storedLines();
    void body();
    void bodyOfARoom();
    void failedSave_data();
    void failedSave();
    void slip();
    void menus();

private:
    void holdCard(const QJsonArray& lines = {})
    {
        QJsonObject guest =
            json(R"({"amount":68.5,"cardInfo":{"id":"C","cardno":"8001","status":1,"room_id":"R"}})");
        guest.insert("orderList", lines);
        m_terminal->answer(guestPath, guest);
        QVERIFY(m_vm->getOrderInfo({}, "8001", {}));
    }
    void sell(int index, const QVariantMap& more = {})
    {
        QVariantMap line = m_vm->tapItem(index);
        if (line.contains("merged"))
            return;
        for (auto value = more.begin(); value != more.end(); ++value)
            line.insert(value.key(), value.value());
        m_vm->addNewItem(index, line);
    }
    QJsonArray sentItems(const QString& path) { return m_terminal->sent(path).value("items").toArray(); }

    std::unique_ptr<RoomFixture> m_terminal;
    std::unique_ptr<Module2Vm> m_vm;
};

void tst_sales_lines::initTestCase()
{
    m_terminal.reset(new RoomFixture);
    QVERIFY(m_terminal->isUp());
}

/// The catalogue: plain, market price, taste, technician, two goods of other people, one with a desk.
void tst_sales_lines::init()
{
    m_terminal->reset();
    GlobalConfig::getInstance()->userInfo()->set_workerTypes("经理,收银员");
    m_terminal->answer("/bca01/getTypeList",
                       json(R"({"typeList":[{"id":"T1","name":"one"},{"id":"T2","name":"two"}]})"));
    const QJsonArray items{item("plain"),
                           item("market", R"({"sell_flg":2})"),
                           item("taste", R"({"tagId":7})"),
                           item("service", R"({"server_type":2})"),
                           item("others", R"({"worker_type":"助浴师"})"),
                           item("mine", R"({"worker_type":"收银员"})"),
                           item("desk", R"({"is_desk_no":1})"),
                           item("ticket", R"({"is_pack_ticket":1})")};
    m_terminal->answer(itemPath, QJsonObject{{"itemList", items}});
    m_vm.reset(new Module2Vm);
    m_vm->selectArea("A1", "hall");
}

void tst_sales_lines::catalogue()
{
    QCOMPARE(m_vm->itemList()->rowCount(), 7); // no ticket
    QCOMPARE(m_terminal->sent(itemPath), QJsonObject({{"selAreaId", "A1"}, {"typeId", "T1"}}));
    m_vm->onSelectType("T2");
    QCOMPARE(m_vm->typeList()->checkedIndex(), 1);
    m_vm->queryPlu("MJ");
    QCOMPARE(m_terminal->sent(itemPath), QJsonObject({{"selAreaId", "A1"}, {"plucode", "MJ"}}));
    const int asked = m_terminal->house().seen(itemPath);
    m_vm->queryPlu({});
    QCOMPARE(m_vm->itemList()->rowCount(), 0);
    for (const QString typed : {"M", "MJ", "MJX"})
        m_vm->typePlu(typed);
    QTRY_COMPARE(m_vm->itemList()->rowCount(), 7);
    QCOMPARE(m_terminal->house().seen(itemPath), asked + 1);
    QCOMPARE(m_terminal->sent(itemPath).value("plucode"), QJsonValue("MJX"));
}

void tst_sales_lines::tapRoads_data()
{
    QTest::addColumn<int>("item");
    QTest::addColumn<QStringList>("dialogs");
    QTest::addColumn<QString>("staffNo"); // known without asking
    QTest::addColumn<QVector<int>>("numsOfTwoTaps");
    QTest::newRow("plain") << 0 << QStringList{} << "1001" << QVector<int>{2};
    QTest::newRow("market price") << 1 << QStringList{"definePriceDlg"} << "1001" << QVector<int>{1, 1};
    QTest::newRow("taste") << 2 << QStringList{"tasteDlg"} << "1001" << QVector<int>{1, 1};
    QTest::newRow("technician") << 3 << QStringList{"setJsServiceDlg"} << "" << QVector<int>{1, 1};
    QTest::newRow("others earn it") << 4 << QStringList{"staffQueryDlg"} << "" << QVector<int>{2};
    QTest::newRow("my type earns it") << 5 << QStringList{} << "1001" << QVector<int>{2};
}

void tst_sales_lines::tapRoads()
{
    QFETCH(int, item);
    QAbstractItemModelTester lines(m_vm->newItemList());
    const QVariantMap line = m_vm->tapItem(item);
    QTEST(line.value("dialogs").toStringList(), "dialogs");
    QTEST(line.value("staffNo").toString(), "staffNo");
    sell(item);
    sell(item);
    QVector<int> nums;
    for (const new_item_struct& made : m_vm->newItemList()->rows())
        nums.append(made.num);
    QTEST(nums, "numsOfTwoTaps");
    QCOMPARE(m_vm->newAmount(), 20.0);
    QVERIFY(m_vm->tapItem(99).isEmpty());
}

void tst_sales_lines::limits_data()
{
    QTest::addColumn<bool>("isChargeback");
    QTest::addColumn<QString>("change");
    QTest::addColumn<int>("num");
    QTest::newRow("at least one") << false << "---" << 1;
    QTest::newRow("more") << false << "++-" << 2;
    QTest::newRow("entered") << false << "=" << 7;
    QTest::newRow("a gift keeps its quantity") << false << "+g" << 2;
    QTest::newRow("all of the stored line") << true << "-----" << -3;
    QTest::newRow("not none") << true << "+++" << -1;
    QTest::newRow("not entered") << true << "=" << -2;
    QTest::newRow("no gift") << true << "g-" << -3;
}

void tst_sales_lines::limits()
{
    QFETCH(bool, isChargeback);
    QFETCH(QString, change);
    holdCard({stored("L", 3)});
    if (isChargeback)
        m_vm->refund(0, 2, {});
    else
        sell(0);
    for (const QChar step : change) {
        if (step == '-')
            m_vm->subNum(0, 1);
        else if (step == '+')
            m_vm->addNum(0, 1);
        else if (step == 'g')
            m_vm->giveFree(0);
        else
            m_vm->changeNum(0, 7);
    }
    QTEST(m_vm->newItemList()->row(0).num, "num");
    QCOMPARE(m_vm->newItemList()->row(0).status, isChargeback ? 3 : change.contains('g') ? 2 : 1);
    QCOMPARE(m_vm->totalAmount(), 68.5 + m_vm->newItemList()->row(0).amount());
    m_vm->deleteNewItem(0);
    QCOMPARE(m_vm->totalAmount(), 68.5);
}

void tst_sales_lines::chargeback_data()
{
    QTest::addColumn<QStringList>("entered");
    QTest::addColumn<int>("num");
    QTest::addColumn<double>("left");
    QTest::addColumn<QStringList>("shown");
    const QString tooMany = QStringLiteral("error|超过最大可退数量");
    QTest::newRow("some") << QStringList{"2"} << -2 << 1.0 << QStringList{};
    QTest::newRow("twice, on one line") << QStringList{"1", "2"} << -3 << 0.0 << QStringList{};
    QTest::newRow("too many") << QStringList{"4"} << 0 << 3.0 << QStringList{tooMany};
    QTest::newRow("too many of the rest") << QStringList{"2", "2"} << -2 << 1.0 << QStringList{tooMany};
    QTest::newRow("nothing") << QStringList{"0", "0.5", ""} << 0 << 3.0 << QStringList{};
}

void tst_sales_lines::chargeback()
{
    QFETCH(QStringList, entered);
    holdCard({stored("L", 3)});
    for (const QString& num : entered)
        m_vm->enterRefund(0, num);
    QTEST(m_vm->newItemList()->row(0).num, "num");
    QTEST(m_vm->checkRefundNum(0), "left");
    QTEST(m_terminal->takeShown(), "shown");
    if (m_vm->askRefund(0) == 0)
        QCOMPARE(m_terminal->takeShown(), QStringList("error|当前已无可退数量"));
}

void tst_sales_lines::guests_data()
{
    QTest::addColumn<QStringList>("asked"); // serial, number, room
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QString>("refusal");
    const QStringList card{"", "8001", ""};
    const QStringList room{"", "", "101"};
    const QByteArray inUse = R"({"cardInfo":{"id":"C","cardno":"8001","status":1}})";
    QTest::newRow("serial") << QStringList{"123", "", ""} << inUse << "";
    QTest::newRow("number") << card << inUse << "";
    QTest::newRow("card not in use") << card << QByteArray(R"({"cardInfo":{"status":2}})")
                                     << "当前手牌不处于在用状态";
    QTest::newRow("no card") << card << QByteArray("{}") << "未找到手牌信息";
    QTest::newRow("massage room") << room << QByteArray(R"({"roomInfo":{"code":"101","status":2}})") << "";
    QTest::newRow("guest room") << room << QByteArray(R"({"roomInfo":{"code":"101","status":6}})") << "";
    QTest::newRow("by its opening") << room
                                    << QByteArray(R"({"roomInfo":{"code":"101","status":1,"openType":2}})")
                                    << "";
    QTest::newRow("empty room") << room << QByteArray(R"({"roomInfo":{"status":1,"openType":1}})")
                                << "当前房间不处于可用状态";
    QTest::newRow("no room") << room << QByteArray("{}") << "未找到房间信息";
}

void tst_sales_lines::guests()
{
    QFETCH(QStringList, asked);
    QFETCH(QByteArray, data);
    QFETCH(QString, refusal);
    m_terminal->answer(guestPath, json(data));
    QCOMPARE(m_vm->getOrderInfo(asked[0], asked[1], asked[2]), refusal.isEmpty());
    QJsonObject sent;
    for (int i = 0; i < 3; ++i) {
        if (!asked[i].isEmpty())
            sent.insert(QStringList{"cardUid", "cardno", "roomNo"}[i], asked[i]);
    }
    QCOMPARE(m_terminal->sent(guestPath), sent);
    QCOMPARE(m_terminal->takeShown().join(' '), refusal.isEmpty() ? "" : "error|" + refusal);
    QCOMPARE(m_vm->hasGuest(), refusal.isEmpty());
    QCOMPARE(m_vm->isCustMode(), refusal.isEmpty() && !asked[2].isEmpty());
    QCOMPARE(m_vm->cardNo() + m_vm->roomNo(), !refusal.isEmpty() ? "" : asked[2].isEmpty() ? "8001" : "101");
}

void tst_sales_lines::refusedGuestLeavesNone()
{
    holdCard({stored("L", 3)});
    sell(0);
    m_terminal->answer(guestPath, QJsonObject{});
    QVERIFY(!m_vm->getOrderInfo({}, "8002", {}));
    QCOMPARE(m_vm->oldItemList()->rowCount(), 0);
    QCOMPARE(m_vm->newItemList()->rowCount(), 1);
    QVERIFY(!m_vm->save({}));
    QCOMPARE(m_terminal->house().seen(cardSave), 0);
}

void tst_sales_lines::storedLines()
{
    QAbstractItemModelTester lines(m_vm->oldItemList());
    holdCard({stored("a", 2), stored("b", 1, R"({"orderStatus":5})"),
              stored("c", 1, R"({"createtime":"2027-01-02 03:04","num":2.5,"is_pack_ticket":3})")});
    const QVector<old_item_struct> rows = m_vm->oldItemList()->rows();
    QCOMPARE(rows.size(), 2);
    QCOMPARE(rows[0].createTime, QString("11-23 20:00:00"));
    QCOMPARE(rows[1].createTime, QString("2027-01-02 03:04"));
    QVERIFY(rows[1].num == 2 && rows[1].isPackTicket);
    QCOMPARE(m_vm->oldAmount(), 68.5);
}

/// One of each kind, as they go out.
void tst_sales_lines::body()
{
    holdCard({stored("L", 3)});
    sell(0);
    sell(1, {{"price", 6.5}});
    sell(1, {{"price", 6.5}});
    m_vm->giveFree(0);
    sell(2, {{"num", 2}, {"tagIds", QStringList{"t1", "t2"}}, {"remark", "hot"}});
    sell(3, {{"staffNo", "801"}, {"pushNo", "802"}, {"overFlg", 1}, {"serviceType", 5}});
    sell(6);
    m_vm->refund(0, 2, {});
    m_vm->setAllRemark("all");
    QVERIFY(m_vm->isNeedDeskNo());
    m_terminal->answer(cardSave, QJsonValue::Null);
    QVERIFY(m_vm->save("12"));
    const QJsonArray items = array(R"([
        {"areaId":"A1","id":"iL","status":3,"orderType":1,"isDel":true,"oldOrderId":"L","num":2},
        {"areaId":"A1","id":"desk","status":1,"orderType":1,"isNormal":true,"num":1,"achiNo":"1001","deskNo":"12"},
        {"areaId":"A1","id":"service","status":1,"orderType":2,"isNormal":true,"num":1,"staffNo":"801","pushNo":"802",
         "overFlg":1,"type":5},
        {"areaId":"A1","id":"taste","status":1,"orderType":1,"isNormal":true,"num":2,"achiNo":"1001",
         "tagIds":["t1","t2"],"remark":"hot"},
        {"areaId":"A1","id":"market","status":2,"orderType":1,"isGive":true,"num":1,"achiNo":"1001","price":0},
        {"areaId":"A1","id":"market","status":1,"orderType":1,"isNormal":true,"num":1,"achiNo":"1001","price":6.5},
        {"areaId":"A1","id":"plain","status":1,"orderType":1,"isNormal":true,"num":1,"achiNo":"1001"}])");
    QCOMPARE(sentItems(cardSave), items);
    QJsonObject sent = m_terminal->sent(cardSave);
    sent.remove("items");
    QCOMPARE(sent, QJsonObject(
                       {{"opType", 2}, {"remark", "all"}, {"mode", 0}, {"hardCardId", "C"}, {"roomId", "R"}}));
    QCOMPARE(m_vm->newItemList()->rowCount(), 7); // nothing to print, nothing cleared
}

void tst_sales_lines::bodyOfARoom()
{
    m_terminal->answer(guestPath,
                       QJsonObject{{"roomInfo", QJsonObject{{"id", "R"}, {"code", "101"}, {"status", 2}}}});
    m_vm->addRoom("101"); // this house books on rooms
    QVERIFY(m_vm->isCustMode());
    sell(0);
    m_terminal->answer(roomSave, QJsonValue::Null);
    QVERIFY(m_vm->save({}));
    QJsonObject sent = m_terminal->sent(roomSave);
    QCOMPARE(sent.take("items").toArray().size(), 1);
    QCOMPARE(sent, QJsonObject({{"opType", 2}, {"mode", 1}, {"roomId", "R"}}));
}

void tst_sales_lines::failedSave_data()
{
    QTest::addColumn<QString>("fault"); // empty: a refusal
    QTest::newRow("refused") << "";
    QTest::newRow("not answered") << "drop";
}

void tst_sales_lines::failedSave()
{
    QFETCH(QString, fault);
    holdCard();
    sell(0);
    if (fault.isEmpty())
        m_terminal->refuse(cardSave, "库存不足");
    else
        m_terminal->house().fault(cardSave, fault);
    QVERIFY(!m_vm->save({}));
    QCOMPARE(m_vm->newItemList()->rowCount(), 1);
    QVERIFY(m_vm->isEnabled());
    QCOMPARE(m_vm->isSaveUnsure(), !fault.isEmpty());
    QCOMPARE(m_terminal->takeShown().size(), 1);
    QVERIFY(m_vm->refreshGuest());
    QVERIFY(!m_vm->isSaveUnsure());
}

void tst_sales_lines::slip()
{
    holdCard({stored("L", 3)});
    sell(0);
    m_vm->giveFree(0);
    m_vm->refund(0, 1, {});
    m_vm->setAllRemark("靠窗");
    m_terminal->answer(cardSave,
                       QJsonObject{{"orderArea", "休息厅"}, {"orderDate", "2026-11-23"}, {"deskNo", "7"}});
    QVERIFY(m_vm->save({}));
    const QString printed = m_terminal->takePrinted();
    for (const QString text :
         {"休息厅", "手牌号:8001", "name of plain[赠送]", "原时间: 11-23 20:00:00", "桌号:7", "靠窗"})
        QVERIFY2(printed.contains(text), qPrintable(text + " in " + printed));
    QVERIFY(!m_vm->hasGuest());
    QCOMPARE(m_vm->newItemList()->rowCount() + m_vm->oldItemList()->rowCount(), 0);
    QCOMPARE(m_vm->areaId(), QString());
    QCOMPARE(m_vm->allRemark(), QString());
    m_terminal->answer(
        "/bca01/getRePrintOrderList",
        QJsonArray{QJsonObject{
            {"itemName", "毛巾"}, {"num", 2}, {"total", 40}, {"cardno", "8001"}, {"areaName", "浴区"}}});
    m_vm->reprint("L");
    QVERIFY(m_terminal->takePrinted().contains(" - <重印>"));
}

void tst_sales_lines::menus()
{
    const auto textsOf = [](const QVariantList& entries) {
        QStringList texts;
        for (const QVariant& entry : entries)
            texts.append(entry.toMap().value("text").toString() +
                         (entry.toMap().value("isEnabled").toBool() ? "" : "-"));
        return texts.join(' ');
    };
    holdCard({stored("a", 3), stored("b", 1, R"({"server_type":5,"is_pack_ticket":1})"),
              stored("c", 1, R"({"orderStatus":4})")});
    GlobalConfig* config = GlobalConfig::getInstance();
    config->setRights({"0202", "0207", "0210"});
    QCOMPARE(textsOf(m_vm->oldActions(0)), QString("退单 重印"));
    QCOMPARE(textsOf(m_vm->oldActions(1)), QString("更换套票 重印"));
    QCOMPARE(textsOf(m_vm->oldActions(2)), QString("退单"));
    config->setRights({"0169"}); // the right of rooms
    QCOMPARE(textsOf(m_vm->oldActions(0)), QString());
    sell(0);
    QCOMPARE(textsOf(m_vm->newActions(0)), QString("删除 赠送 改数量 备注 整单备注"));
    m_vm->giveFree(0);
    QCOMPARE(textsOf(m_vm->newActions(0)), QString("删除 取消赠送 改数量 备注 整单备注"));
    m_vm->refund(0, 1, {});
    QCOMPARE(textsOf(m_vm->newActions(0)), QString("删除 备注- 整单备注-"));
}

QTEST_GUILESS_MAIN(tst_sales_lines)
#include "tst_sales_lines.moc"
