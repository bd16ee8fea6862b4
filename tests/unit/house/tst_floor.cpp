#include "FurnishedHouse.h"
#include "src/state/Asked.h"
#include "src/state/RoomGroups.h"
#include "src/state/RoomMoves.h"
#include "src/state/RoomRecords.h"
#include "src/state/Sale.h"

#include <QtTest>

namespace {

constexpr house::Seconds now = 1770000000;
constexpr house::Seconds hourSeconds = 3600;
const house::Act act{"405812300001014013", now};

using house::Complaint;
using house::RoomStatus;

} // namespace

Q_DECLARE_METATYPE(RoomStatus)

/// The rules of the house's rooms, guests and money on a freshly furnished house.
class tst_floor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void roomSteps_data();
    void roomSteps();
    void fees();
    void joinedOpening();
    void leaving_data();
    void leaving();
    void changeOfRoom();
    void groups();
    void cardsTakeTheirLines();
    void times_data();
    void times();
    void amounts_data();
    void amounts();
    void sales_data();
    void sales();
    void announced_data();
    void announced();
    void businessDay_data();
    void businessDay();
    void sizes_data();
    void sizes();

private:
    house::Room& room(const char* code) { return *m_house->state.roomByCode(code); }
    house::Card& card(const char* number) { return *m_house->state.cardByNumber(number); }
    const house::Plan& planOf(const house::Room& room);
    double due(const char* code);
    Complaint step(const QString& name, house::Room& room);

    std::unique_ptr<house::House> m_house;
};

void tst_floor::init()
{
    m_house = furnishedHouse(now);
    QVERIFY(m_house);
}

const house::Plan& tst_floor::planOf(const house::Room& room)
{
    return *m_house->state.plans.findBy(&house::Plan::roomTypeId, room.typeId);
}

double tst_floor::due(const char* code)
{
    return house::RoomRecords(*m_house, now).board(room(code))["needPayAmount"].get<double>();
}

Complaint tst_floor::step(const QString& name, house::Room& room)
{
    house::State& state = m_house->state;
    house::Card& guest = card("8070");
    if (name == "massage")
        return house::openMassageRoom(state, room, {&guest}, 2, false, act);
    if (name == "rest")
        return house::openRestRoom(state, room, {&guest}, planOf(room), act);
    if (name == "occupy")
        return house::occupyRoom(room, *state.occupationTypes.begin(), "", act);
    if (name == "release")
        return house::releaseRoom(room, act);
    if (name == "clean")
        return house::sendToCleaning(room, act);
    if (name == "clean 1" || name == "clean 2")
        return house::setCleaning(room, name == "clean 1" ? 1 : 2, act.staffId, act);
    if (name == "cleaned")
        return house::endCleaning(room, act);
    if (name == "cancel")
        return house::cancelOpening(state, room, act);
    if (name == "to rest")
        return house::massageToRest(state, room, {&guest}, planOf(room), act);
    if (name == "to massage")
        return house::restToMassage(state, room, {&guest}, guest, 1, act);
    if (name == "leave")
        return house::leaveRoom(state, room, {&guest}, &guest, true, act);
    if (name == "more time")
        return house::addHours(state, room, 1, act);
    qFatal("no step %s", qPrintable(name));
}

