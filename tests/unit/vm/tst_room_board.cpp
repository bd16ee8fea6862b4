// The room board's view-model: when it fetches, what it asks for, and what taps and searches do.

#include "RoomAnswers.h"

#include "dto/room/RoomRecords.h"
#include "vm/module1/Module1Vm.h"

#include <QSignalSpy>
#include <QtTest>

namespace {

const QStringList boardPaths{roomsPath, QStringLiteral("/bba01/getFloorSum"),
                             QStringLiteral("/bba01/getRoomTypeSum"), QStringLiteral("/bba01/getOverTime")};

GlobalConfig* config() { return GlobalConfig::getInstance(); }

QJsonObject room(const QString& number, const QJsonObject& others = {})
{
    QJsonObject fields{{"id", "id-" + number}, {"code", number}};
    for (auto field = others.begin(); field != others.end(); ++field)
        fields.insert(field.key(), field.value());
    return fields;
}

} // namespace

class tst_room_board : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void settings();
    void strip();
    void firstTickByItself();
    void events_data();
    void events();
    void tickWaitsForAnAction();
    void refusedFetch();
    void filters();
    void groupMode();
    void newerAnswerWins();
    void goneDuringAFetch();
    void taps_data();
    void taps();
    void searchRoom();
    void searchCard();

private:
    QStringList fetched() const;
    void publish(const QString& prefix) { Q_EMIT MainClass::getInstance()->mqttSignal(prefix, {}); }
    /// A board that has been filled and waits for an event; its own timer stands still.
    std::unique_ptr<Module1Vm> filledBoard();

    std::unique_ptr<RoomFixture> m_fixture;
};

void tst_room_board::initTestCase()
{
    m_fixture.reset(new RoomFixture);
    QVERIFY(m_fixture->isUp());
}

