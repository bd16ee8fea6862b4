// The room board, as the front desk uses it.

#include "Terminal.h"

#include "app/MainClass.h"
#include "common/GlobalConfig.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QQuickItem>
#include <QtTest>

#include <memory>

namespace {

const char roomList[] = "/bba01/getRoomList";

GlobalConfig* config() { return GlobalConfig::getInstance(); }

QJsonObject room(const QString& number, QJsonObject fields)
{
    fields.insert("id", "id-" + number);
    fields.insert("code", number);
    return fields;
}

/// Every text that a tile can carry, all of them long; then with less, settled, and in cleaning.
QJsonArray crowdedRooms()
{
    const QJsonObject all{{"name", "帝王豪华套房"},
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
    QJsonObject less = all;
    for (const char* key : {"lastSvrTime", "groupRoom", "completedStaffnos", "needPayAmount"})
        less.remove(key);
    QJsonObject settled = all;
    settled.insert("status", 3);
    settled.insert("isSettle", true);
    QJsonObject dirty = all;
    dirty.insert("dirtyFlg", true);
    dirty.insert("cleanerName", "王小明");
    QJsonArray rooms;
    for (int i = 0; i < 40; ++i)
        rooms.append(room(QString::number(8200 + i), QList<QJsonObject>{all, less, settled, dirty}.at(i % 4)));
    return rooms;
}

/// A room's fields, what a tap on it opens and the road through that, and what is called once by it.
const char tapTable[] = R"(
empty ; {"status": 1} ; +openRoomDlg =error|房间被改 closeButton -openRoomDlg
    ; /bba01/getRoomDetailNew ; {"roomId": "id-801"}
in use ; {"status": 2} ; +roomDetailDlg =error|房间被改 closeButton -roomDetailDlg
    ; /bba01/getRoomDetailNew ; {"roomId": "id-801"}
reserved ; {"status": 1, "roomLock": true} ; =error|当前包房已被预约,不能直接开房 ; ;
guest room ; {"status": 3, "openType": 2} ; =error|此程序不支持客房功能 ; ;
unknown ; {"status": 7} ; ; ;
cleaning begins ; {"status": 4}
    ; ?contentText.text=确定要[开始清扫]当前房间【801】? cancelButton -confirmDlg room_801 +confirmDlg confirmButton
    =success|操作成功 ; /bba01/setCleanRoom ; {"id": "id-801", "cleanFlg": 1}
cleaned ; {"status": 4, "cleanFlg": 2}
    ; ?contentText.text=确定要将当前房间【801】转成空闲房? +confirmDlg confirmButton =success|操作成功
    ; /bba01/chgCleanRoom ; {"id": "id-801", "isClean": 0}
occupied ; {"status": 5} ; +msgConfirmDlg cancelButton -msgConfirmDlg room_801 +msgConfirmDlg confirmButton
    =success|操作成功 ; /bba01/chgOccupyRoom ; {"id": "id-801", "isOccupy": 0}
)";

/// The texts of a tile that reach beyond it, those aside that are cut off on purpose.
QStringList textsBeyond(const QQuickItem* tile, const QQuickItem* part)
{
    QStringList found;
    for (const QQuickItem* child : part->childItems()) {
        if (!child->isVisible() || child->clip())
            continue;
        const QString text = child->property("text").toString();
        const QRectF place = child->mapRectToItem(tile, {0, 0, child->width(), child->height()});
        if (!text.isEmpty() && !QRectF(-1, -1, tile->width() + 2, tile->height() + 2).contains(place))
            found.append(text);
        found += textsBeyond(tile, child);
    }
    return found;
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

    void crowded_data();
    void crowded();
    void taps_data();
    void taps();
    void bouncingTap();
    void stripAndFilters();
    void groups();
    void searches();
    void keepsItsPlace();
    void eventUnderADialog();

private:
    /// Logs in for the board; with these rooms, when there are any.
    Terminal& board(const QJsonArray& rooms = {});
    Terminal& walk(const QString& road) { return m_terminal->walk(road); }
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
    config()->room_item_count = 0;
    config()->sysConfig()->set_isCleaning(true);
}

void tst_board::cleanup()
{
    if (m_terminal->item("returnButton"))
        WALKED(walk("returnButton -returnButton"));
    QCOMPARE(m_terminal->takeMessages(), QStringList());
}

Terminal& tst_board::board(const QJsonArray& rooms)
{
    if (!rooms.isEmpty())
        m_terminal->house().answer(roomList, ok(rooms));
    return m_terminal->login("tile_ROOMINFO_CTRL", "1001", "1001").walk("+Module1").until("the rooms", [this] {
        return this->rooms() > 0;
    });
}

void tst_board::crowded_data()
{
    QTest::addColumn<int>("columns");
    for (const int columns : {6, 8, 12})
        QTest::newRow(qPrintable(QString::number(columns))) << columns;
}

void tst_board::crowded()
{
    QFETCH(int, columns);
    config()->room_item_count = columns;
    WALKED(board(crowdedRooms()).picture(QStringLiteral("board-crowded-%1").arg(columns)));
    for (int i = 0; i < 4; ++i) {
        const QQuickItem* tile = m_terminal->item(QStringLiteral("room_%1").arg(8200 + i));
        QVERIFY(tile);
        QCOMPARE(qRound(m_terminal->property("roomGrid", "width").toReal() / tile->width()), columns);
        QCOMPARE(textsBeyond(tile, tile).join(QLatin1Char(' ')), QString());
    }
}

void tst_board::taps_data() { addRows(tapTable); }

void tst_board::taps()
{
    QFETCH(QStringList, row);
    m_terminal->house().answer("/bba01/getRoomDetailNew", QJsonObject{{"code", "500"}, {"msg", "房间被改"}});
    for (const char* path : {"/bba01/setCleanRoom", "/bba01/chgCleanRoom", "/bba01/chgOccupyRoom"})
        m_terminal->house().answer(path, ok({}));
    // The search shows that nothing holds the board.
    WALKED(board({room("801", QJsonDocument::fromJson(row.at(1).toUtf8()).object())})
               .walk("room_801 " + row.at(2) + " roomSearchButton +numKeyDlg cancelButton -numKeyDlg"));
    if (row.at(3).isEmpty())
        return;
    QCOMPARE(m_terminal->house().seen(row.at(3)), 1);
    QCOMPARE(unlike(m_terminal->house().lastRequest(row.at(3)).value("json").toObject(), row.at(4)), QString());
}

/// Two taps before the first one's dialog stands open one dialog.
void tst_board::bouncingTap()
{
    WALKED(board({room("801", {{"status", 4}})})
               .tapTogether({"room_801", "room_801"})
               .walk("+confirmDlg cancelButton -confirmDlg room_801 +confirmDlg cancelButton -confirmDlg"));
}

void tst_board::stripAndFilters()
{
    int all = 0;
    WALKED(board().walk("+floor_一楼"));
    all = rooms();
    WALKED(walk("status_4").until("fewer rooms", [&] { return rooms() > 0 && rooms() < all; }));
    QVERIFY(m_terminal->property("status_4", "isCurrent").toBool());
    QVERIFY(!m_terminal->property("status_", "isCurrent").toBool());
    WALKED(walk("status_").until("all rooms", [&] { return rooms() == all; }));
    WALKED(walk("floor_一楼").until("one floor", [&] { return rooms() < all; }));
    const int oneFloor = rooms();
    WALKED(walk("floor_二楼").until("two floors", [&] { return rooms() > oneFloor; }));
    // The marks outlive a refresh.
    m_terminal->house().reset();
    event();
    WALKED(walk("").until("a refresh", [&] { return m_terminal->house().seen("/bba01/getOverTime") > 0; }));
    QVERIFY(m_terminal->property("floor_一楼", "isChecked").toBool());
    WALKED(walk("floor_一楼 floor_二楼").until("all", [&] { return rooms() == all; }));
    WALKED(walk("type_足疗双人间").until("one type", [&] { return rooms() < all; }));
}

void tst_board::groups()
{
    const QJsonArray rooms{room("801", {{"status", 1}})};
    WALKED(board(rooms).act([this] {
        const QJsonArray group{room("802", {{"status", 4}})};
        m_terminal->house().answer(roomList,
                                   ok(QJsonArray{QJsonObject{{"name", "SPA套房"}, {"roomList", group}}}));
    }));
    WALKED(walk("modeButton +roomGroups +group_SPA套房 -room_801")
               .picture("board-groups")
               .walk("room_802 +confirmDlg cancelButton -confirmDlg")
               .act([&] { m_terminal->house().answer(roomList, ok(rooms)); })
               .walk("modeButton +room_801"));
}

void tst_board::searches()
{
    m_terminal->house().answer("/baa01/getHardCardDetail",
                               ok(QJsonObject{{"cardno", "1024"}, {"roomNo", "806"}, {"status", 1}}));
    WALKED(board({room("801", {{"status", 4}})})
               .walk("roomSearchButton #801 cancelButton -numKeyDlg cardSearchButton #1024 cancelButton "
                     "-numKeyDlg"));
    QCOMPARE(m_terminal->house().seen("/baa01/getHardCardDetail"), 0);
    WALKED(
        walk("roomSearchButton #801 confirmButton +confirmDlg cancelButton -confirmDlg cardSearchButton #1024 "
             "confirmButton ?contentText.text=[1024]手牌在【806】 confirmButton -contentText"));
}

void tst_board::keepsItsPlace()
{
    QJsonArray list;
    for (int i = 0; i < 300; ++i)
        list.append(room(QString::number(1000 + i), {{"status", 1}}));
    WALKED(board(list));
    QQuickItem* grid = m_terminal->item("roomGrid");
    grid->setProperty("contentY", 777);
    // As many rooms, other rooms, and one room more: the view stays where it is.
    for (const QString& remark : {QString("a"), QString("b"), QString("c")}) {
        QJsonObject changed = list.at(3).toObject();
        changed["remark"] = remark;
        list.replace(3, changed);
        if (remark == "b")
            list.append(changed);
        m_terminal->house().answer(roomList, ok(list));
        event();
        WALKED(walk("").until("the end of the refresh", [&] {
            return rooms() == list.size() && m_terminal->house().seen("/bba01/getOverTime") > 0;
        }));
        m_terminal->house().reset();
        QCOMPARE(grid->property("contentY").toInt(), 777);
    }
    // What is left is shown even when it is less than a page.
    m_terminal->house().answer(roomList, ok(QJsonArray{list.at(0)}));
    event();
    WALKED(walk("").until("one room", [this] { return rooms() == 1; }).walk("+room_1000"));
}

void tst_board::eventUnderADialog()
{
    const QJsonObject dirty = room("801", {{"status", 4}});
    WALKED(board({dirty})
               .walk("room_801 +confirmDlg")
               .act([&] {
                   m_terminal->house().answer(roomList, ok(QJsonArray{dirty, room("802", {{"status", 1}})}));
                   event();
               })
               .walk("+confirmDlg cancelButton -confirmDlg")
               .act([this] { QCOMPARE(rooms(), 1); }) // its fetch would have taken taps from the dialog
               .walk("+room_802"));
}

QTEST_MAIN(tst_board)
#include "tst_board.moc"
