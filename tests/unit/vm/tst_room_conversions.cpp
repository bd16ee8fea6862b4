// A room in use that is changed: what each of the changes sends, and what it needs first.

#include "RoomFixture.h"
#include "RoomLists.h"

#include "app/MainClass.h"
#include "common/GlobalConfig.h"
#include "dto/room/RoomRecords.h"
#include "services/Bba01Service.h"
#include "vm/module1/RoomChangeVms.h"
#include "vm/module1/ChgRoomVm.h"

#include <QAbstractItemModelTester>
#include <QTimer>
#include <QtTest>

/// Makes a page that can save at once, and its save().
using Preparation = std::function<QObject*(std::function<bool()>* save)>;
Q_DECLARE_METATYPE(Preparation)

namespace {

const QString roomsPath = QStringLiteral("/bba01/getEmptyRoomList");
const QString plansPath = QStringLiteral("/bba01/getPlanListNew");
const QString cardPath = QStringLiteral("/baa01/getHardCardDetail");
const QString done = QStringLiteral("success|操作成功");
const QString noPlan = QStringLiteral("error|请选择计费方案");
const QString noCard = QStringLiteral("error|请先添加手牌");
const QString cardIsThere = QStringLiteral("error|当前手牌已存在,不能重复添加");
const QString noConsumer = QStringLiteral("error|请选择需要计入消费的手牌");

SysConfigDto* storeSettings() { return GlobalConfig::getInstance()->sysConfig(); }

QJsonObject card(const QString& number, int status = 0, const QString& roomNo = {})
{
    return {{"id", "id-" + number}, {"cardno", number}, {"status", status}, {"roomNo", roomNo}};
}

QString elsewhere(const QString& number, const QString& roomNo)
{
    return QStringLiteral("question|提示|当前手牌[%1] 已在【%2】房间, 是否继续当前操作]???")
        .arg(number, roomNo);
}

template <typename Page, typename Arrange>
Preparation prepare(Arrange arrange)
{
    return [arrange](std::function<bool()>* save) {
        auto* page = new Page;
        arrange(*page);
        *save = [page] { return page->save(); };
        return page;
    };
}

} // namespace

class tst_room_conversions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void saving_data();
    void saving();
    void cardsAtTheStart_data();
    void cardsAtTheStart();
    void newCard_data();
    void newCard();
    void sameCardUnderAnotherNumber();
    void incomplete();
    void hoursAtTheStart();
    void closedWhileItLoads_data();
    void closedWhileItLoads();
    void houseChangesTheRoom();

private:
    RoomDetailDto* record(const QStringList& cardNos)
    {
        m_record = m_room->madeUpDetail({{"id", "R1"}}, cardNos);
        return m_record->data();
    }

    std::unique_ptr<RoomFixture> m_room;
    Reply<GetRoomDetailNew> m_record;
};

void tst_room_conversions::initTestCase()
{
    m_room.reset(new RoomFixture);
    QVERIFY(m_room->isUp());
}

void tst_room_conversions::init()
{
    m_room->reset();
    storeSettings()->set_usedRoomMod(0);
    storeSettings()->set_openMulti(true); // which spares no question here
}

