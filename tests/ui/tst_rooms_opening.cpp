// The two room dialogs, and the roads from an empty room to one in use, occupied or in cleaning, as the front
// desk walks them.

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

QString emptyRoom()
{
    return RoomFloor::roomNoWhere([](const RoomDto& room) { return room.status() == 1 && !room.roomLock(); });
}

int statusOf(const QString& roomNo) { return RoomFloor::detail(roomNo)->data()->status(); }

/// A room that has much to tell.
QJsonObject crowdedRoom()
{
    QStringList group;
    for (int i = 0; i < 12; ++i)
        group.append(QString("VIP%1").arg(8801 + i));
    const QString remark = QStringLiteral("客人对花生过敏，水果里不要放坚果；空调调到二十六度，灯光调暗，");
    return {{"id", "crowded"},
            {"roomNo", "VIP8808"},
            {"roomName", "帝王至尊豪华双人套房（带独立汗蒸）"},
            {"floorName", "三楼东区贵宾通道"},
            {"status", 3},
            {"statusStr", "休息房"},
            {"planName", "周末及节假日过夜包房二十四小时优惠方案"},
            {"hours", 24},
            {"startTime", "2026-11-23 21:35:00"},
            {"useTime", 23},
            {"surplus", 1439},
            {"overTime", 1439},
            {"staffNo", "1001"},
            {"staffName", "欧阳上官婉儿"},
            {"remark", (remark + remark + remark + remark).left(120)},
            {"group_key", "K"},
            {"groupRoom", group.join(',')}};
}

} // namespace

class tst_rooms_opening : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_terminal.reset(); }
    void init();

    void massageRoom();
    void joinedRooms();
    void restRoom();
    void withoutHandCards();
    void occupation();
    void cleaning();
    void closedByTheCross_data();
    void closedByTheCross();
    void facts();
    void crowdedFacts();
    void menuTaps();
    void notInUseAnyMore();
    void openingUndone();
    void openingUndoneBySupervisor();
    void outOfTheGroup();
    void crowdedPages();

private:
    HouseProcess& house() { return m_terminal->house(); }
    QJsonObject sent(const QString& path) { return house().lastRequest(path).value("json").toObject(); }
    Terminal& dialog(const QString& name, const QString& roomNo)
    {
        return m_terminal->open(name, {{"roomId", RoomFloor::roomId(roomNo)}});
    }
    Terminal& typeCard(const QString& number)
    {
        return m_terminal->tap("cardButton")
            .see("numKeyDlg")
            .keys(number)
            .tap("confirmButton")
            .seeNot("numKeyDlg");
    }
    QString fact(const QString& name) const { return m_terminal->property("fact_" + name, "text").toString(); }

    std::unique_ptr<Terminal> m_terminal;
};

void tst_rooms_opening::initTestCase()
{
    m_terminal.reset(new Terminal);
    QVERIFY(m_terminal->isUp());
    QCOMPARE(m_terminal->login("tile_ROOMINFO_CTRL", "1001", "1001").see("Module1").run(), QString());
}

void tst_rooms_opening::init()
{
    house().reset();
    m_terminal->takeMessages();
}

void tst_rooms_opening::massageRoom()
{
    // From the board; the hours can't be brought below one.
    const QString room = emptyRoom();
    const QStringList cards = RoomFloor::freeCards(2);
    m_terminal->tap("room_" + room).see("openRoomDlg").see("menu_CLEAN_ROOM").picture("room-open");
    m_terminal->tap("menu_MASS_ROOM").tap("saveButton");
    typeCard(cards.at(0)).see("card_" + cards.at(0));
    typeCard(cards.at(0));
    typeCard(cards.at(1)).see("card_" + cards.at(1));
    m_terminal->tap("minusButton").tap("minusButton").tap("minusButton").tap("plusButton").tap("plusButton");
    QCOMPARE(m_terminal->picture("room-open-massage")
                 .tap("remove_" + cards.at(0))
                 .seeNot("card_" + cards.at(0))
                 .tap("saveButton")
                 .seeNot("openRoomDlg")
                 .run(),
             QString());
    QCOMPARE(m_terminal->takeMessages(),
             (QStringList{"error|请先添加手牌", "error|当前手牌已存在,不能重复添加", done}));
    QCOMPARE(statusOf(room), 2);
    QCOMPARE(RoomFloor::detail(room)->data()->hours(), 3);
    QCOMPARE(RoomFloor::cardsInside(room), cards.mid(1));
}

