#include "FurnishedHouse.h"
#include "src/Control.h"
#include "src/Options.h"
#include "src/state/RoomDesk.h"

#include <QtTest>

using namespace house;
using nlohmann::json;

namespace {

constexpr Seconds now = 1770000000;

json parsed(const QString& text) { return json::parse(text.toStdString()); }

} // namespace

/// The switches of the house: settings that are changed while it is open, work without hand cards, options.
class tst_switches : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void houseThatWorksByRooms();
    void settings_data();
    void settings();
    void settingsRule();
    void options_data();
    void options();

private:
    Room& room(const char* code) { return *m_house->state.roomByCode(code); }
    Reply ask(const std::string& path, const json& body) { return handle(*m_house, path, body, now); }
    json told(const std::string& path, const json& body) { return ::told(*m_house, path, body, now); }
    json boardOf(const char* code) { return ::boardOf(*m_house, code, now); }
    json filled(const QString& text) const { return ::filled(*m_house, text); }
    ControlAnswer control(const char* path, const QString& body);

    std::unique_ptr<House> m_house;
};

void tst_switches::init()
{
    m_house = furnishedHouse(now);
    QVERIFY(m_house);
}

ControlAnswer tst_switches::control(const char* path, const QString& body)
{
    WireRequest request;
    request.method = "POST";
    request.path = path;
    request.body = body.toStdString();
    return handleControl(*m_house, request);
}

