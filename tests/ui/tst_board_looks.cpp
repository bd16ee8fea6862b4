// What can be read and hit on the room board, on every usual screen.

#include "Terminal.h"

#include "app/MainClass.h"
#include "common/GlobalConfig.h"
#include "inspect/Legibility.h"
#include "inspect/ScreenItems.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QQuickItem>
#include <QQuickItemGrabResult>
#include <QQuickWindow>
#include <QtTest>

#include <memory>

namespace {

const char roomList[] = "/bba01/getRoomList";

QJsonObject room(const QString& number, int status, QJsonObject fields = {})
{
    fields["id"] = fields["code"] = number;
    fields["floorname"] = "三楼";
    fields["status"] = status;
    return fields;
}

struct Shown
{
    QJsonObject room;
    QString mark;
    QString name; ///< for who doesn't see the tile
};

/// Rooms in all states and colours, from empty to overfull.
std::vector<Shown> rooms()
{
    const QJsonObject guests{{"cardnos", "8001,8002,8003,8004"}, {"staffnos", "801,802,803"}, {"surplus", 45}};
    QJsonObject full{{"cardnos", "8001,8002,8003,8004,8005,8006"}, {"staffnos", "801,802"}, {"surplus", -83}};
    for (const char* key : {"completedStaffnos", "groupRoom", "remark", "lastSvrTime", "name"})
        full[key] = "客人要求安静不要打扰";
    const QJsonObject dirty{
        {"dirtyFlg", true}, {"cleanerNo", "601"}, {"cleanerName", "王小明"}, {"openType", 2}};
    return {{room("801", 2, guests), "按", "801,按摩房,剩余0小时45分"},
            {room("802", 3, full), "休", "802,休息房,超时1小时23分"},
            {room("803", 3, {{"isSettle", true}, {"surplus", -2880}}), "结", "803,已结账,超时一天以上"},
            {room("804", 3, {{"openType", 2}}), "客", "804,客房,剩余0小时0分"},
            {room("805", 6, dirty), "脏", "805,待清扫客房,王小明-601"},
            {room("806", 8, guests), "用", "806,在用房,剩余0小时45分"},
            {room("807", 11), "?", "807,未知状态"},
            {room("808", 1, {{"statusStr", "空闲房"}}), "空", "808,空闲房"},
            {room("809", 1, {{"roomLock", true}}), "约", "809,预约"},
            {room("810", 4, {{"cleanFlg", 1}, {"remark", "加冰桶"}}), "扫", "810,清扫房,开始清扫"},
            {room("811", 5, {{"cooName", "设备维修"}}), "占", "811,特殊占用房,设备维修"},
            {room("812", 5, dirty), "扫", "812,清扫房,清扫"},
            {room("牡丹亭VIP8888号房", 2, full), "按", "牡丹亭VIP8888号房,按摩房,超时1小时23分"}};
}

QRectF place(const QQuickItem* item) { return item->mapRectToScene({0, 0, item->width(), item->height()}); }

QString textOf(const QQuickItem* item) { return item->property("text").toString().remove(QChar(0x200B)); }

} // namespace

class tst_board_looks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_terminal.reset(); }
    void cleanup();

    void screens_data();
    void screens();
    void columns();
    void places();

private:
    void show(const QSize& screen, const QJsonArray& rooms);

    std::unique_ptr<Terminal> m_terminal;
    QQuickWindow* m_window = nullptr;
};

void tst_board_looks::initTestCase()
{
    m_terminal.reset(new Terminal);
    QVERIFY(m_terminal->isUp());
    m_window = m_terminal->item("mainPage")->window();
}

void tst_board_looks::cleanup()
{
    if (m_terminal->item("returnButton"))
        QCOMPARE(m_terminal->tap("returnButton").walk("-returnButton").run(), QString());
    GlobalConfig::getInstance()->room_item_count = 0;
    m_terminal->house().reset();
}

void tst_board_looks::show(const QSize& screen, const QJsonArray& rooms)
{
    m_window->resize(screen);
    m_terminal->house().answer(roomList, ok(rooms));
    m_terminal->house().answer("/bba01/getOverTime",
                               ok(QJsonArray{QJsonObject{{"code", "809"}, {"overtimes", 83}}}));
    QCOMPARE(m_terminal->login("tile_ROOMINFO_CTRL", "1001", "1001").walk("+over_809").run(), QString());
}

void tst_board_looks::screens_data()
{
    QTest::addColumn<QSize>("screen");
    QTest::addColumn<bool>("isByType");
    for (const QSize screen : {QSize(1366, 768), QSize(1920, 1080), QSize(1024, 768)}) {
        for (const bool isByType : {false, true})
            QTest::addRow("%d%s", screen.width(), isByType ? " by type" : "") << screen << isByType;
    }
}

