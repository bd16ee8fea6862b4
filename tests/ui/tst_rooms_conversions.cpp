// A room in use that moves, changes its kind or its plan, or gets more time, as the front desk walks through
// it.

#include "Terminal.h"

#include "common/GlobalConfig.h"
#include "dto/room/RoomRecords.h"
#include "services/Bba01Service.h"
#include "support/RoomFloor.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QQuickItem>
#include <QtTest>

#include <memory>

namespace {

const QString done = QStringLiteral("success|操作成功");

QJsonObject ok(const QJsonValue& data) { return {{"code", "200"}, {"msg", ""}, {"data", data}}; }

int statusOf(const QString& roomId)
{
    int status = 0;
    RoomFloor::roomNoWhere([&](const RoomDto& room) {
        if (room.id() == roomId)
            status = room.status();
        return status != 0;
    });
    return status;
}

/// An empty room with so many plans at least.
QString emptyRoom(int plans = 0)
{
    return RoomFloor::roomNoWhere([=](const RoomDto& room) {
        if (room.status() != 1 || room.roomLock())
            return false;
        const auto found =
            held(Bba01Service::getInstance()->getRoomPlanNew({{"roomId", room.id()}, {"planType", 1}}));
        return found->data().size() >= plans;
    });
}

} // namespace

class tst_rooms_conversions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_terminal.reset(); }
    void init();

    void moveByOneTap();
    void moveToAChosenRoom();
    void restRoomMoves();
    void massageToRest();
    void restToMassage();
    void planAndTime();
    void withoutHandCards();
    void crowded();

private:
    HouseProcess& house() { return m_terminal->house(); }
    QJsonObject sent(const QString& path) { return house().lastRequest(path).value("json").toObject(); }
    /// Opens the room's dialog and the page behind a menu entry.
    Terminal& page(const QString& roomNo, const QString& menuCode)
    {
        return m_terminal->open("roomDetailDlg", {{"roomId", RoomFloor::roomId(roomNo)}})
            .tap("menu_" + menuCode);
    }
    /// Types a number into the dialog that the button opens.
    Terminal& type(const QString& button, const QString& number)
    {
        return m_terminal->tap(button).see("numKeyDlg").keys(number).tap("confirmButton").seeNot("numKeyDlg");
    }
    /// What was said, once something was.
    Terminal& hear(const QStringList& messages)
    {
        return m_terminal->until("hear " + messages.join(' '), [=] {
            m_heard += m_terminal->takeMessages();
            return m_heard == messages;
        });
    }
    QString textOf(const QString& name) const { return m_terminal->property(name, "text").toString(); }
    /// Whether the tile is drawn as the one that counts.
    bool isMarked(const QString& tile) const
    {
        return m_terminal->property(tile, "backColor").value<QColor>() == QColor("#398FFF");
    }

    std::unique_ptr<Terminal> m_terminal;
    QStringList m_heard;
};

void tst_rooms_conversions::initTestCase()
{
    m_terminal.reset(new Terminal);
    QVERIFY(m_terminal->isUp());
    QCOMPARE(m_terminal->login("tile_ROOMINFO_CTRL", "1001", "1001").see("Module1").run(), QString());
}

void tst_rooms_conversions::init()
{
    house().reset();
    m_terminal->takeMessages();
    m_heard.clear();
}

void tst_rooms_conversions::moveByOneTap()
{
    const QString room = RoomFloor::openRoom(2, 1);
    QVERIFY(!room.isEmpty());
    const QString roomId = RoomFloor::roomId(room);
    QCOMPARE(page(room, "MASS_CHG_ROOM")
                 .until("the first room is marked", [&] { return isMarked("room_0") && !isMarked("room_1"); })
                 .picture("room-move")
                 .tap("saveButton")
                 .returned()
                 .run(),
             QString());
    QCOMPARE(m_terminal->takeMessages(), QStringList());
    QCOMPARE(statusOf(roomId), 1);
    QCOMPARE(statusOf(sent("/bba01/changeRoom").value("newRoomId").toString()), 2);
}

void tst_rooms_conversions::moveToAChosenRoom()
{
    const QString room = RoomFloor::openRoom(2, 1);
    QVERIFY(!room.isEmpty());
    const QString roomId = RoomFloor::roomId(room);
    const QString target = emptyRoom();
    page(room, "MASS_CHG_ROOM").tap("room_1").until("it alone is marked", [&] {
        return isMarked("room_1") && !isMarked("room_0");
    });
    // No room with such a number; then the one.
    type("searchButton", "99999").seeNot("room_0").picture("room-move-none").tap("saveButton");
    hear({"error|请选择需要换入的房间"});
    type("searchButton", target).until("it is marked", [&] { return isMarked("room_0"); });
    QCOMPARE(m_terminal->tap("needCleanButton")
                 .until("it is ticked",
                        [&] { return m_terminal->property("needCleanButton", "isChecked").toBool(); })
                 .tap("saveButton")
                 .returned()
                 .run(),
             QString());
    QCOMPARE(statusOf(roomId), 4);
    QCOMPARE(statusOf(RoomFloor::roomId(target)), 2);
}

