// What each room page sends, what it refuses before it asks the house, and that it may close at any time.

#include "RoomAnswers.h"

#include <QtTest>

class tst_room_saves : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void saving_data();
    void saving();
    void refusing_data();
    void refusing();
    void closing_data();
    void closing();

private:
    std::unique_ptr<RoomFixture> m_room;
};

void tst_room_saves::initTestCase()
{
    m_room.reset(new RoomFixture);
    QVERIFY(m_room->isUp());
}

void tst_room_saves::init()
{
    m_room->reset();
    m_room->answer(emptyRoomsPath, rooms({"A", "B"}));
    m_room->answer(plansPath, plans({"P-A", "P-B"}));
    m_room->answer(kindsPath, listOf({"K1", "K2"}, "type_name"));
    m_room->answer(roomsPath, QJsonArray{QJsonObject{{"code", "201"}, {"status", 1}},
                                         QJsonObject{{"code", "202"}, {"status", 2}}});
    m_room->answer(candidatesPath, QJsonArray{QJsonObject{{"roomId", "A"}, {"groupKey", "K"}},
                                              QJsonObject{{"roomId", "B"}, {"groupKey", "K"}},
                                              QJsonObject{{"roomId", "C"}, {"groupKey", ""}}});
    m_room->answer(detailPath, QJsonObject{{"id", "R1"}, {"status", 2}, {"group_key", "K"}});
}

