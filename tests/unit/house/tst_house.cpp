#include "FurnishedHouse.h"
#include "src/RequestCheck.h"

#include <QCryptographicHash>
#include <QUrl>
#include <QtTest>

using nlohmann::json;

/// The strict check of every request: what a terminal may get wrong is refused, each with its code.
class tst_house : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void refusals_data();
    void refusals();
    void noncesAreUsedOnce();
    void sessionsEnd();
    void roles();
    void supervisorMustComeHimself();

private:
    void logIn(const QString& code);
    /// The code that a request gets that is right for its path, but that `from` (empty: the end) has become
    /// `to` at a stage of its making: in the "json", in what is signed ("sign"), or in what travels ("wire").
    /// With "fields", `to` are fields that differ, null taking one away.
    QString send(const QString& path, const char* stage = "", QString from = {}, const QString& to = {});

    std::unique_ptr<FurnishedHouse> m_house;
    house::Session m_session;
    qint64 m_timestamp = now;
    int m_nonce = 0;
};

void tst_house::init()
{
    m_house = std::make_unique<FurnishedHouse>();
    m_timestamp = now;
    logIn("1001");
}

void tst_house::logIn(const QString& code)
{
    const std::string device = m_house->seed.terminals.front().id;
    m_session = m_house->sessions.open(m_house->staff(code).id, device, now + 1000);
}

QString tst_house::send(const QString& path, const char* stage, QString from, const QString& to)
{
    static const std::map<QString, QString> fields = {
        {"/bba01/setRemark", R"({"id":"$101","remark":"a \"b\""})"},
        {"/bba01/getRoomConsList", R"({"roomId":"$101"})"},
        {"/bba01/openMassRoom", R"({"id":"$112","cardids":["#8070"],"hours":1})"},
        {"/baa01/getHardCardList", R"({"status":1})"},
        {"/kvsystem/common/getSysApiReqUrls",
         R"({"type":2,"tAuthCode":"KV-DEMO-0001","operator":null,"creater":null})"},
        {"/baa00/loginMod", R"({"modCode":"ROOMINFO_CTRL","workNo":"1001","pwd":"1001"})"},
        {"/bba01/chgCleanRoom", R"({"id":"$112","isClean":1})"},
        {"/bba01/cancelRoom", R"({"id":"$101","authType":2})"},
    };
    from.replace("TOKEN", m_session.token.c_str());
    const auto meddle = [&](const char* place, const QString& text) {
        const int at = from.isEmpty() ? text.size() : text.indexOf(from);
        if (qstrcmp(stage, place) == 0 && at < 0)
            qFatal("no %s in %s", qPrintable(from), qPrintable(text));
        return qstrcmp(stage, place) == 0 ? QString(text).replace(at, from.size(), to) : text;
    };
    const house::Endpoint& endpoint = *m_house->endpoints.find(path.toStdString());
    const bool isGet = endpoint.verb == house::Verb::Get;
    const bool isOpen = endpoint.access != house::Access::Session;
    const QString timestamp = QString::number(m_timestamp);
    const QString nonce = QString::number(++m_nonce).rightJustified(32, '0');
    json body = {{"storeId", m_house->seed.storeId},
                 {"compId", m_house->seed.compId},
                 {"deviceId", m_session.deviceId},
                 {"soft_version", "kv_panel_v3"},
                 {"tcode", "5"},
                 {"ts", timestamp.toStdString()},
                 {"nc", nonce.toStdString()},
                 {"operator", m_session.staffId},
                 {"creater", m_session.staffId}};
    body.merge_patch(m_house->filled(fields.at(path)));
    if (qstrcmp(stage, "fields") == 0)
        body.merge_patch(m_house->filled(to));
    const QString text = meddle("json", QString::fromStdString(body.dump()));

    // The first sign is what stands for a quotation mark.
    const QString order = meddle("sign", "'token timestamp nonce json secret");
    QString signedText = order.mid(1).remove(' ');
    signedText.replace("token", QString::fromStdString(m_session.token)).replace("timestamp", timestamp);
    signedText.replace("nonce", nonce).replace("secret", QString::fromStdString(m_session.secret));
    signedText.replace("json", text).replace('"', order.at(0));
    const QString signature = QCryptographicHash::hash(signedText.toUtf8(), QCryptographicHash::Md5).toHex();

    const QString data = "data=" + QUrl::toPercentEncoding(text);
    QString target = path + "?timestamp=" + timestamp + "&nonce=" + nonce + (isGet ? "&" + data : "");
    for (const std::string& name : endpoint.params)
        target += QString("&%1=1").arg(name.c_str());
    if (!isOpen)
        target += "&signature=" + signature;
    const QStringList sent{isGet ? "GET" : "POST", isOpen ? "" : m_session.token.c_str(),
                           isGet ? "" : "application/x-www-form-urlencoded;charset=UTF-8", target,
                           isGet ? "" : data};
    const QStringList parts = meddle("wire", sent.join('\n')).split('\n');
    house::WireRequest request;
    request.method = parts[0].toStdString();
    if (!parts[1].isEmpty())
        request.authorization = parts[1].toStdString();
    request.contentType = parts[2].toStdString();
    request.target = parts[3].toStdString();
    request.body = parts.last().toStdString();
    request.hasBody = !request.body.empty();
    try {
        house::checkRequest(*m_house, endpoint, request);
        return "200";
    } catch (const house::Refusal& refusal) {
        return QString::fromStdString(refusal.code);
    }
}

