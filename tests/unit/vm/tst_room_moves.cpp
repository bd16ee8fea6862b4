// A room in use that moves to an empty one: the rooms to choose from, and the plans of the chosen one.

#include "RoomFixture.h"
#include "RoomLists.h"

#include "dto/room/RoomRecords.h"
#include "vm/module1/ChgRoomVm.h"

#include <QAbstractItemModelTester>
#include <QTimer>
#include <QtTest>

namespace {

const QString roomsPath = QStringLiteral("/bba01/getEmptyRoomList");
const QString plansPath = QStringLiteral("/bba01/getPlanListNew");
const QString noRoom = QStringLiteral("error|请选择需要换入的房间");
const QString noNewPlan = QStringLiteral("error|请选择新房间的计费方案");

} // namespace

class tst_room_moves : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_room->reset(); }

    void roomsToMoveTo_data();
    void roomsToMoveTo();
    void plansOfTheNewRoom_data();
    void plansOfTheNewRoom();
    void laterChoiceWins();
    void houseMovesTheRoom_data();
    void houseMovesTheRoom();

private:
    std::unique_ptr<RoomFixture> m_room;
};

void tst_room_moves::initTestCase()
{
    m_room.reset(new RoomFixture);
    QVERIFY(m_room->isUp());
}

void tst_room_moves::roomsToMoveTo_data()
{
    QTest::addColumn<bool>("isRest");
    QTest::newRow("massage") << false;
    QTest::newRow("rest") << true;
}

void tst_room_moves::roomsToMoveTo()
{
    QFETCH(bool, isRest);
    MassChgRoomVm massage;
    RestChgRoomVm rest;
    ChgRoomVm& page = isRest ? static_cast<ChgRoomVm&>(rest) : massage;
    const auto save = [&] { return isRest ? rest.save() : massage.save(); };
    const QAbstractItemModelTester tester(page.pEmptyRoomModel());
    QVERIFY(!page.isNeedClean());
    m_room->answer(plansPath, plans({"P"}));
    m_room->answer(roomsPath, rooms({"A", "B", "C"}), 1);
    page.init("R1");
    QCOMPARE(m_room->sent(roomsPath), (QJsonObject{{"roomNo", ""}}));
    QCOMPARE(listed(page.pEmptyRoomModel()), QStringLiteral("A* B C"));
    QCOMPARE(page.pEmptyRoomModel()->getAll().at(1).tempName, QStringLiteral("%1 of B"));
    page.selectRoom(2);
    page.selectRoom(3); // no such room
    page.selectRoom(-1);
    m_room->refuse(roomsPath, QStringLiteral("查询失败"), 1);
    page.getRoomInfo("10");
    QCOMPARE(m_room->takeShown(), QStringList{"error|查询失败"});
    QCOMPARE(listed(page.pEmptyRoomModel()), QStringLiteral("A B C*"));
    m_room->answer(roomsPath, rooms({"B", "C"}), 1);
    page.getRoomInfo("2");
    QCOMPARE(m_room->sent(roomsPath), (QJsonObject{{"roomNo", "2"}}));
    QCOMPARE(listed(page.pEmptyRoomModel()), QStringLiteral("B* C"));
    QStringList askedForPlans;
    for (const QJsonObject& fields : m_room->allSent(plansPath))
        askedForPlans.append(fields.value("roomId").toString());
    QCOMPARE(askedForPlans, isRest ? QStringList({"A", "C", "B"}) : QStringList());

    m_room->answer(roomsPath, rooms({}), 1);
    page.getRoomInfo("99");
    QCOMPARE(listed(page.pEmptyRoomModel()), QString());
    QCOMPARE(listed(rest.pPlanListModel()), QString());
    QVERIFY(!save());
    QCOMPARE(m_room->takeShown(), QStringList{noRoom});
    QVERIFY(page.isEnabled());
}

void tst_room_moves::plansOfTheNewRoom_data()
{
    QTest::addColumn<QStringList>("found");
    QTest::addColumn<bool>("isRefused");
    QTest::addColumn<QString>("plans");
    QTest::addColumn<QStringList>("shown");
    QTest::newRow("others") << QStringList{"P3", "P4"} << false << "P3* P4" << QStringList{};
    QTest::newRow("none") << QStringList{} << false << "" << QStringList{noNewPlan};
    QTest::newRow("refused") << QStringList{} << true << "" << QStringList{"error|查询失败", noNewPlan};
}

