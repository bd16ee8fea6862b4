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

private:
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
}

void tst_board::cleanup()
{
    if (m_terminal->item("returnButton"))
        QCOMPARE(m_terminal->tap("returnButton").seeNot("returnButton").run(), QString());
}

void tst_board::looks()
{
    for (const int columns : {8, 12, 6}) {
        config()->room_item_count = columns;
        m_terminal->login("tile_ROOMINFO_CTRL", "1001", "1001").see("Module1");
        m_terminal->until("rooms", [&] { return m_terminal->property("roomGrid", "count").toInt() > 0; });
        QCOMPARE(m_terminal->picture(QStringLiteral("board-%1").arg(columns)).run(), QString());
        QCOMPARE(m_terminal->tap("modeButton")
                     .see("roomGroups")
                     .picture(QStringLiteral("board-groups-%1").arg(columns))
                     .tap("returnButton")
                     .seeNot("returnButton")
                     .run(),
                 QString());
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
        m_terminal->house().answer(roomList, ok(rooms), -1);
        m_terminal->login("tile_ROOMINFO_CTRL", "1001", "1001").see("Module1");
        m_terminal->until("rooms", [&] { return m_terminal->property("roomGrid", "count").toInt() == 40; });
        QCOMPARE(m_terminal->picture(QStringLiteral("board-crowded-%1").arg(columns))
                     .tap("returnButton")
                     .seeNot("returnButton")
                     .run(),
                 QString());
    }
}

QTEST_MAIN(tst_board)
#include "tst_board.moc"