void tst_house::refusals_data()
{
    QTest::addColumn<QString>("staff");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("stage");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<QString>("code");
    QString path;
    QString staff = "1001";
    const auto meddle = [&](auto name, auto stage, auto from, auto to, auto code) {
        QTest::newRow(name) << staff << path << QByteArray(stage) << from << to << code;
    };
    const auto change = [&](auto name, auto fields, auto code) { meddle(name, "fields", "", fields, code); };
    path = "/bba01/setRemark";
    change("right", "{}", "200");
    meddle("wrong verb", "wire", "POST", "GET", "REQ_ERR_METHOD");
    meddle("content type", "wire", ";charset=UTF-8", "", "REQ_ERR_CONTENT_TYPE");
    meddle("time behind the nonce", "wire", "?timestamp", "?nonce=1&timestamp", "REQ_ERR_QUERY");
    meddle("no nonce", "wire", "&nonce", "&once", "REQ_ERR_QUERY");
    meddle("time is no number", "wire", "timestamp=", "timestamp=+", "REQ_ERR_TIMESTAMP");
    change("time of the JSON differs", R"({"ts":"1770000001"})", "REQ_ERR_TIMESTAMP");
    change("nonce of the JSON differs", R"({"nc":"0"})", "REQ_ERR_NONCE");
    meddle("short nonce", "wire", "nonce=0", "nonce=", "REQ_ERR_NONCE");
    meddle("nonce in capitals", "wire", "nonce=0", "nonce=A", "REQ_ERR_NONCE");
    meddle("lower case escape", "wire", "%7B", "%7b", "REQ_ERR_ENCODING");
    meddle("not escaped", "wire", "%7B", "{", "REQ_ERR_ENCODING");
    meddle("escaped in vain", "wire", "kv_panel", "kv%5Fpanel", "REQ_ERR_ENCODING");
    meddle("blank", "json", ",", ", ", "REQ_ERR_JSON");
    meddle("broken", "json", "{", "[{", "REQ_ERR_JSON");
    meddle("key twice", "json", "\"remark\"", "\"remark\":\"\",\"remark\"", "REQ_ERR_JSON");
    meddle("keys out of order", "json", "\"remark\"", "\"zz\":\"\",\"remark\"", "REQ_ERR_JSON");
    change("field missing", R"({"remark":null})", "REQ_ERR_FIELD");
    change("field too many", R"({"more":""})", "REQ_ERR_FIELD");
    change("another kind of field", R"({"remark":1})", "REQ_ERR_FIELD");
    change("another program", R"({"soft_version":"kv_panel_v2"})", "REQ_ERR_FIELD");
    change("another store", R"({"storeId":"405800100000000102"})", "REQ_ERR_STORE");
    change("no ids", R"({"storeId":"","compId":"","deviceId":""})", "REQ_ERR_STORE");
    change("another terminal's login", R"({"deviceId":"405800120000000002"})", "REQ_ERR_SESSION");
    meddle("no login", "wire", "TOKEN", "", "REQ_ERR_SESSION");
    change("another operator", R"({"operator":"@1101"})", "REQ_ERR_OPERATOR");
    change("another creator", R"({"creater":"@1101"})", "REQ_ERR_OPERATOR");
    meddle("not signed", "wire", "&signature=", "\n", "REQ_ERR_SIGNATURE");
    meddle("signed in another order", "sign", "token timestamp", "timestamp token", "REQ_ERR_SIGNATURE");
    meddle("quotation marks signed", "sign", "'", "\"", "REQ_ERR_SIGNATURE");
    meddle("changed on the way", "wire", "remark%22%3A%22a", "remark%22%3A%22b", "REQ_ERR_SIGNATURE");
    path = "/bba01/openMassRoom";
    change("field that may be missing", R"({"isConn":1})", "200");
    meddle("inner keys out of order", "json", "[\"", "[{\"b\":1,\"a\":2},\"", "REQ_ERR_JSON");
    change("no list", R"({"cardids":"8070"})", "REQ_ERR_FIELD");
    path = "/baa01/getHardCardList";
    change("GET", "{}", "200");
    meddle("GET with a body", "wire", "", "x", "REQ_ERR_BODY");
    meddle("parameters out of order", "wire", "&limit=1&page=1", "&page=1&limit=1", "REQ_ERR_QUERY");
    path = "/kvsystem/common/getSysApiReqUrls";
    change("line list", R"({"storeId":"","compId":"","deviceId":""})", "200");
    meddle("line list signed", "wire", "%7D\n", "%7D&signature=0123456789abcdef0123456789abcdef\n",
           "REQ_ERR_SIGNATURE");
    path = "/baa00/loginMod";
    change("login", R"({"operator":"","creater":""})", "200");
    meddle("login within a login", "wire", "POST\n", "POST\n0", "REQ_ERR_AUTHORIZATION");
    path = "/bba01/cancelRoom";
    const char* right = R"({"acode":["418838253703270403"]})";
    change("right held", right, "200");
    change("right not named", "{}", "REQ_ERR_ACODE");
    change("another right named", R"({"acode":["405759234552369154"]})", "REQ_ERR_ACODE");
    staff = "1101";
    change("right not held", right, "AUTH_ERR_0002");
    path = "/bba01/chgCleanRoom";
    change("right by a field's value", R"({"acode":["405759234552369154"]})", "200");
    change("right of its other value", R"({"isClean":0,"acode":["405759234552369154"]})", "REQ_ERR_ACODE");
    staff = "901";
    change("no right needed", R"({"isClean":2})", "200");
    change("right named for nothing", R"({"isClean":2,"acode":[]})", "REQ_ERR_ACODE");
}