void tst_floor::roomSteps_data()
{
    QTest::addColumn<QStringList>("steps"); // the last one is judged, those before it must pass
    QTest::addColumn<bool>("passes");
    QTest::addColumn<RoomStatus>("status");
    QTest::newRow("open massage") << QStringList{"massage"} << true << RoomStatus::Massage;
    QTest::newRow("open rest") << QStringList{"rest"} << true << RoomStatus::Rest;
    QTest::newRow("open twice") << QStringList{"massage", "rest"} << false << RoomStatus::Massage;
    QTest::newRow("massage to rest") << QStringList{"massage", "to rest"} << true << RoomStatus::Rest;
    QTest::newRow("rest to massage") << QStringList{"rest", "to massage"} << true << RoomStatus::Massage;
    QTest::newRow("to the same kind") << QStringList{"rest", "to rest"} << false << RoomStatus::Rest;
    QTest::newRow("more time to rest") << QStringList{"rest", "more time"} << true << RoomStatus::Rest;
    QTest::newRow("more time to massage")
        << QStringList{"massage", "more time"} << false << RoomStatus::Massage;
    QTest::newRow("cancel") << QStringList{"rest", "cancel"} << true << RoomStatus::Empty;
    QTest::newRow("cancel an empty one") << QStringList{"cancel"} << false << RoomStatus::Empty;
    QTest::newRow("last guest leaves") << QStringList{"rest", "leave"} << true << RoomStatus::Cleaning;
    QTest::newRow("cleaned in steps") << QStringList{"clean", "clean 1", "clean 2", "cleaned"} << true
                                      << RoomStatus::Empty;
    QTest::newRow("cleaned at once") << QStringList{"clean", "cleaned"} << true << RoomStatus::Empty;
    QTest::newRow("a step left out") << QStringList{"clean", "clean 2"} << false << RoomStatus::Cleaning;
    QTest::newRow("a step again") << QStringList{"clean", "clean 1", "clean 1"} << false
                                  << RoomStatus::Cleaning;
    QTest::newRow("cleaning an open one") << QStringList{"massage", "clean"} << false << RoomStatus::Massage;
    QTest::newRow("occupied and back") << QStringList{"occupy", "release"} << true << RoomStatus::Empty;
    QTest::newRow("occupied while dirty")
        << QStringList{"clean", "occupy", "release"} << false << RoomStatus::Occupied;
    QTest::newRow("dirty and cleaned")
        << QStringList{"clean", "occupy", "cleaned"} << true << RoomStatus::Empty;
    QTest::newRow("open an occupied one") << QStringList{"occupy", "massage"} << false << RoomStatus::Occupied;
}

void tst_floor::roomSteps()
{
    QFETCH(QStringList, steps);
    QFETCH(bool, passes);
    QFETCH(RoomStatus, status);
    house::Room& tried = room("112");
    const QString last = steps.takeLast();
    for (const QString& name : steps)
        QCOMPARE(step(name, tried), Complaint());
    QCOMPARE(step(last, tried).empty(), passes);
    QCOMPARE(tried.status, status);
    QCOMPARE(tried.cardIds.empty(), !house::isInUse(tried));
    QCOMPARE(card("8070").roomId.empty(), !house::isInUse(tried));
}

void tst_floor::fees()
{
    house::Room& tried = room("305");
    house::State& state = m_house->state;
    QCOMPARE(step("rest", tried), Complaint());
    QCOMPARE(due("305"), 88.0);
    QCOMPARE(house::addHours(state, tried, 2, act), Complaint());
    QCOMPARE(due("305"), 146.66); // two hours at a third of 88
    const house::Plan* longer = nullptr;
    for (const house::Plan& plan : state.plans)
        if (plan.roomTypeId == tried.typeId && plan.hours == 6)
            longer = &plan;
    QCOMPARE(house::changePlan(state, tried, *longer), Complaint());
    QCOMPARE(due("305"), 196.66);
    QVERIFY(!house::changePlan(state, tried, planOf(room("308"))).empty());
    QCOMPARE(step("cancel", tried), Complaint());
    QCOMPARE(house::amountOf(state.ordersOfCard(card("8070").id)), 0.0);
}

void tst_floor::joinedOpening()
{
    house::State& state = m_house->state;
    QCOMPARE(house::openMassageRoom(state, room("112"), {&card("8001")}, 1, true, act), Complaint());
    QCOMPARE(room("101").groupKey, room("112").groupKey);
    QVERIFY(!room("112").groupKey.empty());
    QCOMPARE(room("101").cardIds.size(), std::size_t(1));
    QCOMPARE(house::openMassageRoom(state, room("115"), {&card("8002")}, 1, false, act), Complaint());
    QVERIFY(room("115").groupKey.empty());
    for (const char* unusable : {"8099", "8100"})
        QVERIFY(!house::openMassageRoom(state, room("203"), {&card(unusable)}, 1, false, act).empty());
    QVERIFY(!house::openMassageRoom(state, room("117"), {}, 1, false, act).empty()); // reserved
}

