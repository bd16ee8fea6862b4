// Cards that come into a room, move on and leave, groups of rooms, and the small pages of the room's dialog, as
// the front desk walks through them.

#include "Terminal.h"

#include "common/GlobalConfig.h"
#include "support/RoomFloor.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QQuickItem>
#include <QtTest>

#include <memory>

namespace {

const QString done = QStringLiteral("success|操作成功");

QJsonObject ok(const QJsonValue& data) { return {{"code", "200"}, {"msg", ""}, {"data", data}}; }

/// A room whose every list is long.
QJsonObject crowdedRoom(const QString& roomNo, int status)
{
    QJsonArray cards;
    QJsonArray services;
    for (int i = 1; i <= 40; ++i) {
        cards.append(QJsonObject{{"cardno", QString("VIP%1").arg(80000 + i)}, {"cardId", QString::number(i)}});
        services.append(QJsonObject{{"contId", QString::number(i)},
                                    {"contName", QString("请送%1份时令水果拼盘和热毛巾到房间里来").arg(i)}});
    }
    return {{"id", "crowded"},   {"roomNo", roomNo},
            {"status", status},  {"remark", QString(60, QChar(u'备'))},
            {"cardlist", cards}, {"calllist", services}};
}

QJsonArray crowdedConsumption()
{
    QJsonArray lines;
    for (int i = 0; i < 40; ++i) {
        lines.append(
            QJsonObject{{"cardNo", QString("VIP%1").arg(80000 + i)},
                        {"srcOldCardNo", i % 5 == 2 ? "8001" : ""},
                        {"itemName", i % 3 ? "精油开背" : "帝王至尊古法全身推拿九十分钟豪华套餐含足浴"},
                        {"num", i % 4 ? 1 : 12.5},
                        {"price", i % 3 ? 128 : 12888.88},
                        {"amount", i % 3 ? 128 : 161111},
                        {"staffNo", i % 2 ? "801" : "801,802,803,804"},
                        {"pushNo", i % 2 ? "" : "805"},
                        {"cmtFlg", 1},
                        {"createtime", "2026-11-23 21:35:00"}});
    }
    return lines;
}

} // namespace

class tst_rooms_groups : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_terminal.reset(); }
    void init();

    void addCards();
    void moveCards();
    void leaveMassageRoom();
    void leaveRestRoom();
    void merge();
    void consumption();
    void remark();
    void calls();
    void crowded();

private:
    HouseProcess& house() { return m_terminal->house(); }
    QJsonObject sent(const QString& path) { return house().lastRequest(path).value("json").toObject(); }
    /// Opens the room's dialog and the page behind a menu entry.
    Terminal& page(const QString& roomId, const QString& menuCode)
    {
        return m_terminal->open("roomDetailDlg", {{"roomId", roomId}}).tap("menu_" + menuCode);
    }
    /// Types a number into the dialog that the button opens.
    Terminal& type(const QString& button, const QString& number)
    {
        return m_terminal->tap(button).see("numKeyDlg").keys(number).tap("confirmButton").seeNot("numKeyDlg");
    }

    std::unique_ptr<Terminal> m_terminal;
};

void tst_rooms_groups::initTestCase()
{
    m_terminal.reset(new Terminal);
    QVERIFY(m_terminal->isUp());
    QCOMPARE(m_terminal->login("tile_ROOMINFO_CTRL", "1001", "1001").see("Module1").run(), QString());
}

void tst_rooms_groups::init()
{
    house().reset();
    m_terminal->takeMessages();
}

void tst_rooms_groups::addCards()
{
    const QString room = RoomFloor::openRoom(2, 1);
    const QString otherRoom = RoomFloor::openRoom(2, 2);
    QVERIFY(!room.isEmpty() && !otherRoom.isEmpty());
    const QString own = RoomFloor::cardsInside(room).value(0);
    const QString movedOver = RoomFloor::cardsInside(otherRoom).value(0);
    const QString unwanted = RoomFloor::freeCards(1).value(0);
    page(RoomFloor::roomId(room), "ADD_CARD").see("card_" + own);
    type("cardButton", unwanted).see("card_" + unwanted);
    type("cardButton", movedOver).see("msgConfirmDlg").tap("confirmButton").see("card_" + movedOver);
    type("cardButton", movedOver).see("msgConfirmDlg").tap("cancelButton").seeNot("msgConfirmDlg");
    QCOMPARE(m_terminal->picture("room-add-cards")
                 .tap("remove_" + unwanted)
                 .seeNot("card_" + unwanted)
                 .tap("saveButton")
                 .returned()
                 .run(),
             QString());
    QCOMPARE(m_terminal->takeMessages(), QStringList{done});
    QCOMPARE(RoomFloor::cardsInside(room), (QStringList{own, movedOver}));
}