void tst_room_moves::plansOfTheNewRoom()
{
    // A plan of the room that was chosen before doesn't count.
    QFETCH(QStringList, found);
    QFETCH(bool, isRefused);
    QFETCH(QStringList, shown);
    RestChgRoomVm page;
    const QAbstractItemModelTester tester(page.pPlanListModel());
    m_room->answer(roomsPath, rooms({"A", "B"}));
    m_room->answer(plansPath, plans({"P1", "P2"}), 1);
    page.init("R1");
    page.checkPlan(1);
    page.checkPlan(2); // no such plan
    QCOMPARE(listed(page.pPlanListModel()), QStringLiteral("P1 P2*"));
    if (isRefused)
        m_room->refuse(plansPath, QStringLiteral("查询失败"), 1);
    else
        m_room->answer(plansPath, plans(found), 1);
    page.selectRoom(1);
    QCOMPARE(m_room->sent(plansPath), (QJsonObject{{"roomId", "B"}, {"planType", 1}}));
    QCOMPARE(listed(page.pEmptyRoomModel()), QStringLiteral("A B*"));
    QTEST(listed(page.pPlanListModel()), "plans");
    m_room->answer("/bba01/changeRoom", {});
    QCOMPARE(page.save(), shown.isEmpty());
    QCOMPARE(m_room->takeShown(), shown);
    QCOMPARE(m_room->house().seen("/bba01/changeRoom"), shown.isEmpty() ? 1 : 0);
}

void tst_room_moves::laterChoiceWins()
{
    RestChgRoomVm page;
    m_room->answer(roomsPath, rooms({"A", "B", "C"}));
    m_room->answer(plansPath, plans({"P1"}), 1);
    page.init("R1");
    // The answer for B comes when C has been chosen and has its plans.
    m_room->house().fault(plansPath, "delay", 300, 1);
    m_room->answer(plansPath, plans({"P2"}), 1);
    bool savedTooEarly = true;
    QTimer::singleShot(50, &page, [&] {
        savedTooEarly = page.save();
        m_room->answer(plansPath, plans({"P3", "P4"}), 1);
        page.selectRoom(2);
        page.checkPlan(1);
    });
    page.selectRoom(1);
    QVERIFY(!savedTooEarly);
    QCOMPARE(m_room->takeShown(), QStringList{noNewPlan});
    QCOMPARE(m_room->house().seen(plansPath), 3);
    QCOMPARE(listed(page.pEmptyRoomModel()), QStringLiteral("A B C*"));
    QCOMPARE(listed(page.pPlanListModel()), QStringLiteral("P3 P4*"));
}

void tst_room_moves::houseMovesTheRoom_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<bool>("isNeedClean");
    QTest::newRow("massage") << 2 << false;
    QTest::newRow("rest, to clean") << 3 << true;
}

void tst_room_moves::houseMovesTheRoom()
{
    QFETCH(int, status);
    QFETCH(bool, isNeedClean);
    const QString from = RoomFloor::openRoom(status, 2);
    QVERIFY(!from.isEmpty());
    const QString fromId = RoomFloor::roomId(from);
    const QStringList guests = RoomFloor::cardsInside(from);
    MassChgRoomVm massage;
    RestChgRoomVm rest;
    ChgRoomVm& page = status == 3 ? static_cast<ChgRoomVm&>(rest) : massage;
    page.init(fromId);
    for (int i = 0; status == 3 && rest.pPlanListModel()->rowCount() == 0; ++i)
        page.selectRoom(i); // some rooms have no plans
    page.setIsNeedClean(isNeedClean);
    const QString toId = page.pEmptyRoomModel()->checkedId();
    QVERIFY(status == 3 ? rest.save() : massage.save());
    const auto roomIs = [](const QString& id, int state) {
        return RoomFloor::roomNoWhere(
            [&](const RoomDto& room) { return room.id() == id && room.status() == state; });
    };
    QCOMPARE(roomIs(fromId, isNeedClean ? 4 : 1), from);
    QCOMPARE(RoomFloor::cardsInside(roomIs(toId, status)), guests);
}

QTEST_GUILESS_MAIN(tst_room_moves)
#include "tst_room_moves.moc"