void tst_switches::houseThatWorksByRooms()
{
    m_house = furnishedHouse(now, 0, true);
    QVERIFY(m_house);
    for (const Room& each : m_house->state.rooms) {
        const Card* own = m_house->state.cardByNumber(each.code);
        QVERIFY(own);
        QCOMPARE(each.cardIds, isInUse(each) ? std::vector<std::string>{own->id} : std::vector<std::string>{});
    }
    QVERIFY(boardOf("101")["needPayAmount"].get<double>() > 300);
    const auto detail = [&](const char* number) {
        return told("/baa01/getHardCardDetail", {{"cardno", number}});
    };
    const auto does = [&](const char* path, const char* body) { return ask(path, filled(body)).isGood(); };
    QVERIFY(detail("112")["status"] == 0 && detail("112")["roomNo"] == "");
    QVERIFY(does("/bba01/openMassRoom", R"({"id":"$112","cardids":["#112"],"hours":2})"));
    QVERIFY(detail("112")["status"] == 1 && detail("112")["roomNo"] == ""); // where else should it be
    json toRest = filled(R"({"id":"$112","cardids":["#112"],"newPlanFlg":1,"type":1})");
    toRest["planid"] = told("/bba01/getPlanListNew", {{"roomId", room("112").id}, {"planType", 1}})[0]["id"];
    QVERIFY(ask("/bba01/massToRestRoom", toRest).isGood());
    QVERIFY(does("/bba01/restToMassRoom", R"({"id":"$112","cardids":["#112"],"cardId":"#112","hours":1,
                                              "newPlanFlg":1,"type":1})"));
    const double due = boardOf("112")["needPayAmount"].get<double>();
    QCOMPARE(due, 78.0);
    // Another room goes by another card, and the old one's can be opened anew.
    QVERIFY(does("/bba01/changeRoom", R"({"oldRoomId":"$112","status":2,"newRoomId":"$118","isClean":0})"));
    QVERIFY(boardOf("118")["cardnos"] == "118" && boardOf("118")["needPayAmount"] == due);
    QVERIFY(detail("112")["status"] == 0);
    QVERIFY(does("/bba01/openMassRoom", R"({"id":"$112","cardids":["#112"],"hours":2})"));
    QCOMPARE(boardOf("112")["needPayAmount"], json(0.0));
}

void tst_switches::settings_data()
{
    QTest::addColumn<QString>("body");
    QTest::addColumn<QString>("before"); // empty: refused
    QTest::newRow("of the store") << R"({"isCleaning":false,"defaultTime":3})"
                                  << R"({"isCleaning":true,"defaultTime":2})";
    QTest::newRow("of every terminal") << R"({"isShowAmount":false})"
                                       << R"({"isShowAmount":true})";
    QTest::newRow("of the plans and cards") << R"({"isPush":1,"lock_type":3})"
                                            << R"({"isPush":0,"lock_type":1})";
    QTest::newRow("none") << R"({"isClean":false})"
                          << "";
    QTest::newRow("another kind") << R"({"isCleaning":0})"
                                  << "";
    QTest::newRow("one good, one bad") << R"({"isCleaning":false,"isNeedCard":"no"})"
                                       << "";
    QTest::newRow("identity") << R"({"secretKey":"another"})"
                              << "";
}

void tst_switches::settings()
{
    QFETCH(QString, body);
    QFETCH(QString, before);
    const std::string key = m_house->seed.terminals.front().secretKey;
    const auto served = [&] {
        Call call;
        call.params["secretKey"] = key;
        const json data = *m_house->endpoints.find("/baa00/getSysInitByAuthCode")->handler(*m_house, call).data;
        json all = json::object();
        for (const char* record : {"terminalInfo", "sysconfig", "planconfig", "cardconfig"})
            all.update(data[record]);
        return all;
    };
    const json original = served();
    const ControlAnswer answer = control("/_control/config", body);
    QCOMPARE(answer.status, before.isEmpty() ? 400 : 200);
    if (before.isEmpty()) {
        QVERIFY(served() == original);
        return;
    }
    QVERIFY(json::parse(answer.body)["before"] == parsed(before));
    json wanted = original;
    wanted.update(parsed(body));
    QVERIFY(served() == wanted);
    QCOMPARE(control("/_control/config", before).status, 200);
    QVERIFY(served() == original);
}

/// The house itself follows its settings at once.
void tst_switches::settingsRule()
{
    const auto opens = [&](const char* body) { return ask("/bba01/openMassRoom", filled(body)).isGood(); };
    QVERIFY(!opens(R"({"id":"$112","cardids":[],"hours":1})"));
    QVERIFY(!opens(R"({"id":"$112","cardids":["#8005"],"hours":1})")); // asks for a joint first
    QCOMPARE(control("/_control/config", R"({"isNeedCard":false,"openMulti":false,"isCleaning":false})").status,
             200);
    QVERIFY(opens(R"({"id":"$112","cardids":[],"hours":1})"));
    QVERIFY(opens(R"({"id":"$115","cardids":["#8005"],"hours":1})"));
    QVERIFY(ask("/bba01/leaveRoomNew", filled(R"({"id":"$115","status":2,"cardids":["#8005"]})")).isGood());
    QCOMPARE(boardOf("115")["status"], json(1));
    QVERIFY(!ask("/baa01/getHardCardDetail", {{"cardno", "118"}}).isGood());
    QCOMPARE(control("/_control/config", R"({"usedRoomMod":1})").status, 200);
    QVERIFY(ask("/baa01/getHardCardDetail", {{"cardno", "118"}}).isGood());
}

void tst_switches::options_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<double>("others"); // -1: refused
    QTest::addColumn<bool>("worksByRooms");
    QTest::newRow("none") << QStringList{} << 0.0 << false;
    QTest::newRow("rate") << QStringList{"--others", "0.25"} << 0.25 << false;
    QTest::newRow("off") << QStringList{"--others", "0"} << 0.0 << false;
    QTest::newRow("by rooms") << QStringList{"--room-mode", "--others", "3"} << 3.0 << true;
    QTest::newRow("backwards") << QStringList{"--others", "-1"} << -1.0 << false;
    QTest::newRow("with its unit") << QStringList{"--others", "2/s"} << -1.0 << false;
    QTest::newRow("no number") << QStringList{"--others", "nan"} << -1.0 << false;
    QTest::newRow("beyond all measure") << QStringList{"--others", "1000"} << -1.0 << false;
    QTest::newRow("missing") << QStringList{"--others"} << -1.0 << false;
}

void tst_switches::options()
{
    QFETCH(QStringList, arguments);
    QFETCH(double, others);
    std::vector<std::string> list = {"--seed", "house.json"};
    for (const QString& argument : arguments)
        list.push_back(argument.toStdString());
    const auto parsed = parseOptions(list);
    const Options* options = std::get_if<Options>(&parsed);
    QCOMPARE(options != nullptr, others >= 0);
    if (!options)
        return;
    QCOMPARE(options->othersPerSecond, others);
    QTEST(options->worksByRooms, "worksByRooms");
}

QTEST_GUILESS_MAIN(tst_switches)
#include "tst_switches.moc"
