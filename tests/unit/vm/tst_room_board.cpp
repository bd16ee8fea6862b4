// The room board's view-model: when it fetches, what it asks for, and what its actions do.

#include "RoomFixture.h"

#include "app/MainClass.h"
#include "common/GlobalConfig.h"
#include "dto/room/RoomRecords.h"
#include "vm/module1/Module1Vm.h"

#include <QSignalSpy>
#include <QtTest>

namespace {

const QString listPath = QStringLiteral("/bba01/getRoomList");
const QStringList boardPaths{listPath, QStringLiteral("/bba01/getFloorSum"),
                             QStringLiteral("/bba01/getRoomTypeSum"), QStringLiteral("/bba01/getOverTime")};

GlobalConfig* config() { return GlobalConfig::getInstance(); }

QJsonObject roomFields(const QString& number, int status = 1)
{
    return {{"id", "id-" + number}, {"code", number}, {"status", status}};
}

QString shownNumber(const Module1Vm& board, int row) { return board.pRoomModel()->rows().value(row).roomNo; }

} // namespace

Q_DECLARE_METATYPE(std::function<void(Module1Vm&)>)

class tst_room_board : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_fixture = std::make_unique<RoomFixture>();
        QVERIFY(m_fixture->isUp());
    }
    void cleanupTestCase() { m_fixture.reset(); }
    void init();

    void columns_data();
    void columns();
    void strip();
    void houseSettings();
    void firstTickByItself();
    void tickFetchesOnAMark();
    void events_data();
    void events();
    void tickWaitsForAnAction();
    void refusedFetch();
    void filters();
    void groupMode();
    void newerAnswerWins();
    void goneDuringAFetch();
    void changes_data();
    void changes();
    void searchRoom();
    void searchCard_data();
    void searchCard();

private:
    QStringList fetched() const;
    void publish(const QString& prefix) { Q_EMIT MainClass::getInstance()->mqttSignal(prefix, {}); }
    /// A board that has been filled and waits for an event; its own timer stands still.
    std::unique_ptr<Module1Vm> filledBoard();

    std::unique_ptr<RoomFixture> m_fixture;
};

void tst_room_board::init()
{
    m_fixture->reset();
    config()->room_item_count = 0;
    config()->sysConfig()->set_isCleaning(false);
    config()->sysConfig()->set_usedRoomMod(0);
}

/// The board's calls since the last reset, in their order.
QStringList tst_room_board::fetched() const
{
    QStringList paths;
    for (const QJsonValue& request : m_fixture->house().requests({})) {
        const QString path = request.toObject().value("target").toString().section('?', 0, 0);
        if (boardPaths.contains(path))
            paths.append(path);
    }
    return paths;
}

std::unique_ptr<Module1Vm> tst_room_board::filledBoard()
{
    auto board = std::make_unique<Module1Vm>();
    board->timeEvent();
    board->findChild<QTimer*>("eventTick")->stop();
    m_fixture->house().reset();
    m_fixture->takeShown();
    return board;
}

void tst_room_board::columns_data()
{
    QTest::addColumn<int>("setting");
    QTest::addColumn<int>("columns");
    for (const auto& [setting, columns] : {std::pair{0, 8}, {-3, 8}, {5, 8}, {6, 6}, {12, 12}})
        QTest::addRow("%d", setting) << setting << columns;
}

void tst_room_board::columns()
{
    QFETCH(int, setting);
    config()->room_item_count = setting;
    QTEST(Module1Vm().itemColumns(), "columns");
}

void tst_room_board::strip()
{
    const Module1Vm board;
    QStringList shown;
    for (const room_status_struct& entry : board.pRoomStatusModel()->rows()) {
        shown.append(entry.statusCode + entry.statusName + (entry.isFirst ? "<" : "") +
                     (entry.isLast ? ">" : ""));
    }
    QCOMPARE(shown,
             (QStringList{"全部状态<", "1空闲房", "7在用房", "4清扫房", "5特殊占用房", "2按摩房", "3休息房>"}));
}

void tst_room_board::houseSettings()
{
    QVERIFY(!Module1Vm().usedRoomMod() && !Module1Vm().isCleaning());
    config()->sysConfig()->set_isCleaning(true);
    config()->sysConfig()->set_usedRoomMod(1);
    QVERIFY(Module1Vm().usedRoomMod() && Module1Vm().isCleaning());
    config()->sysConfig()->set_usedRoomMod(2);
    QVERIFY(!Module1Vm().usedRoomMod());
}

