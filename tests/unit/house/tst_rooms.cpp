#include "FurnishedHouse.h"
#include "src/state/Asked.h"
#include "src/state/RoomMoves.h"

#include <QtTest>

#include <algorithm>

using namespace house;
using nlohmann::json;

namespace {

constexpr Seconds now = 1770000000;
constexpr Seconds minute = 60;
const std::string roomList = "/bba01/getRoomList";

json parsed(const QString& text) { return json::parse(text.toStdString()); }

QString codesOf(const json& rooms)
{
    QStringList codes;
    for (const json& room : rooms)
        codes << QString::fromStdString(room["code"].get<std::string>());
    return codes.join(' ');
}

} // namespace

/// What the house answers about its rooms, and what its calls do to these answers.
class tst_rooms : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void filters_data();
    void filters();
    void sortedByType();
    void sumsFollowTheRooms();
    void looks_data();
    void looks();
    void groupsInSight();
    void guestRoomsAreLeftAlone_data();
    void guestRoomsAreLeftAlone();
    void cardDetails_data();
    void cardDetails();
    void movedLinesAndOpenOnes();
    void callsFromRooms();
    void cardsOfOtherRooms();
    void addedHoursOutliveThePlan();
    void leavingTwiceAtOnce();
    void nextGuestOfACard();

private:
    Room& room(const char* code) { return *m_house->state.roomByCode(code); }
    Card& card(const char* number) { return *m_house->state.cardByNumber(number); }
    Reply ask(const std::string& path, const json& body, Seconds at = now)
    {
        return handle(*m_house, path, body, at);
    }
    json told(const std::string& path, const json& body, Seconds at = now)
    {
        return ::told(*m_house, path, body, at);
    }
    json boardOf(const char* code) { return ::boardOf(*m_house, code, now); }
    json filled(const QString& text) const { return ::filled(*m_house, text); }

    std::unique_ptr<House> m_house;
};

void tst_rooms::init()
{
    m_house = furnishedHouse(now);
    QVERIFY(m_house);
}

void tst_rooms::filters_data()
{
    QTest::addColumn<QString>("body");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("codes"); // empty: not compared
    QTest::newRow("all") << "{}" << 60 << "";
    QTest::newRow("all by an empty status") << R"({"status":""})" << 60 << "";
    QTest::newRow("empty") << R"({"status":"1"})" << 23 << "";
    QTest::newRow("massage") << R"({"status":"2"})" << 16 << "";
    QTest::newRow("rest") << R"({"status":"3","floorId":["%三楼"]})" << 12 << "";
    QTest::newRow("cleaning") << R"({"status":"4"})" << 4 << "108 109 206 306";
    QTest::newRow("occupied") << R"({"status":"5"})" << 3 << "113 213 319";
    QTest::newRow("in use, guest rooms too") << R"({"status":"7"})" << 16 + 12 + 2 << "";
    QTest::newRow("a floor") << R"({"floorId":["%二楼"]})" << 19 << "";
    QTest::newRow("two floors") << R"({"floorId":["%二楼","%一楼"]})" << 35 << "";
    QTest::newRow("no floor") << R"({"floorId":[]})" << 60 << "";
    QTest::newRow("two types") << R"({"houseType":["%影视三人间","%SPA套房"]})" << 7
                               << "218 219 220 221 321 322 323";
    QTest::newRow("type, floor and status")
        << R"({"houseType":["%SPA套房"],"floorId":["%二楼"],"status":"1"})" << 2 << "219 220";
    QTest::newRow("type of another floor") << R"({"houseType":["%SPA套房"],"floorId":["%一楼"]})" << 0 << "";
    QTest::newRow("number") << R"({"roomno":"117"})" << 1 << "117";
    QTest::newRow("start of a number") << R"({"roomno":"21"})" << 9 << "210 211 212 213 215 216 217 218 219";
    QTest::newRow("no such number") << R"({"roomno":"9"})" << 0 << "";
}

void tst_rooms::filters()
{
    QFETCH(QString, body);
    QFETCH(QString, codes);
    const Reply reply = ask(roomList, filled(body));
    QVERIFY(reply.isGood());
    QTEST(int(reply.data->size()), "count");
    if (!codes.isEmpty())
        QCOMPARE(codesOf(*reply.data), codes);
}

