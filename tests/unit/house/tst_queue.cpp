#include "FurnishedHouse.h"
#include "src/Broker.h"
#include "src/state/ServiceClock.h"
#include "support/BrokerListener.h"

#include <QtTest>

using namespace house;

namespace {

constexpr Seconds now = 1770000000;
constexpr Seconds minute = 60;

QString numbersOf(const CallQueue::Entries& entries)
{
    QStringList numbers;
    for (const QueueEntry* entry : entries)
        numbers << QString::fromStdString(entry->cardId) + (entry->status == CallStatus::Serving ? "!" : "") +
                       (entry->callNum > 1 ? "x" + QString::number(entry->callNum) : QString());
    return numbers.join(' ');
}

/// One step such as "call 2"; entries bear the numbers of their cards. False when it was refused.
bool step(CallQueue& queue, const QString& text, Seconds at)
{
    const QStringList words = text.split(' ');
    const std::string card = words.value(1).toStdString();
    const std::string helper = words.value(2, "h").toStdString();
    if (words[0] == "join")
        return queue.join(card, card, at).empty();
    if (words[0] == "recall")
        return queue.recall(card + "'", card, helper, at).empty();
    QueueEntry* entry = words[0] == "next" ? queue.nextCalled(card) : queue.openEntry(card);
    if (!entry)
        return false;
    if (words[0] == "next")
        return queue.serve(*entry, card, at).empty();
    if (words[0] == "call")
        return queue.call(*entry, helper, at).empty();
    if (words[0] == "again")
        return queue.callAgain(*entry, helper, at).empty();
    if (words[0] == "cancel")
        return queue.cancel(*entry).empty();
    if (words[0] == "pass" || words[0] == "strike")
        return queue.passOver(*entry, words[0] == "strike", helper, at).empty();
    if (words[0] == "serve")
        return queue.serve(*entry, helper, at).empty();
    return words[0] == "done" && queue.complete(*entry).empty();
}

} // namespace

/// The rules of the call queue, the technician's clock, meals and the call records, and the road to the broker.
class tst_queue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void roads_data();
    void roads();
    void speechIsKeptForAWhile();
    void clocks_data();
    void clocks();
    void mealTimes_data();
    void mealTimes();
    void callRecordPages_data();
    void callRecordPages();
    void broker();

private:
    std::unique_ptr<House> m_house;
};

void tst_queue::init()
{
    m_house = furnishedHouse(now);
    QVERIFY(m_house);
}

void tst_queue::roads_data()
{
    QTest::addColumn<QString>("steps"); // refused ones stand in brackets
    QTest::addColumn<QString>("waiting");
    QTest::addColumn<QString>("called");
    QTest::addColumn<int>("passed");
    QTest::newRow("order of entry") << "join 2,join 1,join 3"
                                    << "2 1 3"
                                    << "" << 0;
    QTest::newRow("once at a time") << "join 1,(join 1),call 1,(join 1),serve 1,(join 1)"
                                    << ""
                                    << "1!" << 0;
    QTest::newRow("order of call") << "join 1,join 2,join 3,call 3,call 1"
                                   << "2"
                                   << "3 1" << 0;
    QTest::newRow("a new call goes to the end") << "join 1,join 2,call 1,call 2,again 1"
                                                << ""
                                                << "2 1x2" << 0;
    QTest::newRow("only who waits is called") << "join 1,call 1,(call 1),serve 1,(call 1)"
                                              << ""
                                              << "1!" << 0;
    QTest::newRow("only who waits cancels") << "join 1,join 2,cancel 1,(cancel 1),call 2,(cancel 2)"
                                            << ""
                                            << "2" << 0;
    QTest::newRow("cancelled and back") << "join 1,join 2,cancel 1,join 3"
                                        << "2 3"
                                        << "" << 0;
    QTest::newRow("only the called pass") << "join 1,(pass 1),call 1,serve 1,(pass 1)"
                                          << ""
                                          << "1!" << 0;
    QTest::newRow("passed and struck off") << "join 1,join 2,call 1,call 2,pass 1,strike 2,(again 1)"
                                           << ""
                                           << "" << 2;
    QTest::newRow("recalled") << "join 1,call 1,again 1,pass 1,recall 1,(recall 1)"
                              << ""
                              << "1x3" << 1;
    QTest::newRow("nothing to recall") << "join 1,(recall 1),(recall 2)"
                                       << "1"
                                       << "" << 0;
    QTest::newRow("not done before served") << "join 1,(done 1),call 1,(done 1),serve 1,done 1,(done 1)"
                                            << ""
                                            << "" << 0;
    QTest::newRow("own guest first") << "join 1,join 2,call 1 a,call 2 b,next b"
                                     << ""
                                     << "1 2!" << 0;
    QTest::newRow("else the earliest") << "join 1,join 2,call 2 a,call 1 b,next c"
                                       << ""
                                       << "2! 1" << 0;
    QTest::newRow("who is served isn't next") << "join 1,call 1 a,next a,(next a)"
                                              << ""
                                              << "1!" << 0;
}