void tst_rooms_conversions::restRoomMoves()
{
    const QString room = RoomFloor::openRoom(3, 1);
    const QString target = emptyRoom(2);
    QVERIFY(!room.isEmpty() && !target.isEmpty());
    const QString roomId = RoomFloor::roomId(room);
    page(room, "REST_CHG_ROOM").until("a plan is marked", [&] { return isMarked("plan_0"); });
    type("searchButton", target).until("it alone is there", [&] {
        return isMarked("room_0") && !m_terminal->item("room_1") && isMarked("plan_0");
    });
    QCOMPARE(m_terminal->tap("plan_1")
                 .until("the plan is marked", [&] { return isMarked("plan_1") && !isMarked("plan_0"); })
                 .picture("room-move-rest")
                 .tap("saveButton")
                 .returned()
                 .run(),
             QString());
    QCOMPARE(m_terminal->takeMessages(), QStringList());
    QCOMPARE(statusOf(roomId), 1);
    QCOMPARE(statusOf(RoomFloor::roomId(target)), 3);
}

void tst_rooms_conversions::massageToRest()
{
    const QString room = RoomFloor::openRoom(2, 2);
    const QStringList cards = RoomFloor::cardsInside(room);
    const QString added = RoomFloor::freeCards(1).value(0);
    QVERIFY(cards.size() == 2 && !added.isEmpty());
    page(room, "MASS_CHG_REST").see("card_" + cards.at(1)).see("plan_0").tap("saveButton");
    hear({"error|请选择计费方案"});
    type("cardButton", cards.at(0));
    hear({"error|请选择计费方案", "error|当前手牌已存在,不能重复添加"});
    type("cardButton", added).see("card_" + added).tap("plan_0").until("it is marked", [&] {
        return isMarked("plan_0");
    });
    QCOMPARE(m_terminal->picture("room-to-rest")
                 .tap("remove_" + cards.at(0))
                 .seeNot("card_" + cards.at(0))
                 .tap("saveButton")
                 .returned()
                 .run(),
             QString());
    QCOMPARE(m_terminal->takeMessages(), QStringList{done});
    QCOMPARE(RoomFloor::detail(room)->data()->status(), 3);
    QCOMPARE(RoomFloor::cardsInside(room), (QStringList{cards.at(1), added}));
}

void tst_rooms_conversions::restToMassage()
{
    const QString room = RoomFloor::openRoom(3, 2);
    const QString otherRoom = RoomFloor::openRoom(2, 1);
    const QStringList cards = RoomFloor::cardsInside(room);
    const QString movedOver = RoomFloor::cardsInside(otherRoom).value(0);
    QVERIFY(cards.size() == 2 && !movedOver.isEmpty());
    page(room, "REST_CHG_MASS").see("check_" + cards.at(1)).tap("saveButton");
    hear({"error|请选择需要计入消费的手牌"});
    type("cardButton", movedOver).see("msgConfirmDlg").tap("cancelButton").seeNot("msgConfirmDlg");
    type("cardButton", movedOver).see("msgConfirmDlg").tap("confirmButton").see("card_" + movedOver);
    for (int i = 0; i < 4; ++i)
        m_terminal->tap("minusButton");
    m_terminal->until("one is the least", [&] { return textOf("stepValue") == "1小时"; }).tap("plusButton");
    QCOMPARE(m_terminal->tap("check_" + cards.at(1))
                 .until("it pays",
                        [&] { return m_terminal->property("check_" + cards.at(1), "isChecked").toBool(); })
                 .picture("room-to-massage")
                 .tap("remove_" + cards.at(0))
                 .seeNot("card_" + cards.at(0))
                 .tap("saveButton")
                 .returned()
                 .run(),
             QString());
    QCOMPARE(m_terminal->takeMessages(), QStringList{done});
    QCOMPARE(sent("/bba01/restToMassRoom").value("cardId").toString(), RoomFloor::cardId(cards.at(1)));
    const auto changed = RoomFloor::detail(room);
    QCOMPARE(changed->data()->status(), 2);
    QCOMPARE(changed->data()->hours(), 2);
    QCOMPARE(RoomFloor::cardsInside(room), (QStringList{cards.at(1), movedOver}));
}

