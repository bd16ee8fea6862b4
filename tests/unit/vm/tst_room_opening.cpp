// An empty room: opening it for guests, occupying it, sending it to cleaning.

#include "OpeningRoom.h"

#include "common/Clock.h"
#include "common/GlobalConfig.h"
#include "vm/module1/OpeningVm.h"
#include "vm/module1/OpenOccupyVm.h"
#include "vm/module1/OpenRoomVm.h"

#include <QAbstractItemModelTester>
#include <QtTest>

namespace {

const QString done = QStringLiteral("success|操作成功");

QString elsewhere(const QString& number, const QString& roomNo)
{
    return QStringLiteral("question|提示|当前手牌[%1] 已在【%2】房间, 是否继续当前操作]???")
        .arg(number, roomNo);
}

QStringList numbersOf(const CardListModel* cards)
{
    QStringList numbers;
    for (const card_struct& card : cards->getAll())
        numbers.append(card.cardNo);
    return numbers;
}

} // namespace

class tst_room_opening : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { prepareStore(*m_room); }
    void cleanup() { Clock::setSource(nullptr); }

    void menu_data();
    void menu();
    void notRead();
    void toCleaning();
    void newCard_data();
    void newCard();
    void cardBySerial();
    void hours();
    void massageRoom_data();
    void massageRoom();
    void oneQuestionForAllCards();
    void massageSlip_data();
    void massageSlip();
    void restRoom_data();
    void restRoom();
    void restSlip_data();
    void restSlip();
    void roomsOwnCard();
    void occupation_data();
    void occupation();
    void kindsRefused();

private:
    std::unique_ptr<RoomFixture> m_room;
};

void tst_room_opening::initTestCase()
{
    m_room.reset(new RoomFixture);
    QVERIFY(m_room->isUp());
}

void tst_room_opening::menu_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QSet<QString>>("rights");
    QTest::addColumn<QStringList>("entries");
    const QSet<QString> all{"0101", "0102", "0113", "0114"};
    const QString mass = QStringLiteral("MASS_ROOM 开按摩房 #EBEBEB #6A6969");
    const QString rest = QStringLiteral("REST_ROOM 开休息房 #EBEBEB #6A6969");
    const QString occupy = QStringLiteral("OCCUPY_ROOM 特殊占用 #EBEBEB #6A6969");
    const QString clean = QStringLiteral("CLEAN_ROOM 转清扫房 #EBEBEB #6A6969");
    QTest::newRow("empty") << 1 << all << QStringList{mass, rest, occupy, clean};
    QTest::newRow("being cleaned") << 4 << all << QStringList{occupy};
    QTest::newRow("being cleaned, no right") << 4 << QSet<QString>{"0101", "0114"} << QStringList{};
    for (const int status : {0, 2, 3, 5, 6})
        QTest::addRow("status %d", status) << status << all << QStringList{};
    QTest::newRow("no rights") << 1 << QSet<QString>{} << QStringList{};
    QTest::newRow("0101") << 1 << QSet<QString>{"0101"} << QStringList{mass};
    QTest::newRow("0102") << 1 << QSet<QString>{"0102"} << QStringList{rest};
    QTest::newRow("0113") << 1 << QSet<QString>{"0113"} << QStringList{occupy};
    QTest::newRow("0114") << 1 << QSet<QString>{"0114"} << QStringList{clean};
}

void tst_room_opening::menu()
{
    QFETCH(int, status);
    QFETCH(QSet<QString>, rights);
    GlobalConfig::getInstance()->setRights(rights);
    m_room->answer(detailPath, QJsonObject{{"id", "R1"},
                                           {"roomNo", "101"},
                                           {"floorName", "一楼"},
                                           {"roomName", "双人间"},
                                           {"status", status}});
    OpenRoomVm dialog;
    const QAbstractItemModelTester tester(dialog.pMenuModel());
    QVERIFY(dialog.init("R0"));
    QCOMPARE(m_room->sent(detailPath), (QJsonObject{{"roomId", "R0"}}));
    QCOMPARE((QStringList{dialog.roomId(), dialog.roomNo(), dialog.floorName(), dialog.typeName()}),
             (QStringList{"R1", "101", "一楼", "双人间"}));
    QStringList entries;
    for (const menu_struct& entry : dialog.pMenuModel()->rows())
        entries.append(QStringList{entry.code, entry.name, entry.backColor, entry.foreColor}.join(' '));
    QTEST(entries, "entries");
}