void tst_room_saves::saving_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("save");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QJsonObject>("sent");
    QTest::addColumn<QStringList>("told");
    QTest::addColumn<QString>("printed");
    QString page;
    QString path;
    QString printed;
    bool isTold = true;
    const auto from = [&](const char* ofPage, const char* toPath, bool tells, const char* slip = "") {
        page = ofPage;
        path = toPath;
        isTold = tells;
        printed = slip;
    };
    const auto row = [&](const char* steps, const QJsonObject& sent, const QString& save = "p.save()") {
        QTest::newRow(qPrintable(page + ": " + steps))
            << page << steps << save << path << sent << (isTold ? QStringList{done} : QStringList()) << printed;
    };

    from("MassChgRoomVm", "/bba01/changeRoom", false);
    row("p.init('R1')", {{"oldRoomId", "R1"}, {"status", 2}, {"newRoomId", "A"}, {"isClean", 0}});
    row("p.init('R1'); p.selectRoom(1); p.isNeedClean = true",
        {{"oldRoomId", "R1"}, {"status", 2}, {"newRoomId", "B"}, {"isClean", 1}});
    from("RestChgRoomVm", "/bba01/changeRoom", false);
    QJsonObject move{{"oldRoomId", "R1"}, {"status", 3}, {"newRoomId", "A"}, {"isClean", 0}, {"newPlanFlg", 1}};
    move.insert("planId", "P-A");
    row("p.init('R1')", move);
    move.insert("planId", "P-B");
    move.insert("isClean", 1);
    row("p.init('R1'); p.checkPlan(1); p.isNeedClean = true", move);
    from("MassChgRestVm", "/bba01/massToRestRoom", true);
    const QJsonArray twoLeft{"id-8001", "id-8003"};
    row("p.init('R1', '101', room('8001 8002 8003')); p.deleteCard(1, '8002'); p.deleteCard(7, '8009');"
        "p.selectPlan(0); p.selectPlan(1)",
        {{"id", "R1"}, {"cardids", twoLeft}, {"newPlanFlg", 1}, {"type", 1}, {"planid", "P-B"}});
    from("RestChgMassVm", "/bba01/restToMassRoom", true);
    row("p.init('R1', '101', room('8001 8002 8003')); p.checkCard(0); p.checkCard(2); p.deleteCard(1); p.hours "
        "= 5",
        {{"id", "R1"},
         {"cardids", twoLeft},
         {"cardId", "id-8003"},
         {"hours", 5},
         {"newPlanFlg", 1},
         {"type", 1}});
    from("RestChgPlanVm", "/bba01/changeFeePlan", true);
    row("p.init('R1'); p.selectPlan(1)", {{"roomId", "R1"}, {"newPlanFlg", 1}, {"planId", "P-B"}});
    from("RestAddTimeVm", "/bba01/restRoomAddTime", true);
    row("p.init('R1')", {{"roomId", "R1"}, {"hours", 1}});
    row("p.init('R1'); p.hours = 3", {{"roomId", "R1"}, {"hours", 3}});

    from("RoomAddCardsVm", "/bba01/roomAddCard", true);
    row("p.init('101', room('8000')); card('8002'); card('8001')",
        {{"roomNo", "101"}, {"cardids", QJsonArray{"id-8002", "id-8001"}}});
    from("RoomCardSplitVm", "/bba01/unpackRoom", false);
    row("p.init(room('8001 8002 8003')); p.selectRoom(0); p.selectRoom(1); p.selectRoom(2);"
        "p.selectCard(2); p.selectCard(0); p.selectCard(1); p.selectCard(1); p.selectCard(3)",
        {{"oldRoomId", "R1"}, {"newRoomNo", "202"}, {"cardIds", twoLeft}});
    from("LeaveRoomVm", "/bba01/leaveRoomNew", true, "开房手牌:");
    const auto leaving = [&](const char* steps, int status, const QJsonArray& cards,
                             const QString& consumer = {}) {
        QJsonObject sent{{"id", "R1"}, {"status", status}, {"cardids", cards}};
        if (!consumer.isEmpty())
            sent.insert("cardId", consumer);
        row(steps, sent);
    };
    leaving("p.init(room('1 2'))", 2, {"id-1", "id-2"});
    leaving("p.init(room('1 2')); p.selectCard(0)", 2, {"id-2"});
    leaving("p.init(room(''))", 2, {});
    leaving("p.init(room('1 2', 3))", 3, {"id-1", "id-2"}, "id-1");
    leaving("p.init(room('1 2 3', 3)); p.selectCard(2); p.selectCard(0); p.selectCard(2); p.selectConsumer(2)",
            3, {"id-2", "id-3"}, "id-3");
    leaving("p.init(room('1 2', 3)); p.selectCard(0)", 3, {"id-2"}, "id-1"); // one who stays pays
    from("MergeRoomVm", "/bba01/mergeRoom", true);
    row("p.init('R1', '101'); group(1).onSelected(1); group(1).onSelected(2)",
        {{"roomIdArr", QJsonArray{"B", "R1"}}});
    row("p.init('R1', '101'); group(1).onSelected(1); group(0).onSelected(0)",
        {{"roomIdArr", QJsonArray{"C", "B", "R1"}}});

    from("OpenMassVm", "/bba01/openMassRoom", true, "预开时长:2小时");
    const auto opening = [&](const char* steps, const QJsonArray& cards) {
        row(steps, {{"id", "R1"}, {"hours", 2}, {"cardids", cards}});
    };
    opening("store.isNeedCard = false; p.init('R1', '101')", {});
    opening("p.init('R1', '101'); card('8001')", {"id-8001"});
    opening("p.openMulti = false; p.init('R1', '101'); card('8002', 1, '102')", {"id-8002"}); // asked before
    opening("p.init('R1', '101'); card('8002', 1, '102'); card('8001'); p.deleteCard(0)", {"id-8001"});
    from("OpenRestVm", "/bba01/openRestRoom", true, "主结手牌:8001");
    const QJsonObject rest{
        {"id", "R1"}, {"newPlanFlg", 1}, {"type", 1}, {"planid", "P-A"}, {"cardids", twoLeft}};
    row("p.init('R1', '101'); card('8002'); card('8001'); card('8003', 1, '102'); p.deleteCard(0, '8002');"
        "p.checkPlan(1); p.checkPlan(0)",
        rest);
    from("OpenOccupyVm", "/bba01/chgOccupyRoom", false);
    row("p.init('R1'); p.checkOccupy(0); p.checkOccupy(1)", {{"id", "R1"}, {"occType", "K2"}, {"isOccupy", 1}});
    row("p.init('R1'); p.checkOccupy(0); p.remark = '水管坏了\\n等人修'",
        {{"id", "R1"}, {"occType", "K1"}, {"isOccupy", 1}, {"remark", "水管坏了\n等人修"}});

    from("OpenRoomVm", "/bba01/chgCleanRoom", false);
    row("p.init('R1')", {{"id", "R1"}, {"isClean", 1}}, "p.cleanRoom()");
    from("RoomDetailVm", "/bba01/cancelRoom", true);
    row("p.init('R1')", {{"id", "R1"}, {"authType", 2}}, "p.cancelRoom()");
    from("RoomDetailVm", "/bba01/splitRoom", true);
    row("p.init('R1')", {{"groupKey", "K"}, {"roomIdArr", QJsonArray{"R1"}}}, "p.cancelTeam()");
    from("RoomDetailVm", "/bba01/reSetRoomTime", true);
    row("p.init('R1')", {{"roomId", "R1"}}, "p.resetTime()");
    from("RoomRemarkVm", "/bba01/setRemark", true);
    row("p.init(room('', 2, {remark: '旧的'}))", {{"id", "R1"}, {"remark", "旧的"}});
    row("p.init(room('', 2, {remark: '旧的'})); p.remark = ''", {{"id", "R1"}, {"remark", ""}});
    from("RoomCallVm", "/caa04/callStaff", true);
    row("p.init(room('', 2, {calllist: [{contId: 'c1'}, {contId: 'c2'}]})); p.pRoomCallModel.add(1)",
        {{"roomId", "R1"}, {"contId", "c2"}, {"num", 1}});
    from("Module1Vm", "/bba01/chgCleanRoom", true);
    row("", {{"id", "r1"}, {"isClean", 0}}, "p.cleanRoom('r1', true)");
    from("Module1Vm", "/bba01/chgOccupyRoom", true);
    row("", {{"id", "r1"}, {"isOccupy", 0}}, "p.cleanRoom('r1', false)");
    from("Module1Vm", "/bba01/setCleanRoom", true);
    const QString staffId = GlobalConfig::getInstance()->userInfo()->staffId();
    row("", {{"id", "r1"}, {"staffId", staffId}, {"cleanFlg", 2}}, "p.setCleanFlg('r1', 2)");
}