void tst_rooms::sortedByType()
{
    const json filter = {{"status", "7"}};
    const json plain = told(roomList, filter);
    json sortedFilter = filter;
    sortedFilter["sortType"] = 1;
    const json groups = told(roomList, sortedFilter);
    QCOMPARE(groups.size(), std::size_t(11));
    json all = json::array();
    for (const json& group : groups) {
        QCOMPARE(group["id"], json(m_house->state.roomTypes.findBy(&RoomType::name, group["name"])->id));
        for (const json& each : group["roomList"]) {
            QCOMPARE(each["typename"], group["name"]);
            all.push_back(each);
        }
    }
    const auto byCode = [](const json& a, const json& b) { return a["code"] < b["code"]; };
    json sortedPlain = plain;
    std::sort(sortedPlain.begin(), sortedPlain.end(), byCode);
    std::sort(all.begin(), all.end(), byCode);
    QVERIFY(all == sortedPlain);
}

/// After each change the sums are those of the list, and the overrun are the rooms of the list without time
/// left.
void tst_rooms::sumsFollowTheRooms()
{
    const std::vector<std::pair<std::string, QString>> changes = {
        {"/bba01/openMassRoom", R"({"id":"$112","cardids":["#8070"],"hours":1})"},
        {"/bba01/changeRoom", R"({"oldRoomId":"$112","status":2,"newRoomId":"$220","isClean":1})"},
        {"/bba01/leaveRoomNew", R"({"id":"$220","status":2,"cardids":["#8070"]})"},
        {"/bba01/chgOccupyRoom", R"({"id":"$112","isOccupy":0})"}, // refused: it is being cleaned
        {"/bba01/unpackRoom", R"({"oldRoomId":"$105","newRoomNo":"118","cardIds":["#8006"]})"},
        {"/bba01/cancelRoom", R"({"id":"$118","authType":2})"},
    };
    Seconds at = now;
    for (const auto& [path, body] : changes) {
        ask(path, filled(body), at);
        at += 20 * minute;
        for (const auto& [sumPath, listName, filter] :
             {std::tuple("/bba01/getFloorSum", "floorList", "floorId"),
              std::tuple("/bba01/getRoomTypeSum", "roomTypeList", "houseType")}) {
            const json sums = told(sumPath, json::object(), at)[listName];
            for (const json& sum : sums) {
                const json one = json::array({sum["id"]});
                QCOMPARE(sum["roomAllSum"], json(told(roomList, {{filter, one}}, at).size()));
                QCOMPARE(sum["roomUseSum"], json(told(roomList, {{filter, one}, {"status", "7"}}, at).size()));
            }
        }
        std::map<std::string, long long> overrun;
        for (const json& each : told(roomList, {{"status", "7"}}, at))
            if (each["surplus"] < 0)
                overrun[each["code"]] = -each["surplus"].get<long long>();
        std::map<std::string, long long> listed;
        for (const json& each : told("/bba01/getOverTime", json::object(), at))
            listed[each["code"]] = each["overtimes"];
        QVERIFY(!overrun.empty());
        QVERIFY(listed == overrun);
    }
}

void tst_rooms::looks_data()
{
    QTest::addColumn<QString>("part"); // of a room's record
    QTest::newRow("empty") << R"({"status":1,"roomLock":false,"cardnos":""})";
    QTest::newRow("reserved") << R"({"status":1,"roomLock":true})";
    QTest::newRow("massage") << R"({"status":2,"isSettle":false,"openType":1})";
    QTest::newRow("massage, settled") << R"({"status":2,"isSettle":true,"needPayAmount":0.0})";
    QTest::newRow("rest") << R"({"status":3,"isSettle":false,"openType":1})";
    QTest::newRow("rest, settled") << R"({"status":3,"isSettle":true})";
    QTest::newRow("to be cleaned") << R"({"status":4,"cleanFlg":0,"cleanerNo":""})";
    QTest::newRow("being cleaned") << R"({"status":4,"cleanFlg":1,"cleanerNo":"901"})";
    QTest::newRow("cleaned") << R"({"status":4,"cleanFlg":2})";
    QTest::newRow("occupied") << R"({"status":5,"dirtyFlg":false,"cooName":"设备维修"})";
    QTest::newRow("occupied and dirty") << R"({"status":5,"dirtyFlg":true})";
    QTest::newRow("guest room") << R"({"status":6,"openType":2,"dirtyFlg":false})";
    QTest::newRow("guest room to be cleaned") << R"({"status":6,"openType":2,"dirtyFlg":true})";
    QTest::newRow("guest room let as a rest room") << R"({"status":3,"openType":2})";
    QTest::newRow("two technicians at work") << R"({"status":2,"staffnos":"801,802"})";
    QTest::newRow("two technicians done") << R"({"status":2,"completedStaffnos":"806,807"})";
    QTest::newRow("overrun") << R"({"status":3,"surplus":-35})";
}

void tst_rooms::looks()
{
    QFETCH(QString, part);
    const json wanted = parsed(part);
    bool isSeen = false;
    for (json record : told(roomList, json::object())) {
        const json whole = record;
        record.update(wanted);
        isSeen = isSeen || record == whole;
    }
    QVERIFY(isSeen);
}

void tst_rooms::groupsInSight()
{
    std::map<std::string, int> groups;
    std::size_t longestRemark = 0;
    for (const json& record : told(roomList, json::object())) {
        ++groups[record["groupRoom"]];
        longestRemark = std::max(longestRemark, record["remark"].get<std::string>().size());
    }
    QCOMPARE(groups["105,106,107"], 3);
    QCOMPARE(groups["310,311"], 2);
    QVERIFY(QString::fromStdString(boardOf("326")["remark"]).size() > 40);
}

void tst_rooms::guestRoomsAreLeftAlone_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("body");
    QTest::newRow("leave") << "/bba01/leaveRoomNew"
                           << R"({"id":"$328","status":3,"cardids":[]})";
    QTest::newRow("cancel") << "/bba01/cancelRoom"
                            << R"({"id":"$221","authType":2})";
    QTest::newRow("merge") << "/bba01/mergeRoom"
                           << R"({"roomIdArr":["$328","$101"]})";
    QTest::newRow("move to") << "/bba01/unpackRoom"
                             << R"({"oldRoomId":"$101","newRoomNo":"328","cardIds":["#8001"]})";
    QTest::newRow("add a card") << "/bba01/roomAddCard"
                                << R"({"roomNo":"328","cardids":["#8070"]})";
    QTest::newRow("call") << "/caa04/callStaff"
                          << R"({"roomId":"$328","contId":"405800600000000001","num":1})";
    QTest::newRow("clean") << "/bba01/chgCleanRoom"
                           << R"({"id":"$327","isClean":0})";
}

void tst_rooms::guestRoomsAreLeftAlone()
{
    QFETCH(QString, path);
    QFETCH(QString, body);
    QStringList topics;
    m_house->publisher = std::make_unique<Recorder>(topics);
    const json before = told(roomList, json::object());
    QVERIFY(!ask(path.toStdString(), filled(body)).isGood());
    QVERIFY(told(roomList, json::object()) == before);
    QCOMPARE(topics, QStringList());
}

void tst_rooms::cardDetails_data()
{
    QTest::addColumn<QString>("number");
    QTest::addColumn<int>("status"); // -1: refused
    QTest::addColumn<QString>("roomNo");
    QTest::newRow("free") << "8070" << 0 << "";
    QTest::newRow("in the house") << "8041" << 1 << "";
    QTest::newRow("in a room") << "8003" << 1 << "102";
    QTest::newRow("lost") << "8099" << 2 << "";
    QTest::newRow("locked") << "8100" << 3 << "";
    QTest::newRow("unknown") << "7777" << -1 << "";
    QTest::newRow("room number") << "102" << -1 << "";
    QTest::newRow("nothing") << "" << -1 << "";
}

void tst_rooms::cardDetails()
{
    QFETCH(QString, number);
    QFETCH(int, status);
    const Reply reply = ask("/baa01/getHardCardDetail", {{"cardno", number.toStdString()}});
    QCOMPARE(reply.isGood(), status >= 0);
    if (status < 0)
        return;
    QCOMPARE((*reply.data)["status"], json(status));
    QTEST(QString::fromStdString((*reply.data)["roomNo"]), "roomNo");
}

void tst_rooms::movedLinesAndOpenOnes()
{
    const json lines = told("/bba01/getRoomConsList", {{"roomId", room("209").id}});
    const auto count = [&](const char* field, const json& value) {
        return std::count_if(lines.begin(), lines.end(),
                             [&](const json& line) { return line[field] == value; });
    };
    QCOMPARE(lines.size(), std::size_t(4));
    QCOMPARE(count("srcOldCardNo", "8044"), 1);
    QCOMPARE(count("srcOldCardNo", ""), 3);
    QCOMPARE(count("cmtFlg", 0), 1); // the service that still runs
    const json cards = told("/bba01/getRoomDetailNew", {{"roomId", room("209").id}})["cardlist"];
    QCOMPARE(cards.size(), std::size_t(4)); // once for each line
}

void tst_rooms::callsFromRooms()
{
    const auto detail = [&](const char* code) { return told("/bba01/getRoomDetailNew", {{"roomNo", code}}); };
    QVERIFY(detail("301")["calllist"].empty());
    const json calls = detail("101")["calllist"];
    QCOMPARE(calls.size(), std::size_t(6));
    QStringList topics;
    m_house->publisher = std::make_unique<Recorder>(topics);
    json call = {{"roomId", room("101").id}, {"contId", calls[1]["contId"]}, {"num", 3}};
    QVERIFY(ask("/caa04/callStaff", call).isGood());
    QCOMPARE(boardOf("101")["callCount"], json(3));
    QCOMPARE(topics.filter("ROOMSTATUS_").size(), 1);
    QCOMPARE(topics.filter("CALLCHGDATA_").size(), 1);
    call["roomId"] = room("112").id;
    QVERIFY(!ask("/caa04/callStaff", call).isGood());
    QCOMPARE(topics.size(), 2);
}

/// A guest may come over to another room, unless a technician is at work on him.
void tst_rooms::cardsOfOtherRooms()
{
    const json both = filled(R"({"roomNo":"205","cardids":["#8003","#8005"]})");
    const json refused = told("/bba01/roomAddCard", both);
    QCOMPARE(refused["flg"], json(false));
    QVERIFY(refused["roomcard"] == parsed(R"([{"cardNo":"8003","roomNo":"102"}])"));
    QCOMPARE(boardOf("205")["cardnos"], json("8021"));
    const json taken = told("/bba01/roomAddCard", filled(R"({"roomNo":"205","cardids":["#8005","#8070"]})"));
    QVERIFY(taken["flg"] == true && taken["roomcard"].empty());
    QCOMPARE(boardOf("205")["cardnos"], json("8021,8005,8070"));
    QCOMPARE(boardOf("105")["cardnos"], json("8006"));
}

void tst_rooms::addedHoursOutliveThePlan()
{
    const json plans = told("/bba01/getPlanListNew", {{"roomId", room("301").id}, {"planType", 1}});
    QCOMPARE(plans[1]["min_time"], json(6));
    QVERIFY(ask("/bba01/restRoomAddTime", {{"roomId", room("301").id}, {"hours", 2}}).isGood());
    QVERIFY(
        ask("/bba01/changeFeePlan", {{"roomId", room("301").id}, {"newPlanFlg", 1}, {"planId", plans[1]["id"]}})
            .isGood());
    QCOMPARE(boardOf("301")["hours"], json(8));
}

/// A card that stands twice in a request is one guest, and a room that has changed meanwhile is not left.
void tst_rooms::leavingTwiceAtOnce()
{
    const json twice = filled(R"({"id":"$105","status":2,"cardids":["#8005","#8005"]})");
    const Reply reply = ask("/bba01/leaveRoomNew", twice);
    QCOMPARE((*reply.data)["allleave"], json(false));
    QCOMPARE(boardOf("105")["cardnos"], json("8006"));
    QVERIFY(
        !ask("/bba01/leaveRoomNew", filled(R"({"id":"$105","status":3,"cardids":["#8006"],"cardId":"#8006"})"))
             .isGood());
    QCOMPARE(boardOf("105")["status"], json(2));
}

void tst_rooms::nextGuestOfACard()
{
    State& state = m_house->state;
    Card& guest = card("8013");
    const std::string orderId = state.ordersOfCard(guest.id).back()->id;
    const double due = boardOf("111")["needPayAmount"].get<double>();
    QVERIFY(amountOf(state.ordersOfCard(guest.id)) > 0);
    state.checkOut(guest, now);
    QCOMPARE(boardOf("111")["cardnos"], json("8014"));
    QVERIFY(boardOf("111")["needPayAmount"].get<double>() < due);
    state.seat(guest, room("112"), now + minute);
    QCOMPARE(guest.openedAt, now + minute);
    const json bill = told("/bca01/getCardOrderInfo", {{"cardno", "8013"}});
    QVERIFY(bill["orderList"].empty() && bill["amount"] == 0.0);
    const json back = {
        {"items", json::array({{{"id", ""}, {"status", 3}, {"oldOrderId", orderId}, {"num", 1}}})},
        {"opType", 1},
        {"mode", 0},
        {"hardCardId", guest.id},
        {"roomId", ""}};
    QVERIFY(!ask("/bca01/batchUpdateOrder", back).isGood());
    const Reply cards =
        handle(*m_house, "/baa01/getHardCardList", {{"status", 1}}, now, {{"page", "1"}, {"limit", "999"}});
    for (const json& row : (*cards.data)["list"])
        if (row["cardno"] == "8013")
            QCOMPARE(row["amount"], json(0.0));
}

QTEST_GUILESS_MAIN(tst_rooms)
#include "tst_rooms.moc"