void tst_room_conversions::saving_data()
{
    QTest::addColumn<Preparation>("preparation");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QJsonObject>("sent");
    QTest::addColumn<QStringList>("shown");
    const auto row = [](const char* name, const char* call, const QJsonObject& sent, const QStringList& shown,
                        const Preparation& preparation) {
        QTest::newRow(name) << preparation << QString("/bba01/") + call << sent << shown;
    };
    row("massage room moves", "changeRoom",
        {{"oldRoomId", "R1"}, {"status", 2}, {"newRoomId", "A"}, {"isClean", 0}}, {},
        prepare<MassChgRoomVm>([](auto& page) { page.init("R1"); }));
    row("massage room moves and is cleaned", "changeRoom",
        {{"oldRoomId", "R1"}, {"status", 2}, {"newRoomId", "B"}, {"isClean", 1}}, {},
        prepare<MassChgRoomVm>([](auto& page) {
            page.init("R1");
            page.selectRoom(1);
            page.setIsNeedClean(true);
        }));
    const QJsonObject restMove{{"oldRoomId", "R1"}, {"status", 3},     {"newRoomId", "A"},
                               {"isClean", 0},      {"planId", "P-A"}, {"newPlanFlg", 1}};
    row("rest room moves", "changeRoom", restMove, {},
        prepare<RestChgRoomVm>([](auto& page) { page.init("R1"); }));
    QJsonObject otherPlan = restMove;
    otherPlan["planId"] = "P-B";
    otherPlan["isClean"] = 1;
    row("rest room moves under another plan and is cleaned", "changeRoom", otherPlan, {},
        prepare<RestChgRoomVm>([](auto& page) {
            page.init("R1");
            page.checkPlan(1);
            page.setIsNeedClean(true);
        }));
    row("massage to rest", "massToRestRoom",
        {{"id", "R1"},
         {"cardids", QJsonArray{"id-8001", "id-8003"}},
         {"newPlanFlg", 1},
         {"type", 1},
         {"planid", "P-B"}},
        {done}, prepare<MassChgRestVm>([this](auto& page) {
            page.init("R1", "101", record({"8001", "8002", "8003"}));
            page.deleteCard(1, "8002");
            page.deleteCard(7, "8009"); // no such card
            page.selectPlan(0);
            page.selectPlan(1);
        }));
    row("rest to massage", "restToMassRoom",
        {{"id", "R1"},
         {"cardids", QJsonArray{"id-8001", "id-8003"}},
         {"cardId", "id-8003"},
         {"hours", 5},
         {"newPlanFlg", 1},
         {"type", 1}},
        {done}, prepare<RestChgMassVm>([this](auto& page) {
            page.init("R1", "101", record({"8001", "8002", "8003"}));
            page.checkCard(0);
            page.checkCard(2);
            page.deleteCard(1);
            page.setHours(5);
        }));
    row("other plan", "changeFeePlan", {{"roomId", "R1"}, {"newPlanFlg", 1}, {"planId", "P-B"}}, {done},
        prepare<RestChgPlanVm>([](auto& page) {
            page.init("R1");
            page.selectPlan(1);
        }));
    row("one more hour", "restRoomAddTime", {{"roomId", "R1"}, {"hours", 1}}, {done},
        prepare<RestAddTimeVm>([](auto& page) { page.init("R1"); }));
    row("three more hours", "restRoomAddTime", {{"roomId", "R1"}, {"hours", 3}}, {done},
        prepare<RestAddTimeVm>([](auto& page) {
            page.init("R1");
            page.setHours(3);
        }));
}

void tst_room_conversions::saving()
{
    QFETCH(Preparation, preparation);
    QFETCH(QString, path);
    QFETCH(QJsonObject, sent);
    m_room->answer(roomsPath, rooms({"A", "B"}));
    m_room->answer(plansPath, plans({"P-A", "P-B"}));
    std::function<bool()> save;
    QPointer<QObject> page(preparation(&save));

    // A refusal leaves everything as it was.
    m_room->refuse(path, QStringLiteral("包房状态发生变化"), 1);
    QVERIFY(!save());
    QCOMPARE(m_room->takeShown(), QStringList{"error|包房状态发生变化"});
    QVERIFY(page->property("isEnabled").toBool());

    m_room->answer(path, {});
    m_room->house().fault(path, "delay", 200, 1);
    bool isEnabledMeanwhile = true;
    bool second = true;
    QTimer::singleShot(50, page, [&] {
        isEnabledMeanwhile = page->property("isEnabled").toBool();
        second = save();
    });
    QVERIFY(save());
    QVERIFY(!isEnabledMeanwhile && !second);
    QVERIFY(page->property("isEnabled").toBool());
    QTEST(m_room->takeShown(), "shown");
    QCOMPARE(m_room->allSent(path), QVector<QJsonObject>(2, sent));

    // The dialog may end meanwhile.
    m_room->house().fault(path, "delay", 200, 1);
    QTimer::singleShot(50, page, [&] { delete page; });
    QVERIFY(save());
    QVERIFY(!page);
}

