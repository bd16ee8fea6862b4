#include "FurnishedHouse.h"
#include "src/Control.h"
#include "src/others/OtherTerminals.h"
#include "src/others/OthersTimer.h"
#include "src/state/RoomRecords.h"
#include "src/state/ServiceClock.h"

#include <QtTest>

#include <algorithm>
#include <set>

using namespace house;
using nlohmann::json;

namespace {

constexpr Seconds now = 1770000000;
const std::string roomList = "/bba01/getRoomList";

/// What is wrong with the house, empty when its parts agree.
QString disagreement(const State& state)
{
    std::set<std::string> seated;
    std::map<std::string, int> groups;
    for (const Room& room : state.rooms) {
        const QString code = QString::fromStdString(room.code);
        if (!isInUse(room) && !isGuestRoom(room) &&
            (!room.cardIds.empty() || room.openedAt != 0 || !room.groupKey.empty() || room.isSettled))
            return code + " keeps what its guests left";
        if (isInUse(room) && (room.openedAt == 0 || room.hours < 1 || room.isDirty))
            return code + " is in use and not open";
        if (room.status == RoomStatus::Rest && !isGuestRoom(room) && !state.plans.find(room.planId))
            return code + " has no plan";
        for (const std::string& id : room.cardIds) {
            const Card* card = state.cards.find(id);
            if (!card || card->roomId != room.id || card->status != CardStatus::InUse ||
                !seated.insert(id).second)
                return code + " holds a card that isn't there";
        }
        if (!room.groupKey.empty())
            ++groups[room.groupKey];
    }
    for (const auto& [key, members] : groups)
        if (members < 2)
            return "a group of one";
    for (const Card& card : state.cards) {
        if (!card.roomId.empty() && seated.count(card.id) == 0)
            return QString::fromStdString(card.number) + " is in a room that doesn't hold it";
    }
    for (const Order& order : state.orders) {
        const Card* card = state.cards.find(order.cardId);
        if (isOpen(order) && card && card->status == CardStatus::Free)
            return "an open line on the free card " + QString::fromStdString(card->number);
    }
    for (const Clock& clock : state.clocks) {
        const Order* order = state.orders.find(clock.orderId);
        const bool isServing = clock.workStatus == WorkServing;
        if (isServing != (order && order->progress == Progress::Running && isOpen(*order)))
            return "a technician whose clock stands on no service";
    }
    return {};
}

struct Count
{
    int rooms = 0;
    int used = 0;
    int empty = 0;
    int overrun = 0;
    int freeCards = 0;
    int atLarge = 0; ///< guests in no room
    int waiting = 0; ///< technicians
    double highestDue = 0;
};

Count countOf(House& house, Seconds at)
{
    Count count;
    for (const json& room : told(house, roomList, json::object(), at)) {
        if (room["openType"] == 2)
            continue;
        const bool isUsed = room["status"] == 2 || room["status"] == 3;
        ++count.rooms;
        count.used += isUsed;
        count.empty += room["status"] == 1 && room["roomLock"] == false;
        count.overrun += isUsed && room["surplus"] < 0;
        count.highestDue = std::max(count.highestDue, room["needPayAmount"].get<double>());
    }
    for (const Card& card : house.state.cards) {
        count.freeCards += card.status == CardStatus::Free;
        count.atLarge += card.status == CardStatus::InUse && card.roomId.empty();
    }
    for (const Clock& clock : house.state.clocks)
        count.waiting += clock.workStatus == WorkWaiting;
    return count;
}

} // namespace

/// The other terminals of the house: what they do to it, and whom they leave alone.
class tst_others : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void eveningsStayBelievable_data();
    void eveningsStayBelievable();
    void bounds_data();
    void bounds();
    void everyKindOfChange();
    void sameSeedSameEvening();
    void leaveAloneWhatIsNamed_data();
    void leaveAloneWhatIsNamed();
    void groupOfWhatIsNamed();
    void cardsAndStaffThatAreNamed();
    void atTheOrderedRate();
    void wrongOrders_data();
    void wrongOrders();

