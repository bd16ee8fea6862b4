// Hand cards that leave a room, and the slip when it was the last one.

#include "RoomFixture.h"

#include "common/Clock.h"
#include "common/GlobalConfig.h"
#include "vm/module1/RoomCardVms.h"

#include <QAbstractItemModelTester>
#include <QtTest>

namespace {

const QString leavePath = QStringLiteral("/bba01/leaveRoomNew");
const QString done = QStringLiteral("success|操作成功");

} // namespace

class tst_room_leaving : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_room->reset(); }
    void cleanup();
    void leavingStart_data();
    void leavingStart();
    void leaving_data();
    void leaving();
    void leavingSlip_data();
    void leavingSlip();
    void guestsLeave();

private:
    Reply<GetRoomDetailNew> room(const QStringList& cardNos, int status = 2)
    {
        return m_room->madeUpDetail({{"id", "R1"}, {"roomNo", "101"}, {"status", status}}, cardNos);
    }
    std::unique_ptr<RoomFixture> m_room;
};

void tst_room_leaving::initTestCase()
{
    m_room.reset(new RoomFixture);
    QVERIFY(m_room->isUp());
}

void tst_room_leaving::cleanup()
{
    Clock::setSource(nullptr);
    GlobalConfig::getInstance()->leave_room_print_count = 0;
}

void tst_room_leaving::leavingStart_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QStringList>("cards");
    QTest::addColumn<int>("consumer");
    QTest::newRow("massage room") << 2 << QStringList{"8001", "8002", "8001"} << -1;
    QTest::newRow("rest room") << 3 << QStringList{"8001", "8002", "8001"} << 0;
    QTest::newRow("rest room without cards") << 3 << QStringList{} << -1;
}

void tst_room_leaving::leavingStart()
{
    QFETCH(int, status);
    QFETCH(QStringList, cards);
    LeaveRoomVm page;
    const QAbstractItemModelTester tester(page.pCardListModel());
    QVERIFY(page.init(room(cards, status)->data()));
    QCOMPARE(page.status(), status);
    QVERIFY(!page.usedRoomMod());
    QTEST(page.pCardListModel()->checkedIndex(), "consumer");
    QCOMPARE(page.pCardListModel()->selectedIds(), page.pCardListModel()->ids()); // all of them leave
    QCOMPARE(page.pCardListModel()->rowCount(), cards.mid(0, 2).size());
}

void tst_room_leaving::leaving_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("cards");
    QTest::addColumn<QVector<int>>("toggled");
    QTest::addColumn<int>("consumer"); // tapped, -1: none
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QJsonObject>("sent"); // beside id and status; nothing at all when empty
    const auto fields = [](const QJsonArray& leaving, const QString& consumer = {}) {
        QJsonObject sent{{"cardids", leaving}};
        if (!consumer.isEmpty())
            sent.insert("cardId", consumer);
        return sent;
    };
    const QString nobody = QStringLiteral("error|请选择需要离房的手牌");
    const QString noConsumer = QStringLiteral("error|请选择需要计入消费的手牌");
    using Taps = QVector<int>;
    QTest::newRow("massage, all") << 2 << 2 << Taps{} << -1 << done << fields({"id-1", "id-2"});
    QTest::newRow("massage, one") << 2 << 2 << Taps{0} << -1 << done << fields({"id-2"});
    QTest::newRow("massage, nobody") << 2 << 2 << Taps{0, 1} << -1 << nobody << QJsonObject{};
    QTest::newRow("massage without cards") << 2 << 0 << Taps{} << -1 << done << fields({});
    QTest::newRow("rest, all") << 3 << 2 << Taps{} << -1 << done << fields({"id-1", "id-2"}, "id-1");
    QTest::newRow("rest, another pays")
        << 3 << 3 << Taps{2, 0, 2} << 2 << done << fields({"id-2", "id-3"}, "id-3");
    QTest::newRow("rest, one who stays pays") << 3 << 2 << Taps{0} << -1 << done << fields({"id-2"}, "id-1");
    QTest::newRow("rest, nobody") << 3 << 1 << Taps{0} << -1 << nobody << QJsonObject{};
    QTest::newRow("rest without cards") << 3 << 0 << Taps{} << -1 << noConsumer << QJsonObject{};
}

