#include "common/Clock.h"
#include "common/DlgManager.h"
#include "common/GlobalConfig.h"
#include "common/QmlEventLoop.h"
#include "common/RightsTables.h"
#include "net/NetServer.h"
#include "net/RequestText.h"
#include "services/Baa00Service.h"
#include "services/Reply.h"
#include "support/HouseProcess.h"
#include "support/Rows.h"

#include <QJsonDocument>
#include <QMetaEnum>
#include <QTimer>

namespace {

const QString keepLogin = "/baa00/keepLogin";
const QString sysInit = "/baa00/getSysInitByAuthCode";
const QString secretKey = "demo-secret-key-0001";

GlobalConfig* config() { return GlobalConfig::getInstance(); }

Reply<ApiRes> post()
{
    const BaseRequest request{NetMethod::Post, keepLogin, {}, {}, {}};
    return held(NetWorkUtls::NetServer(false, nullptr).api<ApiRes>(request));
}

QString callPost() { return post()->code(); }

QString callGet() { return held(Baa00Service::getInstance()->getSysInitByAuthCode(secretKey))->code(); }

QJsonObject parse(const QByteArray& text) { return QJsonDocument::fromJson(text).object(); }

QJsonObject sentIn(const QJsonValue& request) { return request.toObject().value("json").toObject(); }

/// Whether an event gets through to the object that it is for.
bool arrives(QEvent::Type type)
{
    struct Receiver : QObject
    {
        bool hasIt = false;
        bool event(QEvent*) override { return hasIt = true; }
    } receiver;
    QEvent event(type);
    QCoreApplication::sendEvent(&receiver, &event);
    return receiver.hasIt;
}

using RequestRows = Rows<bool, QString, QString, QString>;
using EnvelopeRows = Rows<QByteArray, QString, QString, bool>;
/// Codes are of the code table, or the id of a right without one.
using RightRows = Rows<QString, QByteArray, QStringList>;

} // namespace

