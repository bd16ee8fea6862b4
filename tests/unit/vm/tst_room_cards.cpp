// Hand cards that come into a room, and those that move on to another one.

#include "RoomFixture.h"

#include "app/MainClass.h"
#include "vm/module1/RoomCardVms.h"

#include <QAbstractItemModelTester>
#include <QtTest>

namespace {

const QString addPath = QStringLiteral("/bba01/roomAddCard");
const QString splitPath = QStringLiteral("/bba01/unpackRoom");
const QString cardPath = QStringLiteral("/baa01/getHardCardDetail");
const QString roomsPath = QStringLiteral("/bba01/getRoomList");
const QString done = QStringLiteral("success|操作成功");

QJsonObject cardFields(const QString& number, int status = 0, const QString& roomNo = {})
{
    return {{"id", "id-" + number}, {"cardno", number}, {"status", status}, {"roomNo", roomNo}};
}

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

QStringList namesOf(const TempDataModel* rooms)
{
    QStringList names;
    for (const temp_struct& room : rooms->getAll())
        names.append(room.tempId + "=" + room.tempName);
    return names;
}

} // namespace

class tst_room_cards : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_room->reset(); }
    void newCard_data();
    void newCard();
    void addCards_data();
    void addCards();
    void addedCardsAreInside();
    void closedDuringTheQuestion();
    void roomsToMoveTo();
    void moveNeedsBoth();
    void movedCards();

private:
    Reply<GetRoomDetailNew> room(const QStringList& cardNos, int status = 2)
    {
        return m_room->madeUpDetail({{"id", "R1"}, {"roomNo", "101"}, {"status", status}}, cardNos);
    }
    std::unique_ptr<RoomFixture> m_room;
};

void tst_room_cards::initTestCase()
{
    m_room.reset(new RoomFixture);
    QVERIFY(m_room->isUp());
}

void tst_room_cards::newCard_data()
{
    QTest::addColumn<QJsonObject>("card"); // what the house tells of it
    QTest::addColumn<int>("answer");
    QTest::addColumn<QStringList>("shown");
    QTest::addColumn<bool>("isAdded");
    const QString there = QStringLiteral("error|当前手牌已存在,不能重复添加");
    QTest::newRow("unused") << cardFields("8003", 0) << 1 << QStringList{} << true;
    QTest::newRow("in use, in no room") << cardFields("8003", 1) << 1 << QStringList{} << true;
    QTest::newRow("not usable") << cardFields("8003", 2, "102") << 1
                                << QStringList{"error|[8003]手牌不处于可用状态"} << false;
    QTest::newRow("taken from its room")
        << cardFields("8003", 1, "102") << 1 << QStringList{elsewhere("8003", "102")} << true;
    QTest::newRow("left in its room") << cardFields("8003", 1, "102") << 0
                                      << QStringList{elsewhere("8003", "102")} << false;
    QTest::newRow("of this room") << cardFields("8001", 1, "101") << 1
                                  << QStringList{elsewhere("8001", "101"), there} << false;
    QTest::newRow("twice") << cardFields("8002") << 1 << QStringList{there} << false;
    QTest::newRow("twice under another id")
        << QJsonObject{{"id", "other"}, {"cardno", "8002"}} << 1 << QStringList{there} << false;
    QTest::newRow("another number with a known id")
        << QJsonObject{{"id", "id-8002"}, {"cardno", "8003"}} << 1 << QStringList{} << true;
}

void tst_room_cards::newCard()
{
    QFETCH(QJsonObject, card);
    QFETCH(int, answer);
    RoomAddCardsVm page;
    const QAbstractItemModelTester tester(page.pNewCardModel());
    const auto detail = room({"8001", "8001", "8000"});
    QVERIFY(page.init("101", detail->data()));
    QCOMPARE(numbersOf(page.pOldCardModel()), (QStringList{"8001", "8000"}));
    m_room->answer(cardPath, cardFields("8002"), 1);
    page.getCardInfo("8002", {});
    m_room->answer(cardPath, card, 1);
    m_room->answerQuestions(answer);
    page.getCardInfo("8003", {});
    QCOMPARE(m_room->sent(cardPath), (QJsonObject{{"cardno", "8003"}}));
    QTEST(m_room->takeShown(), "shown");
    QFETCH(bool, isAdded);
    QCOMPARE(numbersOf(page.pNewCardModel()), isAdded ? QStringList({"8002", "8003"}) : QStringList({"8002"}));

    m_room->refuse(cardPath, QStringLiteral("手牌不存在"), 1);
    page.getCardInfo({}, "31927757");
    QCOMPARE(m_room->sent(cardPath), (QJsonObject{{"cardUid", "31927757"}}));
    QCOMPARE(m_room->takeShown(), QStringList{"error|手牌不存在"});

    page.deleteCard(7); // no such card
    page.deleteCard(0);
    QCOMPARE(numbersOf(page.pNewCardModel()), isAdded ? QStringList({"8003"}) : QStringList());
    QVERIFY(page.isEnabled());
}