void tst_rooms_opening::joinedRooms()
{
    const QStringList others = RoomFloor::cardsInside(RoomFloor::openRoom(2, 3));
    QVERIFY(others.size() == 3);
    const QString room = emptyRoom();
    dialog("openRoomDlg", room).tap("menu_MASS_ROOM");
    typeCard(others.at(1)).see("card_" + others.at(1));
    typeCard(others.at(2)).see("card_" + others.at(2));
    QString question;
    int lines = 0;
    QCOMPARE(m_terminal->tap("saveButton")
                 .see("msgConfirmDlg")
                 .act([&] {
                     question = m_terminal->property("contentText", "text").toString();
                     lines = m_terminal->property("contentText", "lineCount").toInt();
                 })
                 .picture("room-open-joined")
                 .tap("cancelButton")
                 .seeNot("msgConfirmDlg")
                 .see("card_" + others.at(1))
                 .tap("saveButton")
                 .see("msgConfirmDlg")
                 .tap("confirmButton")
                 .returned()
                 .run(),
             QString());
    QCOMPARE(lines, 3);
    QVERIFY(question.contains(QStringLiteral("手牌") + others.at(1)));
    QVERIFY(question.contains(QStringLiteral("手牌") + others.at(2)));
    QCOMPARE(m_terminal->takeMessages(), QStringList{done});
    QCOMPARE(RoomFloor::cardsInside(room), others.mid(1));
}

void tst_rooms_opening::restRoom()
{
    const QString room = emptyRoom();
    const QString card = RoomFloor::freeCards(1).value(0);
    dialog("openRoomDlg", room).tap("menu_REST_ROOM").see("plan_0").tap("saveButton");
    typeCard(card).see("card_" + card);
    QCOMPARE(m_terminal->tap("saveButton")
                 .tap("plan_0")
                 .picture("room-open-rest")
                 .tap("saveButton")
                 .returned()
                 .run(),
             QString());
    QCOMPARE(m_terminal->takeMessages(), (QStringList{"error|请先添加手牌", "error|请选择计费方案", done}));
    QVERIFY(!m_terminal->result().value("dlgResult").toBool());
    QCOMPARE(statusOf(room), 3);
    QCOMPARE(RoomFloor::cardsInside(room), QStringList{card});
}

void tst_rooms_opening::withoutHandCards()
{
    const QString room = emptyRoom();
    const auto setRoomMode = [](int mode) { GlobalConfig::getInstance()->sysConfig()->set_usedRoomMod(mode); };
    setRoomMode(1);
    house().answer("/baa01/getHardCardDetail", ok(QJsonObject{{"id", "own"}, {"cardno", room}}));
    house().answer("/bba01/openRestRoom", ok({}));
    bool isCardAsked = false;
    const auto look = [&] { isCardAsked = isCardAsked || m_terminal->item("cardButton"); };
    dialog("openRoomDlg", room)
        .tap("menu_MASS_ROOM")
        .see("card_" + room)
        .act(look)
        .picture("room-open-massage-mode");
    const QString failure = m_terminal->tap("menu_REST_ROOM")
                                .see("card_" + room)
                                .act(look)
                                .tap("plan_0")
                                .picture("room-open-rest-mode")
                                .tap("saveButton")
                                .returned()
                                .run();
    setRoomMode(0);
    QCOMPARE(failure, QString());
    QVERIFY(!isCardAsked);
    QCOMPARE(sent("/bba01/openRestRoom").value("cardids").toArray(), QJsonArray{"own"});
}