void tst_room_opening::notRead()
{
    OpenRoomVm dialog;
    m_room->refuse(detailPath, QStringLiteral("房间不存在"), 1);
    QVERIFY(!dialog.init("R1"));
    QCOMPARE(m_room->takeShown(), QStringList{"error|房间不存在"});
    m_room->answer(detailPath, QJsonValue::Null, 1);
    QVERIFY(!dialog.init("R1"));
    QCOMPARE(dialog.pMenuModel()->rowCount(), 0);
    QCOMPARE(m_room->takeShown(), QStringList{});
}

void tst_room_opening::toCleaning()
{
    OpenRoomVm dialog;
    m_room->answer(detailPath, QJsonObject{{"id", "R1"}, {"status", 1}}, 1);
    QVERIFY(dialog.init("R1"));
    const auto enabled = noteEnabled(&dialog);
    m_room->refuse(cleanPath, QStringLiteral("房间状态已变"), 1);
    QVERIFY(!dialog.cleanRoom());
    QCOMPARE(m_room->takeShown(), QStringList{"error|房间状态已变"});
    m_room->answer(cleanPath, {}, 1);
    QVERIFY(dialog.cleanRoom());
    QCOMPARE(m_room->takeShown(), QStringList{});
    QCOMPARE(m_room->sent(cleanPath), (QJsonObject{{"id", "R1"}, {"isClean", 1}}));
    QCOMPARE(*enabled, busyOnce() + busyOnce());
}

void tst_room_opening::newCard_data()
{
    QTest::addColumn<QJsonObject>("card"); // what the house tells of it
    QTest::addColumn<bool>("openMulti");
    QTest::addColumn<int>("answer");
    QTest::addColumn<QStringList>("shown");
    QTest::addColumn<bool>("isAdded");
    const QString there = QStringLiteral("error|当前手牌已存在,不能重复添加");
    const QStringList notUsable{"error|[8003]手牌不处于可用状态"};
    QTest::newRow("unused") << cardFields("8003", 0) << false << 0 << QStringList{} << true;
    QTest::newRow("in use, in no room") << cardFields("8003", 1) << false << 0 << QStringList{} << true;
    QTest::newRow("not usable") << cardFields("8003", 2) << true << 1 << notUsable << false;
    QTest::newRow("not usable and elsewhere")
        << cardFields("8003", 3, "102") << false << 1 << notUsable << false;
    QTest::newRow("taken from its room")
        << cardFields("8003", 1, "102") << false << 1 << QStringList{elsewhere("8003", "102")} << true;
    QTest::newRow("left in its room") << cardFields("8003", 1, "102") << false << 0
                                      << QStringList{elsewhere("8003", "102")} << false;
    QTest::newRow("joins from its room") << cardFields("8003", 1, "102") << true << 0 << QStringList{} << true;
    QTest::newRow("twice") << cardFields("8001") << true << 1 << QStringList{there} << false;
    QTest::newRow("twice, elsewhere by now")
        << cardFields("8001", 1, "102") << false << 1 << QStringList{elsewhere("8001", "102"), there} << false;
    QTest::newRow("another number with a known id")
        << QJsonObject{{"id", "id-8001"}, {"cardno", "8003"}} << true << 1 << QStringList{there} << false;
    QTest::newRow("a known number with another id")
        << QJsonObject{{"id", "other"}, {"cardno", "8001"}} << true << 1 << QStringList{} << true;
}