private:
    /// So many changes, evenly spread; false when one was refused or none was possible.
    bool change(OtherTerminals& others, int changes, double secondsBetween, Seconds from = now);
    json order(const QString& body);
    Scene::Complain complain()
    {
        return [this](const std::string& what) { m_complaints << QString::fromStdString(what); };
    }

    std::unique_ptr<House> m_house;
    QStringList m_complaints;
    QStringList m_topics;
    std::set<std::string> m_made;
};

void tst_others::init()
{
    m_house = furnishedHouse(now);
    QVERIFY(m_house);
    m_house->publisher = std::make_unique<Recorder>(m_topics);
    m_house->clock = [] { return now; };
    m_complaints.clear();
    m_topics.clear();
    m_made.clear();
}

bool tst_others::change(OtherTerminals& others, int changes, double secondsBetween, Seconds from)
{
    for (int i = 0; i < changes; ++i) {
        const char* made = others.change(from + static_cast<Seconds>(i * secondsBetween));
        if (!made || !m_complaints.isEmpty())
            return false;
        m_made.insert(made);
    }
    return true;
}

json tst_others::order(const QString& body)
{
    WireRequest request;
    request.method = "POST";
    request.path = "/_control/others";
    request.body = body.toStdString();
    const ControlAnswer answer = handleControl(*m_house, request);
    return answer.status == 200 ? json::parse(answer.body) : json();
}

void tst_others::eveningsStayBelievable_data()
{
    QTest::addColumn<int>("rooms");
    QTest::addColumn<bool>("worksByRooms");
    QTest::addColumn<double>("secondsBetween");
    QTest::newRow("breathless") << 0 << false << 0.1;
    QTest::newRow("busy") << 0 << false << 2.0;
    QTest::newRow("quiet") << 0 << false << 20.0;
    QTest::newRow("without hand cards") << 0 << true << 2.0;
    QTest::newRow("small") << 16 << false << 2.0;
    QTest::newRow("big") << 150 << false << 2.0;
}

void tst_others::eveningsStayBelievable()
{
    QFETCH(int, rooms);
    QFETCH(bool, worksByRooms);
    QFETCH(double, secondsBetween);
    constexpr int rounds = 40;
    constexpr int changes = 25;
    m_house = furnishedHouse(now, rooms, worksByRooms);
    QVERIFY(m_house);
    m_house->publisher = std::make_unique<Recorder>(m_topics);
    OtherTerminals others(*m_house, 7, complain());
    const int atLarge = countOf(*m_house, now).atLarge;
    for (int round = 0; round < rounds; ++round) {
        const double begun = round * changes * secondsBetween;
        m_topics.clear();
        const bool isGood = change(others, changes, secondsBetween, now + static_cast<Seconds>(begun));
        QVERIFY2(isGood, qPrintable(m_complaints.join('\n')));
        QVERIFY(m_topics.filter("ROOMSTATUS_").size() >= changes);
        QCOMPARE(disagreement(m_house->state), QString());
        const Count count = countOf(*m_house, now + static_cast<Seconds>(begun));
        QVERIFY2(count.used * 10 >= count.rooms * 3 && count.used * 4 <= count.rooms * 3,
                 qPrintable(QString::number(count.used)));
        QVERIFY(count.empty >= 1);
        QVERIFY2(count.highestDue < 3000, qPrintable(QString::number(count.highestDue)));
        QVERIFY(count.freeCards >= 10);
        QCOMPARE(count.atLarge, atLarge); // who leaves a room goes home
        QVERIFY(count.waiting >= 4);
    }
    const Count last = countOf(*m_house, now + static_cast<Seconds>(rounds * changes * secondsBetween));
    QVERIFY(last.overrun * 2 <= last.used + 2); // most guests go in time
}