void tst_rooms_opening::occupation()
{
    const QString room = emptyRoom();
    QCOMPARE(dialog("openRoomDlg", room)
                 .tap("menu_OCCUPY_ROOM")
                 .see("occupy_1")
                 .tap("saveButton")
                 .tap("occupy_0")
                 .tap("occupy_1")
                 .act([&] { m_terminal->item("remarkArea")->setProperty("text", "水管坏了\n等人修"); })
                 .picture("room-occupy")
                 .tap("saveButton")
                 .returned()
                 .run(),
             QString());
    QCOMPARE(m_terminal->takeMessages(), QStringList{"error|特殊占用原由不能为空"});
    QCOMPARE(statusOf(room), 5);
    QCOMPARE(sent("/bba01/chgOccupyRoom").value("remark").toString(), QStringLiteral("水管坏了\n等人修"));
}

void tst_rooms_opening::cleaning()
{
    const QString room = emptyRoom();
    QString question;
    dialog("openRoomDlg", room).tap("menu_CLEAN_ROOM").see("msgConfirmDlg");
    m_terminal->act([&] { question = m_terminal->property("contentText", "text").toString(); });
    m_terminal->tap("cancelButton").seeNot("msgConfirmDlg").act([&] { QCOMPARE(statusOf(room), 1); });
    QCOMPARE(m_terminal->tap("menu_CLEAN_ROOM").see("msgConfirmDlg").tap("confirmButton").returned().run(),
             QString());
    QCOMPARE(question, QStringLiteral("确定要将当前房间【%1】转成清扫房?").arg(room));
    QCOMPARE(m_terminal->takeMessages(), QStringList{});
    QCOMPARE(statusOf(room), 4);
}

void tst_rooms_opening::closedByTheCross_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("status");
    QTest::newRow("empty room") << "openRoomDlg" << 1;
    QTest::newRow("room in use") << "roomDetailDlg" << 2;
}

void tst_rooms_opening::closedByTheCross()
{
    QFETCH(QString, name);
    QFETCH(int, status);
    const QString room = RoomFloor::roomNoWhere([&](const RoomDto& any) { return any.status() == status; });
    QCOMPARE(dialog(name, room).see(name).tap("closeButton").returned().run(), QString());
    QCOMPARE(m_terminal->result(), (QVariantMap{{"dlgResult", false}}));
}

void tst_rooms_opening::facts()
{
    const QString room = RoomFloor::openRoom(2, 2);
    QString number;
    QStringList seen;
    dialog("roomDetailDlg", room).see("menu_ADD_CARD").picture("room-detail");
    m_terminal->act([&] {
        number = fact("roomNo");
        for (const char* name : {"roomType", "roomFloor", "openHours", "openTime", "staffNo"})
            seen.append(fact(name));
    });
    QCOMPARE(m_terminal->tap("closeButton").returned().run(), QString());
    const auto detail = RoomFloor::detail(room);
    QCOMPARE(number, room + QStringLiteral("【") + detail->data()->statusStr() + QStringLiteral("】"));
    QCOMPARE(seen, (QStringList{detail->data()->roomName(), detail->data()->floorName(), "2小时",
                                detail->data()->startTime(),
                                detail->data()->staffNo() + "-" + detail->data()->staffName()}));
}

