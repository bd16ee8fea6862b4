#include "FurnishedHouse.h"
#include "src/state/RoomDesk.h"

#include <QtTest>

using nlohmann::json;

/// What the calls of a terminal do to the rooms, guests and lines of a freshly furnished house.
class tst_house_rules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_house = std::make_unique<FurnishedHouse>(); }

    void roomSteps_data();
    void roomSteps();
    void calls_data();
    void calls();
    void sales_data();
    void sales();

private:
    std::unique_ptr<FurnishedHouse> m_house;
};

void tst_house_rules::roomSteps_data()
{
    QTest::addColumn<QString>("steps"); // refused ones stand in brackets
    QTest::addColumn<int>("status");
    const auto row = [](auto name, auto steps, int status) { QTest::newRow(name) << steps << status; };
    row("open twice", "massage,(rest),(massage)", 2);
    row("massage to rest", "massage,to rest,(to rest)", 3);
    row("rest to massage", "rest,to massage,(to massage)", 2);
    row("more time", "(more time),rest,more time,to massage,(more time),anew", 2);
    row("cancel", "(cancel),rest,cancel,(cancel)", 1);
    row("last guest leaves", "rest,leave,(leave)", 4);
    row("cleaned in steps", "clean,clean 1,clean 2,(clean 2),cleaned", 1);
    row("cleaned at once", "massage,(clean),cancel,clean,cleaned,(cleaned)", 1);
    row("cleaning step left out", "clean,(clean 2)", 4);
    row("occupied and back", "occupy,(massage),(cleaned),release,(release)", 1);
    row("occupied while dirty", "clean,occupy,(release),cleaned", 1);
}