void tst_room_leaving::leaving()
{
    QFETCH(int, status);
    QFETCH(int, cards);
    QFETCH(QVector<int>, toggled);
    QFETCH(int, consumer);
    QFETCH(QString, shown);
    QFETCH(QJsonObject, sent);
    m_room->answer(leavePath, QJsonObject{{"allleave", false}});
    LeaveRoomVm page;
    QVERIFY(page.init(room(QStringList{"1", "2", "3"}.mid(0, cards), status)->data()));
    for (const int card : toggled)
        page.selectCard(card);
    if (consumer >= 0)
        page.selectConsumer(consumer);
    const auto enabled = noteEnabled(&page);
    QCOMPARE(page.save(), shown == done);
    QCOMPARE(m_room->takeShown(), QStringList{shown});
    QVERIFY(page.isEnabled());
    if (sent.isEmpty()) {
        QCOMPARE(m_room->house().seen(leavePath), 0);
        return;
    }
    QCOMPARE(*enabled, busyOnce());
    sent.insert("id", "R1");
    sent.insert("status", status);
    QCOMPARE(m_room->sent(leavePath), sent);
}

void tst_room_leaving::leavingSlip_data()
{
    QTest::addColumn<QString>("outcome");
    QTest::addColumn<int>("copies");
    QTest::addColumn<int>("printed");
    QTest::addColumn<QString>("shown");
    QTest::newRow("all, no slips wanted") << "all" << 0 << 0 << done;
    QTest::newRow("all, one slip") << "all" << 1 << 1 << done;
    QTest::newRow("all, two slips") << "all" << 2 << 2 << done;
    QTest::newRow("some stay") << "some" << 2 << 0 << done;
    QTest::newRow("not told") << "" << 2 << 0 << done;
    QTest::newRow("refused") << "refused" << 2 << 0 << "error|房间未结账";
}

void tst_room_leaving::leavingSlip()
{
    QFETCH(QString, outcome);
    QFETCH(int, copies);
    QFETCH(int, printed);
    QFETCH(QString, shown);
    static const qint64 leftAt = QDateTime::currentMSecsSinceEpoch();
    Clock::setSource([] { return leftAt; });
    GlobalConfig::getInstance()->leave_room_print_count = copies;
    if (outcome == "refused")
        m_room->refuse(leavePath, QStringLiteral("房间未结账"));
    else if (outcome.isEmpty())
        m_room->answer(leavePath, {});
    else
        m_room->answer(leavePath, QJsonObject{{"allleave", outcome == "all"}});
    LeaveRoomVm page;
    page.init(m_room
                  ->madeUpDetail({{"id", "R1"},
                                  {"roomNo", "325"},
                                  {"roomName", "商务套房"},
                                  {"startTime", "2026-01-02 03:04:05"},
                                  {"status", 3},
                                  {"hours", 4},
                                  {"useTime", 5},
                                  {"planName", "套房4小时"}},
                                 {"8001", "8002", "8001"})
                  ->data());
    page.selectConsumer(1);
    QCOMPARE(page.save(), shown == done);
    QCOMPARE(m_room->takeShown(), QStringList{shown});
    const QString paper = m_room->takePrinted();
    QCOMPARE(paper.count(QStringLiteral("[退房单]")), printed);
    const QString now = QDateTime::fromMSecsSinceEpoch(leftAt).toString("yyyy-MM-dd HH:mm:ss");
    for (const QString& line : QStringList{"房 间 号:325商务套房", "开房类型:休息房", "方案类型:套房4小时",
                                           "开房时间:2026-01-02 03:04:05", "退房时间:" + now, "开房时长:4小时",
                                           "已开时长:5时0分", "开房手牌:8001,8002", "工号:1001"})
        QVERIFY2(paper.count(line) == printed, qPrintable(line + "\n" + paper));
}

void tst_room_leaving::guestsLeave()
{
    const QString roomNo = RoomFloor::openRoom(3, 2);
    QVERIFY(!roomNo.isEmpty());
    LeaveRoomVm first;
    first.init(RoomFloor::detail(roomNo)->data());
    first.selectCard(0);
    QVERIFY(first.save());
    QCOMPARE(RoomFloor::detail(roomNo)->data()->status(), 3);
    LeaveRoomVm last;
    last.init(RoomFloor::detail(roomNo)->data());
    QCOMPARE(last.pCardListModel()->rowCount(), 1);
    QVERIFY(last.save());
    QCOMPARE(m_room->takeShown(), (QStringList{done, done}));
    QVERIFY(RoomFloor::detail(roomNo)->data()->status() != 3);
}

QTEST_GUILESS_MAIN(tst_room_leaving)
#include "tst_room_leaving.moc"