void tst_rooms_opening::crowdedFacts()
{
    // However long the texts, none is cut off, and none reaches into another.
    const QJsonObject room = crowdedRoom();
    house().answer("/bba01/getRoomDetailNew", ok(room));
    house().answer("/bba01/getRoomConsList", ok(QJsonArray{}));
    QStringList cut;
    QVector<QRectF> places;
    m_terminal->open("roomDetailDlg", {{"roomId", "crowded"}}).see("menu_ADD_TIME");
    m_terminal->act([&] {
        for (const char* name : {"roomNo", "roomType", "roomFloor", "planName", "openHours", "openTime",
                                 "usedHours", "leftHours", "overHours", "staffNo", "remark", "groupRoom"}) {
            const QQuickItem* text = m_terminal->item(QString("fact_%1Text").arg(name));
            if (!text || text->property("truncated").toBool() ||
                text->property("contentHeight").toReal() > text->height())
                cut.append(name);
            if (text)
                places.append(text->mapRectToScene({0, 0, text->width(), text->height()}));
        }
    });
    QCOMPARE(m_terminal->picture("room-detail-crowded").tap("closeButton").returned().run(), QString());
    QCOMPARE(cut, QStringList{});
    QCOMPARE(places.size(), 12);
    for (int one = 0; one < places.size(); ++one) {
        for (int other = one + 1; other < places.size(); ++other)
            QVERIFY2(!places.at(one).intersects(places.at(other)),
                     qPrintable(QString("%1 %2").arg(one).arg(other)));
    }
}

void tst_rooms_opening::menuTaps()
{
    // The entry that was chosen last stands out, and its page is alone.
    const QString room = RoomFloor::openRoom(2, 1);
    const auto color = [&](const char* code) {
        return m_terminal->property(QString("menu_%1").arg(code), "color").toString();
    };
    QStringList colors;
    QCOMPARE(dialog("roomDetailDlg", room)
                 .see("tableHead")
                 .tap("menu_REMARK_ROOM")
                 .see("remarkArea")
                 .seeNot("tableHead")
                 .tap("menu_OUT_ROOM")
                 .seeNot("remarkArea")
                 .see("saveButton")
                 .act([&] {
                     colors = QStringList{color("REMARK_ROOM"), color("OUT_ROOM")};
                 })
                 .tap("closeButton")
                 .returned()
                 .run(),
             QString());
    QCOMPARE(colors, (QStringList{"#ebebeb", "#398fff"}));
}

void tst_rooms_opening::notInUseAnyMore()
{
    const QString room = emptyRoom();
    QString number;
    QCOMPARE(dialog("roomDetailDlg", room)
                 .until("the message",
                        [&] {
                            return m_terminal->takeMessages() ==
                                   QStringList{"error|包房状态发生变化,请刷新后再试"};
                        })
                 .act([&] { number = fact("roomNo"); })
                 .picture("room-detail-empty")
                 .tap("closeButton")
                 .returned()
                 .run(),
             QString());
    QCOMPARE(number, QString());
    QCOMPARE(house().seen("/bba01/getRoomConsList"), 0);
}

void tst_rooms_opening::openingUndone()
{
    const QString room = RoomFloor::openRoom(2, 1);
    QString question;
    dialog("roomDetailDlg", room).tap("menu_CANCEL_ROOM").see("msgConfirmDlg");
    m_terminal->act([&] { question = m_terminal->property("contentText", "text").toString(); });
    m_terminal->tap("cancelButton").seeNot("msgConfirmDlg").act([&] {
        QCOMPARE(statusOf(room), 2);
        house().answer("/bba01/cancelRoom", QJsonObject{{"code", "ROOM_ERR"}, {"msg", "房间已有消费"}}, 1);
    });
    // A refusal leaves the dialog as it is.
    m_terminal->tap("menu_CANCEL_ROOM").see("msgConfirmDlg").tap("confirmButton");
    m_terminal->until("the refusal",
                      [&] { return m_terminal->takeMessages() == QStringList{"error|房间已有消费"}; });
    QCOMPARE(m_terminal->tap("menu_CANCEL_ROOM").see("msgConfirmDlg").tap("confirmButton").returned().run(),
             QString());
    QCOMPARE(question, QStringLiteral("确定要取消当前房间【%1】?").arg(room));
    QCOMPARE(m_terminal->takeMessages(), QStringList{done});
    QVERIFY(!m_terminal->result().value("dlgResult").toBool());
    QCOMPARE(statusOf(room), 1);
}

