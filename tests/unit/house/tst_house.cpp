#include "FurnishedHouse.h"
#include "src/RequestCheck.h"
#include "src/Text.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>
#include <QtTest>

namespace {

constexpr std::int64_t now = 1770000000;
const QString giveRight = QStringLiteral("405761200963719170");
const QString cancelRight = QStringLiteral("418838253703270403");
const QString openRight = QStringLiteral("405757793603424257");

house::Reply done(house::House&, const house::Call&) { return house::Reply::done(); }

} // namespace

/// What can't be seen over HTTP yet, or only by waiting: rights, the supervisor's road, time.
class tst_house : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void roleLists_data();
    void roleLists();
    void rights_data();
    void rights();
    void idsDemanded();
    void supervisorMustComeHimself();
    void clocks_data();
    void clocks();
    void sessionEnds();
    void nonces();
    void callersHold_data();
    void callersHold();
    void damagedSeeds_data();
    void damagedSeeds();

private:
    QString login(const char* code);
    /// The code that a call of the endpoint gets.
    QString call(const house::Endpoint& endpoint, const QJsonObject& fields, std::int64_t timestamp = now);

    std::unique_ptr<house::House> m_house;
    house::Session m_session;
    std::int64_t m_now = now;
    int m_calls = 0;
};

void tst_house::init()
{
    m_house = furnishedHouse(now);
    QVERIFY(m_house);
    m_house->clock = [this] { return m_now; };
    m_now = now;
}

QString tst_house::login(const char* code)
{
    const house::Staff* person = m_house->seed.staffByCode(code);
    m_session = m_house->sessions.open(person->id, m_house->seed.terminals.front().id, now + 100);
    return QString::fromStdString(person->id);
}

QString tst_house::call(const house::Endpoint& endpoint, const QJsonObject& fields, std::int64_t timestamp)
{
    const QString nonce = QString::number(++m_calls).rightJustified(32, QLatin1Char('0'));
    const QString staffId = QString::fromStdString(m_session.staffId);
    QJsonObject body{{"storeId", QString::fromStdString(m_house->seed.storeId)},
                     {"compId", QString::fromStdString(m_house->seed.compId)},
                     {"deviceId", QString::fromStdString(m_session.deviceId)},
                     {"soft_version", "kv_panel_v3"},
                     {"operator", staffId},
                     {"creater", staffId},
                     {"ts", QString::number(timestamp)},
                     {"nc", nonce},
                     {"tcode", "5"}};
    for (auto field = fields.begin(); field != fields.end(); ++field)
        body[field.key()] = field.value();
    const QByteArray json = QJsonDocument(body).toJson(QJsonDocument::Compact);
    QByteArray signedText = QByteArray::fromStdString(m_session.token) + QByteArray::number(qint64(timestamp)) +
                            nonce.toUtf8() + json + QByteArray::fromStdString(m_session.secret);
    signedText.replace('"', '\'');

    house::WireRequest request;
    request.method = "POST";
    request.path = endpoint.path;
    request.target =
        endpoint.path + "?timestamp=" + std::to_string(timestamp) + "&nonce=" + nonce.toStdString() +
        "&signature=" + QCryptographicHash::hash(signedText, QCryptographicHash::Md5).toHex().toStdString();
    request.authorization = m_session.token;
    request.contentType = "application/x-www-form-urlencoded;charset=UTF-8";
    request.body = "data=" + QUrl::toPercentEncoding(QString::fromUtf8(json)).toStdString();
    const auto result = house::checkRequest(*m_house, endpoint, request);
    const auto* refusal = std::get_if<house::Reply>(&result);
    return QString::fromStdString(refusal ? refusal->code : "200");
}

void tst_house::roleLists_data()
{
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<int>("count"); // -1: refused
    QTest::newRow("everything") << QStringList{"*"} << 206;
    QTest::newRow("nothing") << QStringList{} << 0;
    QTest::newRow("code and word and id") << QStringList{"0101", "PAY_CTRL", cancelRight} << 3;
    QTest::newRow("the same twice") << QStringList{"0101", "405757793603424257"} << 1;
    QTest::newRow("group less one") << QStringList{"02*", "-0203"} << 10;
    QTest::newRow("order counts") << QStringList{"-0203", "02*"} << 11;
    QTest::newRow("unknown") << QStringList{"0101", "0516"} << -1;
    QTest::newRow("empty") << QStringList{""} << -1;
}

void tst_house::roleLists()
{
    QFETCH(QStringList, entries);
    QFETCH(int, count);
    std::vector<std::string> list;
    for (const QString& entry : entries)
        list.push_back(entry.toStdString());
    std::string fault;
    const auto ids = house::rightsOf(list, fault);
    QCOMPARE(ids ? static_cast<int>(ids->size()) : -1, count);
    QCOMPARE(fault, count < 0 ? list.back() : std::string());
}