/// A refusal leaves everything as it was, a second tap does nothing, and the page may close meanwhile.
void tst_room_saves::saving()
{
    QFETCH(QString, page);
    QFETCH(QString, steps);
    QFETCH(QString, save);
    QFETCH(QString, path);
    QFETCH(QJsonObject, sent);
    GlobalConfig::getInstance()->leave_room_print_count = 1;
    const QPointer<QObject> made(m_room->page(page, steps));
    m_room->takeShown();
    m_room->refuse(path, "包房状态发生变化", 1);
    QVERIFY(!m_room->run(save).toBool());
    QCOMPARE(m_room->takeShown(), QStringList{"error|包房状态发生变化"});
    QCOMPARE(m_room->takePrinted(), QString());
    QVERIFY(made->property("isEnabled").toBool());

    m_room->answer(path, QJsonObject{{"flg", true}, {"allleave", true}});
    m_room->closeDuring(path);
    bool isSecondIdle = false;
    QTimer::singleShot(
        10, made, [&] { isSecondIdle = !made->property("isEnabled").toBool() && !m_room->run(save).toBool(); });
    const QJSValue isDone = m_room->run(save);
    QVERIFY(isDone.isUndefined() || isDone.toBool());
    QVERIFY(isSecondIdle && !made);
    QTEST(m_room->takeShown(), "told");
    QCOMPARE(m_room->allSent(path), QVector<QJsonObject>(2, sent));
    QFETCH(QString, printed);
    const QString paper = m_room->takePrinted();
    QCOMPARE(paper.isEmpty(), printed.isEmpty());
    QVERIFY2(paper.contains(printed), qPrintable(paper));
}

void tst_room_saves::refusing_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QStringList>("told");
    QString page;
    QString path;
    const auto from = [&](const char* ofPage, const char* toPath) {
        page = ofPage;
        path = toPath;
    };
    const auto row = [&](const char* steps, const QString& told) {
        QTest::newRow(qPrintable(page + ": " + steps)) << page << steps << path << QStringList{told};
    };
    const QString noCard = QStringLiteral("error|请先添加手牌");
    const QString noPlan = QStringLiteral("error|请选择计费方案");
    const QString noConsumer = QStringLiteral("error|请选择需要计入消费的手牌");
    const QString noTarget = QStringLiteral("error|请选择需要进入的房间");
    from("MassChgRoomVm", "/bba01/changeRoom");
    row("", "error|请选择需要换入的房间");
    from("RestChgRoomVm", "/bba01/changeRoom");
    row("f.answer('/bba01/getEmptyRoomList', [], 1); p.init('R1')", "error|请选择需要换入的房间");
    row("f.answer('/bba01/getPlanListNew', [], 1); p.init('R1')", "error|请选择新房间的计费方案");
    from("MassChgRestVm", "/bba01/massToRestRoom");
    row("p.init('R1', '101', room('8001')); p.selectPlan(2)", noPlan);
    row("p.init('R1', '101', room('8001')); p.deleteCard(0, '8001'); p.selectPlan(0)", noCard);
    row("p.init('R1', '101', room(''))", noCard);
    from("RestChgMassVm", "/bba01/restToMassRoom");
    row("p.init('R1', '101', room('8001 8002')); p.checkCard(2)", noConsumer);
    row("p.init('R1', '101', room('8001 8002')); p.checkCard(0); p.deleteCard(0)",
        noConsumer); // who was to pay
    row("p.init('R1', '101', room(''))", noCard);
    from("RestChgPlanVm", "/bba01/changeFeePlan");
    row("p.init('R1')", noPlan);
    from("RoomAddCardsVm", "/bba01/roomAddCard");
    row("p.init('101', room('8000'))", noCard);
    from("RoomCardSplitVm", "/bba01/unpackRoom");
    row("p.init(room('8001 8002'))", noTarget);
    row("p.init(room('8001 8002')); p.selectCard(1)", noTarget);
    row("p.init(room('8001 8002')); p.selectCard(1); p.selectCard(1); p.selectRoom(0)",
        "error|请选择需要拆离的手牌");
    from("LeaveRoomVm", "/bba01/leaveRoomNew");
    row("p.init(room('1 2')); p.selectCard(0); p.selectCard(1)", "error|请选择需要离房的手牌");
    row("p.init(room('1', 3)); p.selectCard(0)", "error|请选择需要离房的手牌");
    row("p.init(room('', 3))", noConsumer);
    from("MergeRoomVm", "/bba01/mergeRoom");
    row("p.init('R1', '101')", "error|请选择需要合并的房间");
    from("OpenMassVm", "/bba01/openMassRoom");
    row("p.init('R1', '101')", noCard);
    row("p.init('R1', '101'); card('8001'); p.deleteCard(0)", noCard);
    from("OpenRestVm", "/bba01/openRestRoom");
    row("p.init('R1', '101')", noCard);
    row("store.isNeedCard = false; p.init('R1', '101'); p.checkPlan(0)", noCard);
    row("p.init('R1', '101'); card('8001'); p.checkPlan(2)", noPlan);
    from("OpenOccupyVm", "/bba01/chgOccupyRoom");
    row("p.init('R1'); p.checkOccupy(2)", "error|特殊占用原由不能为空");
    from("RoomCallVm", "/caa04/callStaff");
    row("p.init(room('', 2, {calllist: [{contId: 'c1'}]}))", "error|请输入需要呼叫的数量");
}