void tst_room_cards::addCards_data()
{
    QTest::addColumn<QJsonValue>("outcome");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<bool>("isDone");
    const auto refused = [](const QStringList& cards) {
        QJsonArray list;
        for (const QString& card : cards)
            list.append(QJsonObject{{"cardNo", card}, {"roomNo", "10" + card.right(1)}});
        return QJsonValue(QJsonObject{{"flg", false}, {"roomcard", list}});
    };
    QTest::newRow("all") << QJsonValue(QJsonObject{{"flg", true}}) << done << true;
    QTest::newRow("two refused") << refused({"8001", "8002"})
                                 << "error|[8001]手牌已在[101]包房中[8002]手牌已在[102]包房中" << false;
    QTest::newRow("refused, none named") << refused({}) << "error|操作失败" << false;
    QTest::newRow("no list") << QJsonValue(QJsonObject{{"flg", false}}) << "error|操作失败" << false;
    QTest::newRow("no data") << QJsonValue(QJsonValue::Null) << "error|操作失败" << false;
    QTest::newRow("refused at all") << QJsonValue() << "error|房间已清扫" << false;
}

void tst_room_cards::addCards()
{
    QFETCH(QJsonValue, outcome);
    RoomAddCardsVm page;
    const auto detail = room({"8000"});
    QVERIFY(page.init("101", detail->data()));
    const auto enabled = noteEnabled(&page);
    QVERIFY(!page.save());
    QCOMPARE(m_room->takeShown(), QStringList{"error|请先添加手牌"});
    QCOMPARE(m_room->house().seen(addPath), 0);
    QVERIFY(page.isEnabled());
    for (const char* number : {"8002", "8001"}) {
        m_room->answer(cardPath, cardFields(number), 1);
        page.getCardInfo(number, {});
    }
    enabled->clear();
    if (QTest::currentDataTag() == QByteArray("refused at all"))
        m_room->refuse(addPath, QStringLiteral("房间已清扫"));
    else
        m_room->answer(addPath, outcome);
    QTEST(page.save(), "isDone");
    QCOMPARE(m_room->sent(addPath),
             (QJsonObject{{"roomNo", "101"}, {"cardids", QJsonArray{"id-8002", "id-8001"}}}));
    QFETCH(QString, shown);
    QCOMPARE(m_room->takeShown(), QStringList{shown});
    QCOMPARE(*enabled, busyOnce());
    QCOMPARE(numbersOf(page.pNewCardModel()), (QStringList{"8002", "8001"})); // to be taken off one by one
}

void tst_room_cards::addedCardsAreInside()
{
    const QString roomNo = RoomFloor::openRoom(2, 1);
    QVERIFY(!roomNo.isEmpty());
    const QString added = RoomFloor::freeCards(1).at(0);
    RoomAddCardsVm page;
    page.init(roomNo, RoomFloor::detail(roomNo)->data());
    page.getCardInfo(added, {});
    QVERIFY(page.save());
    QCOMPARE(m_room->takeShown(), QStringList{done});
    QVERIFY(RoomFloor::cardsInside(roomNo).contains(added));
}

void tst_room_cards::closedDuringTheQuestion()
{
    QPointer<RoomAddCardsVm> page(new RoomAddCardsVm);
    page->init("101", room({})->data());
    m_room->answer(cardPath, cardFields("8002", 1, "102"));
    connect(MainClass::getInstance(), &MainClass::msgConfirmSignal, page, [&] { delete page; });
    page->getCardInfo("8002", {});
    QVERIFY(!page);
    QCOMPARE(m_room->takeShown(), QStringList{elsewhere("8002", "102")});
}

