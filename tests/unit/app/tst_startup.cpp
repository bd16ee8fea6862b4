#include "support/DeadEndpoint.h"
#include "support/HouseProcess.h"

#include <QDir>
#include <QJsonDocument>
#include <QSettings>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

const QString sysInit = QStringLiteral("/baa00/getSysInitByAuthCode");
const QString lines = QStringLiteral("/kvsystem/common/getSysApiReqUrls");
const QString deadEndpoint = deadEndpointUrl();

} // namespace

class tst_startup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_house.reset(new HouseProcess(
            {"--mqtt-url", "tcp://broker.example:1884", "--mqtt-user", "u", "--mqtt-pwd", "p"}));
        QVERIFY(m_house->isReady());
    }
    void init();

    void firstRun();
    void noLineNoCache();
    void cachedLines_data();
    void cachedLines();
    void storedLine_data();
    void storedLine();
    void unknownTerminal();
    void hostUrl_data();
    void hostUrl();
    void functionMenu();
    void noRightsNoMenu();
    void emptySysInit();
    void lineErrorAsksUntilItWorks();
    void lineErrorUntilTheUserGivesUp();
    void settings();

private:
    void setIdentity(const QString& key, const QString& value);
    QString setting(const QString& key);
    void setSetting(const QString& key, const QString& value);
    QJsonObject start(const QString& endpoints, int lineDialogs = 0);

    std::unique_ptr<HouseProcess> m_house;
    QScopedPointer<QTemporaryDir> m_folder;
};

void tst_startup::init()
{
    m_house->reset();
    m_folder.reset(new QTemporaryDir);
    setIdentity(QStringLiteral("authCode"), QStringLiteral("KV-DEMO-0001"));
    setIdentity(QStringLiteral("secretKey"), QStringLiteral("demo-secret-key-0001"));
    setSetting(QStringLiteral("made"), QStringLiteral("1"));
}

void tst_startup::setIdentity(const QString& key, const QString& value)
{
    QSettings(m_folder->filePath(QStringLiteral("KV_PANEL_V2.ini")), QSettings::IniFormat).setValue(key, value);
}

void tst_startup::setSetting(const QString& key, const QString& value)
{
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("test"));
        database.setDatabaseName(m_folder->filePath(QStringLiteral("kv_panel_v2.db")));
        QVERIFY(database.open());
        QSqlQuery query(database);
        query.exec(QStringLiteral(
            "CREATE TABLE IF NOT EXISTS sys_config (id INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL, "
            "code VARCHAR(128) NOT NULL UNIQUE, value VARCHAR(128) NOT NULL DEFAULT(''))"));
        QVERIFY(query.prepare(QStringLiteral("INSERT OR REPLACE INTO sys_config (code, value) VALUES (?, ?)")));
        query.addBindValue(key);
        query.addBindValue(value);
        QVERIFY(query.exec());
    }
    QSqlDatabase::removeDatabase(QStringLiteral("test"));
}

QString tst_startup::setting(const QString& key)
{
    QString value;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("test"));
        database.setDatabaseName(m_folder->filePath(QStringLiteral("kv_panel_v2.db")));
        database.open();
        QSqlQuery query(database);
        query.prepare(QStringLiteral("SELECT value FROM sys_config WHERE code = ?"));
        query.addBindValue(key);
        if (query.exec() && query.next())
            value = query.value(0).toString();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("test"));
    return value;
}

QJsonObject tst_startup::start(const QString& endpoints, int lineDialogs)
{
    QProcess probe;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_folder->path());
    environment.insert(QStringLiteral("KV_PANEL_API_URLS"), endpoints);
    probe.setProcessEnvironment(environment);
    probe.setWorkingDirectory(m_folder->path());
    probe.start(QCoreApplication::applicationDirPath() + QStringLiteral("/startup_probe"),
                {QStringLiteral("--line-dialog"), QString::number(lineDialogs)});
    probe.waitForFinished(60000);
    const QByteArray output = probe.readAllStandardOutput();
    const QJsonObject state = QJsonDocument::fromJson(output.trimmed().split('\n').last()).object();
    if (state.isEmpty() || probe.exitStatus() != QProcess::NormalExit || probe.exitCode() != 0) {
        qWarning("%s%s", output.constData(), probe.readAllStandardError().constData());
        return {};
    }
    return state;
}