void tst_room_saves::refusing()
{
    QFETCH(QString, page);
    QFETCH(QString, steps);
    QFETCH(QString, path);
    const std::unique_ptr<QObject> made(m_room->page(page, steps));
    QVERIFY(!m_room->run("p.save()").toBool());
    QTEST(m_room->takeShown(), "told");
    QCOMPARE(m_room->house().seen(path), 0);
    QVERIFY(made->property("isEnabled").toBool());
}

void tst_room_saves::closing_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("path"); // empty: a question
    const auto row = [](const char* page, const char* steps, const QString& path, const char* before = "") {
        QTest::newRow(qPrintable(QString(page) + ": " + steps + " " + path)) << page << before << steps << path;
    };
    const char* noRecord = "p.init('R1', '101', null)";
    const char* isByRooms = "p.usedRoomMod = true; tell('101', 1, '102')";
    row("MassChgRoomVm", "p.init('R1')", emptyRoomsPath);
    row("RestChgRoomVm", "p.init('R1')", emptyRoomsPath);
    row("RestChgRoomVm", "p.init('R1')", plansPath);
    row("RestChgPlanVm", "p.init('R1')", plansPath);
    for (const char* page : {"MassChgRestVm", "RestChgMassVm"}) {
        row(page, noRecord, cardPath, isByRooms);
        row(page, noRecord, "", isByRooms);
    }
    row("MassChgRestVm", "p.init('R1', '101', room('8001'))", plansPath);
    row("OpenMassVm", "p.init('R1', '101')", cardPath, isByRooms);
    row("OpenRestVm", "p.init('R1', '101')", plansPath);
    row("OpenRestVm", "p.init('R1', '101')", "",
        "p.openMulti = false; p.usedRoomMod = true; tell('101', 1, '102')");
    row("OpenOccupyVm", "p.init('R1')", kindsPath);
    row("OpenRoomVm", "p.init('R1')", detailPath);
    row("RoomDetailVm", "p.init('R1')", detailPath);
    row("RoomConsumeVm", "p.init('R1')", "/bba01/getRoomConsList");
    row("RoomCardSplitVm", "p.getRoomInfo('')", roomsPath);
    row("MergeRoomVm", "p.init('R1', '101')", candidatesPath);
    row("RoomAddCardsVm", "card('8002', 1, '102')", "");
}

void tst_room_saves::closing()
{
    QFETCH(QString, page);
    QFETCH(QString, before);
    QFETCH(QString, steps);
    QFETCH(QString, path);
    const QPointer<QObject> made(m_room->page(page, before));
    m_room->closeDuring(path);
    QVERIFY(!m_room->run(steps).toBool());
    QVERIFY(!made);
    // What follows the page's end isn't asked for any more.
    QCOMPARE(m_room->house().seen(plansPath), path == plansPath ? 1 : 0);
}

QTEST_GUILESS_MAIN(tst_room_saves)
#include "tst_room_saves.moc"
