// The room board, as the front desk uses it.

#include "Terminal.h"

#include "app/MainClass.h"
#include "common/GlobalConfig.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QQuickItem>
#include <QtTest>

#include <memory>

namespace {

const char roomList[] = "/bba01/getRoomList";

QJsonObject ok(const QJsonValue& data) { return {{"code", "200"}, {"msg", ""}, {"data", data}}; }

GlobalConfig* config() { return GlobalConfig::getInstance(); }

/// Every text that a tile can carry, all of them long.
QJsonObject crowdedRoom(const QString& number)
{
    return {{"id", "id-" + number},
            {"code", number},
            {"name", "帝王豪华套房"},
            {"floorname", "三楼东区"},
            {"status", 2},
            {"cardnos", "0101,0102,0103,0104,0105,0106,0107,0108,0109,0110"},
            {"staffnos", "801,802,803,804,805,806"},
            {"completedStaffnos", "807,808,809,810"},
            {"groupRoom", "8201,8202,8203,8204,8205,8206"},
            {"remark", "客人要求安静,不要打扰,茶水每半小时添一次"},
            {"lastSvrTime", "2026-11-23 21:35:00"},
            {"needPayAmount", 12888.5},
            {"hours", 2},
            {"surplus", -83}};
}

} // namespace

class tst_board : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_terminal.reset(); }
    void init();
    void cleanup();

    void looks();
    void taps_data();
    void taps();
    void questions_data();
    void questions();
    void bouncingTap();
    void strip();
    void filters();
    void searches();
    void keepsItsPlace();
    void eventUnderADialog();

private:
    /// Logs in for the board; with these rooms, when there are any.
    Terminal& board(const QJsonArray& rooms = {});
    int rooms() const { return m_terminal->property("roomGrid", "count").toInt(); }
    void event() { Q_EMIT MainClass::getInstance()->mqttSignal(config()->MQTT_ROOM_STATUS(), {}); }

    std::unique_ptr<Terminal> m_terminal;
};

void tst_board::initTestCase()
{
    m_terminal.reset(new Terminal);
    QVERIFY(m_terminal->isUp());
}

void tst_board::init()
{
    m_terminal->house().reset();
    m_terminal->takeMessages();
    config()->room_item_count = 0;
    config()->sysConfig()->set_isCleaning(true);
}

void tst_board::cleanup()
{
    if (m_terminal->item("returnButton"))
        QCOMPARE(m_terminal->tap("returnButton").seeNot("returnButton").run(), QString());
}

Terminal& tst_board::board(const QJsonArray& rooms)
{
    if (!rooms.isEmpty())
        m_terminal->house().answer(roomList, ok(rooms));
    return m_terminal->login("tile_ROOMINFO_CTRL", "1001", "1001").see("Module1").until("the rooms", [this] {
        return this->rooms() > 0;
    });
}

/// The board with few and many columns, plain and by type, with what the house has and with too much text.
void tst_board::looks()
{
    for (const int columns : {8, 12, 6}) {
        config()->room_item_count = columns;
        QCOMPARE(
            board()
                .picture(QStringLiteral("board-%1").arg(columns))
                .tap("modeButton")
                .see("roomGroups")
                .until("the groups", [this] { return m_terminal->property("roomGroups", "count").toInt() > 0; })
                .picture(QStringLiteral("board-groups-%1").arg(columns))
                .run(),
            QString());
        cleanup();
    }
    QJsonArray rooms;
    for (int i = 0; i < 40; ++i) {
        QJsonObject room = crowdedRoom(QStringLiteral("8%1").arg(200 + i));
        if (i % 4 == 1) {
            for (const char* key : {"lastSvrTime", "groupRoom", "completedStaffnos", "needPayAmount"})
                room.remove(key);
            room["surplus"] = 45;
        } else if (i % 4 == 2) {
            room["status"] = 3;
            room["isSettle"] = true;
            room["remark"] = "";
        } else if (i % 4 == 3) {
            room["dirtyFlg"] = true;
            room["cleanerNo"] = "601";
            room["cleanerName"] = "王小明";
        }
        rooms.append(room);
    }
    for (const int columns : {8, 12}) {
        config()->room_item_count = columns;
        QCOMPARE(board(rooms).picture(QStringLiteral("board-crowded-%1").arg(columns)).run(), QString());
        cleanup();
    }
}