void tst_rooms_opening::openingUndoneBySupervisor()
{
    const QString room = RoomFloor::openRoom(2, 1);
    house().answer("/bba01/cancelRoom", QJsonObject{{"code", "AUTH_ERR_0002"}, {"msg", "没有权限"}}, 1);
    dialog("roomDetailDlg", room).tap("menu_CANCEL_ROOM").see("msgConfirmDlg").tap("confirmButton");
    m_terminal->see("authDlg").keys("1001").tap("confirmButton").keys("1001").tap("confirmButton");
    QCOMPARE(m_terminal->returned().run(), QString());
    QCOMPARE(m_terminal->takeMessages(), QStringList{done});
    QVERIFY(!sent("/bba01/cancelRoom").value("authOperater").toString().isEmpty());
    QCOMPARE(statusOf(room), 1);
}

void tst_rooms_opening::outOfTheGroup()
{
    // The others stay together.
    QStringList rooms;
    QJsonArray ids;
    for (int i = 0; i < 3; ++i) {
        rooms.append(RoomFloor::openRoom(2, 1));
        ids.append(RoomFloor::roomId(rooms.last()));
    }
    QVERIFY(isOk(*held(Bba01Service::getInstance()->mergeRoom({{"roomIdArr", ids}}))));
    QString question;
    dialog("roomDetailDlg", rooms.at(1)).tap("menu_LEAVE_TEAM").see("msgConfirmDlg");
    m_terminal->act([&] { question = m_terminal->property("contentText", "text").toString(); });
    QCOMPARE(m_terminal->tap("confirmButton").returned().run(), QString());
    QCOMPARE(question, QStringLiteral("确定要离开团体"));
    QCOMPARE(m_terminal->takeMessages(), QStringList{done});
    QVERIFY(RoomFloor::detail(rooms.at(1))->data()->group_key().isEmpty());
    const QString key = RoomFloor::detail(rooms.at(0))->data()->group_key();
    QVERIFY(!key.isEmpty());
    QCOMPARE(RoomFloor::detail(rooms.at(2))->data()->group_key(), key);
}

void tst_rooms_opening::crowdedPages()
{
    // For the eye: every list is long. The last entries are reachable all the same.
    const QString room = emptyRoom();
    QJsonArray plans;
    QJsonArray kinds;
    for (int i = 0; i < 40; ++i) {
        plans.append(QJsonObject{{"id", QString::number(i)},
                                 {"name", QString("周末及节假日过夜包房%1小时方案").arg(i)}});
        kinds.append(QJsonObject{{"id", QString::number(i)}, {"type_name", QString("设备检修%1").arg(i)}});
    }
    house().answer("/bba01/getPlanListNew", ok(plans));
    house().answer("/bba01/getOccTypeList", ok(kinds));
    dialog("openRoomDlg", room).tap("menu_MASS_ROOM");
    m_terminal->see("saveButton").picture("room-open-massage-empty").tap("menu_REST_ROOM").see("plan_0");
    for (int i = 0; i < 12; ++i) {
        const QString number = QString("8%1").arg(900 + i);
        m_terminal->act([=] {
            house().answer("/baa01/getHardCardDetail", ok(QJsonObject{{"id", number}, {"cardno", number}}), 1);
        });
        typeCard(number);
    }
    m_terminal->picture("room-open-rest-crowded").act([&] {
        QMetaObject::invokeMethod(m_terminal->item("planGrid"), "positionViewAtEnd");
    });
    m_terminal->tap("plan_39").tap("menu_OCCUPY_ROOM").see("occupy_0").act([&] {
        m_terminal->item("remarkArea")->setProperty("text", QString(400, QChar(u'备')));
    });
    QCOMPARE(m_terminal->picture("room-occupy-crowded").tap("closeButton").returned().run(), QString());
    QCOMPARE(m_terminal->takeMessages(), QStringList{});
}

QTEST_MAIN(tst_rooms_opening)
#include "tst_rooms_opening.moc"
