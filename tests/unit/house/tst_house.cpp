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
    /// The code that a request gets that is right for its path, but for a change at a stage of its making:
    /// "from > to" in the "json", in what is signed ("sign"), or in what travels ("wire"), at its end where
    /// nothing is named; with "fields", the fields that differ, null taking one away.
    QString send(const QString& path, const QString& stage = {}, QString change = {});

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

QString tst_house::send(const QString& path, const QString& stage, QString change)
{
    static const std::map<QString, QString> fields = {
        {"/bba01/setRemark", R"({"id":"$101","remark":"a \"b\""})"},
        {"/bba01/openMassRoom", R"({"id":"$112","cardids":["#8070"],"hours":1})"},
        {"/baa01/getHardCardList", R"({"status":1})"},
        {"/kvsystem/common/getSysApiReqUrls",
         R"({"type":2,"tAuthCode":"KV-DEMO-0001","operator":null,"creater":null})"},
        {"/baa00/loginMod", R"({"modCode":"ROOMINFO_CTRL","workNo":"1001","pwd":"1001"})"},
        {"/bba01/chgCleanRoom", R"({"id":"$112","isClean":1})"},
        {"/bba01/cancelRoom", R"({"id":"$101","authType":2})"},
    };
    change.replace("TOKEN", m_session.token.c_str()).replace("\\n", "\n");
    const auto meddle = [&](const char* place, const QString& text) {
        const QString from = change.section(" > ", 0, 0);
        const int at = from.isEmpty() ? text.size() : text.indexOf(from);
        if (stage == place && at < 0)
            qFatal("no %s in %s", qPrintable(from), qPrintable(text));
        return stage == place ? QString(text).replace(at, from.size(), change.section(" > ", 1)) : text;
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
    if (stage == "fields")
        body.merge_patch(m_house->filled(change));
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

// Who asks, and for what; the stage; the code; the changes, each in a request of its own.
void tst_house::refusals_data()
{
    QTest::addColumn<QStringList>("cells");
    const QString table = R"(
1001 /bba01/setRemark | wire | REQ_ERR_METHOD | POST > GET
1001 /bba01/setRemark | wire | REQ_ERR_CONTENT_TYPE | ;charset=UTF-8
1001 /bba01/setRemark | wire | REQ_ERR_QUERY | ?timestamp > ?nonce=1&timestamp | &nonce > &once
1001 /bba01/setRemark | wire | REQ_ERR_TIMESTAMP | timestamp= > timestamp=+
1001 /bba01/setRemark | fields | REQ_ERR_TIMESTAMP | {"ts":"1770000001"}
1001 /bba01/setRemark | fields | REQ_ERR_NONCE | {"nc":"0"}
1001 /bba01/setRemark | wire | REQ_ERR_NONCE | nonce=0 > nonce= | nonce=0 > nonce=A
1001 /bba01/setRemark | wire | REQ_ERR_ENCODING | %7B > %7b | %7B > { | kv_panel > kv%5Fpanel
1001 /bba01/setRemark | json | REQ_ERR_JSON | ,"nc > , "nc | { > [{ | "remark" > "remark":"","remark" | "remark" > "zz":"","remark"
1001 /bba01/setRemark | fields | REQ_ERR_FIELD | {"remark":null} | {"more":""} | {"remark":1} | {"soft_version":"kv_panel_v2"}
1001 /bba01/setRemark | fields | REQ_ERR_STORE | {"storeId":"405800100000000102"} | {"storeId":"","compId":"","deviceId":""}
1001 /bba01/setRemark | fields | REQ_ERR_SESSION | {"deviceId":"405800120000000002"}
1001 /bba01/setRemark | wire | REQ_ERR_SESSION | TOKEN
1001 /bba01/setRemark | fields | REQ_ERR_OPERATOR | {"operator":"@1101"} | {"creater":"@1101"}
1001 /bba01/setRemark | wire | REQ_ERR_SIGNATURE | &signature= > \n | remark%22%3A%22a > remark%22%3A%22b
1001 /bba01/setRemark | sign | REQ_ERR_SIGNATURE | token timestamp > timestamp token | ' > "
1001 /bba01/openMassRoom | fields | 200 | {"isConn":1}
1001 /bba01/openMassRoom | json | REQ_ERR_JSON | [" > [{"b":1,"a":2},"
1001 /bba01/openMassRoom | fields | REQ_ERR_FIELD | {"cardids":"8070"}
1001 /baa01/getHardCardList | wire | REQ_ERR_BODY |  > x
1001 /baa01/getHardCardList | wire | REQ_ERR_QUERY | &limit=1&page=1 > &page=1&limit=1
1001 /kvsystem/common/getSysApiReqUrls | fields | 200 | {"storeId":"","compId":"","deviceId":""}
1001 /kvsystem/common/getSysApiReqUrls | wire | REQ_ERR_SIGNATURE | %7D\n > %7D&signature=0123456789abcdef0123456789abcdef\n
1001 /baa00/loginMod | fields | 200 | {"operator":"","creater":""}
1001 /baa00/loginMod | wire | REQ_ERR_AUTHORIZATION | POST\n > POST\n0
1001 /bba01/cancelRoom | fields | 200 | {"acode":["418838253703270403"]}
1001 /bba01/cancelRoom | fields | REQ_ERR_ACODE | {} | {"acode":["405759234552369154"]}
1101 /bba01/cancelRoom | fields | AUTH_ERR_0002 | {"acode":["418838253703270403"]}
1101 /bba01/chgCleanRoom | fields | 200 | {"acode":["405759234552369154"]}
1101 /bba01/chgCleanRoom | fields | REQ_ERR_ACODE | {"isClean":0,"acode":["405759234552369154"]}
901 /bba01/chgCleanRoom | fields | 200 | {"isClean":2}
901 /bba01/chgCleanRoom | fields | REQ_ERR_ACODE | {"isClean":2,"acode":[]}
)";
    for (const QString& row : table.trimmed().split('\n'))
        QTest::newRow(qPrintable(row)) << row.split(" | ");
}

void tst_house::refusals()
{
    QFETCH(QStringList, cells);
    logIn(cells.at(0).section(' ', 0, 0));
    for (const QString& change : cells.mid(3))
        QCOMPARE(change + send(cells.at(0).section(' ', 1), cells.at(1), change), change + cells.at(2));
}

void tst_house::noncesAreUsedOnce()
{
    const QString post = "/bba01/setRemark";
    const QString get = "/baa01/getHardCardList";
    const auto again = [&](const QString& path) { return --m_nonce, send(path); };
    QCOMPARE(send(post), "200");
    QVERIFY(m_house->holds.has(m_house->room("101").id, now)); // what it names is its caller's business
    QCOMPARE(again(post), "REQ_ERR_NONCE");                    // a POST is never repeated
    QCOMPARE(again(get), "REQ_ERR_NONCE");
    QCOMPARE(send(get), "200");
    QCOMPARE(again(get), "200"); // its answer got lost
    QCOMPARE((--m_nonce, send(get, "fields", R"({"status":2})")), "REQ_ERR_NONCE");
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
    const QString asked = R"({"acode":["418838253703270403"],"authOperater":"@%1"})";
    const auto cancel = [&](const char* supervisor) {
        return send("/bba01/cancelRoom", "fields", asked.arg(supervisor));
    };
    house::Sessions& sessions = m_house->sessions;
    QCOMPARE(cancel("1002"), "REQ_ERR_SUPERVISOR");
    sessions.vouch(m_house->staff("1002").id, "another terminal", now);
    QCOMPARE(cancel("1002"), "REQ_ERR_SUPERVISOR");
    sessions.vouch(m_house->staff("1002").id, m_session.deviceId, now - 301);
    QCOMPARE(cancel("1002"), "REQ_ERR_SUPERVISOR");
    // He comes with a login of the kind that opens no session.
    const house::Reply reply =
        m_house->ask("/baa00/loginMod", {{"workNo", "1002"}, {"pwd", "888888"}, {"type", 1}});
    QVERIFY(reply.isGood() && !reply.data->contains("token"));
    QCOMPARE(cancel("1002"), "200");
    QCOMPARE(cancel("9999"), "REQ_ERR_SUPERVISOR");
    // One who has come but lacks the right himself: another is asked for.
    sessions.vouch(m_house->staff("601").id, m_session.deviceId, now);
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