void tst_board::taps_data()
{
    QTest::addColumn<QJsonObject>("fields");
    QTest::addColumn<QString>("dialog");
    QTest::addColumn<QStringList>("messages");
    const QStringList reserved{"error|当前包房已被预约,不能直接开房"};
    const QStringList guestRoom{"error|此程序不支持客房功能"};
    QTest::newRow("empty") << QJsonObject{{"status", 1}} << "openRoomDlg" << QStringList();
    QTest::newRow("reserved") << QJsonObject{{"status", 1}, {"roomLock", true}} << "" << reserved;
    QTest::newRow("massage") << QJsonObject{{"status", 2}} << "roomDetailDlg" << QStringList();
    QTest::newRow("rest") << QJsonObject{{"status", 3}} << "roomDetailDlg" << QStringList();
    QTest::newRow("guest room") << QJsonObject{{"status", 3}, {"openType", 2}} << "" << guestRoom;
    QTest::newRow("other guest room") << QJsonObject{{"status", 6}, {"openType", 2}} << "" << guestRoom;
    QTest::newRow("status 6") << QJsonObject{{"status", 6}} << "" << QStringList();
    QTest::newRow("status 7") << QJsonObject{{"status", 7}} << "" << QStringList();
    QTest::newRow("cleaning, unknown step")
        << QJsonObject{{"status", 4}, {"cleanFlg", 3}} << "" << QStringList();
}

void tst_board::taps()
{
    QFETCH(QJsonObject, fields);
    QFETCH(QString, dialog);
    QFETCH(QStringList, messages);
    fields["id"] = "r1";
    fields["code"] = "801";
    board({fields}).tap("room_801");
    if (!dialog.isEmpty()) {
        m_terminal->house().answer("/bba01/getRoomDetailNew",
                                   QJsonObject{{"code", "500"}, {"msg", "房间被改"}});
        m_terminal->see(dialog).until(
            "the refusal", [this] { return m_terminal->house().seen("/bba01/getRoomDetailNew") > 0; });
        QCOMPARE(m_terminal->tap("closeButton").seeNot(dialog).run(), QString());
        QCOMPARE(
            m_terminal->house().lastRequest("/bba01/getRoomDetailNew").value("json").toObject().value("roomId"),
            QJsonValue("r1"));
        return;
    }
    // A second tap shows that nothing holds the board.
    QCOMPARE(m_terminal->tap("roomSearchButton").see("numKeyDlg").tap("cancelButton").seeNot("numKeyDlg").run(),
             QString());
    QCOMPARE(m_terminal->takeMessages(), messages);
}

