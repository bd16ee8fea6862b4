#include "FurnishedHouse.h"
#include "src/Others.h"
#include "src/state/RoomDesk.h"
#include "src/state/ServiceClock.h"
#include "support/Rows.h"

#include <set>

using namespace house;
using nlohmann::json;

/// The queue for a bath helper, the technician's clock and meals, and what other terminals do to the
/// house.
class tst_house_services : public QObject
{
    Q_OBJECT

    using Queue = Rows<QString, QString, QString>;           ///< steps; who waits; who is called, "!" served
    using Clocks = Rows<QString, int, QString, int, double>; ///< steps; state; lines; minutes left; booked

private Q_SLOTS:
    void init() { m_house = std::make_unique<FurnishedHouse>(); }
    void queue_data();
    void queue();
    void clocks_data();
    void clocks();
    void meals();
    void evenings();
    void leaveAloneWhatIsNamed();

private:
    void change(Dice& dice, int times);

    std::unique_ptr<FurnishedHouse> m_house;
};

void tst_house_services::queue_data() // refused steps stand in brackets
{
    Queue::add({
        {"order of call", "join 2,join 1,join 4,join 3,call 3,call 1,(call 1),(join 1),(cancel 1)", "2 4",
         "3 1"},
        {"cancelled", "join 2,join 1,cancel 2,(cancel 2),(call 2)", "1", ""},
        {"a new call goes to the end", "join 1,join 2,(again 1),call 1,call 2,again 1", "", "2 1"},
        {"passed", "join 1,(pass 1),(recall 1),call 1,pass 1,(pass 1),(again 1),recall 1,(recall 1)", "", "1"},
        {"served", "join 1,(serve 1),call 1,(done 1),serve 1,(pass 1),done 1,(done 1)", "", ""},
        {"own guest first", "join 1,join 2,call 1 601,call 2 602,serve next 602", "", "1 2!"},
        {"else the earliest",
         "join 1,join 2,call 2 601,call 1 602,serve next 603,serve next 603,(serve next 603)", "", "2! 1!"},
    });
}

void tst_house_services::queue()
{
    const std::map<QString, QString> paths = {{"join", "addWaitCallInfos"},     {"call", "callHardCards"},
                                              {"again", "repeatCallInfo"},      {"cancel", "cacelWaitCall"},
                                              {"pass", "crossCallInfo"},        {"recall", "reCallHardCards"},
                                              {"serve", "startServerCallInfo"}, {"done", "completeWaitCall"}};
    const auto& [name, steps, waiting, called] = Queue::current();
    m_house->state.calls = {};
    for (QString text : steps.split(',')) {
        const bool isRefused = text.startsWith('(');
        const QStringList words = text.remove('(').remove(')').split(' ');
        json body = json::object();
        if (words[1] != "next") {
            const Card& card = m_house->card("804" + words[1]);
            QueueEntry* entry = m_house->state.calls.openEntry(card.id);
            body = {{"hardCardNo", card.number}, {"hardCardId", card.id}, {"id", entry ? entry->id : ""}};
        }
        m_house->time += minute;
        m_house->topics.clear();
        const house::Reply reply = m_house->ask("/bca01/" + paths.at(words[0]), body, words.value(2, "601"));
        QVERIFY2(reply.isGood() != isRefused, qPrintable(text));
        const bool isSpoken = words[0].contains("call") || words[0] == "again";
        QCOMPARE(m_house->topics.filter("CALLSTATUS_").size(), reply.isGood() ? 1 : 0);
        QCOMPARE(m_house->topics.filter("CALLDATA_").size(), reply.isGood() && isSpoken ? 1 : 0);
    }
    const json lists = m_house->told("/bca01/getHardCardCallList", json::object());
    for (const auto& [list, wanted] : {std::pair("waitCallInfos", waiting), std::pair("callInfos", called)}) {
        QString numbers;
        for (const json& entry : lists[list])
            numbers +=
                QString(" ") + entry["cardNo"].get<std::string>().back() + (entry["status"] == 3 ? "!" : "");
        QCOMPARE(numbers.mid(1), wanted);
    }
}

void tst_house_services::clocks_data() // refused steps stand in brackets; lines count from 0, each minutes@kind
{
    Clocks::add({
        {"added after a while", "(add 60),start 60,wait 50,add 60", 2, "60@5 60@6", 70, 256},
        {"overrun", "start 60,wait 75", 2, "60@5", -15, 128},
        {"other item and kind", "start 60,add 60,change 1 90,kind 0 1", 2, "60@1 90@6", 150, 316},
        {"back one", "start 60,add 90,back 0", 2, "90@6", 90, 188},
        {"back all", "start 60,add 90,back 1,back 0,(back 0)", 1, "", 0, 0},
        {"end", "start 60,add 90,end 0,(end 0),(back 0),(change 0 90),start 90", 2, "90@5", 90, 504},
        {"card", "start 60,add 90,card,(card)", 2, "60@5 90@6", 150, 0},
    });
}