void tst_rooms_groups::moveCards()
{
    const QString from = RoomFloor::openRoom(2, 2);
    const QString to = RoomFloor::openRoom(2, 1);
    QVERIFY(!from.isEmpty() && !to.isEmpty());
    const QString moved = RoomFloor::cardsInside(from).value(1);
    page(RoomFloor::roomId(from), "UNPACK_ROOM").see("room_5").picture("room-split-cards").tap("saveButton");
    type("searchButton", to).seeNot("room_1");
    QCOMPARE(m_terminal->tap("card_" + moved).tap("room_0").tap("saveButton").returned().run(), QString());
    QCOMPARE(m_terminal->takeMessages(), QStringList{"error|请选择需要进入的房间"});
    QVERIFY(RoomFloor::cardsInside(to).contains(moved));
    QVERIFY(!RoomFloor::cardsInside(from).contains(moved));
}

void tst_rooms_groups::leaveMassageRoom()
{
    const QString room = RoomFloor::openRoom(2, 2);
    QVERIFY(!room.isEmpty());
    const QStringList cards = RoomFloor::cardsInside(room);
    QVERIFY(cards.size() == 2);
    QString shownCheck;
    QCOMPARE(page(RoomFloor::roomId(room), "OUT_ROOM")
                 .see("card_" + cards.at(1))
                 .act([&] { shownCheck = m_terminal->item("check_" + cards.at(1)) ? "shown" : "none"; })
                 .tap("card_" + cards.at(0))
                 .tap("card_" + cards.at(1))
                 .tap("saveButton")
                 .until("the message",
                        [&] { return m_terminal->takeMessages() == QStringList{"error|请选择需要离房的手牌"}; })
                 .tap("card_" + cards.at(1))
                 .picture("room-leave-massage")
                 .tap("saveButton")
                 .returned()
                 .run(),
             QString());
    QCOMPARE(shownCheck, QStringLiteral("none"));
    QCOMPARE(m_terminal->takeMessages(), QStringList{done});
    QCOMPARE(RoomFloor::cardsInside(room), cards.mid(0, 1));
}

void tst_rooms_groups::leaveRestRoom()
{
    const QString room = RoomFloor::openRoom(3, 2);
    QVERIFY(!room.isEmpty());
    const QStringList cards = RoomFloor::cardsInside(room);
    QVERIFY(cards.size() == 2);
    const auto isChecked = [&](int card) {
        return m_terminal->property("check_" + cards.at(card), "isChecked").toBool();
    };
    QCOMPARE(page(RoomFloor::roomId(room), "OUT_ROOM")
                 .see("check_" + cards.at(1))
                 .until("the first one pays", [&] { return isChecked(0) && !isChecked(1); })
                 .tap("check_" + cards.at(1))
                 .until("the other one pays", [&] { return !isChecked(0) && isChecked(1); })
                 .tap("card_" + cards.at(1))
                 .picture("room-leave-rest")
                 .tap("saveButton")
                 .returned()
                 .run(),
             QString());
    QCOMPARE(m_terminal->takeMessages(), QStringList{done});
    QCOMPARE(sent("/bba01/leaveRoomNew").value("cardId").toString(), RoomFloor::cardId(cards.at(1)));
    QCOMPARE(RoomFloor::cardsInside(room), cards.mid(1));
}

void tst_rooms_groups::merge()
{
    const QString room = RoomFloor::openRoom(2, 1);
    const QString other = RoomFloor::openRoom(2, 1);
    QVERIFY(!room.isEmpty() && !other.isEmpty());
    const QString otherTile = "room_" + RoomFloor::roomId(other);
    page(RoomFloor::roomId(room), "UNION_ROOM").see("group_").picture("room-merge").tap("saveButton");
    type("searchButton", other);
    QCOMPARE(m_terminal->tap(otherTile).tap("saveButton").returned().run(), QString());
    QCOMPARE(m_terminal->takeMessages(), (QStringList{"error|请选择需要合并的房间", done}));
    const QString key = RoomFloor::detail(room)->data()->group_key();
    QVERIFY(!key.isEmpty());
    QCOMPARE(RoomFloor::detail(other)->data()->group_key(), key);
}

void tst_rooms_groups::consumption()
{
    // The page that stands when the dialog opens. Each cell lies under its title.
    house().answer("/bba01/getRoomConsList", ok(crowdedConsumption()));
    const QString room = RoomFloor::openRoom(2, 1);
    QString colors;
    QStringList cells;
    m_terminal->open("roomDetailDlg", {{"roomId", RoomFloor::roomId(room)}}).see("line_2");
    m_terminal->act([&] {
        for (const char* line : {"line_0", "line_2"})
            colors += m_terminal->property(line, "color").toString();
        for (const char* row : {"tableHead", "row_0"}) {
            QStringList places;
            for (const QQuickItem* cell : m_terminal->item(row)->childItems().at(0)->childItems()) {
                if (cell->property("text").isValid())
                    places.append(QString("%1+%2").arg(cell->mapToScene({0, 0}).x()).arg(cell->width()));
            }
            cells.append(places.join(' '));
        }
    });
    // The remark's page, and out.
    QCOMPARE(m_terminal->picture("room-consumption").tap("menu_REMARK_ROOM").tap("saveButton").returned().run(),
             QString());
    QCOMPARE(colors, QStringLiteral("#ffffff#eae9ea"));
    QCOMPARE(cells.at(0).count('+'), 8);
    QCOMPARE(cells.at(1), cells.at(0));
    QCOMPARE(sent("/bba01/getRoomConsList").value("roomId").toString(), RoomFloor::roomId(room));
}

