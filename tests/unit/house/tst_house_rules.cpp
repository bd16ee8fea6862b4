#include "FurnishedHouse.h"
#include "src/state/RoomDesk.h"
#include "support/Rows.h"

using nlohmann::json;

/// What the calls of a terminal do to the rooms, guests and lines of a freshly furnished house.
class tst_house_rules : public QObject
{
    Q_OBJECT

    using Sales = Rows<QString, QString, QString, double>; ///< who sells; the lines; the code; what is added

    std::unique_ptr<FurnishedHouse> m_house;

private Q_SLOTS:
    void init() { m_house = std::make_unique<FurnishedHouse>(); }
    void calls_data();
    void calls();
    void sales_data();
    void sales();
};

// The steps, refused ones with "!", those that do nothing with "~"; part of the board's records by room, and
// what is booked on "#" cards.
void tst_house_rules::calls_data()
{
    QTest::addColumn<QStringList>("cells");
    const QString table = R"(
massage; !rest; !massage; toRest; !toRest | {"112":{"status":3}}
!addTime; rest; addTime; toMassage; !toMassage; !addTime; anew | {"112":{"status":2}}
!cancel; massage; !clean; cancel; !cancel; clean; !step 2; step 1; step 2; !step 2; cleaned; !cleaned
    | {"112":{"status":1}}
clean; cleaned; occupy; !massage; !cleaned; release; !release; clean; occupy; !release; cleaned | {"112":{"status":1}}
rest; leave 112 "#8070" 3 #8070; !leave 112 "#8070" 3 #8070; !step 2 | {"112":{"status":4}}
massage 112 "#8001" ,"isConn":1
    | {"101":{"cardnos":"8002","groupRoom":"101,112"},"112":{"cardnos":"8001","groupRoom":"101,112"}}
!massage 112 "#8001"; !massage 112 "#8099"; !massage 112 "#8100"; !massage 117; !massage 112 -
    | {"101":{"cardnos":"8001,8002"},"117":{"status":1,"roomLock":true}}
leave 105 "#8005","#8006" 2 | {"105":{"status":4,"groupRoom":""},"106":{"groupRoom":"106,107"}}
leave 105 "#8005","#8005" 2 | {"105":{"status":2,"cardnos":"8006"}}
!leave 101 "#8001" 2; !leave 105 "#8007" 2; !leave 105 "#8005" 3; !leave 308 "#8032","#6021" 3; !leave 308 "#8032" 3 #8033
    | {"308":{"cardnos":"8032,6021"}}
leave 308 "#8032","#6021" 3 #6021 | {"308":{"status":4},"#6021":226}
move 101 112 2; !move 112 102 2
    | {"101":{"status":4,"needPayAmount":0},"112":{"status":2,"cardnos":"8001,8002","needPayAmount":362}}
!move 301 316 3; !move 301 316 3 ,"planId":"%单人间3小时"; move 301 316 3 ,"planId":"%双人间3小时"
    | {"316":{"status":3,"needPayAmount":146}}
move 105 118 2 | {"118":{"groupRoom":"106,107,118"},"105":{"groupRoom":""}}
merge "$101","$210","$105"; !merge "$112","$105" | {"105":{"groupRoom":"101,105,106,107,210"},"211":{"groupRoom":""}}
!split "$301"; split "$105","$106" | {"105":{"groupRoom":""},"107":{"groupRoom":""}}
!unpack 109; !unpack 117; unpack 112
    | {"101":{"cardnos":"8001","needPayAmount":234},"112":{"status":2,"cardnos":"8002","needPayAmount":128}}
rest305; addTime 305; !plan %双人间3小时; plan %单人间6小时 | {"305":{"hours":8,"needPayAmount":196.66}}
rest305; addTime 305; cancel 305 | {"305":{"status":1,"cardnos":""},"#8070":0}
~add 205 "#8003","#8005" | {"205":{"cardnos":"8021"},"105":{"cardnos":"8005,8006"}}
add 205 "#8005","#8070" | {"205":{"cardnos":"8021,8005,8070"},"105":{"cardnos":"8006"}}
!leave 328 - 3; !cancel 221; !merge "$328","$101"; !unpack 328; !add 328; !call 328; !cleaned 327; call 101; !call 112 | {}
!transfer ,"x"; transfer - | {"#8001":294,"#8003":396}
)";
    for (const QString& row : QString(table).trimmed().replace("\n ", " ").split('\n'))
        QTest::newRow(qPrintable(row)) << row.split(" | ");
}