/// The signed call against the demo back end.
class tst_engine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_house.isReady() && config()->initLibcurl()); }
    void init()
    {
        config()->setApiUrl(m_house.url());
        const auto reply = held(Baa00Service::getInstance()->loginMod(
            {{"workNo", "1001"}, {"pwd", "1001"}, {"modCode", "ROOMINFO_CTRL"}}, secretKey));
        QVERIFY2(reply->data(), qPrintable(reply->code() + reply->msg()));
        config()->setToken(reply->data()->token());
        config()->setSecret(reply->data()->secret());
        config()->userInfo()->update(reply->data()->userInfo());
        m_house.reset();
    }
    void cleanup()
    {
        m_house.reset();
        Clock::setSource(nullptr);
        for (const auto set : {&GlobalConfig::setToken, &GlobalConfig::setSecret, &GlobalConfig::setStoreId,
                               &GlobalConfig::setCompId, &GlobalConfig::setDeviceId})
            (config()->*set)({});
        UserDto nobody;
        config()->userInfo()->update(&nobody);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void requestText_data()
    {
        RequestRows::add({{"GET", false, "/x", "", R"("operator":"",)"},
                          {"POST", true, "/x", "77", R"("operator":"77",)"},
                          {"without operator", false, "/bca01/getHelpCallBashApiLogPageList", "77", ""}});
    }
    void requestText()
    {
        const auto& [name, isPost, path, staffId, operatorField] = RequestRows::current();
        Clock::setSource([] { return Q_INT64_C(1770000000999); });
        config()->setApiUrl("https://line.example");
        config()->setStoreId("s");
        config()->setCompId("c");
        config()->setDeviceId("d");
        config()->setSecret(isPost ? "geheim" : "");
        config()->setToken("token");
        config()->userInfo()->set_staffId(staffId);
        BaseRequest request;
        request.method = isPost ? NetMethod::Post : NetMethod::Get;
        request.url = path;
        request.data = {{"房", "a \"b"}, {"tcode", 7}}; // a call's own data wins
        if (!isPost)
            request.params = {{"page", "1"}, {"limit", "2"}, {"z", "a b"}};

        const RequestText text = signedRequestText(request, requestTimestamp(), "0123");
        const QString json =
            QString("{"
                    R"("compId":"c","creater":"%1","deviceId":"d","nc":"0123",%2"soft_version":"kv_panel_v3",)"
                    R"("storeId":"s","tcode":7,"ts":"1770000000","房":)"
                    "\"a \\\"b\"}")
                .arg(staffId, operatorField);
        QCOMPARE(text.json, json);
        const QString encoded = QString::fromLatin1(json.toUtf8().toPercentEncoding());
        QCOMPARE(text.body, "data=" + encoded);
        const QString base = "https://line.example" + path + "?timestamp=1770000000&nonce=0123";
        // By: printf '%s' "<token, time, nonce, text, secret; double quotes made single>" | md5sum
        const QString post = base + "&signature=b244f2de11044cf3324b892c0a61c5dd";
        QCOMPARE(text.url, isPost ? post : base + "&data=" + encoded + "&limit=2&page=1&z=a b");
        QCOMPARE(text.logUrl, isPost ? base : base + "&data=" + json);
    }
    void nonces()
    {
        const auto lastNonce = [this](const QString& path) {
            return sentIn(m_house.lastRequest(path)).value("nc").toString();
        };
        QSet<QString> seen;
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(callPost(), QString("200"));
            const QString next = config()->postNonce();
            QCOMPARE(next.size(), 32);
            callGet();
            const QString got = lastNonce(sysInit);
            // Any exchange renews it, and a GET takes another.
            QCOMPARE(QSet<QString>({next, got, config()->postNonce()}).size(), 3);
            seen << got << lastNonce(keepLogin);
        }
        QCOMPARE(seen.size(), 8);
        const QString fixed(32, 'f');
        config()->setPostNonce(fixed);
        callPost();
        QCOMPARE(lastNonce(keepLogin), fixed);
    }

    void envelope_data()
    {
        EnvelopeRows::add(
            {{"success", R"({"code":"200","msg":"好","data":{"token":"t"}})", "200", "好", true},
             {"null data", R"({"code":"200","msg":"m","data":null})", "200", "m", false},
             {"no data", R"({"code":"200","msg":"m"})", "200", "m", false},
             {"refusal with data", R"({"code":"X_1","msg":"不行","data":{}})", "X_1", "不行", true},
             {"number as code", R"({"code":200})", "", "", false},
             {"data is a list", R"({"code":"200","data":[1]})", "200", "", false},
             {"text without end", "{\"code\":\"X\",\"msg\":\"" + QByteArray(100000, 'x') + "\"}", "X",
              QString(1000, 'x'), false},
             {"empty", "{}", "", "", false}});
    }
    void envelope()
    {
        const auto& [name, body, code, msg, hasData] = EnvelopeRows::current();
        m_house.answer("/baa00/loginMod", parse(body));
        const auto reply = held(Baa00Service::getInstance()->loginMod({}, secretKey));
        QCOMPARE(reply->code(), code);
        QCOMPARE(reply->msg(), msg);
        QCOMPARE(reply->data() != nullptr, hasData);
        QCOMPARE(reply->authId(), QString());
    }
    void oddBodies()
    {
        const QMap<QString, QString> codes{{"garbage", ""}, {"http500", "SYS_ERR_0500"}, {"http500-ok", "200"}};
        for (auto it = codes.begin(); it != codes.end(); ++it) {
            m_house.fault(keepLogin, it.key());
            QCOMPARE(callPost(), it.value());
        }
        // A reply that matters by its code alone isn't filled from the payload's own fields.
        m_house.reset();
        m_house.answer(keepLogin, parse(R"({"code":"200","authId":"9","data":{"authNo":"1"}})"));
        const auto reply = post();
        QCOMPARE(reply->code() + reply->authId() + reply->authNo(), QString("200"));
    }

    void nestedCalls()
    {
        m_house.fault(keepLogin, "delay", 200);
        QStringList ends;
        QTimer::singleShot(50, this, [&] { ends.append("inner " + callPost()); });
        ends.append("outer " + callPost());
        QCOMPARE(ends, (QStringList{"inner 200", "outer 200"}));
        QCOMPARE(m_house.executed(keepLogin), 2);
    }
    void supervisorRetry()
    {
        const QJsonObject refusal{{"code", "AUTH_ERR_0002"}, {"msg", "需要授权"}};
        m_house.answer(keepLogin, refusal, 2);
        int asked = 0;
        const auto dialog = connect(DlgManager::getInstance(), &DlgManager::authSignal, this, [&] {
            DlgManager::getInstance()->authResult(QString::number(++asked), "88", "张经理");
        });
        const auto reply = post();
        disconnect(dialog);
        QCOMPARE(asked, 2);
        QCOMPARE((QStringList{reply->code(), reply->authId(), reply->authNo(), reply->authName()}),
                 (QStringList{"200", "2", "88", "张经理"}));
        QStringList sent;
        for (const QJsonValue request : m_house.requests(keepLogin))
            sent.append(sentIn(request).value("authOperater").toString("none"));
        QCOMPARE(sent, (QStringList{"none", "1", "2"}));
        QCOMPARE(sentIn(m_house.lastRequest(keepLogin)).value("operator").toString(),
                 config()->userInfo()->staffId());

        m_house.reset();
        m_house.answer(keepLogin, refusal);
        const auto cancelled = post();
        QCOMPARE(cancelled->code() + cancelled->msg() + cancelled->authId(), QString("AUTH_ERR_0002需要授权"));
        QCOMPARE(m_house.requests(keepLogin).size(), 1);
    }
    void applicationEndsDuringACall()
    {
        m_house.fault(sysInit, "hang");
        QString code;
        QTimer::singleShot(0, this, [&] {
            QTimer::singleShot(100, qApp, &QCoreApplication::quit);
            code = callGet();
        });
        QElapsedTimer timer;
        timer.start();
        QCoreApplication::exec();
        QVERIFY(!code.isEmpty() && code != "200");
        QVERIFY(timer.elapsed() < 10000); // far below the 30 s that the exchange may take
    }

    void inputIsDropped()
    {
        const auto lost = [] {
            QString names;
            const QMetaEnum types = QMetaEnum::fromType<QEvent::Type>();
            for (int i = 0; i < types.keyCount(); ++i)
                names += arrives(QEvent::Type(types.value(i))) ? "" : QByteArray(types.key(i)) + ' ';
            return names;
        };
        QString duringACall;
        m_house.fault(sysInit, "delay", 200);
        QTimer::singleShot(50, this, [&] { duringACall = lost(); });
        QCOMPARE(callGet(), QString("200"));
        QCOMPARE(duringACall,
                 QString("MouseButtonPress MouseButtonRelease MouseButtonDblClick KeyPress KeyRelease "
                         "Enter Leave Wheel HoverEnter HoverLeave HoverMove TouchBegin TouchUpdate "
                         "TouchEnd TouchCancel "));
        QCOMPARE(lost(), QString());
    }
    void dialogDuringACallStaysUsable()
    {
        QString taps;
        const auto tap = [&] { taps += arrives(QEvent::MouseButtonPress) ? '+' : '-'; };
        m_house.fault(sysInit, "delay", 300);
        QTimer::singleShot(20, this, [&] {
            QmlEventLoop dialog;
            // Outlives the outer exchange, so that only the dialog itself can let the tap in.
            QTimer::singleShot(100, &dialog, [&] {
                tap();
                QTimer::singleShot(50, &dialog, tap);
                callGet(); // of the dialog's own
                tap();
                dialog.finish();
            });
            dialog.execLoop();
            tap();
        });
        QCOMPARE(callGet(), QString("200"));
        QVERIFY2(taps.startsWith("+-+") && taps.size() == 4, qPrintable(taps));
    }

    void rightsOfACall_data()
    {
        const QString order = "/bca01/batchUpdateOrder";
        const QString clean = "/bba01/chgCleanRoom";
        RightRows::add({
            {"no rules, the caller's goes out", "/bba01/getRoomList", R"({"acode":["x"]})", {"x"}},
            {"always", "/bda02/endServer", "{}", {"0304"}},
            {"number", clean, R"({"isClean":0})", {"0115"}},
            {"text", clean, R"({"isClean":"1"})", {"0114"}},
            {"true", clean, R"({"isClean":true})", {"0114"}},
            {"fraction", clean, R"({"isClean":1.9})", {"0114"}},
            {"too large for an int", "/bda02/punchRecord", R"({"punchStatus":4294967297})", {}},
            {"no rule's value", clean, R"({"isClean":2})", {}},
            {"null", clean, R"({"isClean":null})", {}},
            {"two fields", order, R"({"isNormal":1,"mode":0})", {"0201"}},
            {"second differs", order, R"({"isNormal":1,"mode":2})", {}},
            {"several, in the list's order", order, R"({"isDel":1,"isNormal":1,"mode":0})", {"0201", "0202"}},
            {"two values", "/bea01/settleAccount", R"({"type":10,"payType":13})", {"0502", "0533"}},
            {"stale ones go", clean, R"({"acode":["1"],"isClean":1})", {"0114"}},
            {"stale ones go without a match", clean, R"({"acode":["1"]})", {}},
        });
    }
    void rightsOfACall()
    {
        const auto& [name, path, data, codes] = RightRows::current();
        QJsonObject sent = parse(data);
        QJsonObject expected = sent;
        expected.remove("acode");
        QJsonArray ids;
        for (const QString& code : codes)
            ids.append(Rights::codeTable().key(code, code));
        if (!ids.isEmpty())
            expected.insert("acode", ids);
        NetWorkUtls::NetServer::chechAuth(path, sent);
        QCOMPARE(sent, expected);
    }

private:
    HouseProcess m_house;
};

QTEST_GUILESS_MAIN(tst_engine)
#include "tst_engine.moc"