void tst_room_conversions::cardsAtTheStart_data()
{
    QTest::addColumn<int>("usedRoomMod");
    QTest::addColumn<bool>("hasRecord");
    QTest::addColumn<QString>("cards");
    QTest::addColumn<QString>("plansShown");
    QTest::addColumn<QStringList>("shown");
    QTest::newRow("by cards") << 0 << true << "8001 8002"
                              << "P1 P2" << QStringList{};
    QTest::newRow("by cards, another mode") << 2 << true << "8001 8002"
                                            << "P1 P2" << QStringList{};
    QTest::newRow("by rooms") << 1 << true << "101"
                              << "P1 P2" << QStringList{elsewhere("101", "101")};
    QTest::newRow("no record") << 0 << false << ""
                               << "" << QStringList{};
}

void tst_room_conversions::cardsAtTheStart()
{
    QFETCH(int, usedRoomMod);
    QFETCH(bool, hasRecord);
    QFETCH(QString, cards);
    QFETCH(QStringList, shown);
    storeSettings()->set_usedRoomMod(usedRoomMod);
    m_room->answer(cardPath, card("101", 1, "101"));
    m_room->answer(plansPath, plans({"P1", "P2"}));
    RoomDetailDto* const room = hasRecord ? record({"8001", "8002", "8001"}) : nullptr;
    MassChgRestVm rest;
    rest.init("R1", "101", room);
    QCOMPARE(listed(rest.pCardListModel()), cards);
    QTEST(listed(rest.pPlanListModel()), "plansShown");
    QCOMPARE(m_room->takeShown(), shown);
    if (hasRecord)
        QCOMPARE(m_room->sent(plansPath), (QJsonObject{{"roomId", "R1"}, {"planType", 1}}));
    m_room->house().reset();
    m_room->answer(cardPath, card("101", 1, "101"));
    RestChgMassVm massage;
    massage.init("R1", "101", room);
    QCOMPARE(listed(massage.pCardListModel()), cards);
    QCOMPARE(m_room->takeShown(), shown);
    QCOMPARE(m_room->house().seen(plansPath), 0);
    QCOMPARE(m_room->sent(cardPath),
             usedRoomMod == 1 ? QJsonObject({{"cardno", "101"}}) : QJsonObject({{"never", "sent"}}));
    QCOMPARE(rest.usedRoomMod(), usedRoomMod == 1);
    QCOMPARE(massage.usedRoomMod(), usedRoomMod == 1);
}

void tst_room_conversions::newCard_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QJsonObject>("found");
    QTest::addColumn<int>("answer");
    QTest::addColumn<QString>("cards");
    // To the rest room the entry is compared before the look-up, to the massage room the card's id after it.
    QTest::addColumn<QStringList>("shownToRest");
    QTest::addColumn<QStringList>("shownToMassage");
    const auto row = [](const char* name, const QString& entry, const QJsonObject& found, int answer,
                        const QString& cards, const QStringList& shownToRest,
                        const QStringList& shownToMassage) {
        QTest::newRow(name) << entry << found << answer << cards << shownToRest << shownToMassage;
    };
    const QStringList there{cardIsThere};
    const QStringList unusable{"error|[8002]手牌不处于可用状态"};
    const QStringList asked{elsewhere("8002", "102")};
    row("unused", "8002", card("8002", 0), 1, "8001 8002", {}, {});
    row("in use, in no room", "8002", card("8002", 1), 1, "8001 8002", {}, {});
    row("not usable", "8002", card("8002", 2, "102"), 1, "8001", unusable, unusable);
    row("taken from its room", "8002", card("8002", 1, "102"), 1, "8001 8002", asked, asked);
    row("left in its room", "8002", card("8002", 1, "102"), 0, "8001", asked, asked);
    row("already there", "8001", card("8001", 1, "101"), 1, "8001", there,
        QStringList{elsewhere("8001", "101")} + there);
    row("there, and not usable", "8001", card("8001", 2), 1, "8001", there, {"error|[8001]手牌不处于可用状态"});
}