void tst_floor::leaving_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QStringList>("cards");
    QTest::addColumn<QString>("consumer");
    QTest::addColumn<bool>("passes");
    QTest::addColumn<int>("left");
    QTest::newRow("all of a massage room") << "105" << QStringList{"8005", "8006"} << "" << true << 0;
    QTest::newRow("part of it") << "105" << QStringList{"8006"} << "" << true << 1;
    QTest::newRow("one on service") << "101" << QStringList{"8001"} << "" << false << 2;
    QTest::newRow("one from elsewhere") << "105" << QStringList{"8007"} << "" << false << 2;
    QTest::newRow("rest without consumer") << "308" << QStringList{"8032", "6021"} << "" << false << 2;
    QTest::newRow("consumer from elsewhere") << "308" << QStringList{"8032"} << "8033" << false << 2;
    QTest::newRow("rest with consumer") << "308" << QStringList{"8032", "6021"} << "6021" << true << 0;
}

void tst_floor::leaving()
{
    QFETCH(QString, code);
    QFETCH(QStringList, cards);
    QFETCH(QString, consumer);
    QFETCH(bool, passes);
    QFETCH(int, left);
    house::Room& tried = room(qPrintable(code));
    house::Cards leavers;
    for (const QString& number : cards)
        leavers.push_back(&card(qPrintable(number)));
    const house::Card* payer = consumer.isEmpty() ? nullptr : &card(qPrintable(consumer));
    const double before = payer ? house::amountOf(m_house->state.ordersOfCard(payer->id)) : 0;
    QCOMPARE(house::leaveRoom(m_house->state, tried, leavers, payer, true, act).empty(), passes);
    QCOMPARE(int(tried.cardIds.size()), left);
    QCOMPARE(tried.status == RoomStatus::Cleaning, left == 0);
    if (payer && passes) // the room's own fee, not what the other guest had
        QCOMPARE(house::amountOf(m_house->state.ordersOfCard(payer->id)), before + 108);
}

void tst_floor::changeOfRoom()
{
    house::State& state = m_house->state;
    const double before = due("101");
    QVERIFY(before > 0);
    QCOMPARE(house::changeRoom(state, room("101"), room("112"), nullptr, true, act), Complaint());
    QCOMPARE(due("112"), before);
    QCOMPARE(due("101"), 0.0);
    QCOMPARE(room("101").status, RoomStatus::Cleaning);
    QCOMPARE(card("8001").roomId, room("112").id);
    QVERIFY(!house::changeRoom(state, room("112"), room("102"), nullptr, false, act).empty());

    const house::Plan* next = &planOf(room("316"));
    QVERIFY(!house::changeRoom(state, room("301"), room("316"), &planOf(room("301")), false, act).empty());
    QCOMPARE(house::changeRoom(state, room("301"), room("316"), next, false, act), Complaint());
    QCOMPARE(room("316").planId, next->id);
    QCOMPARE(due("316"), next->fee + 38); // and the noodles
    QCOMPARE(room("301").status, RoomStatus::Empty);

    QCOMPARE(house::changeRoom(state, room("105"), room("118"), nullptr, false, act), Complaint());
    QCOMPARE(room("118").groupKey, room("106").groupKey);
    QVERIFY(room("105").groupKey.empty());
}

void tst_floor::groups()
{
    house::State& state = m_house->state;
    const std::string key = room("105").groupKey;
    QCOMPARE(house::mergeRooms(state, {&room("101"), &room("210"), &room("105")}), Complaint());
    QCOMPARE(state.roomsOfGroup(key).size(), std::size_t(5));
    QVERIFY(room("211").groupKey.empty()); // a group of one is none
    QVERIFY(!house::mergeRooms(state, {&room("112"), &room("105")}).empty());
    QVERIFY(!house::splitRooms(state, key, {&room("301")}).empty());
    QCOMPARE(house::splitRooms(state, key, {&room("105"), &room("106")}), Complaint());
    QCOMPARE(state.roomsOfGroup(key).size(), std::size_t(3));
    QCOMPARE(house::splitRooms(state, key, {&room("107"), &room("101")}), Complaint());
    QVERIFY(room("210").groupKey.empty());
}

void tst_floor::cardsTakeTheirLines()
{
    house::State& state = m_house->state;
    const double both = due("101");
    QCOMPARE(house::moveCards(state, room("101"), room("112"), {&card("8002")}, act), Complaint());
    QCOMPARE(room("112").status, RoomStatus::Massage);
    QCOMPARE(due("112"), 128.0);
    QCOMPARE(due("101"), both - 128);
    QVERIFY(!house::moveCards(state, room("101"), room("109"), {&card("8001")}, act).empty());
    QVERIFY(!house::moveCards(state, room("101"), room("102"), {&card("8002")}, act).empty());
}