void tst_queue::roads()
{
    QFETCH(const QString, steps);
    CallQueue queue;
    Seconds at = now;
    for (QString text : steps.split(',')) {
        const bool isRefused = text.startsWith('(');
        text.remove('(').remove(')');
        QVERIFY2(step(queue, text, at++) != isRefused, qPrintable(text));
    }
    QTEST(numbersOf(queue.waiting()), "waiting");
    QTEST(numbersOf(queue.called()), "called");
    QTEST(static_cast<int>(queue.passRecords().size()), "passed");
}

void tst_queue::speechIsKeptForAWhile()
{
    CallQueue queue;
    for (const char* card : {"1", "2"}) {
        QVERIFY(queue.join(card, card, now).empty());
        QVERIFY(queue.call(*queue.find(card), "h", now).empty());
    }
    const std::string key = queue.keepForSpeech(queue.called());
    // Every terminal fetches it, and later calls change nothing in it.
    QVERIFY(queue.callAgain(*queue.find("1"), "h", now).empty());
    for (int fetch = 0; fetch < 2; ++fetch) {
        QVERIFY(queue.spoken(key));
        QCOMPARE(queue.spoken(key)->size(), std::size_t(2));
        QCOMPARE(queue.spoken(key)->front().callNum, 1);
    }
    QVERIFY(queue.keepForSpeech(queue.called()) != key);
    for (int later = 0; later < 1000; ++later)
        queue.keepForSpeech(queue.called());
    QVERIFY(!queue.spoken(key));
}

void tst_queue::clocks_data()
{
    QTest::addColumn<QString>("steps"); // refused ones stand in brackets; lines count from 0
    QTest::addColumn<int>("workStatus");
    QTest::addColumn<QString>("lines"); // minutes@kind of those that run
    QTest::addColumn<int>("surplus");
    QTest::addColumn<double>("amount"); // booked on the card beside what stood there
    QTest::newRow("start") << "start 60" << 2 << "60@5" << 60 << 128.0;
    QTest::newRow("start twice") << "start 60,(start 60)" << 2 << "60@5" << 60 << 128.0;
    QTest::newRow("add one") << "start 60,add 90 1" << 2 << "60@5 90@6" << 150 << 316.0;
    QTest::newRow("add two of one") << "start 60,add 90 2" << 2 << "60@5 180@6" << 240 << 504.0;
    QTest::newRow("add while waiting") << "(add 90 1)" << 1 << "" << 0 << 0.0;
    QTest::newRow("overrun") << "start 60,wait 75" << 2 << "60@5" << -15 << 128.0;
    QTest::newRow("added after a while") << "start 60,wait 50,add 60 1" << 2 << "60@5 60@6" << 70 << 256.0;
    QTest::newRow("other item") << "start 60,add 60 2,change 1 90" << 2 << "60@5 180@6" << 240 << 504.0;
    QTest::newRow("other kind") << "start 60,add 90 1,kind 0 1" << 2 << "60@1 90@6" << 150 << 316.0;
    QTest::newRow("back one") << "start 60,add 90 1,back 0" << 2 << "90@6" << 90 << 188.0;
    QTest::newRow("back all") << "start 60,add 90 1,back 1,back 0,(back 0)" << 1 << "" << 0 << 0.0;
    QTest::newRow("end") << "start 60,add 90 1,end,(back 0),(change 0 90)" << 1 << "" << 0 << 316.0;
    QTest::newRow("start after the end") << "start 60,end,start 90" << 2 << "90@5" << 90 << 316.0;
    QTest::newRow("card") << "start 60,add 90 1,card,(card)" << 2 << "60@5 90@6" << 150 << 0.0;
}