void tst_room_opening::newCard()
{
    QFETCH(QJsonObject, card);
    QFETCH(bool, openMulti);
    QFETCH(int, answer);
    QFETCH(bool, isAdded);
    store().set_openMulti(openMulti);
    m_room->answerQuestions(answer);
    const auto check = [&](auto& page) {
        const QAbstractItemModelTester tester(page.pCardListModel());
        QCOMPARE(page.openMulti(), openMulti);
        enter(*m_room, page, cardFields("8001"));
        enter(*m_room, page, card);
        QCOMPARE(m_room->sent(cardPath), (QJsonObject{{"cardno", card.value("cardno")}}));
        QTEST(m_room->takeShown(), "shown");
        QJsonArray ids{"id-8001"};
        if (isAdded)
            ids.append(card.value("id"));
        QCOMPARE(page.pCardListModel()->ids(), ids);
        QCOMPARE(numbersOf(page.pCardListModel()).last(),
                 isAdded ? card.value("cardno").toString() : QStringLiteral("8001"));

        m_room->refuse(cardPath, QStringLiteral("手牌不存在"), 1);
        page.getCardInfo("9999", {});
        QCOMPARE(m_room->takeShown(), QStringList{"error|手牌不存在"});
        QCOMPARE(page.pCardListModel()->ids(), ids);
    };
    OpenMassVm massage;
    check(massage);
    OpenRestVm rest;
    check(rest);
}

void tst_room_opening::cardBySerial()
{
    OpenMassVm page;
    m_room->answer(cardPath, cardFields("8001"));
    page.getCardInfo({}, "A1B2");
    QCOMPARE(m_room->sent(cardPath), (QJsonObject{{"cardUid", "A1B2"}}));
    page.getCardInfo("8001", "A1B2");
    QCOMPARE(m_room->sent(cardPath), (QJsonObject{{"cardno", "8001"}, {"cardUid", "A1B2"}}));
}

void tst_room_opening::hours()
{
    store().set_defaultTime(3);
    QCOMPARE(OpenMassVm().hours(), 3);
}

void tst_room_opening::massageRoom_data()
{
    QTest::addColumn<QVector<QJsonObject>>("cards");
    QTest::addColumn<bool>("isNeedCard");
    QTest::addColumn<bool>("openMulti");
    QTest::addColumn<int>("removed"); // index of a card taken off again, -1: none
    QTest::addColumn<int>("answer");
    QTest::addColumn<QStringList>("shown"); // from save
    QTest::addColumn<QJsonObject>("sent");  // beside id and hours; nothing at all when empty
    using Cards = QVector<QJsonObject>;
    const auto ids = [](const QJsonArray& cards) { return QJsonObject{{"cardids", cards}}; };
    const auto joined = [](const QJsonArray& cards) { return QJsonObject{{"cardids", cards}, {"isConn", 1}}; };
    const QJsonObject free = cardFields("8001");
    const QJsonObject other = cardFields("8002", 1, "102");
    const QString question = QStringLiteral("question|提示|手牌8002在102房间中\n是否确认联房？？？");
    QTest::newRow("no card") << Cards{} << true << true << -1 << 1 << QStringList{"error|请先添加手牌"}
                             << QJsonObject{};
    QTest::newRow("no card needed") << Cards{} << false << true << -1 << 1 << QStringList{done} << ids({});
    QTest::newRow("a card") << Cards{free} << true << true << -1 << 0 << QStringList{done} << ids({"id-8001"});
    QTest::newRow("joined") << Cards{other, free} << true << true << -1 << 1 << QStringList{question, done}
                            << joined({"id-8002", "id-8001"});
    QTest::newRow("not joined") << Cards{other, free} << true << true << -1 << 0 << QStringList{question}
                                << QJsonObject{};
    QTest::newRow("asked before, not again")
        << Cards{other} << true << false << -1 << 1 << QStringList{done} << ids({"id-8002"});
    QTest::newRow("the other one taken off")
        << Cards{other, free} << true << true << 0 << 0 << QStringList{done} << ids({"id-8001"});
    QTest::newRow("the wrong one taken off")
        << Cards{other, free} << true << true << 1 << 0 << QStringList{question} << QJsonObject{};
    QTest::newRow("all taken off") << Cards{free} << true << true << 0 << 0 << QStringList{"error|请先添加手牌"}
                                   << QJsonObject{};
    QTest::newRow("nothing taken off")
        << Cards{other} << true << true << 7 << 1 << QStringList{question, done} << joined({"id-8002"});
}