void tst_house_services::clocks()
{
    const auto& [name, steps, workStatus, wanted, surplus, amount] = Clocks::current();
    const double before = m_house->amountOn("8042");
    const Clock& clock = *m_house->state.clocks.find(m_house->staff("806").id);
    const std::map<QString, QString> paths = {{"start", "startServerWithoutOrder"},
                                              {"add", "addServer"},
                                              {"change", "changeServer"},
                                              {"end", "endServer"},
                                              {"kind", "chgAssignType"},
                                              {"back", "chargeBack"},
                                              {"card", "changeCard"}};
    std::vector<std::string> lines;
    for (QString text : steps.split(',')) {
        const bool isRefused = text.startsWith('(');
        const QStringList words = text.remove('(').remove(')').split(' ');
        if (words[0] == "wait") {
            m_house->time += words[1].toInt() * minute;
            continue;
        }
        json body = m_house->filled(
            QString(R"({"staffId":"@806","itemId":"%1","cardNo":"8042","orderType":5,"num":1,"newType":1})")
                .arg(words.last() == "60" ? "%经典足疗60分钟" : "%中式足道90分钟"));
        if (const std::size_t line = words.value(1).toUInt(); line < lines.size())
            body.update({{"orderId", lines[line]}, {"orderIds", json::array({lines[line]})}});
        if (words[0] == "card")
            body["cardNo"] = "8043";
        QVERIFY2(m_house->ask("/bda02/" + paths.at(words[0]), body).isGood() != isRefused, qPrintable(text));
        if (!isRefused && (words[0] == "start" || words[0] == "add"))
            lines.push_back(runningLines(m_house->state, clock).back()->id);
    }
    const json info = m_house->told("/bda02/getStaffInfo", json{{"staffNo", "806"}});
    QStringList running;
    for (const json& line : info["itemList"])
        running << QString("%1@%2").arg(line["times"].get<int>()).arg(line["type"].get<int>());
    QCOMPARE(info["staffInfo"]["workStatus"].get<int>(), workStatus);
    QCOMPARE(running.join(' '), wanted);
    QCOMPARE(info["staffInfo"]["surplus"].get<int>(), surplus);
    QCOMPARE(m_house->amountOn("8042") - before, amount);
}

void tst_house_services::meals()
{
    const auto meal = [&](const char* time) {
        m_house->time = timeOf(std::string("2026-03-01 ") + time);
        return m_house->told("/bca01/getMealTimesInfo", json::object());
    };
    QVERIFY(meal("06:29:59").is_null() && meal("10:30:00").is_null());
    QVERIFY(meal("10:29:59")["remainingTime"] == 1 && meal("06:30:00")["mealName"] == "早餐");
    const json portion = {{"mealId", meal("07:00:00")["mealId"]}, {"cardNo", "8042"}, {"isChild", 0}};
    QVERIFY(m_house->ask("/bca01/addCardMealTimes", portion).isGood());
    QVERIFY(!m_house->ask("/bca01/addCardMealTimes", portion).isGood());
    QCOMPARE(m_house->told("/bca01/getMealCards", portion).size(), std::size_t(1));
    m_house->time += 24 * 60 * minute;
    QVERIFY(m_house->ask("/bca01/addCardMealTimes", portion).isGood());
}

void tst_house_services::change(Dice& dice, int times)
{
    for (int i = 0; i < times; ++i)
        QCOMPARE(changeSomething(*m_house, dice, m_house->time += 2), std::string());
}

/// However long the other terminals work, the house stays in order, neither full nor empty.
void tst_house_services::evenings()
{
    for (const int rooms : {60, 16, 150}) {
        m_house = std::make_unique<FurnishedHouse>(rooms);
        Dice dice(7);
        change(dice, 1000);
        QVERIFY(m_house->topics.filter("ROOMSTATUS_").size() >= 800); // now and then there is nothing to do
        int used = 0;
        std::set<std::string> seated;
        for (const Room& room : m_house->state.rooms) {
            used += hasGuests(room);
            QVERIFY(hasGuests(room) || (room.cardIds.empty() && room.groupKey.empty()));
            for (const std::string& id : room.cardIds)
                QVERIFY(m_house->state.cards.find(id)->roomId == room.id && seated.insert(id).second);
        }
        QVERIFY2(used * 10 >= rooms * 3 && used * 5 <= rooms * 4, qPrintable(QString::number(used)));
        for (const Clock& clock : m_house->state.clocks)
            QCOMPARE(clock.workStatus == WorkServing, !runningLines(m_house->state, clock).empty());
    }
}

/// Rooms, free cards and waiting technicians, however they are named, and the groups of rooms; for ten minutes.
void tst_house_services::leaveAloneWhatIsNamed()
{
    const json named = m_house->filled(
        R"(["$105",{"roomNo":"308"},["#8003"],{"cards":["8070","94167233"]},"108","806",{"uid":"44216908"}])");
    const auto seen = [&] {
        json all = {m_house->card("8070").openedAt};
        for (const char* code : {"105", "308", "102", "108"}) {
            all.push_back(m_house->board(code));
            all.back().erase("surplus");
        }
        for (const char* code : {"806", "810"}) // the latter by his card
            all.push_back(m_house->state.clocks.find(m_house->staff(code).id)->orderId);
        all.push_back(m_house->board("107")["groupRoom"]);
        return all;
    };
    const json before = seen();
    m_house->holds.note(m_house->state, m_house->seed, named, now);
    Dice dice(7);
    change(dice, Holds::holdSeconds / 2 - 1);
    QVERIFY2(seen() == before, json::diff(before, seen()).dump().c_str());
    change(dice, 1000);
    QVERIFY(json::diff(before, seen()).size() > 8);
}

QTEST_GUILESS_MAIN(tst_house_services)
#include "tst_house_services.moc"