void tst_room_board::firstTickByItself()
{
    Module1Vm board;
    QCOMPARE(board.pRoomModel()->rowCount(), 0);
    QTRY_VERIFY(board.pRoomOverTimeModel()->rowCount() > 0);
    QVERIFY(board.pRoomModel()->rowCount() > 0);
    QVERIFY(board.pRoomFloorModel()->rowCount() > 0);
    QVERIFY(board.pRoomTypeModel()->rowCount() > 0);
    QCOMPARE(fetched(), boardPaths);
    QCOMPARE(m_fixture->sent(listPath), QJsonObject());
}

void tst_room_board::tickFetchesOnAMark()
{
    const auto board = filledBoard();
    auto* tick = board->findChild<QTimer*>("eventTick");
    board->timeEvent();
    QCOMPARE(fetched(), QStringList());
    QVERIFY(tick->isActive());
    QCOMPARE(tick->interval(), 500);
    for (int i = 0; i < 1000; ++i)
        publish(config()->MQTT_ROOM_STATUS());
    QCOMPARE(fetched(), QStringList());
    board->timeEvent();
    board->timeEvent();
    QCOMPARE(fetched(), boardPaths);
}

void tst_room_board::events_data()
{
    QTest::addColumn<QString>("topic");
    QTest::addColumn<bool>("isFetching");
    QTest::newRow("rooms") << config()->MQTT_ROOM_STATUS() << true;
    QTest::newRow("staff") << config()->MQTT_STAFF_STATUS() << false;
    QTest::newRow("calls") << config()->MQTT_CALL_CHGDATA() << false;
    QTest::newRow("no topic") << QString() << false;
    QTest::newRow("rooms of another store") << config()->MQTT_ROOM_STATUS() + "7" << false;
}

void tst_room_board::events()
{
    QFETCH(QString, topic);
    const auto board = filledBoard();
    publish(topic);
    board->timeEvent();
    QTEST(!fetched().isEmpty(), "isFetching");
    // What the broker lost while it was away is fetched whatever it was.
    m_fixture->house().reset();
    Q_EMIT MainClass::getInstance()->mqttConnected();
    board->timeEvent();
    QCOMPARE(fetched(), boardPaths);
}

void tst_room_board::tickWaitsForAnAction()
{
    const auto board = filledBoard();
    board->setIsEnabled(false);
    publish(config()->MQTT_ROOM_STATUS());
    board->timeEvent();
    board->onSelectStatus("1");
    board->onChgMode();
    board->cleanRoom("id", true);
    board->queryCard("8001", {});
    QCOMPARE(m_fixture->house().requests({}).size(), 0);
    QVERIFY(!board->isGroupMode());
    board->setIsEnabled(true);
    board->timeEvent();
    QCOMPARE(fetched(), boardPaths);
}

void tst_room_board::refusedFetch()
{
    const auto board = filledBoard();
    const int rooms = board->pRoomModel()->rowCount();
    for (const QString& path : boardPaths)
        m_fixture->refuse(path, "拒绝" + path);
    for (int i = 0; i < 2; ++i) {
        publish(config()->MQTT_ROOM_STATUS());
        board->timeEvent();
        QStringList expected;
        for (const QString& path : boardPaths)
            expected.append("error|拒绝" + path);
        QCOMPARE(m_fixture->takeShown(), expected);
    }
    QCOMPARE(board->pRoomModel()->rowCount(), rooms);
    QVERIFY(board->pRoomFloorModel()->rowCount() > 0);
    // An answer without what it should carry changes nothing either.
    for (const QString& path : boardPaths.mid(1, 2))
        m_fixture->answer(path, QJsonValue::Null);
    publish(config()->MQTT_ROOM_STATUS());
    board->timeEvent();
    QVERIFY(board->pRoomFloorModel()->rowCount() > 0);
}