void tst_house_rules::roomSteps()
{
    const std::map<QString, std::pair<QString, const char*>> known = {
        {"massage", {"/bba01/openMassRoom", R"({"id":"$112","cardids":["#8070"],"hours":2})"}},
        {"rest", {"/bba01/openRestRoom", R"({"id":"$112","cardids":["#8070"],"planid":"%三人间休息2小时"})"}},
        {"occupy", {"/bba01/chgOccupyRoom", R"({"id":"$112","isOccupy":1,"occType":"%设备维修"})"}},
        {"release", {"/bba01/chgOccupyRoom", R"({"id":"$112","isOccupy":0})"}},
        {"clean", {"/bba01/chgCleanRoom", R"({"id":"$112","isClean":1})"}},
        {"clean 1", {"/bba01/setCleanRoom", R"({"id":"$112","staffId":"@901","cleanFlg":1})"}},
        {"clean 2", {"/bba01/setCleanRoom", R"({"id":"$112","staffId":"@901","cleanFlg":2})"}},
        {"cleaned", {"/bba01/chgCleanRoom", R"({"id":"$112","isClean":0})"}},
        {"cancel", {"/bba01/cancelRoom", R"({"id":"$112"})"}},
        {"to rest",
         {"/bba01/massToRestRoom", R"({"id":"$112","cardids":["#8070"],"planid":"%三人间休息2小时"})"}},
        {"to massage",
         {"/bba01/restToMassRoom", R"({"id":"$112","cardids":["#8070"],"cardId":"#8070","hours":1})"}},
        {"leave", {"/bba01/leaveRoomNew", R"({"id":"$112","status":3,"cardids":["#8070"],"cardId":"#8070"})"}},
        {"more time", {"/bba01/restRoomAddTime", R"({"roomId":"$112","hours":1})"}},
        {"anew", {"/bba01/reSetRoomTime", R"({"roomId":"$112"})"}},
    };
    QFETCH(QString, steps);
    const QString topic = "ROOMSTATUS_" + QString::fromStdString(m_house->seed.storeId);
    for (QString name : steps.split(',')) {
        const bool isRefused = name.startsWith('(');
        const auto& [path, body] = known.at(name.remove('(').remove(')'));
        m_house->topics.clear();
        const json before = m_house->board("112");
        QVERIFY2(m_house->ask(path, m_house->filled(body)).isGood() != isRefused, qPrintable(name));
        QCOMPARE(m_house->topics, isRefused ? QStringList{} : QStringList{topic});
        QVERIFY(!isRefused || m_house->board("112") == before);
    }
    const house::Room& room = m_house->room("112");
    QTEST(static_cast<int>(room.status), "status");
    QCOMPARE(room.cardIds.empty(), !house::isInUse(room));
    QCOMPARE(m_house->card("8070").roomId.empty(), !house::isInUse(room));
}

void tst_house_rules::calls_data()
{
    QTest::addColumn<QStringList>("calls"); // path and body; refused ones begin with "!"
    QTest::addColumn<QString>("wanted");    // part of the board's records by room; what is booked on "#" cards
    const auto row = [](const char* name, const QStringList& calls, const char* wanted = "{}") {
        QTest::newRow(name) << calls << wanted;
    };
    const QString open = R"(/bba01/openMassRoom {"id":"$%1","cardids":[%2],"hours":1%3})";
    row("joint", {open.arg("112", "\"#8001\"", ",\"isConn\":1")},
        R"({"101":{"cardnos":"8002","groupRoom":"101,112"},"112":{"cardnos":"8001","groupRoom":"101,112"}})");
    row("guest of another room", {"!" + open.arg("112", "\"#8001\"", "")},
        R"({"101":{"cardnos":"8001,8002"}})");
    row("unusable",
        {"!" + open.arg("112", "\"#8099\"", ""), "!" + open.arg("112", "\"#8100\"", ""),
         "!" + open.arg("117", "\"#8070\"", ""), "!" + open.arg("112", "", "")},
        R"({"112":{"status":1},"117":{"status":1,"roomLock":true}})");
    const QString leave = R"(/bba01/leaveRoomNew {"id":"$%1","status":%2,"cardids":[%3],"cardId":"%4"})";
    row("all leave", {leave.arg("105", "2", R"("#8005","#8006")", "")},
        R"({"105":{"status":4,"groupRoom":""},"106":{"groupRoom":"106,107"}})");
    row("part of them leaves", {leave.arg("105", "2", R"("#8005","#8005")", "")},
        R"({"105":{"status":2,"cardnos":"8006"}})");
    row("who may not leave",
        {"!" + leave.arg("101", "2", "\"#8001\"", ""), "!" + leave.arg("105", "2", "\"#8007\"", ""),
         "!" + leave.arg("105", "3", "\"#8005\"", ""), "!" + leave.arg("308", "3", R"("#8032","#6021")", ""),
         "!" + leave.arg("308", "3", "\"#8032\"", "#8033")},
        R"({"101":{"cardnos":"8001,8002"},"105":{"cardnos":"8005,8006"},"308":{"cardnos":"8032,6021"}})");
    row("one of them takes the room's charge", {leave.arg("308", "3", R"("#8032","#6021")", "#6021")},
        R"({"308":{"status":4},"#6021":226})");
    const QString move = R"(/bba01/changeRoom {"oldRoomId":"$%1","status":%2,"newRoomId":"$%3","isClean":1%4})";
    row("massage room changed", {move.arg("101", "2", "112", ""), "!" + move.arg("112", "2", "102", "")},
        R"({"101":{"status":4,"needPayAmount":0},"112":{"status":2,"cardnos":"8001,8002","needPayAmount":362}})");
    row("rest room changed",
        {"!" + move.arg("301", "3", "316", ""),
         "!" + move.arg("301", "3", "316", R"(,"planId":"%单人间3小时")"),
         move.arg("301", "3", "316", R"(,"planId":"%双人间3小时")")},
        R"({"316":{"status":3,"needPayAmount":146}})");
    row("group goes along", {move.arg("105", "2", "118", "")},
        R"({"118":{"groupRoom":"106,107,118"},"105":{"groupRoom":""}})");
    row("merged",
        {R"(/bba01/mergeRoom {"roomIdArr":["$101","$210","$105"]})",
         R"(!/bba01/mergeRoom {"roomIdArr":["$112","$105"]})"},
        R"({"105":{"groupRoom":"101,105,106,107,210"},"211":{"groupRoom":""}})");
    row("split",
        {R"(!/bba01/splitRoom {"groupKey":"G0甲","roomIdArr":["$301"]})",
         R"(/bba01/splitRoom {"groupKey":"G0甲","roomIdArr":["$105","$106"]})"},
        R"({"105":{"groupRoom":""},"107":{"groupRoom":""}})");
    const QString unpack = R"(/bba01/unpackRoom {"oldRoomId":"$101","newRoomNo":"%1","cardIds":["#8002"]})";
    row("unpacked", {"!" + unpack.arg("109"), "!" + unpack.arg("117"), unpack.arg("112")},
        R"({"101":{"cardnos":"8001","needPayAmount":234},"112":{"status":2,"cardnos":"8002","needPayAmount":128}})");
    const QString rest = R"(/bba01/openRestRoom {"id":"$305","cardids":["#8070"],"planid":"%单人间3小时"})";
    const QString more = R"(/bba01/restRoomAddTime {"roomId":"$305","hours":2})";
    const QString plan = R"(/bba01/changeFeePlan {"roomId":"$305","planId":"%1"})";
    row("longer plan", {rest, more, "!" + plan.arg("%双人间3小时"), plan.arg("%单人间6小时")},
        R"({"305":{"hours":8,"needPayAmount":196.66}})");
    row("nothing is charged for what was cancelled", {rest, more, R"(/bba01/cancelRoom {"id":"$305"})"},
        R"({"305":{"status":1,"cardnos":""},"#8070":0})");
    const QString add = R"(/bba01/roomAddCard {"roomNo":"%1","cardids":[%2]})";
    row("guest who is being served elsewhere", {add.arg("205", R"("#8003","#8005")")},
        R"({"205":{"cardnos":"8021"},"105":{"cardnos":"8005,8006"}})");
    row("guest who comes over", {add.arg("205", R"("#8005","#8070")")},
        R"({"205":{"cardnos":"8021,8005,8070"},"105":{"cardnos":"8006"}})");
    const QString staffCall = R"(/caa04/callStaff {"roomId":"$%1","contId":"%加茶水","num":1})";
    row("guest rooms are left alone",
        {"!" + leave.arg("328", "3", "", ""), R"(!/bba01/cancelRoom {"id":"$221"})",
         R"(!/bba01/mergeRoom {"roomIdArr":["$328","$101"]})", "!" + unpack.arg("328"),
         "!" + add.arg("328", "\"#8070\""), "!" + staffCall.arg("328"),
         R"(!/bba01/chgCleanRoom {"id":"$327","isClean":0})"});
    row("only rooms in use call", {staffCall.arg("101"), "!" + staffCall.arg("112")});
    const QString transfer =
        R"(/bea01/transferAct {"srcCardInfo":[{"cardId":"#8001","orderIds":["~西湖龙井"%1]}],)"
        R"("newCardId":"#8003","newCardNo":"8003"})";
    row("transferred, all or nothing", {"!" + transfer.arg(",\"x\""), transfer.arg("")},
        R"({"#8001":294,"#8003":396})");
}

void tst_house_rules::calls()
{
    QFETCH(QStringList, calls);
    QFETCH(QString, wanted);
    for (QString call : calls) {
        const bool isRefused = call.startsWith('!');
        const QString path = call.section(' ', 0, 0).remove('!');
        const house::Reply reply = m_house->ask(path, m_house->filled(call.section(' ', 1)));
        QVERIFY2(reply.isGood() != isRefused, qPrintable(call + QString::fromStdString(reply.msg)));
    }
    const json parts = json::parse(wanted.toStdString());
    for (const auto& [name, part] : parts.items()) {
        const json whole =
            name.front() == '#' ? json(m_house->amountOn(name.c_str() + 1)) : m_house->board(name.c_str());
        json patched = whole;
        patched.merge_patch(part);
        QVERIFY2(patched == whole, (name + whole.dump()).c_str());
    }
    // The sums are those of the list, whichever way it is filtered.
    for (const auto& [path, name, filter] :
         {std::tuple("/bba01/getFloorSum", "floorList", "floorId"),
          std::tuple("/bba01/getRoomTypeSum", "roomTypeList", "houseType")}) {
        const json sums = m_house->told(path, json::object())[name];
        for (const json& sum : sums) {
            json body = {{filter, json::array({sum["id"]})}};
            QCOMPARE(sum["roomAllSum"], json(m_house->told("/bba01/getRoomList", body).size()));
            body["status"] = "7";
            QCOMPARE(sum["roomUseSum"], json(m_house->told("/bba01/getRoomList", body).size()));
        }
    }
}

void tst_house_rules::sales_data()
{
    QTest::addColumn<QString>("staff");
    QTest::addColumn<QString>("lines");
    QTest::addColumn<QString>("code");
    QTest::addColumn<double>("added");
    const auto row = [](auto name, auto staff, const QString& lines, auto code, double added) {
        QTest::newRow(name) << staff << lines << code << added;
    };
    const QString cola = R"({"id":"%可乐","status":1,"orderType":1,"num":2})";
    const QString gift = R"({"id":"%可乐","status":2,"orderType":1,"num":2,"price":0})";
    const QString back = R"({"id":"","status":3,"orderType":1,"oldOrderId":"~西湖龙井","num":1})";
    const QString service =
        R"({"id":"%草本足浴60分钟","status":1,"orderType":2,"num":1,"staffNo":"806","type":%1})";
    row("sold", "1001", cola, "200", 20);
    row("given", "1001", gift, "200", 0);
    row("taken back", "1001", back, "200", -68);
    row("sold and taken back", "1001", cola + "," + back, "200", -48);
    row("taken back twice", "1001", back + "," + back, "ORDER_ERR_0001", 0);
    row("good line before a bad one", "1001", cola + R"(,{"id":"x","status":1,"orderType":1,"num":1})",
        "ORDER_ERR_0001", 0);
    row("wrong kind", "1001", QString(cola).replace("\"orderType\":1", "\"orderType\":2"), "ORDER_ERR_0001", 0);
    row("no number", "1001", QString(cola).replace("\"num\":2", "\"num\":0"), "ORDER_ERR_0001", 0);
    row("service", "1001", service.arg(1), "200", 158);
    row("no such clock", "1001", service.arg(7), "ORDER_ERR_0001", 0);
    row("no right to sell", "901", cola, "AUTH_ERR_0002", 0);
    row("no right to give", "1101", gift, "AUTH_ERR_0002", 0);
}

void tst_house_rules::sales()
{
    QFETCH(QString, staff);
    QFETCH(QString, lines);
    const double before = m_house->amountOn("8001");
    const json body = m_house->filled(R"({"mode":0,"hardCardId":"#8001","items":[)" + lines + "]}");
    const house::Reply reply = m_house->ask("/bca01/batchUpdateOrder", body, staff);
    QTEST(QString::fromStdString(reply.code), "code");
    QTEST(m_house->amountOn("8001") - before, "added");
    const bool isCalled = lines.contains("staffNo") && reply.isGood();
    QCOMPARE(m_house->topics.size(), int(reply.isGood()) + int(isCalled));
    QCOMPARE(m_house->state.clocks.find(m_house->staff("806").id)->workStatus,
             int(isCalled ? house::WorkAssigned : house::WorkWaiting));
}

QTEST_GUILESS_MAIN(tst_house_rules)
#include "tst_house_rules.moc"