void tst_house::refusals()
{
    QFETCH(QString, staff);
    QFETCH(QString, path);
    QFETCH(QByteArray, stage);
    QFETCH(QString, from);
    QFETCH(QString, to);
    logIn(staff);
    QTEST(send(path, stage, from, to), "code");
}

void tst_house::noncesAreUsedOnce()
{
    const QString post = "/bba01/setRemark";
    const QString get = "/bba01/getRoomConsList";
    const auto again = [&](const QString& path) { return --m_nonce, send(path); };
    QCOMPARE(send(post), "200");
    QVERIFY(m_house->holds.has(m_house->room("101").id, now)); // what it names is its caller's business
    QCOMPARE(again(post), "REQ_ERR_NONCE");                    // a POST is never repeated
    QCOMPARE(again(get), "REQ_ERR_NONCE");
    QCOMPARE(send(get), "200");
    QCOMPARE(again(get), "200"); // its answer got lost
    QCOMPARE((--m_nonce, send(get, "fields", "", R"({"roomId":"$102"})")), "REQ_ERR_NONCE");
    m_house->nonces.markAnswered(QString::number(m_nonce).rightJustified(32, '0').toStdString());
    QCOMPARE(again(get), "REQ_ERR_NONCE");
    // A refused request hasn't used its nonce, and one whose time is refused by now need not be kept.
    QCOMPARE(send(post, "sign", "secret"), "REQ_ERR_SIGNATURE");
    QCOMPARE(again(post), "200");
    for (const auto& [later, code] : {std::pair(600, "REQ_ERR_NONCE"), std::pair(601, "200")}) {
        m_house->time = m_timestamp = now + later;
        QCOMPARE(again(post), code);
    }
}