void tst_queue::clocks()
{
    QFETCH(const QString, steps);
    State& state = m_house->state;
    Clock& clock = *state.clocks.find(m_house->seed.staffByCode("806")->id);
    const Card& card = *state.cardByNumber("8042");
    const double before = amountOf(state.ordersOfCard(card.id));
    const Item& hour = *state.items.findBy(&Item::name, "经典足疗60分钟");
    const Item& longer = *state.items.findBy(&Item::name, "中式足道90分钟");
    ServiceTarget target;
    target.card = &card;
    target.clockKind = 5;
    QStringList ids;
    Seconds at = now;
    for (QString text : steps.split(',')) {
        const bool isRefused = text.startsWith('(');
        const QStringList words = text.remove('(').remove(')').split(' ');
        const auto item = [&](int word) -> const Item& { return words[word] == "60" ? hour : longer; };
        const std::string line = ids.value(words.value(1).toInt()).toStdString();
        std::string fault;
        if (words[0] == "start")
            fault = startService(state, clock, item(1), target, at);
        else if (words[0] == "add")
            fault = addClock(state, clock, item(1), words[2].toDouble(), at);
        else if (words[0] == "change")
            fault = changeItem(state, line, item(2));
        else if (words[0] == "kind")
            fault = changeKind(state, line, words[2].toInt());
        else if (words[0] == "back")
            fault = chargeBack(state, clock, {line});
        else if (words[0] == "card")
            fault = moveToCard(state, clock, *state.cardByNumber("8043"));
        else if (words[0] == "end")
            QVERIFY(!endService(state, clock, at).empty());
        else
            at += words[1].toInt() * minute;
        QCOMPARE(!fault.empty(), isRefused);
        if (words[0] == "start" || words[0] == "add")
            ids << (runningLines(state, clock).empty()
                        ? QString()
                        : QString::fromStdString(runningLines(state, clock).back()->id));
    }
    const ServiceLines running = runningLines(state, clock);
    QStringList lines;
    for (const Order* line : running)
        lines << QStringLiteral("%1@%2").arg(line->minutes).arg(line->clockKind);
    QTEST(clock.workStatus, "workStatus");
    QTEST(lines.join(' '), "lines");
    QTEST(static_cast<int>(surplusMinutes(running, at)), "surplus");
    QTEST(roundMoney(amountOf(state.ordersOfCard(card.id)) - before), "amount");
}

void tst_queue::mealTimes_data()
{
    QTest::addColumn<QString>("time");
    QTest::addColumn<QString>("meal"); // empty: none
    QTest::addColumn<int>("left");
    QTest::newRow("before breakfast") << "06:29:59"
                                      << "" << 0;
    QTest::newRow("breakfast") << "06:30:00"
                               << "早餐" << 4 * 60 * 60;
    QTest::newRow("its last second") << "10:29:59"
                                     << "早餐" << 1;
    QTest::newRow("after it") << "10:30:00"
                              << "" << 0;
    QTest::newRow("one meal follows the other") << "14:30:00"
                                                << "下午茶" << 150 * 60;
}

void tst_queue::mealTimes()
{
    QFETCH(const QString, time);
    QFETCH(const QString, meal);
    const Seconds at = timeOf("2026-03-01 " + time.toStdString());
    const Reply reply = handle(*m_house, "/bca01/getMealTimesInfo", nlohmann::json::object(), at);
    QCOMPARE(reply.code, std::string(meal.isEmpty() ? "BCA_ERR_0005" : "200"));
    if (meal.isEmpty())
        return;
    QCOMPARE(QString::fromStdString((*reply.data)["mealName"].get<std::string>()), meal);
    QTEST((*reply.data)["remainingTime"].get<int>(), "left");

    // The card that eats today may eat tomorrow, but not twice at a meal.
    const nlohmann::json portion = {{"mealId", (*reply.data)["mealId"]}, {"cardNo", "8042"}, {"isChild", 0}};
    QVERIFY(handle(*m_house, "/bca01/addCardMealTimes", portion, at).isGood());
    QCOMPARE(handle(*m_house, "/bca01/addCardMealTimes", portion, at).code, std::string("BCA_ERR_0006"));
    QVERIFY(handle(*m_house, "/bca01/addCardMealTimes", portion, at + 24 * 60 * minute).isGood());
}