void tst_floor::times_data()
{
    QTest::addColumn<int>("minutes"); // since the opening, for three hours
    QTest::addColumn<int>("surplus");
    QTest::addColumn<int>("useTime");
    QTest::addColumn<int>("overTime");
    QTest::newRow("begun") << 0 << 180 << 0 << 0;
    QTest::newRow("an hour") << 60 << 120 << 1 << 0;
    QTest::newRow("just over") << 180 << 0 << 3 << 0;
    QTest::newRow("overrun") << 181 << -1 << 3 << 1;
}

void tst_floor::times()
{
    QFETCH(int, minutes);
    QCOMPARE(step("rest", room("305")), Complaint());
    const auto record = house::RoomRecords(*m_house, now + minutes * 60).detail(room("305"));
    QTEST(record["surplus"].get<int>(), "surplus");
    QTEST(record["useTime"].get<int>(), "useTime");
    QTEST(record["overTime"].get<int>(), "overTime");
}

void tst_floor::amounts_data()
{
    QTest::addColumn<double>("num");
    QTest::addColumn<double>("price");
    QTest::addColumn<int>("status");
    QTest::addColumn<double>("amount");
    QTest::newRow("plain") << 3.0 << 12.5 << 1 << 37.5;
    QTest::newRow("half a cent up") << 3.0 << 1.115 << 1 << 3.35;
    QTest::newRow("below it") << 1.0 << 1.0049 << 1 << 1.0;
    QTest::newRow("gift") << 2.0 << 68.0 << 2 << 0.0;
    QTest::newRow("void") << 2.0 << 68.0 << 5 << 0.0;
}

void tst_floor::amounts()
{
    QFETCH(double, num);
    QFETCH(double, price);
    QFETCH(int, status);
    house::Order order;
    order.num = num;
    order.price = price;
    order.status = static_cast<house::LineStatus>(status);
    QTEST(house::amountOf(order), "amount");
}

void tst_floor::sales_data()
{
    QTest::addColumn<QString>("staff");
    QTest::addColumn<QString>("lines"); // $item$ and $order$ stand for the ids of the cola and the stored tea
    QTest::addColumn<QString>("code");
    QTest::addColumn<double>("added");
    const QString cola = R"({"id":"$item$","status":1,"orderType":1,"num":2})";
    const QString back = R"({"id":"","status":3,"orderType":1,"oldOrderId":"$order$","num":1})";
    QTest::newRow("sold") << "1001" << cola << "200" << 20.0;
    QTest::newRow("given") << "1001"
                           << R"({"id":"$item$","status":2,"orderType":1,"num":2,"price":0})"
                           << "200" << 0.0;
    QTest::newRow("taken back") << "1001" << back << "200" << -68.0;
    QTest::newRow("sold and taken back") << "1001" << cola + "," + back << "200" << -48.0;
    QTest::newRow("taken back twice") << "1001" << back + "," + back << "ORDER_ERR_0001" << 0.0;
    QTest::newRow("good line before a bad one")
        << "1001" << cola + R"(,{"id":"nothing","status":1,"orderType":1,"num":1})"
        << "ORDER_ERR_0001" << 0.0;
    QTest::newRow("wrong kind") << "1001"
                                << R"({"id":"$item$","status":1,"orderType":2,"num":1})"
                                << "ORDER_ERR_0001" << 0.0;
    QTest::newRow("no number") << "1001"
                               << R"({"id":"$item$","status":1,"orderType":1,"num":0})"
                               << "ORDER_ERR_0001" << 0.0;
    QTest::newRow("no right to sell") << "901" << cola << "AUTH_ERR_0002" << 0.0;
    QTest::newRow("no right to give") << "1101"
                                      << R"({"id":"$item$","status":2,"orderType":1,"num":1})"
                                      << "AUTH_ERR_0002" << 0.0;
}

