#include "common/Clock.h"
#include "common/DlgManager.h"
#include "common/GlobalConfig.h"
#include "net/NetServer.h"
#include "net/Nonce.h"
#include "net/RequestText.h"
#include "services/Baa00Service.h"
#include "services/Reply.h"
#include "support/HouseProcess.h"

#include <QJsonArray>
#include <QPointer>
#include <QTimer>
#include <QtTest>

#include <memory>

namespace {

const QString keepLogin = QStringLiteral("/baa00/keepLogin");
const QString rights = QStringLiteral("/baa00/getAuthInfoByCodes");
const QString secretKey = QStringLiteral("demo-secret-key-0001");

GlobalConfig* config() { return GlobalConfig::getInstance(); }

Reply<GetAuthInfoByCode> callKeepLogin()
{
    return Reply<GetAuthInfoByCode>(Baa00Service::getInstance()->keepLogin());
}

} // namespace

class tst_engine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void requestText_data();
    void requestText();
    void callDataReplacesCommonFields();
    void lineRequest();
    void signature_data();
    void signature();
    void signedByALogin();
    void nonces();
    void valuesAsText_data();
    void valuesAsText();
    void envelope_data();
    void envelope();
    void replyWithoutData();
    void oddBodies_data();
    void oddBodies();
    void nestedCalls();
    void supervisorRetry();
    void supervisorCancelled();
    void applicationEndsDuringACall();

private:
    void login();

    std::unique_ptr<HouseProcess> m_house;
};

void tst_engine::initTestCase()
{
    m_house.reset(new HouseProcess);
    QVERIFY(m_house->isReady());
    QVERIFY(config()->initLibcurl());
}

void tst_engine::init()
{
    m_house->reset();
    config()->setApiUrl(m_house->url());
}