void tst_room_conversions::newCard()
{
    QFETCH(QString, entry);
    QFETCH(QJsonObject, found);
    QFETCH(int, answer);
    m_room->answer(plansPath, plans({}));
    MassChgRestVm rest;
    RestChgMassVm massage;
    const QAbstractItemModelTester restTester(rest.pCardListModel());
    const QAbstractItemModelTester massageTester(massage.pCardListModel());
    rest.init("R1", "101", record({"8001"}));
    massage.init("R1", "101", record({"8001"}));
    m_room->answer(cardPath, found);
    m_room->answerQuestions(answer);
    rest.getCardInfo(entry, {});
    QTEST(m_room->takeShown(), "shownToRest");
    QTEST(listed(rest.pCardListModel()), "cards");
    QCOMPARE(m_room->house().seen(cardPath), entry == "8001" ? 0 : 1);
    massage.getCardInfo(entry, {});
    QTEST(m_room->takeShown(), "shownToMassage");
    QTEST(listed(massage.pCardListModel()), "cards");
    QCOMPARE(m_room->sent(cardPath), (QJsonObject{{"cardno", entry}}));
    m_room->refuse(cardPath, QStringLiteral("手牌不存在"));
    rest.getCardInfo("9999", {});
    massage.getCardInfo({}, "31927757");
    QCOMPARE(m_room->takeShown(), (QStringList{"error|手牌不存在", "error|手牌不存在"}));
    QCOMPARE(m_room->sent(cardPath), (QJsonObject{{"cardUid", "31927757"}}));
}

void tst_room_conversions::sameCardUnderAnotherNumber()
{
    // To the rest room the number counts, to the massage room the id.
    QJsonObject renumbered = card("8001");
    renumbered["cardno"] = "8009";
    m_room->answer(cardPath, renumbered);
    m_room->answer(plansPath, plans({}));
    MassChgRestVm rest;
    rest.init("R1", "101", record({"8001"}));
    rest.getCardInfo("8009", {});
    QCOMPARE(listed(rest.pCardListModel()), QStringLiteral("8001 8009"));
    QCOMPARE(m_room->takeShown(), QStringList{});
    RestChgMassVm massage;
    massage.init("R1", "101", record({"8001"}));
    massage.getCardInfo("8009", {});
    QCOMPARE(listed(massage.pCardListModel()), QStringLiteral("8001"));
    QCOMPARE(m_room->takeShown(), QStringList{cardIsThere});
}

void tst_room_conversions::incomplete()
{
    m_room->answer(plansPath, plans({"P1", "P2"}));
    MassChgRestVm rest;
    rest.init("R1", "101", record({"8001"}));
    QVERIFY(!rest.save());
    rest.selectPlan(2); // no such plan
    QVERIFY(!rest.save());
    rest.deleteCard(0, "8001");
    QVERIFY(!rest.save());
    rest.selectPlan(0);
    QVERIFY(!rest.save());
    QCOMPARE(m_room->takeShown(), (QStringList{noPlan, noPlan, noCard, noCard}));

    RestChgMassVm massage;
    massage.init("R1", "101", record({"8001", "8002"}));
    QVERIFY(!massage.save());
    massage.checkCard(2); // no such card
    massage.checkCard(0);
    massage.deleteCard(0);
    QVERIFY(!massage.save()); // the one that was to pay has gone
    massage.deleteCard(0);
    QVERIFY(!massage.save());
    QCOMPARE(m_room->takeShown(), (QStringList{noConsumer, noConsumer, noCard}));

    RestChgPlanVm plan;
    plan.init("R1");
    QCOMPARE(m_room->sent(plansPath), (QJsonObject{{"roomId", "R1"}, {"planType", 1}}));
    QVERIFY(!plan.save());
    QCOMPARE(m_room->takeShown(), QStringList{noPlan});
    QVERIFY(rest.isEnabled() && massage.isEnabled() && plan.isEnabled());
    for (const char* path : {"/bba01/massToRestRoom", "/bba01/restToMassRoom", "/bba01/changeFeePlan"})
        QCOMPARE(m_room->house().seen(path), 0);
}