void tst_floor::sales()
{
    QFETCH(QString, staff);
    QFETCH(QString, lines);
    house::State& state = m_house->state;
    const house::Card& guest = card("8001");
    for (const house::Order* order : state.ordersOfCard(guest.id))
        if (order->itemName == "西湖龙井")
            lines.replace("$order$", QString::fromStdString(order->id));
    lines.replace("$item$", QString::fromStdString(state.items.findBy(&house::Item::name, "可乐")->id));
    house::Call call;
    call.staff = m_house->seed.staffByCode(staff.toStdString());
    call.terminal = &m_house->seed.terminals.front();
    call.session = house::Session{};
    call.now = now;
    call.body = nlohmann::json::object();

    const double before = house::amountOf(state.ordersOfCard(guest.id));
    house::Sale sale(*m_house, call, {&guest, &room("101")});
    const house::Reply reply = sale.read(nlohmann::json::parse("[" + lines.toStdString() + "]"));
    QTEST(QString::fromStdString(reply.code), "code");
    if (reply.isGood())
        sale.book();
    QTEST(house::amountOf(state.ordersOfCard(guest.id)) - before, "added");
}

void tst_floor::announced_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("roomField");
    QTest::addColumn<QString>("code");
    QTest::addColumn<bool>("isAnnounced");
    QTest::newRow("change") << "/bba01/reSetRoomTime"
                            << "roomId"
                            << "101" << true;
    QTest::newRow("refused change") << "/bba01/reSetRoomTime"
                                    << "roomId"
                                    << "112" << false;
    QTest::newRow("question") << "/bba01/getRoomConsList"
                              << "roomId"
                              << "101" << false;
}

void tst_floor::announced()
{
    QFETCH(QString, path);
    QFETCH(QString, roomField);
    QFETCH(QString, code);
    QFETCH(bool, isAnnounced);
    QStringList topics;
    m_house->publisher = std::make_unique<Recorder>(topics);
    handle(*m_house, path.toStdString(), {{roomField.toStdString(), room(qPrintable(code)).id}}, now);
    const QString topic = "ROOMSTATUS_" + QString::fromStdString(m_house->seed.storeId);
    QCOMPARE(topics, isAnnounced ? QStringList{topic} : QStringList{});
}

void tst_floor::businessDay_data()
{
    QTest::addColumn<QByteArray>("time");
    QTest::addColumn<QByteArray>("start");
    QTest::newRow("before") << QByteArray("2026-03-01 05:59:59") << QByteArray("2026-02-28 06:00:00");
    QTest::newRow("at") << QByteArray("2026-03-01 06:00:00") << QByteArray("2026-03-01 06:00:00");
    QTest::newRow("late") << QByteArray("2026-03-01 23:59:59") << QByteArray("2026-03-01 06:00:00");
}

void tst_floor::businessDay()
{
    QFETCH(QByteArray, time);
    const house::Seconds start = house::businessDayStart(house::timeOf(time.toStdString()), "06:00:00");
    QTEST(QByteArray::fromStdString(house::timeText(start)), "start");
    QCOMPARE(house::timeOf("2026-03-01"), house::Seconds(0));
}

void tst_floor::sizes_data()
{
    QTest::addColumn<int>("rooms");
    QTest::newRow("small") << 5;
    QTest::newRow("the seed's") << 60;
    QTest::newRow("a bit more") << 61;
    QTest::newRow("big") << 500;
}

void tst_floor::sizes()
{
    QFETCH(int, rooms);
    auto result = house::furnish(m_house->seed, rooms, now);
    auto* state = std::get_if<house::State>(&result);
    QVERIFY(state);
    QCOMPARE(int(state->rooms.size()), rooms);
    std::set<std::string> codes;
    std::set<std::string> uids;
    for (const house::Room& each : state->rooms)
        codes.insert(each.code);
    for (house::Card& each : state->cards) {
        uids.insert(each.uid);
        const house::Room* holder = state->rooms.find(each.roomId);
        QCOMPARE(holder != nullptr, !each.roomId.empty());
        if (holder)
            QVERIFY(std::count(holder->cardIds.begin(), holder->cardIds.end(), each.id) == 1);
    }
    QCOMPARE(int(codes.size()), rooms);
    QCOMPARE(uids.size(), state->cards.size());
    QCOMPARE(state->cardByNumber("8001")->openedAt, now - 47 * hourSeconds / 60);
}

QTEST_GUILESS_MAIN(tst_floor)
#include "tst_floor.moc"