void tst_room_opening::massageRoom()
{
    QFETCH(QVector<QJsonObject>, cards);
    QFETCH(bool, isNeedCard);
    QFETCH(bool, openMulti);
    QFETCH(int, removed);
    QFETCH(int, answer);
    QFETCH(QStringList, shown);
    QFETCH(QJsonObject, sent);
    store().set_isNeedCard(isNeedCard);
    store().set_openMulti(openMulti);
    OpenMassVm page;
    page.init("R1", "101");
    page.setHours(5);
    for (const QJsonObject& card : cards)
        enter(*m_room, page, card);
    if (removed >= 0)
        page.deleteCard(removed);
    m_room->takeShown();
    m_room->answerQuestions(answer);
    const auto enabled = noteEnabled(&page);
    m_room->answer(massPath, {});
    const QStringList before = numbersOf(page.pCardListModel());
    QCOMPARE(page.save(), shown.last() == done);
    QCOMPARE(m_room->takeShown(), shown);
    QCOMPARE(*enabled, busyOnce());
    QCOMPARE(numbersOf(page.pCardListModel()), before);
    if (sent.isEmpty()) {
        QCOMPARE(m_room->house().seen(massPath), 0);
        return;
    }
    sent.insert("id", "R1");
    sent.insert("hours", 5);
    QCOMPARE(m_room->sent(massPath), sent);
}

void tst_room_opening::oneQuestionForAllCards()
{
    OpenMassVm page;
    page.init("R1", "101");
    enter(*m_room, page, cardFields("8005", 1, "103"));
    enter(*m_room, page, cardFields("8004"));
    enter(*m_room, page, cardFields("8002", 1, "102"));
    QCOMPARE(m_room->takeShown(), QStringList{}); // none on the way in
    m_room->answerQuestions(0);
    QVERIFY(!page.save());
    QCOMPARE(m_room->takeShown(),
             QStringList{"question|提示|手牌8002在102房间中\n手牌8005在103房间中\n是否确认联房？？？"});
    QVERIFY(page.isEnabled());
    QCOMPARE(numbersOf(page.pCardListModel()), (QStringList{"8005", "8004", "8002"}));
}

void tst_room_opening::massageSlip_data()
{
    QTest::addColumn<QStringList>("cards");
    QTest::addColumn<QString>("mainCard");
    QTest::addColumn<bool>("isRefused");
    QTest::newRow("cards") << QStringList{"8002", "8001"} << "8002" << false;
    QTest::newRow("no card") << QStringList{} << "" << false;
    QTest::newRow("refused") << QStringList{"8001"} << "" << true;
}

void tst_room_opening::massageSlip()
{
    QFETCH(QStringList, cards);
    QFETCH(QString, mainCard);
    QFETCH(bool, isRefused);
    static const qint64 openedAt = QDateTime({2026, 3, 8}, {20, 5, 30}).toMSecsSinceEpoch();
    Clock::setSource([] { return openedAt; });
    store().set_isNeedCard(false);
    OpenMassVm page;
    page.init("R1", "101");
    for (const QString& number : cards)
        enter(*m_room, page, cardFields(number));
    if (isRefused)
        m_room->refuse(massPath, QStringLiteral("房间已开"));
    else
        m_room->answer(massPath, {});
    QCOMPARE(page.save(), !isRefused);
    QVERIFY(page.isEnabled());
    QCOMPARE(m_room->takeShown(), QStringList{isRefused ? "error|房间已开" : done});
    const QString slip = m_room->takePrinted();
    QCOMPARE(slip.contains(QStringLiteral("[开房单]")), !isRefused);
    if (isRefused)
        return;
    const UserDto& user = *GlobalConfig::getInstance()->userInfo();
    for (const QString& line : {QStringLiteral("房 间 号:101 "), QStringLiteral("方案类型:按摩房 "),
                                QStringLiteral("主结手牌:") + mainCard + " ", QStringLiteral("预开时长:2小时 "),
                                QStringLiteral("开房时间:2026-03-08 20:05:30"), "工号:" + user.code() + " "})
        QVERIFY2(slip.contains(line), qPrintable(line + " in " + slip));
    QVERIFY(!slip.contains(QStringLiteral("预计房费")));
}