void tst_room_board::init()
{
    m_fixture->reset();
    config()->room_item_count = 0;
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

void tst_room_board::strip()
{
    const Module1Vm board;
    QStringList shown;
    for (const room_status_struct& entry : board.pRoomStatusModel()->rows())
        shown.append(entry.statusCode + entry.statusName + (entry.isFirst ? "<" : "") +
                     (entry.isLast ? ">" : ""));
    QCOMPARE(shown,
             (QStringList{"全部状态<", "1空闲房", "7在用房", "4清扫房", "5特殊占用房", "2按摩房", "3休息房>"}));
}

void tst_room_board::settings()
{
    for (const auto& [setting, columns] : {std::pair{0, 8}, {-3, 8}, {5, 8}, {6, 6}, {12, 12}}) {
        config()->room_item_count = setting;
        QCOMPARE(Module1Vm().itemColumns(), columns);
    }
    QVERIFY(!Module1Vm().usedRoomMod() && !Module1Vm().isCleaning());
    store().set_isCleaning(true);
    store().set_usedRoomMod(1);
    QVERIFY(Module1Vm().usedRoomMod() && Module1Vm().isCleaning());
    store().set_usedRoomMod(2);
    QVERIFY(!Module1Vm().usedRoomMod());
}

void tst_room_board::firstTickByItself()
{
    Module1Vm board;
    QCOMPARE(board.pRoomModel()->rowCount(), 0);
    QTRY_VERIFY(board.pRoomOverTimeModel()->rowCount() > 0);
    QVERIFY(board.pRoomModel()->rowCount() > 0 && board.pRoomFloorModel()->rowCount() > 0 &&
            board.pRoomTypeModel()->rowCount() > 0);
    QCOMPARE(fetched(), boardPaths);
    QCOMPARE(m_fixture->sent(roomsPath), QJsonObject());
}

void tst_room_board::events_data()
{
    QTest::addColumn<QString>("topic");
    QTest::addColumn<bool>("isFetching");
    QTest::newRow("rooms") << config()->MQTT_ROOM_STATUS() << true;
    QTest::newRow("staff") << config()->MQTT_STAFF_STATUS() << false;
    QTest::newRow("calls") << config()->MQTT_CALL_CHGDATA() << false;
}

void tst_room_board::events()
{
    QFETCH(QString, topic);
    QFETCH(bool, isFetching);
    const auto board = filledBoard();
    board->timeEvent();
    for (int i = 0; i < 1000; ++i)
        publish(topic);
    QCOMPARE(fetched(), QStringList());
    board->timeEvent();
    board->timeEvent();
    QCOMPARE(fetched(), isFetching ? boardPaths : QStringList());
}

void tst_room_board::tickWaitsForAnAction()
{
    const auto board = filledBoard();
    board->setIsEnabled(false);
    publish(config()->MQTT_ROOM_STATUS());
    board->timeEvent();
    board->onSelectStatus("1");
    board->onChgMode();
    board->onChgFloor("F");
    board->onChgType("T");
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
    QStringList expected;
    for (const QString& path : boardPaths) {
        m_fixture->refuse(path, "拒绝" + path);
        expected.append("error|拒绝" + path);
    }
    publish(config()->MQTT_ROOM_STATUS());
    board->timeEvent();
    QCOMPARE(m_fixture->takeShown(), expected);
    // An answer without what it should carry changes nothing either.
    for (const QString& path : boardPaths.mid(1, 2))
        m_fixture->answer(path, QJsonValue::Null);
    publish(config()->MQTT_ROOM_STATUS());
    board->timeEvent();
    QCOMPARE(board->pRoomModel()->rowCount(), rooms);
    QVERIFY(board->pRoomFloorModel()->rowCount() > 0 && board->pRoomTypeModel()->rowCount() > 0);
}

void tst_room_board::filters()
{
    const auto board = filledBoard();
    const int all = board->pRoomModel()->rowCount();
    const QString floor = board->pRoomFloorModel()->rows().value(0).id;
    const QString floor2 = board->pRoomFloorModel()->rows().value(1).id;
    const QString type = board->pRoomTypeModel()->rows().value(0).id;
    const QJsonArray floors{floor, floor2};
    QSignalSpy enabled(board.get(), &Module1Vm::isEnabledChanged);

    board->onSelectStatus("1");
    QCOMPARE(m_fixture->sent(roomsPath), (QJsonObject{{"status", "1"}}));
    QVERIFY(board->pRoomModel()->rowCount() > 0 && board->pRoomModel()->rowCount() < all);
    for (const RoomTile& tile : board->pRoomModel()->rows())
        QCOMPARE(tile.status, 1);
    board->onChgFloor(floor);
    QCOMPARE(m_fixture->sent(roomsPath), (QJsonObject{{"status", "1"}, {"floorId", QJsonArray{floor}}}));
    board->onChgFloor(floor2);
    board->onChgType(type);
    const QJsonObject narrow{{"status", "1"}, {"floorId", floors}, {"houseType", QJsonArray{type}}};
    QCOMPARE(m_fixture->sent(roomsPath), narrow);
    // The marks outlive a refresh, and a refresh asks for the same rooms.
    publish(config()->MQTT_ROOM_STATUS());
    board->timeEvent();
    QCOMPARE(m_fixture->sent(roomsPath), narrow);
    board->onSelectStatus({});
    board->onChgFloor(floor2);
    board->onChgFloor(floor);
    board->onChgType(type);
    QCOMPARE(m_fixture->sent(roomsPath), QJsonObject());
    QCOMPARE(board->pRoomModel()->rowCount(), all);
    QCOMPARE(enabled.size(), 2 * 8);
    // The floors, types and exceptions were fetched by the one tick alone.
    QCOMPARE(m_fixture->house().seen(boardPaths.at(1)), 1);
}

void tst_room_board::groupMode()
{
    const auto board = filledBoard();
    board->onChgMode();
    QVERIFY(board->isGroupMode());
    QCOMPARE(m_fixture->sent(roomsPath), (QJsonObject{{"sortType", 1}}));
    int rooms = 0;
    for (const RoomSortVm* group : board->pRoomSortModel()->rows())
        rooms += group->pRoomModel->rowCount();
    QCOMPARE(rooms, board->pRoomModel()->rowCount());
    board->onSelectStatus("4");
    QCOMPARE(m_fixture->sent(roomsPath), (QJsonObject{{"sortType", 1}, {"status", "4"}}));
    board->onChgMode();
    QVERIFY(!board->isGroupMode());
    QCOMPARE(m_fixture->sent(roomsPath), (QJsonObject{{"status", "4"}}));
}

void tst_room_board::newerAnswerWins()
{
    for (const bool isGroupMode : {false, true}) {
        const auto board = filledBoard();
        if (isGroupMode)
            board->onChgMode();
        m_fixture->house().fault(roomsPath, "delay", 150, 1);
        publish(config()->MQTT_ROOM_STATUS());
        // The user's choice comes while the tick's slow answer is on its way.
        QTimer::singleShot(50, board.get(), [&] { board->onSelectStatus("5"); });
        board->timeEvent();
        QVector<RoomTile> shown = board->pRoomModel()->rows();
        if (isGroupMode)
            shown = board->pRoomSortModel()->row(0)->pRoomModel->rows();
        QVERIFY(!shown.isEmpty());
        for (const RoomTile& tile : shown)
            QCOMPARE(tile.status, 5);
    }
}

void tst_room_board::goneDuringAFetch()
{
    for (int step = 0; step < boardPaths.size(); ++step) {
        QPointer<Module1Vm> board(filledBoard().release());
        m_fixture->house().fault(boardPaths.at(step), "delay", 100, 1);
        QTimer::singleShot(30, board, [&] { delete board; });
        publish(config()->MQTT_ROOM_STATUS());
        board->timeEvent();
        QVERIFY(!board);
        QCOMPARE(fetched(), boardPaths.mid(0, step + 1));
    }
}

void tst_room_board::taps_data()
{
    QTest::addColumn<QJsonObject>("fields");
    QTest::addColumn<bool>("isCleaning");
    QTest::addColumn<QStringList>("outcome");
    const auto row = [](const QString& name, bool isCleaning, const QJsonObject& fields,
                        const QString& outcome) {
        QTest::newRow(qPrintable(name))
            << fields << isCleaning << (outcome.isEmpty() ? QStringList() : QStringList{outcome});
    };
    const QString noGuestRooms = QStringLiteral("error|此程序不支持客房功能");
    const QString toEmpty = QStringLiteral("cleanAsked|确定要将当前房间【801】转成空闲房?|id-801|");
    row("empty", false, {{"status", 1}, {"openType", 2}, {"dirtyFlg", true}}, "openRoomAsked|id-801");
    row("reserved", false, {{"status", 1}, {"roomLock", true}}, "error|当前包房已被预约,不能直接开房");
    row("massage", false, {{"status", 2}, {"roomLock", true}, {"dirtyFlg", true}}, "roomDetailAsked|id-801");
    row("massage, opened as guest room", false, {{"status", 2}, {"openType", 2}}, "roomDetailAsked|id-801");
    row("rest", false, {{"status", 3}, {"openType", 1}}, "roomDetailAsked|id-801");
    row("rest, opened as guest room", false, {{"status", 3}, {"openType", 2}}, noGuestRooms);
    row("guest", false, {{"status", 6}, {"openType", 2}}, noGuestRooms);
    for (const int status : {0, 6, 7, 8, 9})
        row(QString("status %1").arg(status), true, {{"status", status}, {"openType", status == 6 ? 1 : 2}},
            {});
    for (const int flag : {0, 1, 2, 3})
        row(QString("one step, flag %1").arg(flag), false, {{"status", 4}, {"cleanFlg", flag}},
            toEmpty + "true");
    row("to clean", true, {{"status", 4}}, "cleanFlgAsked|确定要[开始清扫]当前房间【801】?|id-801|1");
    row("being cleaned", true, {{"status", 4}, {"cleanFlg", 1}},
        "cleanFlgAsked|当前房间【801】 确定[清扫完成]?|id-801|2");
    row("cleaned", true, {{"status", 4}, {"cleanFlg", 2}}, toEmpty + "true");
    row("unknown flag", true, {{"status", 4}, {"cleanFlg", 3}}, {});
    for (const bool isCleaning : {false, true}) {
        const QString steps = isCleaning ? ", two steps" : "";
        row("occupied" + steps, isCleaning, {{"status", 5}}, toEmpty + "false");
        row("occupied and dirty" + steps, isCleaning, {{"status", 5}, {"dirtyFlg", true}}, toEmpty + "true");
    }
}

void tst_room_board::taps()
{
    QFETCH(QJsonObject, fields);
    QFETCH(bool, isCleaning);
    QFETCH(QStringList, outcome);
    store().set_isCleaning(isCleaning);
    const auto board = filledBoard();
    m_fixture->answer(roomsPath, QJsonArray{room("800", {{"status", 1}}), room("801", fields)});
    board->onSelectStatus("1");
    m_fixture->house().reset();
    QSignalSpy open(board.get(), &Module1Vm::openRoomAsked);
    QSignalSpy detail(board.get(), &Module1Vm::roomDetailAsked);
    QSignalSpy clean(board.get(), &Module1Vm::cleanAsked);
    QSignalSpy flag(board.get(), &Module1Vm::cleanFlgAsked);
    const auto said = [&] {
        QStringList all = m_fixture->takeShown();
        for (QSignalSpy* spy : {&open, &detail, &clean, &flag}) {
            for (; !spy->isEmpty(); spy->removeFirst()) {
                all.append(QString::fromLatin1(spy->signal()).section('(', 0, 0));
                for (const QVariant& told : spy->first())
                    all.last() += "|" + told.toString();
            }
        }
        return all;
    };
    board->tapRoom("no such room");
    QCOMPARE(said(), QStringList());
    board->tapRoom("id-801");
    QCOMPARE(said(), outcome);
    board->queryRoom("801");
    QCOMPARE(said(), outcome);
    QCOMPARE(m_fixture->house().requests({}).size(), 0);
}

void tst_room_board::searchRoom()
{
    const auto board = filledBoard();
    const QJsonObject fields{
        {"status", 6}, {"openType", 2}, {"dirtyFlg", true}, {"roomLock", true}, {"cleanFlg", 1}};
    m_fixture->answer(roomsPath, QJsonArray{room("801"), room("802", fields)});
    board->onSelectStatus("1");
    QSignalSpy hits(board.get(), &Module1Vm::selectRoomSignal);
    for (const char* miss : {"8", "80", "8020", "", "803"})
        board->queryRoom(QLatin1String(miss));
    QCOMPARE(hits.size(), 0);
    board->queryRoom("802");
    QCOMPARE(hits.size(), 1);
    QCOMPARE(hits.takeFirst(), (QList<QVariant>{"id-802", "802", 6, 2, true, true, 1}));

    m_fixture->answer(roomsPath, QJsonArray{QJsonObject{{"name", "A"}, {"roomList", QJsonArray{room("901")}}},
                                            QJsonObject{{"name", "B"}, {"roomList", QJsonArray{room("902")}}}});
    board->onChgMode();
    board->queryRoom("802"); // loaded before, but not shown in this mode
    board->queryRoom("902");
    QCOMPARE(hits.size(), 1);
    QCOMPARE(hits.at(0).at(0).toString(), QStringLiteral("id-902"));
}

void tst_room_board::searchCard()
{
    const auto board = filledBoard();
    for (const char* roomNo : {"806", ""}) {
        m_fixture->answer(cardPath, QJsonObject{{"cardno", "1024"}, {"status", 5}, {"roomNo", roomNo}}, 1);
        board->queryCard("24", {});
        QCOMPARE(m_fixture->sent(cardPath), (QJsonObject{{"cardno", "24"}}));
        const QStringList shown = m_fixture->takeShown();
        QCOMPARE(shown, *roomNo ? QStringList{"question|提示|[1024]手牌在【806】"} : QStringList());
    }
    m_fixture->refuse(cardPath, "手牌不存在");
    board->queryCard("24", {});
    QCOMPARE(m_fixture->takeShown(), QStringList{"error|手牌不存在"});
}

QTEST_GUILESS_MAIN(tst_room_board)
#include "tst_room_board.moc"