void tst_board::questions_data()
{
    QTest::addColumn<QJsonObject>("fields");
    QTest::addColumn<bool>("isCleaning");
    QTest::addColumn<QString>("dialog");
    QTest::addColumn<QString>("question");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QJsonObject>("sent");
    const QString empty = "确定要将当前房间【801】转成空闲房?";
    const QJsonObject cleaned{{"id", "r1"}, {"isClean", 0}};
    QTest::newRow("cleaning begins") << QJsonObject{{"status", 4}} << true << "confirmDlg"
                                     << "确定要[开始清扫]当前房间【801】?"
                                     << "/bba01/setCleanRoom" << QJsonObject{{"id", "r1"}, {"cleanFlg", 1}};
    QTest::newRow("cleaning is done") << QJsonObject{{"status", 4}, {"cleanFlg", 1}} << true << "confirmDlg"
                                      << "当前房间【801】 确定[清扫完成]?"
                                      << "/bba01/setCleanRoom" << QJsonObject{{"id", "r1"}, {"cleanFlg", 2}};
    QTest::newRow("cleaned") << QJsonObject{{"status", 4}, {"cleanFlg", 2}} << true << "confirmDlg" << empty
                             << "/bba01/chgCleanRoom" << cleaned;
    QTest::newRow("cleaned in one step")
        << QJsonObject{{"status", 4}} << false << "confirmDlg" << empty << "/bba01/chgCleanRoom" << cleaned;
    QTest::newRow("dirty") << QJsonObject{{"status", 5}, {"dirtyFlg", true}} << true << "confirmDlg" << empty
                           << "/bba01/chgCleanRoom" << cleaned;
    QTest::newRow("occupied") << QJsonObject{{"status", 5}} << true << "msgConfirmDlg" << empty
                              << "/bba01/chgOccupyRoom" << QJsonObject{{"id", "r1"}, {"isOccupy", 0}};
}

void tst_board::questions()
{
    QFETCH(QJsonObject, fields);
    QFETCH(bool, isCleaning);
    QFETCH(QString, dialog);
    QFETCH(QString, path);
    QFETCH(QJsonObject, sent);
    config()->sysConfig()->set_isCleaning(isCleaning);
    fields["id"] = "r1";
    fields["code"] = "801";
    m_terminal->house().answer(path, ok({}));
    board({fields}).tap("room_801").see(dialog).act([this] {
        QTEST(m_terminal->property("contentText", "text").toString(), "question");
    });
    QCOMPARE(m_terminal->tap("cancelButton").seeNot(dialog).run(), QString());
    QCOMPARE(m_terminal->house().seen(path), 0);
    QCOMPARE(m_terminal->tap("room_801")
                 .see(dialog)
                 .tap("confirmButton")
                 .until("the message",
                        [this] { return m_terminal->takeMessages() == QStringList{"success|操作成功"}; })
                 .run(),
             QString());
    const QJsonObject request = m_terminal->house().lastRequest(path).value("json").toObject();
    for (auto it = sent.begin(); it != sent.end(); ++it)
        QCOMPARE(request.value(it.key()), it.value());
}

/// Two taps before the first one's dialog stands open one dialog.
void tst_board::bouncingTap()
{
    board({QJsonObject{{"id", "r1"}, {"code", "801"}, {"status", 4}}}).act([this] {
        for (int i = 0; i < 2; ++i)
            QMetaObject::invokeMethod(m_terminal->item("room_801"), "tap");
    });
    QCOMPARE(m_terminal->see("confirmDlg")
                 .tap("cancelButton")
                 .seeNot("confirmDlg")
                 .tap("room_801")
                 .see("confirmDlg")
                 .tap("cancelButton")
                 .seeNot("confirmDlg")
                 .run(),
             QString());
}

void tst_board::strip()
{
    int all = 0;
    board().act([&] { all = rooms(); }).tap("status_4");
    QCOMPARE(m_terminal->until("fewer rooms", [&] { return rooms() > 0 && rooms() < all; }).run(), QString());
    QCOMPARE(m_terminal->property("status_4", "isCurrent").toBool(), true);
    QCOMPARE(m_terminal->property("status_", "isCurrent").toBool(), false);
    QCOMPARE(m_terminal->tap("status_").until("all rooms", [&] { return rooms() == all; }).run(), QString());
}