void tst_room_cards::roomsToMoveTo()
{
    QJsonArray rooms;
    for (int status = 0; status <= 7; ++status) {
        const QString code = QString::number(200 + status);
        rooms.append(
            QJsonObject{{"id", "id" + code}, {"code", code}, {"typename", "%3间"}, {"status", status}});
    }
    m_room->answer(roomsPath, rooms, 1);
    RoomCardSplitVm page;
    const QAbstractItemModelTester tester(page.pEmptyRoomModel());
    const auto detail = room({"8001", "8002", "8001"});
    page.init(detail->data());
    QCOMPARE(m_room->sent(roomsPath), (QJsonObject{{"roomno", ""}}));
    QCOMPARE(numbersOf(page.pCardListModel()), (QStringList{"8001", "8002"}));
    QCOMPARE(page.pCardListModel()->selectedIds(), QJsonArray());
    const QStringList kept{"201=201  -[%3间] 空闲", "202=202  -[%3间] 在用", "203=203  -[%3间] 在用"};
    QCOMPARE(namesOf(page.pEmptyRoomModel()), kept);
    QCOMPARE(page.pEmptyRoomModel()->checkedIndex(), -1);

    m_room->refuse(roomsPath, QStringLiteral("查询失败"), 1);
    page.getRoomInfo("3");
    QCOMPARE(m_room->sent(roomsPath), (QJsonObject{{"roomno", "3"}}));
    QCOMPARE(m_room->takeShown(), QStringList{"error|查询失败"});
    QCOMPARE(namesOf(page.pEmptyRoomModel()), kept);
}

void tst_room_cards::moveNeedsBoth()
{
    m_room->answer(roomsPath, QJsonArray{QJsonObject{{"code", "201"}, {"status", 1}},
                                         QJsonObject{{"code", "202"}, {"status", 2}}});
    RoomCardSplitVm page;
    page.init(room({"8001", "8002", "8003"})->data());
    const auto enabled = noteEnabled(&page);
    QVERIFY(!page.save());
    page.selectCard(1);
    QVERIFY(!page.save());
    page.selectCard(1);
    page.selectRoom(0);
    page.selectRoom(1);
    page.selectRoom(2); // no such room
    QVERIFY(!page.save());
    QCOMPARE(m_room->takeShown(), (QStringList{"error|请选择需要进入的房间", "error|请选择需要进入的房间",
                                               "error|请选择需要拆离的手牌"}));
    QVERIFY(page.isEnabled());
    QCOMPARE(m_room->house().seen(splitPath), 0);

    page.selectCard(2);
    page.selectCard(0);
    page.selectCard(3); // no such card
    enabled->clear();
    m_room->refuse(splitPath, QStringLiteral("技师在上钟"), 1);
    QVERIFY(!page.save());
    QCOMPARE(m_room->takeShown(), QStringList{"error|技师在上钟"});
    m_room->answer(splitPath, {}, 1);
    QVERIFY(page.save());
    QCOMPARE(m_room->takeShown(), QStringList{});
    QCOMPARE(*enabled, busyOnce() + busyOnce());
    QCOMPARE(m_room->sent(splitPath),
             (QJsonObject{
                 {"oldRoomId", "R1"}, {"newRoomNo", "202"}, {"cardIds", QJsonArray{"id-8001", "id-8003"}}}));
}

void tst_room_cards::movedCards()
{
    const QString from = RoomFloor::openRoom(2, 2);
    const QString to = RoomFloor::openRoom(2, 1);
    QVERIFY(!from.isEmpty() && !to.isEmpty());
    RoomCardSplitVm page;
    page.init(RoomFloor::detail(from)->data());
    page.getRoomInfo(to);
    QCOMPARE(page.pEmptyRoomModel()->rowCount(), 1);
    const QString moved = page.pCardListModel()->getAll().at(0).cardNo;
    page.selectCard(0);
    page.selectRoom(0);
    QVERIFY(page.save());
    QCOMPARE(m_room->takeShown(), QStringList{});
    QCOMPARE(RoomFloor::cardsInside(from).size(), 1);
    QCOMPARE(RoomFloor::cardsInside(to).last(), moved);
}

QTEST_GUILESS_MAIN(tst_room_cards)
#include "tst_room_cards.moc"