void tst_house_rules::calls()
{
    // A path and body, with the words of a step in place of the numbers; room 112 and card 8070 without any.
    static const std::map<QString, QString> known = {
        {"massage", R"(openMassRoom {"id":"$%1","cardids":[%2],"hours":1%3})"},
        {"rest", R"(openRestRoom {"id":"$112","cardids":["#8070"],"planid":"%三人间休息2小时"})"},
        {"rest305", R"(openRestRoom {"id":"$305","cardids":["#8070"],"planid":"%单人间3小时"})"},
        {"occupy", R"(chgOccupyRoom {"id":"$112","isOccupy":1,"occType":"%设备维修"})"},
        {"release", R"(chgOccupyRoom {"id":"$112","isOccupy":0})"},
        {"clean", R"(chgCleanRoom {"id":"$112","isClean":1})"},
        {"step", R"(setCleanRoom {"id":"$112","staffId":"@901","cleanFlg":%1})"},
        {"cleaned", R"(chgCleanRoom {"id":"$%1","isClean":0})"},
        {"cancel", R"(cancelRoom {"id":"$%1"})"},
        {"toRest", R"(massToRestRoom {"id":"$112","cardids":["#8070"],"planid":"%三人间休息2小时"})"},
        {"toMassage", R"(restToMassRoom {"id":"$112","cardids":["#8070"],"cardId":"#8070","hours":1})"},
        {"leave", R"(leaveRoomNew {"id":"$%1","cardids":[%2],"status":%3,"cardId":"%4"})"},
        {"addTime", R"(restRoomAddTime {"roomId":"$%1","hours":2})"},
        {"anew", R"(reSetRoomTime {"roomId":"$112"})"},
        {"move", R"(changeRoom {"oldRoomId":"$%1","newRoomId":"$%2","status":%3,"isClean":1%4})"},
        {"merge", R"(mergeRoom {"roomIdArr":[%1]})"},
        {"split", R"(splitRoom {"groupKey":"G0甲","roomIdArr":[%1]})"},
        {"unpack", R"(unpackRoom {"oldRoomId":"$101","newRoomNo":"%1","cardIds":["#8002"]})"},
        {"plan", R"(changeFeePlan {"roomId":"$305","planId":"%1"})"},
        {"add", R"(roomAddCard {"roomNo":"%1","cardids":[%2]})"},
        {"call", R"(/caa04/callStaff {"roomId":"$%1","contId":"%加茶水","num":1})"},
        {"transfer", R"(/bea01/transferAct {"srcCardInfo":[{"cardId":"#8001","orderIds":["~西湖龙井"%1]}],)"
                     R"("newCardId":"#8003","newCardNo":"8003"})"},
    };
    QFETCH(QStringList, cells);
    const QString topic = "ROOMSTATUS_" + QString::fromStdString(m_house->seed.storeId);
    for (QString step : cells.at(0).trimmed().split("; ")) {
        const bool isRefused = step.startsWith('!');
        const bool isDone = !isRefused && !step.startsWith('~');
        const QStringList words = step.remove('!').remove('~').split(' ');
        const QStringList call = known.at(words.at(0)).split(' ');
        QString body = call.at(1);
        for (int i = 1; i < 5; ++i) {
            const QString other = i == 1 ? "112" : i == 2 ? "\"#8070\"" : "";
            body.replace("%" + QString::number(i), words.value(i, other).remove('-'));
        }
        const QString path = call.at(0).startsWith('/') ? call.at(0) : "/bba01/" + call.at(0);
        m_house->topics.clear();
        const json before = m_house->told("/bba01/getRoomList", json::object());
        const house::Reply reply = m_house->ask(path, m_house->filled(body));
        QVERIFY2(reply.isGood() != isRefused, qPrintable(step + QString::fromStdString(reply.msg)));
        QCOMPARE(m_house->topics.count(topic), int(isDone));
        QVERIFY(isDone || m_house->topics.isEmpty());
        QVERIFY(isDone || m_house->told("/bba01/getRoomList", json::object()) == before);
    }
    const json parts = json::parse(cells.at(1).toStdString());
    for (const auto& [name, part] : parts.items()) {
        const json whole =
            name.front() == '#' ? json(m_house->amountOn(name.c_str() + 1)) : m_house->board(name.c_str());
        json patched = whole;
        patched.merge_patch(part);
        QVERIFY2(patched == whole, (name + whole.dump()).c_str());
    }
    std::map<std::string, std::string> places;
    for (const house::Room& room : m_house->state.rooms) {
        QVERIFY(house::isInUse(room) || room.cardIds.empty());
        for (const std::string& id : room.cardIds)
            places[id] = room.id;
    }
    for (const house::Card& card : m_house->state.cards)
        QCOMPARE(card.roomId, places[card.id]);
    // The sums are those of the list, whichever way it is filtered.
    for (const auto& [path, name, filter] :
         {std::tuple("/bba01/getFloorSum", "floorList", "floorId"),
          std::tuple("/bba01/getRoomTypeSum", "roomTypeList", "houseType")}) {
        for (const json& sum : m_house->told(path, json::object())[name]) {
            json body = {{filter, json::array({sum["id"]})}};
            QCOMPARE(sum["roomAllSum"], json(m_house->told("/bba01/getRoomList", body).size()));
            body["status"] = "7";
            QCOMPARE(sum["roomUseSum"], json(m_house->told("/bba01/getRoomList", body).size()));
        }
    }
}

void tst_house_rules::sales_data()
{
    const QString cola = R"({"id":"%可乐","status":1,"orderType":1,"num":2})";
    const QString gift = R"({"id":"%可乐","status":2,"orderType":1,"num":2,"price":0})";
    const QString back = R"({"id":"","status":3,"orderType":1,"oldOrderId":"~西湖龙井","num":1})";
    const QString service =
        R"({"id":"%草本足浴60分钟","status":1,"orderType":2,"num":1,"staffNo":"806","type":%1})";
    Sales::add({
        {"given", "1001", gift, "200", 0},
        {"sold and taken back", "1001", cola + "," + back, "200", -48},
        {"taken back twice", "1001", back + "," + back, "ORDER_ERR_0001", 0},
        {"one bad line", "1001", cola + "," + QString(cola).replace("%可乐", "x"), "ORDER_ERR_0001", 0},
        {"wrong kind", "1001", QString(cola).replace("Type\":1", "Type\":2"), "ORDER_ERR_0001", 0},
        {"no number", "1001", QString(cola).replace("\"num\":2", "\"num\":0"), "ORDER_ERR_0001", 0},
        {"service", "1001", service.arg(1), "200", 158},
        {"no such clock", "1001", service.arg(7), "ORDER_ERR_0001", 0},
        {"no right to sell", "901", cola, "AUTH_ERR_0002", 0},
        {"no right to give", "1101", gift, "AUTH_ERR_0002", 0},
    });
}

void tst_house_rules::sales()
{
    const auto& [name, staff, lines, code, added] = Sales::current();
    const double before = m_house->amountOn("8001");
    const json body = m_house->filled(R"({"mode":0,"hardCardId":"#8001","items":[)" + lines + "]}");
    const house::Reply reply = m_house->ask("/bca01/batchUpdateOrder", body, staff);
    QCOMPARE(QString::fromStdString(reply.code), code);
    QCOMPARE(m_house->amountOn("8001") - before, added);
    const bool isCalled = lines.contains("staffNo") && reply.isGood();
    QCOMPARE(m_house->topics.size(), int(reply.isGood()) + int(isCalled));
    QCOMPARE(m_house->state.clocks.find(m_house->staff("806").id)->workStatus,
             int(isCalled ? house::WorkAssigned : house::WorkWaiting));
}

QTEST_GUILESS_MAIN(tst_house_rules)
#include "tst_house_rules.moc"