void tst_board_looks::screens()
{
    QFETCH(QSize, screen);
    QFETCH(bool, isByType);
    QJsonArray list;
    for (const Shown& shown : rooms())
        list.append(shown.room);
    show(screen, list);
    if (isByType) {
        const QJsonObject type{{"name", "贵宾间非常长的名字"}, {"roomList", QJsonArray{room("901", 1)}}};
        m_terminal->house().answer(roomList,
                                   ok(QJsonArray{type, QJsonObject{{"name", "套房"}, {"roomList", list}}}));
        QCOMPARE(m_terminal->tap("modeButton").walk("+room_901").run(), QString());
    }
    m_terminal->tap("floor_一楼").until("its mark", [this] {
        return m_terminal->property("floor_一楼", "isChecked").toBool() && takesInput();
    });
    QCOMPARE(m_terminal->run(), QString());
    const auto grab = m_window->contentItem()->grabToImage();
    QVERIFY(grab && QSignalSpy(grab.data(), &QQuickItemGrabResult::ready).wait());

    QStringList guests;
    QSet<QString> cutTiles;
    const QList<QQuickItem*> items = Legibility::wholeItems(m_terminal->item("Module1"));
    QCOMPARE(Legibility::faults(items, grab->image()).join(QStringLiteral(", ")), QString());
    for (const QQuickItem* item : items) {
        if (!Legibility::isReadableText(item))
            continue;
        const QString text = textOf(item);
        const QQuickItem* tile = item->parentItem();
        while (tile && !tile->objectName().startsWith("room_"))
            tile = tile->parentItem();
        if (!tile)
            continue;
        QVERIFY2(place(tile).contains(place(item)), qPrintable(text));
        if (tile->objectName() == "room_801")
            guests.append(text);
        if (item->property("truncated").toBool() || text.endsWith("…"))
            cutTiles.insert(tile->objectName());
    }
    m_terminal->takeMessages();
    m_terminal->tap("over_809").until("the tap's message", [this] {
        return m_terminal->takeMessages() == QStringList{"error|当前包房已被预约,不能直接开房"};
    });
    QCOMPARE(m_terminal->run(), QString());
    QVERIFY2(guests.join(' ').contains("客:8001,8002,8003,8004\n技:801,802,803"), qPrintable(guests.join(' ')));
    QCOMPARE(cutTiles, (QSet<QString>{"room_802", "room_牡丹亭VIP8888号房"}));
    for (const Shown& shown : rooms()) {
        const QString tile = "room_" + shown.room["code"].toString();
        QCOMPARE(m_terminal->property(tile, "stateMark").toString(), shown.mark);
        QCOMPARE(m_terminal->property(tile, "label").toString(), shown.name);
    }
}

void tst_board_looks::columns()
{
    const int rows[][3] = {{0, 1366, 8}, {0, 1920, 8}, {5, 1024, 6}, {8, 1024, 8}};
    for (const auto& [setting, width, columns] : rows) {
        GlobalConfig::getInstance()->room_item_count = setting;
        show({width, 768}, {room("801", 1)});
        QCOMPARE(m_terminal->property("roomGrid", "columns").toInt(), columns);
        cleanup();
    }
}

/// What the user asks for is shown from its top; what an event brings leaves the rooms where they are.
void tst_board_looks::places()
{
    QJsonArray list, types;
    for (int i = 0; i < 300; ++i)
        list.append(room(QString::number(1000 + i), 1));
    for (int i = 0; i < 30; ++i)
        types.append(QJsonObject{{"name", QString::number(i)}, {"roomList", QJsonArray{list.at(i)}}});
    show({1366, 768}, list);
    QQuickItem* grid = m_terminal->item("roomGrid");
    for (const char* filter : {"status_4", "floor_一楼", "type_足疗双人间"}) {
        grid->setProperty("contentY", 777);
        m_terminal->tap(filter).until("the top", [=] { return grid->property("contentY") == 0; });
        QCOMPARE(m_terminal->run(), QString());
    }

    m_terminal->house().answer(roomList, ok(types));
    QCOMPARE(m_terminal->tap("modeButton").walk("+group_0").run(), QString());
    QQuickItem* groups = m_terminal->item("roomGroups");
    groups->setProperty("contentY", 777);
    QVERIFY(QTest::qWaitFor([this] { return m_terminal->item("group_9"); }));
    const QRectF before = place(m_terminal->item("group_9"));
    types.removeAt(3);
    types.prepend(QJsonObject{{"name", "new"}, {"roomList", list}});
    types.append(QJsonObject{{"name", "last"}, {"roomList", list}});
    m_terminal->house().answer(roomList, ok(types));
    Q_EMIT MainClass::getInstance()->mqttSignal(GlobalConfig::getInstance()->MQTT_ROOM_STATUS(), {});
    m_terminal->until("the event", [=] { return groups->property("count") == types.size(); });
    m_terminal->until("its place", [=] {
        const QQuickItem* group = m_terminal->item("group_9");
        return group && place(group) == before;
    });
    QCOMPARE(m_terminal->tap("status_1").walk("+group_new").run(), QString());
}

QTEST_MAIN(tst_board_looks)
#include "tst_board_looks.moc"