void tst_startup::firstRun()
{
    QVERIFY(QFile::remove(m_folder->filePath(QStringLiteral("kv_panel_v2.db"))));
    const QJsonObject state = start(m_house->url());
    QCOMPARE(state.value("iSysStatus").toInt(), 2);
    QVERIFY(QFile::exists(m_folder->filePath(QStringLiteral("kv_panel_v2.db"))));
    QVERIFY(state.value("messages").toArray().size() > 0); // the table isn't there yet
    QCOMPARE(state.value("js_assign_type").toInt(), 1);

    QCOMPARE(state.value("apiUrl").toString(), m_house->url());
    QCOMPARE(state.value("mqttUrl").toString(), QStringLiteral("broker.example"));
    QCOMPARE(state.value("mqttPort").toInt(), 1884);
    QCOMPARE(state.value("mqttUser").toString(), QStringLiteral("u"));
    QCOMPARE(state.value("mqttPwd").toString(), QStringLiteral("p"));
    QCOMPARE(state.value("roomTopic").toString(), QStringLiteral("ROOMSTATUS_"));
    QCOMPARE(state.value("secretKey").toString(), QStringLiteral("demo-secret-key-0001"));
    for (const char* key : {"storeId", "compId", "deviceId", "storeName", "kvupload"})
        QVERIFY2(!state.value(QLatin1String(key)).toString().isEmpty(), key);
    for (const char* key : {"hasPlanConfig", "hasSysConfig", "hasCardConfig", "isVisSysConfig"})
        QVERIFY2(state.value(QLatin1String(key)).toBool(), key);
    QCOMPARE(state.value("terminalStore"), state.value("storeName"));

    const QJsonObject sent = m_house->lastRequest(sysInit);
    QVERIFY(sent.value("target").toString().contains(QStringLiteral("&secretKey=demo-secret-key-0001")));
    QVERIFY(!sent.value("json").toObject().contains("secretKey"));
}

void tst_startup::noLineNoCache()
{
    const QJsonObject state = start(deadEndpoint);
    QCOMPARE(state.value("iSysStatus").toInt(), 0);
    QCOMPARE(state.value("messages").toArray(), (QJsonArray{QStringLiteral("error|请求服务器失败")}));
    QCOMPARE(state.value("dialogs").toInt(), 0);
    QCOMPARE(m_house->seen(sysInit), 0);

    // A damaged cache is none, and neither is one without lines.
    for (const char* cache : {"{\"apiUrl\":", "[]", "{\"apiUrl\":\"http://x\",\"reqLines\":[]}"}) {
        setSetting(QStringLiteral("sys_api_req"), QString::fromLatin1(cache));
        QCOMPARE(start(deadEndpoint).value("iSysStatus").toInt(), 0);
    }
}

void tst_startup::cachedLines_data()
{
    QTest::addColumn<QString>("fault");
    QTest::newRow("endpoint dead") << "";
    QTest::newRow("endpoint refuses") << "refuse:LINE_ERR_0001";
}

void tst_startup::cachedLines()
{
    QFETCH(QString, fault);
    QCOMPARE(start(m_house->url()).value("iSysStatus").toInt(), 2);
    const QString cache = setting(QStringLiteral("sys_api_req"));
    QVERIFY(cache.startsWith(QStringLiteral("{\"apiUrl\":\"http")));

    if (!fault.isEmpty())
        m_house->fault(lines, fault);
    const QJsonObject state = start(fault.isEmpty() ? deadEndpoint : m_house->url(), 1);
    QCOMPARE(state.value("dialogs").toInt(), 1);
    QCOMPARE(state.value("iSysStatus").toInt(), 2);
    QCOMPARE(state.value("apiUrl").toString(), m_house->url());
    QVERIFY(state.value("platforms").toInt() >= 2);
    QCOMPARE(setting(QStringLiteral("sys_api_req")), cache);
}

void tst_startup::storedLine_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("listed") << "second" << true;
    QTest::newRow("no longer listed") << "http://127.0.0.1:1/gone" << false;
    QTest::newRow("nearly the same") << "second/" << false;
    QTest::newRow("none") << "" << false;
}

