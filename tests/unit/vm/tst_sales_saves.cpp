// Whom the till books on, what it sends, and what it prints.

#include "SalesTest.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QtTest>

class tst_sales_saves : public SalesTest
{
    Q_OBJECT

private Q_SLOTS:
    void guests_data();
    void guests();
    void roomsByTheirCards_data();
    void roomsByTheirCards();
    void refusedGuestLeavesNone();
    void body();
    void bodyOfARoom();
    void failedSave_data();
    void failedSave();
    void slip();
    void slipOfChargebacksAlone();
};

void tst_sales_saves::guests_data()
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

void tst_sales_saves::guests()
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

void tst_sales_saves::roomsByTheirCards_data()
{
    QTest::addColumn<QByteArray>("detail"); // empty: refused
    QTest::addColumn<QString>("cardno");
    QTest::addColumn<QString>("shown");
    QTest::newRow("the first") << QByteArray(R"({"cardlist":[{"cardno":"8001"},{"cardno":"8002"}]})") << "8001"
                               << "";
    QTest::newRow("none") << QByteArray(R"({"cardlist":[]})") << ""
                          << "error|当前房间无手牌";
    QTest::newRow("refused") << QByteArray() << ""
                             << "error|房间不存在 error|当前房间无手牌";
}

/// A house that doesn't book on rooms.
void tst_sales_saves::roomsByTheirCards()
{
    QFETCH(QByteArray, detail);
    QFETCH(QString, cardno);
    SysConfigDto* store = GlobalConfig::getInstance()->sysConfig();
    store->set_isCustRoom(0);
    m_terminal->answer(guestPath, json(R"({"cardInfo":{"id":"C","cardno":"8001","status":1}})"));
    if (detail.isEmpty())
        m_terminal->refuse("/bba01/getRoomDetailNew", "房间不存在");
    else
        m_terminal->answer("/bba01/getRoomDetailNew", json(detail));
    m_vm->addRoom("101");
    store->set_isCustRoom(1);
    QCOMPARE(m_terminal->sent("/bba01/getRoomDetailNew"), QJsonObject({{"roomNo", "101"}}));
    QCOMPARE(m_terminal->sent(guestPath).value("cardno").toString(), cardno);
    QCOMPARE(m_vm->hasGuest(), !cardno.isEmpty());
    QTEST(m_terminal->takeShown().join(' '), "shown");
}

void tst_sales_saves::refusedGuestLeavesNone()
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

/// One of each kind, as they go out.
void tst_sales_saves::body()
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
    QCOMPARE(m_terminal->sent(cardSave)["items"].toArray(), items);
    QJsonObject sent = m_terminal->sent(cardSave);
    sent.remove("items");
    QCOMPARE(sent, QJsonObject(
                       {{"opType", 2}, {"remark", "all"}, {"mode", 0}, {"hardCardId", "C"}, {"roomId", "R"}}));
    QCOMPARE(m_vm->newItemList()->rowCount(), 7); // nothing to print, nothing cleared
}

void tst_sales_saves::bodyOfARoom()
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

void tst_sales_saves::failedSave_data()
{
    QTest::addColumn<QString>("fault"); // empty: a refusal
    QTest::newRow("refused") << "";
    QTest::newRow("not answered") << "drop";
}

void tst_sales_saves::failedSave()
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
    holdCard({}, "8002"); // what may have been booked twice isn't seen by looking at somebody else
    QCOMPARE(m_vm->isSaveUnsure(), !fault.isEmpty());
    QVERIFY(m_vm->refreshGuest());
    QVERIFY(!m_vm->isSaveUnsure());
}

void tst_sales_saves::slip()
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

/// A terminal that prints only what was taken back; who allowed it stands on the slip.
void tst_sales_saves::slipOfChargebacksAlone()
{
    TerminalDto* terminal = GlobalConfig::getInstance()->terminalInfo();
    terminal->set_isChargebackPrint(true);
    const QJsonObject reply{{"code", "200"},
                            {"data", QJsonObject{{"orderArea", "休息厅"}}},
                            {"authNo", "1001"},
                            {"authName", "周国栋"}};
    m_terminal->house().answer(cardSave, reply);
    for (const bool isChargeback : {false, true}) {
        m_vm->selectArea("A1", "hall");
        holdCard({stored("L", 3)});
        sell(0);
        if (isChargeback)
            m_vm->refund(0, 1, {});
        QVERIFY(m_vm->save({}));
        const QString printed = m_terminal->takePrinted();
        QCOMPARE(!printed.isEmpty(), isChargeback);
        QCOMPARE(printed.contains("周国栋"), isChargeback);
        QCOMPARE(printed.contains("name of plain"), isChargeback);
    }
    terminal->set_isChargebackPrint(false);
}

QTEST_GUILESS_MAIN(tst_sales_saves)
#include "tst_sales_saves.moc"