void tst_board::filters()
{
    int all = 0;
    QCOMPARE(board().see("floor_一楼").run(), QString());
    all = rooms();
    QCOMPARE(m_terminal->tap("floor_一楼").until("one floor", [&] { return rooms() < all; }).run(), QString());
    const int oneFloor = rooms();
    QCOMPARE(m_terminal->tap("floor_二楼").until("two floors", [&] { return rooms() > oneFloor; }).run(),
             QString());
    QCOMPARE(m_terminal->property("floor_一楼", "isChecked").toBool(), true);
    // The marks outlive a refresh.
    m_terminal->house().reset();
    event();
    QCOMPARE(m_terminal->until("a refresh", [&] { return m_terminal->house().seen("/bba01/getOverTime") > 0; })
                 .run(),
             QString());
    QCOMPARE(m_terminal->property("floor_一楼", "isChecked").toBool(), true);
    QCOMPARE(m_terminal->tap("floor_一楼").tap("floor_二楼").until("all", [&] { return rooms() == all; }).run(),
             QString());
}

void tst_board::searches()
{
    m_terminal->house().answer("/baa01/getHardCardDetail",
                               ok(QJsonObject{{"cardno", "1024"}, {"roomNo", "806"}, {"status", 1}}));
    board({QJsonObject{{"id", "r1"}, {"code", "801"}, {"status", 1}, {"roomLock", true}}});
    QCOMPARE(m_terminal->tap("roomSearchButton")
                 .see("numKeyDlg")
                 .keys("801")
                 .tap("confirmButton")
                 .until("the tap's message",
                        [this] {
                            return m_terminal->takeMessages() ==
                                   QStringList{"error|当前包房已被预约,不能直接开房"};
                        })
                 .tap("cardSearchButton")
                 .see("numKeyDlg")
                 .keys("1024")
                 .tap("confirmButton")
                 .see("contentText")
                 .act([this] {
                     QCOMPARE(m_terminal->property("contentText", "text").toString(),
                              QStringLiteral("[1024]手牌在【806】"));
                 })
                 .picture("card-found")
                 .tap("confirmButton")
                 .seeNot("contentText")
                 .run(),
             QString());
}

void tst_board::keepsItsPlace()
{
    QJsonArray list;
    for (int i = 0; i < 300; ++i)
        list.append(
            QJsonObject{{"id", QString::number(i)}, {"code", QString::number(1000 + i)}, {"status", 1}});
    QCOMPARE(board(list).run(), QString());
    QQuickItem* grid = m_terminal->item("roomGrid");
    grid->setProperty("contentY", 777);
    // As many rooms, other rooms, and one room more: the view stays where it is.
    for (const QString& remark : {QString("a"), QString("b"), QString("c")}) {
        QJsonObject room = list.at(3).toObject();
        room["remark"] = remark;
        list.replace(3, room);
        if (remark == "b")
            list.append(room);
        m_terminal->house().answer(roomList, ok(list));
        event();
        QCOMPARE(m_terminal->until("the refresh", [&] { return rooms() == list.size(); })
                     .until("the end of it", [&] { return m_terminal->house().seen("/bba01/getOverTime") > 0; })
                     .run(),
                 QString());
        m_terminal->house().reset();
        QCOMPARE(grid->property("contentY").toInt(), 777);
    }
    // What is left is shown even when it is less than a page.
    m_terminal->house().answer(roomList, ok(QJsonArray{list.at(0)}));
    event();
    QCOMPARE(m_terminal->until("one room", [this] { return rooms() == 1; }).see("room_1000").run(), QString());
}

void tst_board::eventUnderADialog()
{
    const QJsonObject room{{"id", "r1"}, {"code", "801"}, {"status", 4}};
    board({room}).tap("room_801").see("confirmDlg").act([&] {
        m_terminal->house().answer(
            roomList, ok(QJsonArray{room, QJsonObject{{"id", "r2"}, {"code", "802"}, {"status", 1}}}));
        event();
    });
    QCOMPARE(m_terminal->until("the board behind the dialog", [this] { return rooms() == 2; })
                 .see("confirmDlg")
                 .tap("cancelButton")
                 .seeNot("confirmDlg")
                 .see("room_802")
                 .run(),
             QString());
}

QTEST_MAIN(tst_board)
#include "tst_board.moc"