void tst_room_opening::restRoom_data()
{
    QTest::addColumn<int>("cards");
    QTest::addColumn<QVector<int>>("plans"); // tapped one after the other
    QTest::addColumn<bool>("isNeedCard");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("planId"); // sent
    using Taps = QVector<int>;
    const QString noCard = QStringLiteral("error|请先添加手牌");
    const QString noPlan = QStringLiteral("error|请选择计费方案");
    QTest::newRow("neither") << 0 << Taps{} << true << noCard << "";
    QTest::newRow("no card") << 0 << Taps{0} << true << noCard << "";
    QTest::newRow("no card though none is needed elsewhere") << 0 << Taps{0} << false << noCard << "";
    QTest::newRow("no plan") << 1 << Taps{} << true << noPlan << "";
    QTest::newRow("no such plan") << 1 << Taps{2} << true << noPlan << "";
    QTest::newRow("both") << 1 << Taps{1} << true << done << "P2";
    QTest::newRow("another plan") << 2 << Taps{1, 0} << false << done << "P1";
}

void tst_room_opening::restRoom()
{
    QFETCH(int, cards);
    QFETCH(QVector<int>, plans);
    QFETCH(bool, isNeedCard);
    QFETCH(QString, shown);
    QFETCH(QString, planId);
    store().set_isNeedCard(isNeedCard);
    m_room->answer(plansPath, QJsonArray{plan("P1", "过夜", 8, 168), plan("P2", "钟点", 2, 28.8)});
    m_room->answer(restPath, {});
    OpenRestVm page;
    const QAbstractItemModelTester tester(page.pPlanListModel());
    page.init("R1", "101");
    QCOMPARE(m_room->sent(plansPath), (QJsonObject{{"roomId", "R1"}, {"planType", 1}}));
    QCOMPARE(page.pPlanListModel()->checkedIndex(), -1);
    // Cards of other rooms come in without a question, now and at the end.
    const QStringList numbers{"8003", "8001", "8002"};
    for (int i = 0; i <= cards; ++i)
        enter(*m_room, page, cardFields(numbers.at(i), 1, "102"));
    page.deleteCard(0, "8003");
    for (const int index : plans)
        page.checkPlan(index);
    const auto enabled = noteEnabled(&page);
    QCOMPARE(page.save(), shown == done);
    QCOMPARE(m_room->takeShown(), QStringList{shown});
    QCOMPARE(*enabled, busyOnce());
    if (planId.isEmpty()) {
        QCOMPARE(m_room->house().seen(restPath), 0);
        return;
    }
    QJsonArray ids{"id-8001"};
    if (cards == 2)
        ids.append("id-8002");
    QCOMPARE(m_room->sent(restPath),
             (QJsonObject{{"id", "R1"}, {"cardids", ids}, {"newPlanFlg", 1}, {"type", 1}, {"planid", planId}}));
}

void tst_room_opening::restSlip_data()
{
    QTest::addColumn<double>("fee");
    QTest::addColumn<QString>("printed");
    QTest::newRow("whole") << 168.0 << "预计房费:168.00";
    QTest::newRow("cut, not rounded") << 28.8 << "预计房费:28.00";
    QTest::newRow("free") << 0.0 << "预计房费:0.00";
}

void tst_room_opening::restSlip()
{
    QFETCH(double, fee);
    QFETCH(QString, printed);
    m_room->answer(plansPath, QJsonArray{plan("P1", "钟点", 3, fee)});
    OpenRestVm page;
    page.init("R1", "101");
    enter(*m_room, page, cardFields("8001"));
    enter(*m_room, page, cardFields("8002"));
    page.checkPlan(0);
    m_room->refuse(restPath, QStringLiteral("房间已开"), 1);
    QVERIFY(!page.save());
    QCOMPARE(m_room->takeShown(), QStringList{"error|房间已开"});
    QCOMPARE(m_room->takePrinted(), QString());
    m_room->answer(restPath, {});
    QVERIFY(page.save());
    const QString slip = m_room->takePrinted();
    for (const QString& line :
         {QStringLiteral("房 间 号:101 "), QStringLiteral("方案类型:钟点 "), QStringLiteral("主结手牌:8001 "),
          QStringLiteral("预开时长:3小时 "), printed + " "})
        QVERIFY2(slip.contains(line), qPrintable(line + " in " + slip));
}