void tst_startup::storedLine()
{
    QFETCH(QString, stored);
    QFETCH(bool, isTaken);
    // The same house under another name is a line of its own.
    const QString second =
        QString(m_house->url()).replace(QStringLiteral("127.0.0.1"), QStringLiteral("localhost"));
    stored.replace(QStringLiteral("second"), second);
    const QJsonObject list{
        {"apiUrl", m_house->url()},
        {"reqLines",
         QJsonArray{QJsonObject{{"title", "一"}, {"subLines", QJsonArray{}}},
                    QJsonObject{{"title", "二"}, {"subLines", QJsonArray{QJsonObject{{"domain", second}}}}}}}};
    m_house->answer(lines, QJsonObject{{"code", "200"}, {"data", list}});
    setIdentity(QStringLiteral("cloudUrl"), stored);
    const QJsonObject state = start(m_house->url());
    QCOMPARE(state.value("iSysStatus").toInt(), 2);
    QCOMPARE(state.value("apiUrl").toString(), isTaken ? second : m_house->url());
    QCOMPARE(QSettings(m_folder->filePath(QStringLiteral("KV_PANEL_V2.ini")), QSettings::IniFormat)
                 .value(QStringLiteral("cloudUrl"))
                 .toString(),
             stored);
}

void tst_startup::unknownTerminal()
{
    setIdentity(QStringLiteral("secretKey"), QStringLiteral("wrong"));
    const QJsonObject state = start(m_house->url());
    QCOMPARE(state.value("iSysStatus").toInt(), 0);
    QCOMPARE(state.value("messages").toArray().size(), 1);
    QVERIFY(state.value("messages").toArray().first().toString().startsWith(QStringLiteral("error|")));
}

void tst_startup::hostUrl_data()
{
    QTest::addColumn<QString>("hostUrl");
    QTest::addColumn<QString>("host"); // empty: stays at the default
    QTest::addColumn<int>("port");
    QTest::newRow("whole") << "tcp://b.example:1883"
                           << "b.example" << 1883;
    QTest::newRow("without scheme") << "b.example:1883"
                                    << "b.example" << 1883;
    QTest::newRow("no port") << "tcp://b.example"
                             << "" << 61613;
    QTest::newRow("port no number") << "tcp://b.example:x"
                                    << "b.example" << 61613;
    QTest::newRow("too many colons") << "tcp://b.example:1883:2"
                                     << "" << 61613;
    QTest::newRow("empty") << ""
                           << "" << 61613;
}

void tst_startup::hostUrl()
{
    QFETCH(QString, hostUrl);
    QFETCH(QString, host);
    QFETCH(int, port);
    const QJsonObject mqtt{{"hostUrl", hostUrl}, {"mqttTopics", QJsonObject{{"ROOMSTATUS", "R%s_%s"}}}};
    m_house->answer(sysInit, QJsonObject{{"code", "200"}, {"data", QJsonObject{{"mqttInfo", mqtt}}}});
    const QJsonObject state = start(m_house->url());
    QCOMPARE(state.value("iSysStatus").toInt(), 2);
    if (host.isEmpty())
        QVERIFY(!state.value("mqttUrl").toString().contains(QStringLiteral("b.example")));
    else
        QCOMPARE(state.value("mqttUrl").toString(), host);
    QCOMPARE(state.value("mqttPort").toInt(), port);
    QCOMPARE(state.value("roomTopic").toString(), QStringLiteral("R_"));
    QCOMPARE(state.value("callTopic").toString(), QString());
}