/// Sessions end; so does the time in which a request may be on its way.
void tst_house::sessionsEnd()
{
    const QString path = "/bba01/setRemark";
    for (const auto& [offset, code] : {std::pair(-301, "REQ_ERR_TIMESTAMP"), std::pair(-300, "200"),
                                       std::pair(300, "200"), std::pair(301, "REQ_ERR_TIMESTAMP")}) {
        m_timestamp = now + offset;
        QCOMPARE(send(path), code);
    }
    m_house->time = m_timestamp = now + 999;
    QCOMPARE(send(path), "200");
    m_house->time = m_timestamp = now + 1000;
    QCOMPARE(send(path), "REQ_ERR_SESSION");
    m_house->sessions.extend(m_session.token, now + 1001);
    QCOMPARE(send(path), "200");
}

void tst_house::supervisorMustComeHimself()
{
    logIn("1101");
    const std::string device = m_session.deviceId;
    const QString asked = R"({"acode":["418838253703270403"],"authOperater":"@%1"})";
    const auto cancel = [&](const char* supervisor) {
        return send("/bba01/cancelRoom", "fields", {}, asked.arg(supervisor));
    };
    house::Sessions& sessions = m_house->sessions;
    QCOMPARE(cancel("1002"), "REQ_ERR_SUPERVISOR");
    sessions.vouch(m_house->staff("1002").id, "another terminal", now);
    QCOMPARE(cancel("1002"), "REQ_ERR_SUPERVISOR");
    sessions.vouch(m_house->staff("1002").id, device, now - 301);
    QCOMPARE(cancel("1002"), "REQ_ERR_SUPERVISOR");
    // He comes with a login of the kind that opens no session.
    const house::Reply reply =
        m_house->ask("/baa00/loginMod", {{"workNo", "1002"}, {"pwd", "888888"}, {"type", 1}});
    QVERIFY(reply.isGood() && !reply.data->contains("token"));
    QCOMPARE(cancel("1002"), "200");
    QCOMPARE(cancel("9999"), "REQ_ERR_SUPERVISOR");
    // One who has come but lacks the right himself: another is asked for.
    sessions.vouch(m_house->staff("601").id, device, now);
    QCOMPARE(cancel("601"), "AUTH_ERR_0002");
}

/// What a role's list gives: codes, words and ids, groups of codes, less some.
void tst_house::roles()
{
    const auto count = [](const std::vector<std::string>& list) { return int(house::rightsOf(list).size()); };
    QCOMPARE(count({"*"}), 206);
    QCOMPARE(count({"0101", "PAY_CTRL", "418838253703270403", "405757793603424257"}), 3);
    QCOMPARE(count({"02*", "-0203"}), 10);
    QVERIFY_EXCEPTION_THROWN(count({"0101", "0516"}), std::runtime_error);
}

QTEST_GUILESS_MAIN(tst_house)
#include "tst_house.moc"