void tst_room_board::filters()
{
    const auto board = filledBoard();
    const int all = board->pRoomModel()->rowCount();
    const QString floor = board->pRoomFloorModel()->rows().value(0).id;
    const QString floor2 = board->pRoomFloorModel()->rows().value(1).id;
    const QString type = board->pRoomTypeModel()->rows().value(0).id;
    const auto enabled = noteEnabled(board.get());

    board->onSelectStatus("1");
    QCOMPARE(m_fixture->sent(listPath), (QJsonObject{{"status", "1"}}));
    QVERIFY(board->pRoomModel()->rowCount() > 0 && board->pRoomModel()->rowCount() < all);
    for (const RoomTile& tile : board->pRoomModel()->rows())
        QCOMPARE(tile.status, 1);
    board->onChgFloor(floor);
    QCOMPARE(m_fixture->sent(listPath), (QJsonObject{{"status", "1"}, {"floorId", QJsonArray{floor}}}));
    board->onChgFloor(floor2);
    board->onChgType(type);
    QCOMPARE(m_fixture->sent(listPath),
             (QJsonObject{
                 {"status", "1"}, {"floorId", QJsonArray{floor, floor2}}, {"houseType", QJsonArray{type}}}));
    // The marks outlive a refresh, and a refresh asks for the same rooms.
    publish(config()->MQTT_ROOM_STATUS());
    board->timeEvent();
    QCOMPARE(m_fixture->sent(listPath).value("floorId").toArray(), (QJsonArray{floor, floor2}));
    QCOMPARE(board->pRoomFloorModel()->checkedIds(), (QStringList{floor, floor2}));
    board->onSelectStatus({});
    board->onChgFloor(floor2);
    board->onChgFloor(floor);
    board->onChgType(type);
    QCOMPARE(m_fixture->sent(listPath), QJsonObject());
    QCOMPARE(board->pRoomModel()->rowCount(), all);
    QCOMPARE(*enabled, busyOnce() + busyOnce() + busyOnce() + busyOnce() + busyOnce() + busyOnce() +
                           busyOnce() + busyOnce());
    // The floors, types and exceptions were fetched by the one tick alone.
    QCOMPARE(m_fixture->house().seen(boardPaths.at(1)), 1);
}

void tst_room_board::groupMode()
{
    const auto board = filledBoard();
    board->onChgMode();
    QVERIFY(board->isGroupMode());
    QCOMPARE(m_fixture->sent(listPath), (QJsonObject{{"sortType", 1}}));
    int rooms = 0;
    for (const RoomSortVm* group : board->pRoomSortModel()->rows())
        rooms += group->pRoomModel->rowCount();
    QCOMPARE(rooms, board->pRoomModel()->rowCount());
    board->onSelectStatus("4");
    QCOMPARE(m_fixture->sent(listPath), (QJsonObject{{"sortType", 1}, {"status", "4"}}));
    board->onChgMode();
    QVERIFY(!board->isGroupMode());
    QCOMPARE(m_fixture->sent(listPath), (QJsonObject{{"status", "4"}}));
}

void tst_room_board::newerAnswerWins()
{
    const auto board = filledBoard();
    m_fixture->house().fault(listPath, "delay", 150, 1);
    publish(config()->MQTT_ROOM_STATUS());
    // The user's choice comes while the tick's slow answer is on its way.
    QTimer::singleShot(50, board.get(), [&] { board->onSelectStatus("5"); });
    board->timeEvent();
    QVERIFY(board->pRoomModel()->rowCount() > 0);
    for (const RoomTile& tile : board->pRoomModel()->rows())
        QCOMPARE(tile.status, 5);
}

void tst_room_board::goneDuringAFetch()
{
    auto board = filledBoard();
    m_fixture->house().fault(listPath, "delay", 100, 1);
    publish(config()->MQTT_ROOM_STATUS());
    QTimer::singleShot(20, QCoreApplication::instance(), [&] { board.reset(); });
    board->timeEvent();
    QVERIFY(!board);
    QCOMPARE(fetched(), QStringList{listPath});

    board = filledBoard();
    m_fixture->house().fault("/bba01/chgCleanRoom", "delay", 100, 1);
    QTimer::singleShot(20, QCoreApplication::instance(), [&] { board.reset(); });
    board->cleanRoom("no such room", true);
    QVERIFY(!board);
}