void tst_queue::callRecordPages_data()
{
    QTest::addColumn<int>("fromMinute");
    QTest::addColumn<int>("toMinute");
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("limit");
    QTest::addColumn<int>("total"); // -1: refused
    QTest::addColumn<QString>("cards");
    QTest::newRow("all") << 0 << 9 << "1"
                         << "200" << 5 << "5 4 3 2 1";
    QTest::newRow("both ends belong to it") << 2 << 4 << "1"
                                            << "200" << 3 << "4 3 2";
    QTest::newRow("first page") << 0 << 9 << "1"
                                << "2" << 5 << "5 4";
    QTest::newRow("last page") << 0 << 9 << "3"
                               << "2" << 5 << "1";
    QTest::newRow("beyond") << 0 << 9 << "4"
                            << "2" << 5 << "";
    QTest::newRow("wrong way round") << 9 << 0 << "1"
                                     << "200" << -1 << "";
    QTest::newRow("no page") << 0 << 9 << "0"
                             << "200" << -1 << "";
    QTest::newRow("no limit") << 0 << 9 << "1"
                              << "x" << -1 << "";
}

void tst_queue::callRecordPages()
{
    QFETCH(const int, fromMinute);
    QFETCH(const int, toMinute);
    QFETCH(const QString, page);
    QFETCH(const QString, limit);
    QFETCH(const int, total);
    m_house->state.calls = {};
    for (int row = 1; row <= 5; ++row) {
        const Card& card = *m_house->state.cardByNumber(std::to_string(8000 + row));
        m_house->state.calls.join(card.id, card.id, now);
        QueueEntry& entry = *m_house->state.calls.find(card.id);
        m_house->state.calls.call(entry, m_house->seed.staff.front().id, now);
        m_house->state.calls.passOver(entry, false, m_house->seed.staff.front().id, now + row * minute);
    }
    const Reply reply = handle(
        *m_house, "/bca01/getHelpCallBashApiLogPageList",
        {{"startTime", timeText(now + fromMinute * minute)}, {"endTime", timeText(now + toMinute * minute)}},
        now, {{"page", page.toStdString()}, {"limit", limit.toStdString()}});
    QCOMPARE(reply.isGood(), total >= 0);
    if (total < 0)
        return;
    QCOMPARE((*reply.data)["total"].get<int>(), total);
    QStringList cards;
    for (const nlohmann::json& record : (*reply.data)["list"])
        cards << QString::fromStdString(record["hardCardNo"].get<std::string>()).right(1);
    QTEST(cards.join(' '), "cards");
}

// The house starts before its broker, and loses it again.
void tst_queue::broker()
{
    BrokerProcess broker;
    broker.stop();
    const QTemporaryDir folder;
    Log log;
    QVERIFY(log.open(folder.filePath("log").toStdString()));
    Broker publisher({{"hostUrl", broker.url().toStdString()},
                      {"username", BrokerProcess::user().toStdString()},
                      {"password", BrokerProcess::password().toStdString()}},
                     log);
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!publisher.publish("ROOMSTATUS_1", "lost"));
    QVERIFY2(timer.elapsed() < 500, "waited for a broker that isn't there");

    QVERIFY(broker.start());
    QTRY_VERIFY_WITH_TIMEOUT(publisher.publish("ROOMSTATUS_1", "first"), 20000);
    BrokerListener listener;
    QVERIFY(listener.listen(broker.port()));
    const QStringList wanted = {"叫号_1", "键一"};
    QTRY_VERIFY_WITH_TIMEOUT((publisher.publish("叫号_1", "键一"),
                              listener.received().mid(listener.received().size() - 2) == wanted),
                             5000);

    broker.stop();
    QTRY_VERIFY_WITH_TIMEOUT(!publisher.publish("ROOMSTATUS_1", "lost"), 5000);
}

QTEST_GUILESS_MAIN(tst_queue)
#include "tst_queue.moc"