void tst_engine::cleanup()
{
    Clock::setSource(nullptr);
    Nonce::setSource(nullptr);
    config()->setToken({});
    config()->setSecret({});
    config()->setStoreId({});
    UserDto nobody;
    config()->userInfo()->update(&nobody);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void tst_engine::login()
{
    const Reply<LoginMod> reply(Baa00Service::getInstance()->loginMod(
        {{"workNo", "1001"}, {"pwd", "1001"}, {"modCode", "ROOMINFO_CTRL"}}, secretKey));
    QVERIFY2(reply->data(), qPrintable(reply->code() + reply->msg()));
    config()->setToken(reply->data()->token());
    config()->setSecret(reply->data()->secret());
    config()->userInfo()->update(reply->data()->userInfo());
}

void tst_engine::requestText_data()
{
    QTest::addColumn<bool>("isPost");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("staffId");
    QTest::addColumn<QString>("secret");
    QTest::addColumn<QString>("json");
    QTest::addColumn<QString>("query");

    const QString common =
        QStringLiteral("\"compId\":\"\",\"creater\":\"%1\",\"deviceId\":\"\",\"nc\":\"0123\",%2");
    const QString tail = QStringLiteral(
        "\"soft_version\":\"kv_panel_v3\",\"storeId\":\"\",\"tcode\":\"5\",\"ts\":\"1770000000\"");
    QTest::newRow("GET") << false << "/bba01/getRoomList"
                         << ""
                         << ""
                         << "{" + common.arg("", "\"operator\":\"\",") + tail + ",\"房\":\"a b\"}"
                         << "";
    QTest::newRow("POST, logged in") << true << "/bba01/setRemark"
                                     << "77"
                                     << "geheim"
                                     << "{" + common.arg("77", "\"operator\":\"77\",") + tail +
                                            ",\"房\":\"a b\"}"
                                     << "";
    QTest::newRow("GET without operator") << false << "/bca01/getHelpCallBashApiLogPageList"
                                          << "77"
                                          << ""
                                          << "{" + common.arg("77", "") + tail + ",\"房\":\"a b\"}"
                                          << "&limit=200&page=1&z=a b";
}

void tst_engine::requestText()
{
    QFETCH(bool, isPost);
    QFETCH(QString, path);
    QFETCH(QString, staffId);
    QFETCH(QString, secret);
    QFETCH(QString, json);
    QFETCH(QString, query);

    Clock::setSource([] { return Q_INT64_C(1770000000999); });
    config()->setApiUrl(QStringLiteral("https://line.example"));
    config()->setSecret(secret);
    config()->setToken(QStringLiteral("token"));
    config()->userInfo()->set_staffId(staffId);
    BaseRequest request;
    request.method = isPost ? NetMethod::Post : NetMethod::Get;
    request.url = path;
    request.data = {{QStringLiteral("房"), QStringLiteral("a b")}};
    if (!query.isEmpty())
        request.params = {{"page", "1"}, {"limit", "200"}, {"z", "a b"}};

    const RequestText text = signedRequestText(request, requestTimestamp(), QStringLiteral("0123"));
    QCOMPARE(text.json, json);
    const QString encoded = QString::fromLatin1(json.toUtf8().toPercentEncoding());
    QCOMPARE(text.body, "data=" + encoded);
    QVERIFY(encoded.contains(QStringLiteral("%22%E6%88%BF%22%3A%22a%20b%22%7D")));
    const QString base = "https://line.example" + path + "?timestamp=1770000000&nonce=0123";
    QString url = base + (isPost ? QString() : "&data=" + encoded) + query;
    if (!secret.isEmpty()) {
        const QByteArray signedText =
            QString("token17700000000123" + json + secret).replace('"', '\'').toUtf8();
        url += "&signature=" + QCryptographicHash::hash(signedText, QCryptographicHash::Md5).toHex();
    }
    QCOMPARE(text.url, url);
    QCOMPARE(text.logUrl, base + (isPost ? QString() : "&data=" + json));
}

void tst_engine::callDataReplacesCommonFields()
{
    BaseRequest request;
    request.data = {{"storeId", "other"}, {"tcode", 7}};
    const QString json = signedRequestText(request, "1", "n").json;
    QVERIFY(json.contains(QStringLiteral("\"storeId\":\"other\",\"tcode\":7")));
}

void tst_engine::lineRequest()
{
    config()->setSecret(QStringLiteral("secret"));
    BaseRequest request;
    request.url = QStringLiteral("/kvsystem/common/getSysApiReqUrls");
    request.data = {{"type", 2}, {"tAuthCode", "KV"}};
    const RequestText text = lineRequestText(QStringLiteral("http://one"), request, "5", "n");
    QCOMPARE(text.json,
             QStringLiteral("{\"compId\":\"\",\"deviceId\":\"\",\"nc\":\"n\",\"soft_version\":\"kv_panel_v3\","
                            "\"storeId\":\"\",\"tAuthCode\":\"KV\",\"tcode\":\"5\",\"ts\":\"5\",\"type\":2}"));
    QVERIFY(text.url.startsWith(
        QStringLiteral("http://one/kvsystem/common/getSysApiReqUrls?timestamp=5&nonce=n&data=%7B")));
    QVERIFY(!text.url.contains(QStringLiteral("signature")));
}

void tst_engine::signature_data()
{
    QTest::addColumn<QStringList>("parts");
    QTest::addColumn<QString>("expected");
    // By: printf '%s' "<the parts, double quotes made single>" | md5sum
    QTest::newRow("plain") << QStringList{"tok", "1700000000", "abc", "{\"a\":1}", "sec"}
                           << "9a00468a30b2d731fe5c5e80760ae96c";
    QTest::newRow("escaped quote and Chinese")
        << QStringList{"tok", "1700000000", "abc", "{\"a\":\"茶\\\"水\"}", "sec"}
        << "a4dc9ba826f187ae8a84a1c332912280";
}

void tst_engine::signature()
{
    QFETCH(QStringList, parts);
    QFETCH(QString, expected);
    QCOMPARE(NetWorkUtls::NetServer::Auth(parts[0], parts[1], parts[2], parts[3], parts[4]), expected);
}

void tst_engine::signedByALogin()
{
    login();
    QCOMPARE(callKeepLogin()->code(), QStringLiteral("200"));
    const QJsonObject sent = m_house->lastRequest(keepLogin);
    QVERIFY(sent.value("target").toString().contains(QStringLiteral("&signature=")));

    // A wrong secret is found out: the signature really is over it.
    config()->setSecret(QStringLiteral("wrong"));
    QVERIFY(callKeepLogin()->code() != QLatin1String("200"));
}

void tst_engine::nonces()
{
    login();
    m_house->reset();
    QSet<QString> seen;
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(callKeepLogin()->code(), QStringLiteral("200"));
        const QString next = config()->postNonce();
        QCOMPARE(next.size(), 32);
        Reply<GetSysInitByAuthCode>(Baa00Service::getInstance()->getSysInitByAuthCode(secretKey));
        QVERIFY(config()->postNonce() != next); // any exchange renews it, and a GET takes another
        const QString got = m_house->lastRequest(QStringLiteral("/baa00/getSysInitByAuthCode"))
                                .value("json")
                                .toObject()
                                .value("nc")
                                .toString();
        QVERIFY(got != next && got != config()->postNonce());
        seen << got << m_house->lastRequest(keepLogin).value("json").toObject().value("nc").toString();
    }
    QCOMPARE(seen.size(), 8);

    config()->setPostNonce(QStringLiteral("0123456789abcdef0123456789abcdef"));
    callKeepLogin();
    QCOMPARE(m_house->lastRequest(keepLogin).value("json").toObject().value("nc").toString(),
             QStringLiteral("0123456789abcdef0123456789abcdef"));
}