void tst_room_board::changes_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<std::function<void(Module1Vm&)>>("action");
    QTest::addColumn<QJsonObject>("sent");
    using Action = std::function<void(Module1Vm&)>;
    QTest::newRow("cleaned") << "/bba01/chgCleanRoom"
                             << Action([](Module1Vm& board) { board.cleanRoom("r1", true); })
                             << QJsonObject{{"id", "r1"}, {"isClean", 0}};
    QTest::newRow("no longer occupied")
        << "/bba01/chgOccupyRoom" << Action([](Module1Vm& board) { board.cleanRoom("r1", false); })
        << QJsonObject{{"id", "r1"}, {"isOccupy", 0}};
    QTest::newRow("cleaning") << "/bba01/setCleanRoom" << Action([](Module1Vm& board) {
        board.setCleanFlg("r1", 2);
    }) << QJsonObject{{"id", "r1"}, {"staffId", config()->userInfo()->staffId()}, {"cleanFlg", 2}};
}

void tst_room_board::changes()
{
    QFETCH(QString, path);
    QFETCH(std::function<void(Module1Vm&)>, action);
    const auto board = filledBoard();
    const auto enabled = noteEnabled(board.get());
    m_fixture->answer(path, QJsonValue::Null);
    action(*board);
    QTEST(m_fixture->sent(path), "sent");
    QCOMPARE(m_fixture->takeShown(), QStringList{"success|操作成功"});
    m_fixture->refuse(path, "房间正在使用");
    action(*board);
    QCOMPARE(m_fixture->takeShown(), QStringList{"error|房间正在使用"});
    QCOMPARE(*enabled, busyOnce() + busyOnce());
    // The event tells what has changed, not the action.
    QCOMPARE(fetched(), QStringList());
}

void tst_room_board::searchRoom()
{
    const auto board = filledBoard();
    m_fixture->answer(listPath, QJsonArray{roomFields("801"), QJsonObject{{"id", "x"},
                                                                          {"code", "802"},
                                                                          {"status", 6},
                                                                          {"openType", 2},
                                                                          {"dirtyFlg", true},
                                                                          {"roomLock", true},
                                                                          {"cleanFlg", 1}}});
    board->onSelectStatus("1");
    QCOMPARE(shownNumber(*board, 1), QStringLiteral("802"));
    QSignalSpy hits(board.get(), &Module1Vm::selectRoomSignal);
    for (const char* miss : {"8", "80", "8020", "", "803"})
        board->queryRoom(QLatin1String(miss));
    QCOMPARE(hits.size(), 0);
    board->queryRoom("802");
    QCOMPARE(hits.size(), 1);
    QCOMPARE(hits.at(0), (QList<QVariant>{"x", "802", 6, 2, true, true, 1}));

    m_fixture->answer(listPath,
                      QJsonArray{QJsonObject{{"name", "A"}, {"roomList", QJsonArray{roomFields("901")}}},
                                 QJsonObject{{"name", "B"}, {"roomList", QJsonArray{roomFields("902")}}}});
    board->onChgMode();
    board->queryRoom("802"); // loaded before, but not shown in this mode
    board->queryRoom("902");
    QCOMPARE(hits.size(), 2);
    QCOMPARE(hits.at(1).at(0).toString(), QStringLiteral("id-902"));
    QCOMPARE(m_fixture->takeShown(), QStringList());
}

void tst_room_board::searchCard_data()
{
    QTest::addColumn<QString>("roomNo");
    QTest::addColumn<QStringList>("shown");
    QTest::newRow("in a room") << "806" << QStringList{"question|提示|[1024]手牌在【806】"};
    QTest::newRow("in none") << "" << QStringList();
}

void tst_room_board::searchCard()
{
    QFETCH(QString, roomNo);
    const QString path = QStringLiteral("/baa01/getHardCardDetail");
    const auto board = filledBoard();
    m_fixture->answer(path, QJsonObject{{"cardno", "1024"}, {"roomNo", roomNo}, {"status", 5}}, 1);
    board->queryCard("24", {});
    QCOMPARE(m_fixture->sent(path), (QJsonObject{{"cardno", "24"}}));
    QTEST(m_fixture->takeShown(), "shown");
    m_fixture->refuse(path, "手牌不存在");
    board->queryCard("24", {});
    QCOMPARE(m_fixture->takeShown(), QStringList{"error|手牌不存在"});
}

QTEST_GUILESS_MAIN(tst_room_board)

#include "tst_room_board.moc"