void tst_room_opening::roomsOwnCard()
{
    // A house without hand cards: each room has a card of its own, with the room's number.
    store().set_usedRoomMod(1);
    m_room->answer(cardPath, cardFields("101"));
    m_room->answer(plansPath, QJsonArray{plan("P1", "钟点", 2, 28)});
    OpenMassVm massage;
    massage.init("R1", "101");
    QVERIFY(massage.usedRoomMod());
    QCOMPARE(m_room->sent(cardPath), (QJsonObject{{"cardno", "101"}}));
    QCOMPARE(massage.pCardListModel()->ids(), QJsonArray{"id-101"});
    OpenRestVm rest;
    rest.init("R1", "101");
    QCOMPARE(rest.pCardListModel()->ids(), QJsonArray{"id-101"});
    rest.checkPlan(0);
    m_room->answer(restPath, {});
    QVERIFY(rest.save());
    // Other houses start with an empty list.
    store().set_usedRoomMod(0);
    OpenMassVm withCards;
    withCards.init("R1", "101");
    QCOMPARE(withCards.pCardListModel()->rowCount(), 0);
    QCOMPARE(m_room->house().seen(cardPath), 2);
}

void tst_room_opening::occupation_data()
{
    QTest::addColumn<QVector<int>>("taps");
    QTest::addColumn<QString>("remark");
    QTest::addColumn<QJsonObject>("sent"); // nothing at all when empty
    using Taps = QVector<int>;
    const auto fields = [](const QString& kind) {
        return QJsonObject{{"id", "R1"}, {"occType", kind}, {"isOccupy", 1}};
    };
    QJsonObject remarked = fields("K1");
    remarked.insert("remark", "水管坏了\n等人修");
    QTest::newRow("no kind") << Taps{} << "水管坏了" << QJsonObject{};
    QTest::newRow("no such kind") << Taps{2} << "" << QJsonObject{};
    QTest::newRow("without a remark") << Taps{0, 1} << "" << fields("K2");
    QTest::newRow("with a remark") << Taps{0} << "水管坏了\n等人修" << remarked;
}

void tst_room_opening::occupation()
{
    QFETCH(QVector<int>, taps);
    QFETCH(QString, remark);
    QFETCH(QJsonObject, sent);
    m_room->answer(kindsPath, QJsonArray{QJsonObject{{"id", "K1"}, {"type_name", "维修"}},
                                         QJsonObject{{"id", "K2"}, {"type_name", "自用"}}});
    OpenOccupyVm page;
    const QAbstractItemModelTester tester(page.pOccupyListModel());
    page.init("R1");
    QCOMPARE(page.pOccupyListModel()->checkedIndex(), -1);
    for (const int index : taps)
        page.checkOccupy(index);
    page.setRemark(remark);
    const auto enabled = noteEnabled(&page);
    if (sent.isEmpty()) {
        QVERIFY(!page.save());
        QCOMPARE(m_room->takeShown(), QStringList{"error|特殊占用原由不能为空"});
        QCOMPARE(m_room->house().seen(occupyPath), 0);
    } else {
        m_room->refuse(occupyPath, QStringLiteral("房间已开"), 1);
        QVERIFY(!page.save());
        QCOMPARE(m_room->takeShown(), QStringList{"error|房间已开"});
        enabled->clear();
        m_room->answer(occupyPath, {});
        QVERIFY(page.save());
        QCOMPARE(m_room->takeShown(), QStringList{});
        QCOMPARE(m_room->sent(occupyPath), sent);
    }
    QCOMPARE(*enabled, busyOnce());
}

void tst_room_opening::kindsRefused()
{
    m_room->refuse(kindsPath, QStringLiteral("查询失败"), 1);
    OpenOccupyVm page;
    page.init("R1");
    QCOMPARE(m_room->takeShown(), QStringList{"error|查询失败"});
    QCOMPARE(page.pOccupyListModel()->rowCount(), 0);
}

QTEST_GUILESS_MAIN(tst_room_opening)
#include "tst_room_opening.moc"