void tst_others::bounds_data()
{
    QTest::addColumn<int>("used"); // of the 57 rooms that aren't guest rooms
    QTest::addColumn<bool>("mayOpen");
    QTest::addColumn<bool>("mayClose");
    QTest::newRow("none") << 0 << true << false;
    QTest::newRow("just enough") << 22 << true << false;
    QTest::newRow("one more") << 23 << true << true;
    QTest::newRow("nearly full") << 41 << true << true;
    QTest::newRow("full") << 42 << false << true;
    QTest::newRow("overfull") << 57 << false << true;
}

void tst_others::bounds()
{
    QFETCH(int, used);
    int left = used;
    for (Room& room : m_house->state.rooms) {
        if (isGuestRoom(room))
            continue;
        room.status = left-- > 0 ? RoomStatus::Massage : RoomStatus::Empty;
        room.isReserved = false;
    }
    Dice dice(7);
    const Scene::Complain keep = complain();
    const Scene scene(*m_house, dice, now, keep);
    QTEST(scene.mayOpen(), "mayOpen");
    QTEST(scene.mayClose(), "mayClose");
}

void tst_others::everyKindOfChange()
{
    OtherTerminals others(*m_house, 3, complain());
    QVERIFY2(change(others, 4000, 3), qPrintable(m_complaints.join('\n')));
    for (const char* kind : {"open massage room",
                             "open rest room",
                             "settle",
                             "settle early",
                             "leave",
                             "leave in part",
                             "clean",
                             "occupy",
                             "release",
                             "change room",
                             "add card",
                             "unpack",
                             "merge",
                             "remark",
                             "add time",
                             "order",
                             "start service",
                             "start assigned",
                             "end service",
                             "call staff"})
        QVERIFY2(m_made.count(kind) == 1, kind);
}

void tst_others::sameSeedSameEvening()
{
    const auto evening = [&](std::uint64_t seed) {
        const auto house = furnishedHouse(now);
        OtherTerminals others(*house, seed, complain());
        json all = change(others, 300, 5) ? told(*house, roomList, json::object(), now) : json();
        for (const Room& room : house->state.rooms)
            all.push_back(told(*house, "/bba01/getRoomConsList", {{"roomId", room.id}}, now));
        return all;
    };
    const json first = evening(7);
    QVERIFY(evening(7) == first);
    QVERIFY(evening(8) != first);
    QVERIFY(m_complaints.isEmpty());
}

void tst_others::leaveAloneWhatIsNamed_data()
{
    QTest::addColumn<QString>("body"); // of a request
    QTest::addColumn<QString>("code"); // the room that is meant by it
    QTest::newRow("room id") << R"({"roomId":"$105"})"
                             << "105";
    QTest::newRow("room number") << R"({"roomNo":"308"})"
                                 << "308";
    QTest::newRow("empty room") << R"({"id":"$112"})"
                                << "112";
    QTest::newRow("room being cleaned") << R"({"id":"$108","cleanFlg":1})"
                                        << "108";
    QTest::newRow("its card") << R"({"cardno":"8005"})"
                              << "105";
    QTest::newRow("its card's serial") << R"({"cardUid":"65024911"})"
                                       << "105"; // 8005
    QTest::newRow("its card's id, deep inside") << R"({"items":[{"cards":["#8032"]}]})"
                                                << "308";
}

void tst_others::leaveAloneWhatIsNamed()
{
    QFETCH(QString, body);
    QFETCH(QString, code);
    const auto records = [&] {
        const json room = boardOf(*m_house, qPrintable(code), now);
        return json{room, told(*m_house, "/bba01/getRoomDetailNew", {{"roomId", room["id"]}}, now),
                    told(*m_house, "/bba01/getRoomConsList", {{"roomId", room["id"]}}, now)};
    };
    const json before = records();
    m_house->holds.note(m_house->state, m_house->seed, filled(*m_house, body), now);
    OtherTerminals others(*m_house, 7, complain());
    QVERIFY2(change(others, 600, 1), qPrintable(m_complaints.join('\n')));
    QVERIFY(records() == before);
    // Then it is a room like any other.
    QVERIFY2(change(others, 600, 1, now + Holds::holdSeconds), qPrintable(m_complaints.join('\n')));
    QVERIFY(records() != before);
}