void tst_startup::functionMenu()
{
    const auto right = [](const char* funcVal, const char* pid, bool authflg) {
        return QJsonObject{
            {"funcVal", funcVal}, {"authName", QString("名") + funcVal}, {"pid", pid}, {"authflg", authflg}};
    };
    const QJsonArray rights{right("SELF_ORDER", "0", true),     right("ROOMINFO_CTRL", "0", true),
                            right("CONSUME_CTRL", "0", false),  right("ZZC_CTRL", "405", true),
                            right("FOREIGN_CTRL", "0", true),   right("SYS_CTRL", "0", true),
                            right("HELP_BASH_WAIT", "0", true), right("PAY_CTRL", "0", true)};
    m_house->answer(sysInit, QJsonObject{{"code", "200"}, {"data", QJsonObject{{"modAuth", rights}}}});
    const QJsonObject state = start(m_house->url());
    QCOMPARE(state.value("menu").toArray(),
             (QJsonArray{"SELF_ORDER|名SELF_ORDER", "ROOMINFO_CTRL|名ROOMINFO_CTRL",
                         "HELP_BASH_WAIT|名HELP_BASH_WAIT", "TRANSFER_CTRL|手牌转账"}));
    QVERIFY(state.value("isVisSysConfig").toBool());
}

void tst_startup::noRightsNoMenu()
{
    m_house->answer(sysInit, QJsonObject{{"code", "200"}, {"data", QJsonObject{{"modAuth", QJsonArray{}}}}});
    const QJsonObject state = start(m_house->url());
    QCOMPARE(state.value("iSysStatus").toInt(), 2);
    QVERIFY(!state.contains("menu"));
    QVERIFY(!state.value("isVisSysConfig").toBool());
}

void tst_startup::emptySysInit()
{
    m_house->answer(sysInit, QJsonObject{{"code", "200"}});
    const QJsonObject state = start(m_house->url());
    QCOMPARE(state.value("iSysStatus").toInt(), 2);
    QVERIFY(!state.value("hasSysConfig").toBool());
}

void tst_startup::lineErrorAsksUntilItWorks()
{
    m_house->fault(sysInit, QStringLiteral("refuse:NET_LINE_ERR_0000"), 0, 2);
    const QJsonObject state = start(m_house->url(), 5);
    QCOMPARE(state.value("dialogs").toInt(), 2);
    QCOMPARE(state.value("iSysStatus").toInt(), 2);
    QCOMPARE(m_house->seen(sysInit), 3);
    QVERIFY(state.value("messages").toArray().isEmpty());
}

void tst_startup::lineErrorUntilTheUserGivesUp()
{
    m_house->fault(sysInit, QStringLiteral("refuse:NET_LINE_ERR_0000"));
    const QJsonObject state = start(m_house->url(), 1);
    QCOMPARE(state.value("dialogs").toInt(), 2);
    QCOMPARE(state.value("iSysStatus").toInt(), 0);

    // Without lines there is nothing to choose: an ordinary failure.
    m_house->answer(lines, QJsonObject{{"code", "200"}, {"data", QJsonObject{{"apiUrl", m_house->url()}}}});
    QVERIFY(QFile::remove(m_folder->filePath(QStringLiteral("kv_panel_v2.db"))));
    QCOMPARE(start(m_house->url(), 1).value("dialogs").toInt(), 0);
}

void tst_startup::settings()
{
    setSetting(QStringLiteral("room_item_count"), QStringLiteral("-2"));
    setSetting(QStringLiteral("js_assign_type"), QStringLiteral("0"));
    setSetting(QStringLiteral("hand_card_device"), QStringLiteral("2"));
    setSetting(QStringLiteral("call_count"), QStringLiteral("drei"));
    setSetting(QStringLiteral("zy_tts_text"), QStringLiteral("请%1号"));
    QJsonObject state = start(m_house->url());
    QCOMPARE(state.value("room_item_count").toInt(), -2);
    QCOMPARE(state.value("js_assign_type").toInt(), 1);
    QCOMPARE(state.value("hand_card_device").toInt(), 0);
    QCOMPARE(state.value("call_count").toInt(), 1);
    QCOMPARE(state.value("zyTtsText").toString(), QStringLiteral("请%1号"));

    setSetting(QStringLiteral("js_assign_type"), QStringLiteral("5"));
    setSetting(QStringLiteral("hand_card_device"), QStringLiteral("1"));
    setSetting(QStringLiteral("call_count"), QStringLiteral("3"));
    state = start(m_house->url());
    QCOMPARE(state.value("js_assign_type").toInt(), 5);
    QCOMPARE(state.value("hand_card_device").toInt(), 1);
    QCOMPARE(state.value("call_count").toInt(), 3);
}

QTEST_GUILESS_MAIN(tst_startup)
#include "tst_startup.moc"