void tst_engine::valuesAsText_data()
{
    QTest::addColumn<QJsonValue>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("string") << QJsonValue("ab") << "ab";
    QTest::newRow("true") << QJsonValue(true) << "1";
    QTest::newRow("false") << QJsonValue(false) << "0";
    QTest::newRow("number") << QJsonValue(3) << "3";
    QTest::newRow("fraction") << QJsonValue(3.9) << "3";
    QTest::newRow("null") << QJsonValue(QJsonValue::Null) << "";
    QTest::newRow("array") << QJsonValue(QJsonArray{1}) << "";
    QTest::newRow("missing") << QJsonValue(QJsonValue::Undefined) << "";
}

void tst_engine::valuesAsText()
{
    QFETCH(QJsonValue, value);
    QFETCH(QString, text);
    QJsonObject json;
    if (!value.isUndefined())
        json.insert("k", value);
    QCOMPARE(NetWorkUtls::NetServer::jsonVal2Str(json, QStringLiteral("k")), text);
}

void tst_engine::envelope_data()
{
    QTest::addColumn<QJsonValue>("body");
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("msg");
    QTest::addColumn<bool>("hasData");
    QTest::newRow("success") << QJsonValue(QJsonObject{
                                    {"code", "200"}, {"msg", "好"}, {"data", QJsonObject{{"token", "t"}}}})
                             << "200"
                             << "好" << true;
    QTest::newRow("null data") << QJsonValue(
                                      QJsonObject{{"code", "200"}, {"msg", ""}, {"data", QJsonValue::Null}})
                               << "200"
                               << "" << false;
    QTest::newRow("no data") << QJsonValue(QJsonObject{{"code", "200"}, {"msg", "m"}}) << "200"
                             << "m" << false;
    QTest::newRow("refusal with data")
        << QJsonValue(QJsonObject{{"code", "X_1"}, {"msg", "不行"}, {"data", QJsonObject{}}}) << "X_1"
        << "不行" << true;
    QTest::newRow("number as code") << QJsonValue(QJsonObject{{"code", 200}}) << ""
                                    << "" << false;
    QTest::newRow("data is a list") << QJsonValue(QJsonObject{{"code", "200"}, {"data", QJsonArray{1}}})
                                    << "200"
                                    << "" << false;
    QTest::newRow("empty object") << QJsonValue(QJsonObject{}) << ""
                                  << "" << false;
}

void tst_engine::envelope()
{
    QFETCH(QJsonValue, body);
    QFETCH(QString, code);
    QFETCH(QString, msg);
    QFETCH(bool, hasData);
    m_house->answer(QStringLiteral("/baa00/loginMod"), body);
    const Reply<LoginMod> reply(Baa00Service::getInstance()->loginMod({}, secretKey));
    QCOMPARE(reply->code(), code);
    QCOMPARE(reply->msg(), msg);
    QCOMPARE(reply->data() != nullptr, hasData);
    QCOMPARE(reply->authId(), QString());
}

void tst_engine::replyWithoutData()
{
    // A reply that matters by its code alone isn't filled from the payload's own fields.
    m_house->answer(keepLogin,
                    QJsonObject{{"code", "200"}, {"authId", "9"}, {"data", QJsonObject{{"authNo", "1"}}}});
    const Reply<ApiRes> reply(
        NetWorkUtls::NetServer(false, nullptr).api<ApiRes>({NetMethod::Post, keepLogin, {}, {}, {}}));
    QCOMPARE(reply->code(), QStringLiteral("200"));
    QCOMPARE(reply->authId(), QString());
    QCOMPARE(reply->authNo(), QString());
}