void tst_rooms_conversions::planAndTime()
{
    const QString room = RoomFloor::openRoom(3, 1);
    QVERIFY(!room.isEmpty());
    page(room, "REST_CHG_PLAN").see("plan_0").tap("saveButton");
    hear({"error|请选择计费方案"}).tap("plan_0").until("it is marked", [&] { return isMarked("plan_0"); });
    QCOMPARE(m_terminal->picture("room-plan").tap("saveButton").returned().run(), QString());
    const int hours = RoomFloor::detail(room)->data()->hours();
    page(room, "ADD_TIME").tap("minusButton").tap("plusButton").tap("plusButton").tap("minusButton");
    QCOMPARE(m_terminal->until("two hours", [&] { return textOf("stepValue") == "2小时"; })
                 .picture("room-add-time")
                 .tap("saveButton")
                 .returned()
                 .run(),
             QString());
    QCOMPARE(m_terminal->takeMessages(), (QStringList{done, done}));
    QCOMPARE(RoomFloor::detail(room)->data()->hours(), hours + 2);
}

void tst_rooms_conversions::withoutHandCards()
{
    // The room's own card is in the room, so that the user is asked; guests' cards are not.
    const auto setRoomMode = [](int mode) { GlobalConfig::getInstance()->sysConfig()->set_usedRoomMod(mode); };
    QStringList entries;
    for (const int status : {2, 3}) {
        house().reset();
        const QString room = RoomFloor::openRoom(status, 1);
        QVERIFY(!room.isEmpty());
        const bool isMassage = status == 2;
        const QString path = isMassage ? "/bba01/massToRestRoom" : "/bba01/restToMassRoom";
        house().answer("/baa01/getHardCardDetail",
                       ok(QJsonObject{{"id", "own"}, {"cardno", room}, {"status", 1}, {"roomNo", room}}));
        house().answer(path, ok({}));
        setRoomMode(1);
        const QString failure =
            page(room, isMassage ? "MASS_CHG_REST" : "REST_CHG_MASS")
                .see("msgConfirmDlg")
                .tap("confirmButton")
                .see("card_" + room)
                .act([&] { entries += m_terminal->item("cardButton") ? "shown" : "hidden"; })
                .tap(isMassage ? "plan_0" : "check_" + room)
                .picture(isMassage ? "room-to-rest-mode" : "room-to-massage-mode")
                .tap("saveButton")
                .returned()
                .run();
        setRoomMode(0);
        QCOMPARE(failure, QString());
        QCOMPARE(sent(path).value("cardids").toArray(), QJsonArray{"own"});
    }
    QCOMPARE(entries, (QStringList{"hidden", "hidden"}));
}

void tst_rooms_conversions::crowded()
{
    // For the eye: every list is long. The last entries are reachable all the same.
    QJsonArray cards;
    QJsonArray rooms;
    QJsonArray plans;
    for (int i = 0; i < 60; ++i) {
        const QString id = QString::number(i);
        cards.append(QJsonObject{{"cardno", QString("VIP%1").arg(80000 + i)}, {"cardId", id}});
        rooms.append(
            QJsonObject{{"id", id}, {"vals", QString("VIP88%1 三楼东区 帝王至尊豪华双人套房").arg(i)}});
        plans.append(QJsonObject{{"id", id}, {"name", QString("周末及节假日过夜包房%1小时方案").arg(i)}});
    }
    house().answer("/bba01/getEmptyRoomList", ok(rooms));
    house().answer("/bba01/getPlanListNew", ok(plans));
    const QString room = RoomFloor::openRoom(2, 1);
    const auto visit = [&](const QString& menu, const QString& grid, const QString& tile, int offset = 0) {
        m_terminal->tap("menu_" + menu).see(tile + QString::number(offset));
        m_terminal->picture("room-crowded-" + menu).act([=] {
            QMetaObject::invokeMethod(m_terminal->item(grid), "positionViewAtEnd");
        });
        m_terminal->tap(tile + QString::number(offset + 59));
    };
    for (const int status : {2, 3}) {
        house().answer("/bba01/getRoomDetailNew", ok(QJsonObject{{"id", "crowded"},
                                                                 {"roomNo", room},
                                                                 {"status", status},
                                                                 {"statusStr", "在用"},
                                                                 {"cardlist", cards}}));
        m_terminal->open("roomDetailDlg", {{"roomId", "crowded"}});
        if (status == 2) {
            visit("MASS_CHG_ROOM", "roomGrid", "room_");
            visit("MASS_CHG_REST", "planGrid", "plan_");
        } else {
            visit("REST_CHG_ROOM", "roomGrid", "room_");
            visit("REST_CHG_MASS", "cards", "check_VIP", 80000);
            visit("REST_CHG_PLAN", "planGrid", "plan_");
        }
        QCOMPARE(m_terminal->tap("closeButton").returned().run(), QString());
    }
    QCOMPARE(m_terminal->takeMessages(), QStringList());
}

QTEST_MAIN(tst_rooms_conversions)
#include "tst_rooms_conversions.moc"