void tst_room_conversions::hoursAtTheStart()
{
    const int before = storeSettings()->defaultTime();
    storeSettings()->set_defaultTime(before + 3);
    QCOMPARE(RestChgMassVm().hours(), before + 3);
    storeSettings()->set_defaultTime(before);
    QVERIFY(RestChgMassVm().openMulti());
}

void tst_room_conversions::closedWhileItLoads_data()
{
    QTest::addColumn<QString>("slowPath");
    QTest::addColumn<int>("closedPages");
    QTest::newRow("rooms") << roomsPath << 2;
    QTest::newRow("plans") << plansPath << 3;
    QTest::newRow("card") << cardPath << 2;
    QTest::newRow("question") << "" << 2;
}

void tst_room_conversions::closedWhileItLoads()
{
    QFETCH(QString, slowPath);
    storeSettings()->set_usedRoomMod(1);
    m_room->answer(roomsPath, rooms({"A"}));
    m_room->answer(plansPath, plans({"P1"}));
    m_room->answer(cardPath, card("101", 1, slowPath.isEmpty() ? "101" : ""));
    if (!slowPath.isEmpty())
        m_room->house().fault(slowPath, "delay", 800);
    int closedPages = 0;
    const auto load = [&](auto* made, auto init) {
        QPointer<QObject> page(made);
        QTimer timer;
        const auto close = [&] { delete page; };
        if (slowPath.isEmpty())
            connect(MainClass::getInstance(), &MainClass::msgConfirmSignal, page, close);
        else
            connect(&timer, &QTimer::timeout, page, close);
        timer.start(400);
        init(made);
        closedPages += page ? 0 : 1;
        delete page;
    };
    load(new MassChgRoomVm, [](auto* page) { page->init("R1"); });
    load(new RestChgRoomVm, [](auto* page) { page->init("R1"); });
    load(new MassChgRestVm, [](auto* page) { page->init("R1", "101", nullptr); });
    load(new RestChgMassVm, [](auto* page) { page->init("R1", "101", nullptr); });
    load(new RestChgPlanVm, [](auto* page) { page->init("R1"); });
    QTEST(closedPages, "closedPages");
}

void tst_room_conversions::houseChangesTheRoom()
{
    const QString roomNo = RoomFloor::openRoom(2, 2);
    const QString roomId = RoomFloor::roomId(roomNo);
    const auto detail = [&] {
        m_record = RoomFloor::detail(roomNo);
        return m_record->data();
    };
    QVERIFY(detail());
    const QString newGuest = RoomFloor::freeCards(1).value(0);
    MassChgRestVm rest;
    rest.init(roomId, roomNo, detail());
    rest.deleteCard(0, {});
    rest.getCardInfo(newGuest, {});
    rest.selectPlan(0);
    QVERIFY(rest.save());
    QCOMPARE(detail()->status(), 3);
    QCOMPARE(RoomFloor::cardsInside(roomNo).size(), 2);
    QVERIFY(RoomFloor::cardsInside(roomNo).contains(newGuest));

    RestChgPlanVm plan;
    plan.init(roomId);
    const int last = plan.pPlanListModel()->rowCount() - 1;
    plan.selectPlan(last);
    QVERIFY(plan.save());
    QCOMPARE(detail()->planName(), plan.pPlanListModel()->getAll().at(last).name);
    const int hours = detail()->hours();
    RestAddTimeVm time;
    time.init(roomId);
    time.setHours(2);
    QVERIFY(time.save());
    QCOMPARE(detail()->hours(), hours + 2);

    RestChgMassVm massage;
    massage.init(roomId, roomNo, detail());
    massage.checkCard(1);
    massage.setHours(3);
    QVERIFY(massage.save());
    QCOMPARE(detail()->status(), 2);
    QCOMPARE(detail()->hours(), 3);
    QCOMPARE(m_room->takeShown(), (QStringList{done, done, done, done}));
}

QTEST_GUILESS_MAIN(tst_room_conversions)
#include "tst_room_conversions.moc"