void tst_house::rights_data()
{
    QTest::addColumn<QString>("staff");
    QTest::addColumn<QJsonObject>("fields");
    QTest::addColumn<QString>("code");
    const QJsonArray give{giveRight};
    const QJsonArray both{giveRight, cancelRight};
    QTest::newRow("no rule met") << "901" << QJsonObject{{"isGive", 0}} << "200";
    QTest::newRow("held") << "1001" << QJsonObject{{"isGive", 1}, {"mode", 0}, {"acode", give}} << "200";
    QTest::newRow("true is 1") << "1001" << QJsonObject{{"isGive", true}, {"mode", "0"}, {"acode", give}}
                               << "200";
    QTest::newRow("not held") << "1101" << QJsonObject{{"isGive", 1}, {"mode", 0}, {"acode", give}}
                              << "AUTH_ERR_0002";
    QTest::newRow("two, in order") << "1001"
                                   << QJsonObject{{"isGive", 1}, {"mode", 0}, {"del", 1}, {"acode", both}}
                                   << "200";
    QTest::newRow("one held") << "1101" << QJsonObject{{"open", 1}, {"acode", QJsonArray{openRight}}} << "200";
    QTest::newRow("one of two held") << "1101"
                                     << QJsonObject{{"del", 1},
                                                    {"open", 1},
                                                    {"acode", QJsonArray{cancelRight, openRight}}}
                                     << "AUTH_ERR_0002";
    QTest::newRow("second condition fails")
        << "1001" << QJsonObject{{"isGive", 1}, {"mode", 1}, {"acode", give}} << "REQ_ERR_ACODE";
    QTest::newRow("not named") << "1001" << QJsonObject{{"isGive", 1}, {"mode", 0}} << "REQ_ERR_ACODE";
    QTest::newRow("named for nothing") << "1001" << QJsonObject{{"acode", QJsonArray{}}} << "REQ_ERR_ACODE";
}

namespace {

house::Endpoint guardedEndpoint()
{
    house::Endpoint endpoint;
    endpoint.verb = house::Verb::Post;
    endpoint.path = "/test/order";
    endpoint.handler = done;
    return endpoint.takes("isGive", house::Kind::Any)
        .takes("mode", house::Kind::Any)
        .takes("del", house::Kind::Any)
        .takes("open", house::Kind::Any)
        .guardedBy({giveRight.toStdString(), "isGive", "1", "mode", "0"})
        .guardedBy({cancelRight.toStdString(), "del", "1", "", ""})
        .guardedBy({openRight.toStdString(), "open", "1", "", ""});
}

} // namespace

void tst_house::rights()
{
    QFETCH(QString, staff);
    QFETCH(QJsonObject, fields);
    QFETCH(QString, code);
    login(qPrintable(staff));
    QCOMPARE(call(guardedEndpoint(), fields), code);
}

void tst_house::idsDemanded()
{
    login("1001");
    const QJsonObject noIds{{"storeId", ""}, {"compId", ""}, {"deviceId", ""}};
    house::Endpoint endpoint = guardedEndpoint();
    QCOMPARE(call(endpoint, noIds), QStringLiteral("REQ_ERR_STORE"));
    QCOMPARE(call(endpoint.withoutIds(), noIds), QStringLiteral("200"));
}

void tst_house::supervisorMustComeHimself()
{
    login("1101");
    const std::string device = m_session.deviceId;
    const std::string manager = m_house->seed.staffByCode("1001")->id;
    const std::string helper = m_house->seed.staffByCode("601")->id;
    QJsonObject fields{{"isGive", 1}, {"mode", 0}, {"acode", QJsonArray{giveRight}}};
    fields["authOperater"] = QString::fromStdString(manager);
    QCOMPARE(call(guardedEndpoint(), fields), QStringLiteral("REQ_ERR_SUPERVISOR"));

    m_house->sessions.vouch(manager, "another terminal", now);
    QCOMPARE(call(guardedEndpoint(), fields), QStringLiteral("REQ_ERR_SUPERVISOR"));
    m_house->sessions.vouch(manager, device, now - 301);
    QCOMPARE(call(guardedEndpoint(), fields), QStringLiteral("REQ_ERR_SUPERVISOR"));
    m_house->sessions.vouch(manager, device, now - 300);
    QCOMPARE(call(guardedEndpoint(), fields), QStringLiteral("200"));

    // One who has come but lacks the right himself: another is asked for.
    m_house->sessions.vouch(helper, device, now);
    fields["authOperater"] = QString::fromStdString(helper);
    QCOMPARE(call(guardedEndpoint(), fields), QStringLiteral("AUTH_ERR_0002"));
}

void tst_house::clocks_data()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<QString>("code");
    QTest::newRow("slow, just in time") << -300 << "200";
    QTest::newRow("too slow") << -301 << "REQ_ERR_TIMESTAMP";
    QTest::newRow("fast, just in time") << 300 << "200";
    QTest::newRow("too fast") << 301 << "REQ_ERR_TIMESTAMP";
}

void tst_house::clocks()
{
    QFETCH(int, offset);
    QFETCH(QString, code);
    login("1001");
    QCOMPARE(call(guardedEndpoint(), {}, now + offset), code);
}