void tst_rooms_groups::remark()
{
    const QString room = RoomFloor::openRoom(2, 1);
    for (const QString& text : {QStringLiteral("客人要热水\n少冰"), QString()}) {
        const QString before = RoomFloor::detail(room)->data()->remark();
        QCOMPARE(page(RoomFloor::roomId(room), "REMARK_ROOM")
                     .see("remarkArea")
                     .until("the old remark",
                            [&] {
                                return m_terminal->item("remarkArea")->isEnabled() &&
                                       m_terminal->property("remarkArea", "text").toString() == before;
                            })
                     .act([&] { m_terminal->item("remarkArea")->setProperty("text", text); })
                     .picture(text.isEmpty() ? "room-remark-empty" : "room-remark")
                     .tap("saveButton")
                     .returned()
                     .run(),
                 QString());
        QCOMPARE(m_terminal->takeMessages(), QStringList{done});
        QCOMPARE(RoomFloor::detail(room)->data()->remark(), text);
    }
}

void tst_rooms_groups::calls()
{
    const QString room = RoomFloor::openRoom(2, 1);
    house().fault("/caa04/callStaff", "refuse:无人应答", 0, 1);
    QCOMPARE(page(RoomFloor::roomId(room), "ROOM_CALLING")
                 .tap("plusButton_0")
                 .tap("plusButton_1")
                 .tap("plusButton_1")
                 .tap("minusButton_0")
                 .tap("minusButton_0")
                 .tap("plusButton_0")
                 .picture("room-call")
                 .tap("saveButton")
                 .until("the first one is left",
                        [&] { return m_terminal->property("stepValue_1", "text").toString() == "0"; })
                 .tap("saveButton")
                 .returned()
                 .run(),
             QString());
    QStringList calls;
    for (const QJsonValue& request : house().requests("/caa04/callStaff"))
        calls.append(QString::number(request.toObject().value("json").toObject().value("num").toInt()));
    QCOMPARE(calls, (QStringList{"1", "2", "1"}));
    QCOMPARE(m_terminal->takeMessages().value(1), done);
}

void tst_rooms_groups::crowded()
{
    // For the eye, and that every page stands without a word of complaint.
    const QString room = RoomFloor::openRoom(2, 1);
    const QString roomId = RoomFloor::roomId(room);
    QJsonArray candidates;
    for (int i = 0; i < 60; ++i) {
        candidates.append(QJsonObject{{"roomId", QString::number(i)},
                                      {"roomNo", QString::number(8000 + i)},
                                      {"floorName", "三楼东区"},
                                      {"hourseName", "帝王豪华套房"},
                                      {"groupKey", i % 5 ? QString() : QString("K%1").arg(i % 3)}});
    }
    house().answer("/bba01/getCanMergeRoomList", ok(candidates));
    for (const int status : {2, 3}) {
        house().answer("/bba01/getRoomDetailNew", ok(crowdedRoom(room, status)));
        const QStringList pages = status == 2 ? QStringList{"ADD_CARD",   "UNPACK_ROOM",  "OUT_ROOM",
                                                            "UNION_ROOM", "ROOM_CALLING", "REMARK_ROOM"}
                                              : QStringList{"OUT_ROOM", "REMARK_ROOM"};
        const QMap<QString, QString> firstItems{
            {"ADD_CARD", "card_VIP80001"}, {"UNPACK_ROOM", "card_VIP80001"}, {"OUT_ROOM", "card_VIP80001"},
            {"UNION_ROOM", "group_"},      {"ROOM_CALLING", "plusButton_0"}, {"REMARK_ROOM", "remarkArea"}};
        m_terminal->open("roomDetailDlg", {{"roomId", roomId}});
        for (const QString& code : pages) {
            m_terminal->tap("menu_" + code)
                .see(firstItems.value(code))
                .picture(QString("room-crowded-%1-%2").arg(status).arg(code));
        }
        house().answer("/bba01/setRemark", ok({}));
        QCOMPARE(m_terminal->tap("saveButton").returned().run(), QString());
        QCOMPARE(m_terminal->takeMessages(), QStringList{done});
    }
}

QTEST_MAIN(tst_rooms_groups)
#include "tst_rooms_groups.moc"