/// A room can't leave a group without the others of the group showing it.
void tst_others::groupOfWhatIsNamed()
{
    m_house->holds.note(m_house->state, m_house->seed, {{"roomNo", "106"}}, now);
    OtherTerminals others(*m_house, 7, complain());
    QVERIFY2(change(others, 600, 1), qPrintable(m_complaints.join('\n')));
    QCOMPARE(boardOf(*m_house, "106", now)["groupRoom"], json("105,106,107"));
    QCOMPARE(boardOf(*m_house, "105", now)["cardnos"], json("8005,8006"));
}

/// Free cards and waiting technicians as well; guests who wait for a bath helper without being named.
void tst_others::cardsAndStaffThatAreNamed()
{
    State& state = m_house->state;
    const json body = {{"cards", {"8070", "8071", "8072", "8073", "8074", "8075", "8076", "8077"}},
                       {"staff", {"806", "807", "810"}}};
    m_house->holds.note(state, m_house->seed, body, now);
    const auto touched = [&] {
        int count = 0;
        for (const std::string number : body["cards"])
            count += state.cardByNumber(number)->openedAt != 0;
        for (const std::string code : body["staff"])
            count += !state.clocks.find(m_house->seed.staffByCode(code)->id)->orderId.empty();
        return count;
    };
    Card& waiting = *state.cardByNumber("8042");
    Room& room = *state.roomByCode("105");
    state.seat(waiting, room, now);
    OtherTerminals others(*m_house, 7, complain());
    QVERIFY2(change(others, 600, 1), qPrintable(m_complaints.join('\n')));
    QCOMPARE(touched(), 0);
    QVERIFY2(change(others, 600, 1, now + Holds::holdSeconds), qPrintable(m_complaints.join('\n')));
    QVERIFY(touched() > 3);
    QCOMPARE(waiting.roomId, room.id);
    QCOMPARE(room.cardIds.size(), std::size_t(3));
}

void tst_others::atTheOrderedRate()
{
    const auto published = [&] {
        const std::lock_guard<std::mutex> lock(m_house->mutex);
        return m_topics.size();
    };
    Log log;
    const OthersTimer timer(*m_house, log);
    QElapsedTimer clock;
    clock.start();
    QVERIFY(order(R"({"perSecond":100,"seed":7})")["ok"] == true);
    QTRY_VERIFY(published() >= 30);
    QVERIFY(clock.elapsed() >= 150); // a change may publish on two topics
    QVERIFY(order(R"({"perSecond":0})")["ok"] == true);
    const int atStop = published();
    QTest::qWait(100);
    QCOMPARE(published(), atStop);
    // The seed begins anew with the order.
    QVERIFY(order(R"({"perSecond":0.001})")["ok"] == true);
    QVERIFY(order(R"({"perSecond":50})")["ok"] == true);
    QTRY_VERIFY(published() > atStop);
}

void tst_others::wrongOrders_data()
{
    QTest::addColumn<QString>("body");
    for (const char* body :
         {R"({"perSecond":-1})", R"({"perSecond":101})", R"({"perSecond":"2"})", R"({"seed":7})", "[1]", "2"})
        QTest::newRow(body) << body;
}

void tst_others::wrongOrders()
{
    QFETCH(QString, body);
    QVERIFY(order(body).is_null());
    QCOMPARE(m_house->others.number, 0u);
}

QTEST_GUILESS_MAIN(tst_others)
#include "tst_others.moc"