void tst_house::sessionEnds()
{
    login("1001");
    m_now = now + 99;
    QCOMPARE(call(guardedEndpoint(), {}, m_now), QStringLiteral("200"));
    m_now = now + 100;
    QCOMPARE(call(guardedEndpoint(), {}, m_now), QStringLiteral("REQ_ERR_SESSION"));
    m_house->sessions.extend(m_session.token, now + 101);
    QCOMPARE(call(guardedEndpoint(), {}, m_now), QStringLiteral("200"));
}

void tst_house::nonces()
{
    house::NonceLog log;
    QVERIFY(log.admit("a", false, "/x?1", now));
    QVERIFY(!log.admit("a", false, "/x?1", now)); // a POST is never repeated
    QVERIFY(!log.admit("a", true, "/x?1", now));

    QVERIFY(log.admit("b", true, "/x?1", now));
    QVERIFY(log.admit("b", true, "/x?1", now)); // the answer got lost
    QVERIFY(!log.admit("b", true, "/x?2", now));
    log.markAnswered("b");
    QVERIFY(!log.admit("b", true, "/x?1", now));

    QVERIFY(!log.admit("a", false, "/x?1", now + 600));
    QVERIFY(log.admit("a", false, "/x?1", now + 601)); // by then its time is refused
}

void tst_house::callersHold_data()
{
    QTest::addColumn<QString>("fields");
    QTest::addColumn<QString>("held"); // marked as in the fields
    QTest::addColumn<bool>("isHeld");
    QTest::newRow("room") << R"({"id":"$101"})"
                          << "$101" << true;
    QTest::newRow("another room") << R"({"id":"$101"})"
                                  << "$102" << false;
    QTest::newRow("room of a card") << R"({"cards":["#8003"]})"
                                    << "$102" << true;
    QTest::newRow("card") << R"({"cardno":"8070"})"
                          << "#8070" << true;
    QTest::newRow("a number in a number") << R"({"num":101})"
                                          << "$101" << false;
    QTest::newRow("staff number") << R"({"staffNo":"801"})"
                                  << "405812300000811413" << true;
    QTest::newRow("staff card") << R"({"staffUid":"34373212"})"
                                << "405812300000811413" << true;
    QTest::newRow("who is logged in") << R"({})"
                                      << "405812300001014013" << false;
}

void tst_house::callersHold()
{
    QFETCH(QString, fields);
    QFETCH(QString, held);
    QFETCH(bool, isHeld);
    login("1001");
    house::Endpoint endpoint;
    endpoint.verb = house::Verb::Post;
    endpoint.path = "/test/order";
    for (const char* name : {"id", "cards", "cardno", "num", "staffNo", "staffUid"})
        endpoint.takes(name, house::Kind::Any);
    const std::string body = filled(*m_house, fields).dump();
    const std::string id = filled(*m_house, "[\"" + held + "\"]")[0];
    QCOMPARE(call(endpoint, QJsonDocument::fromJson(QByteArray::fromStdString(body)).object()),
             QStringLiteral("200"));
    QCOMPARE(m_house->holds.has(id, now + house::Holds::holdSeconds - 1), isHeld);
    QVERIFY(!m_house->holds.has(id, now + house::Holds::holdSeconds));
}

void tst_house::damagedSeeds_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::addColumn<QByteArray>("complaint");
    QTest::newRow("no JSON") << QByteArray("{") << QByteArray("[") << QByteArray("parse error");
    QTest::newRow("missing part") << QByteArray("\"storeId\"") << QByteArray("\"x\"") << QByteArray("storeId");
    QTest::newRow("wrong type") << QByteArray("\"modAuth\": [") << QByteArray("\"modAuth\": 1, \"x\": [")
                                << QByteArray("modAuth");
    QTest::newRow("unknown right") << QByteArray("\"-0203\"") << QByteArray("\"-0299\"") << QByteArray("-0299");
    QTest::newRow("unknown role") << QByteArray("\"role\": \"helper\"") << QByteArray("\"role\": \"cook\"")
                                  << QByteArray("cook");
    QTest::newRow("number twice") << QByteArray("\"code\": \"1002\"") << QByteArray("\"code\": \"1001\"")
                                  << QByteArray("staff number \"1001\"");
}

void tst_house::damagedSeeds()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QFETCH(QByteArray, complaint);
    QFile good(QString::fromStdString(seedPath()));
    QVERIFY(good.open(QIODevice::ReadOnly));
    QByteArray text = good.readAll();
    const int at = text.indexOf(from);
    QVERIFY(at >= 0);
    text.replace(at, from.size(), to);
    QTemporaryFile damaged;
    QVERIFY(damaged.open());
    damaged.write(text);
    damaged.close();
    const auto result = house::loadSeed(damaged.fileName().toStdString());
    const auto* error = std::get_if<std::string>(&result);
    QVERIFY(error);
    QVERIFY2(QByteArray::fromStdString(*error).contains(complaint), error->c_str());
}

QTEST_GUILESS_MAIN(tst_house)
#include "tst_house.moc"