void tst_engine::oddBodies_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("code");
    QTest::newRow("not JSON") << "garbage"
                              << "";
    QTest::newRow("HTTP 500 with JSON") << "http500"
                                        << "SYS_ERR_0500";
    QTest::newRow("HTTP 500, true answer") << "http500-ok"
                                           << "200";
}

void tst_engine::oddBodies()
{
    QFETCH(QString, kind);
    QFETCH(QString, code);
    login();
    m_house->fault(keepLogin, kind);
    QCOMPARE(callKeepLogin()->code(), code);
}

void tst_engine::nestedCalls()
{
    login();
    m_house->reset();
    m_house->fault(keepLogin, QStringLiteral("delay"), 200);
    QStringList ends;
    QTimer::singleShot(50, this, [&] {
        QCOMPARE(callKeepLogin()->code(), QStringLiteral("200"));
        ends.append(QStringLiteral("inner"));
    });
    QCOMPARE(callKeepLogin()->code(), QStringLiteral("200"));
    ends.append(QStringLiteral("outer"));
    QCOMPARE(ends, (QStringList{"inner", "outer"}));
    QCOMPARE(m_house->executed(keepLogin), 2);
}

void tst_engine::supervisorRetry()
{
    login();
    m_house->reset();
    m_house->answer(keepLogin, QJsonObject{{"code", "AUTH_ERR_0002"}, {"msg", "需要授权"}}, 2);
    int asked = 0;
    const auto dialog = connect(DlgManager::getInstance(), &DlgManager::authSignal, this, [&] {
        ++asked;
        DlgManager::getInstance()->authResult(QString::number(asked), QStringLiteral("88"),
                                              QStringLiteral("张经理"));
    });
    const Reply<GetAuthInfoByCode> reply = callKeepLogin();
    disconnect(dialog);
    QCOMPARE(asked, 2);
    QCOMPARE(reply->code(), QStringLiteral("200"));
    QCOMPARE(reply->authId(), QStringLiteral("2"));
    QCOMPARE(reply->authNo(), QStringLiteral("88"));
    QCOMPARE(reply->authName(), QStringLiteral("张经理"));
    const QJsonArray sent = m_house->requests(keepLogin);
    QCOMPARE(sent.size(), 3);
    QVERIFY(!sent[0].toObject().value("json").toObject().contains("authOperater"));
    QCOMPARE(sent[1].toObject().value("json").toObject().value("authOperater").toString(), QStringLiteral("1"));
    QCOMPARE(sent[2].toObject().value("json").toObject().value("authOperater").toString(), QStringLiteral("2"));
    QCOMPARE(sent[2].toObject().value("json").toObject().value("operator").toString(),
             config()->userInfo()->staffId());
}

void tst_engine::supervisorCancelled()
{
    login();
    m_house->reset();
    m_house->answer(keepLogin, QJsonObject{{"code", "AUTH_ERR_0002"}, {"msg", "需要授权"}});
    const Reply<GetAuthInfoByCode> reply = callKeepLogin();
    QCOMPARE(reply->code(), QStringLiteral("AUTH_ERR_0002"));
    QCOMPARE(reply->msg(), QStringLiteral("需要授权"));
    QCOMPARE(reply->authId(), QString());
    QCOMPARE(m_house->requests(keepLogin).size(), 1);
}

void tst_engine::applicationEndsDuringACall()
{
    m_house->fault(QStringLiteral("/baa00/getSysInitByAuthCode"), QStringLiteral("hang"));
    QString code;
    QTimer::singleShot(0, this, [&] {
        QTimer::singleShot(100, qApp, &QCoreApplication::quit);
        code =
            Reply<GetSysInitByAuthCode>(Baa00Service::getInstance()->getSysInitByAuthCode(secretKey))->code();
    });
    QElapsedTimer timer;
    timer.start();
    QCoreApplication::exec();
    QVERIFY(!code.isEmpty() && code != QLatin1String("200"));
    QVERIFY(timer.elapsed() < 10000); // far below the 30 s that the exchange may take
}

QTEST_GUILESS_MAIN(tst_engine)
#include "tst_engine.moc"
