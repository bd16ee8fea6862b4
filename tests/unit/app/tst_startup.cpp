// The second half of the start-up, each time in a process of its own: what it leaves in the shared state.

#include "app/MainClass.h"
#include "common/DlgManager.h"
#include "common/GlobalConfig.h"
#include "common/MyMessage.h"
#include "common/Settings.h"
#include "common/Sqlite.h"
#include "support/DeadEndpoint.h"
#include "support/HouseProcess.h"

#include <QJsonDocument>
#include <QMetaProperty>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>

namespace {

/// What is so before a start, and what is so in the shared state afterwards. HOUSE is the back end, SECOND the
/// same one under another name; an expected text that ends with "*" is only the beginning. A quote inside a
/// text is a single one.
struct Road
{
    const char* name;
    /// dead: no line answers; lines and record: what the back end answers in place of its own; faults: by
    /// paths; dialogs: how often the user chooses a line before he only closes the dialog; settings and
    /// values: stored
    const char* before;
    const char* after;
};

// clang-format off
const Road roads[] = {
    {"a terminal that knows nothing", R"({"noTable": true})",
     R"({"iSysStatus": 2, "apiUrl": "HOUSE", "mqttUrl": "broker.example", "mqttPort": 1884, "mqttUser": "u",
         "mqttPwd": "p", "MQTT_ROOM_STATUS": "ROOMSTATUS_", "secretKey": "demo-secret-key-0001", "js_assign_type": 1,
         "planConfig": true, "sysConfig": true, "cardConfig": true, "terminalInfo": true, "isVisSysConfig": true,
         "storeName": "云*", "kvupload": "http*", "ids": "405800100000000101 405800100000000001 405800120000000001", "messages": "error|查询数据库出错*"})"},

    {"no line, no cache", R"({"dead": true})",
     R"({"iSysStatus": 0, "dialogs": 0, "records": 0, "messages": "error|请求服务器失败"})"},
    {"no line, damaged cache", R"({"dead": true, "settings": {"sys_api_req": "{'apiUrl':"}})", R"({"iSysStatus": 0})"},
    {"no line, cache without lines", R"({"dead": true, "settings": {"sys_api_req": "{'apiUrl':'HOUSE','reqLines':[]}"}})",
     R"({"iSysStatus": 0, "dialogs": 0})"},
    {"no line, cache", R"({"dead": true, "dialogs": 1, "settings": {"sys_api_req": "CACHE"}})",
     R"({"iSysStatus": 2, "dialogs": 1, "apiUrl": "HOUSE", "lines": 2, "cache": "CACHE"})"},
    {"lines refused, cache", R"({"faults": {"LINES": "refuse:E"}, "dialogs": 1, "settings": {"sys_api_req": "CACHE"}})",
     R"({"iSysStatus": 2, "dialogs": 1, "apiUrl": "HOUSE", "lines": 2, "cache": "CACHE"})"},
    {"lines anew", R"({"settings": {"sys_api_req": "old"}})", R"({"iSysStatus": 2, "cache": "{'apiUrl':'HOUSE','lineCheckHttpPath':*"})"},

    {"chosen line", R"({"lines": LIST, "values": {"cloudUrl": "SECOND"}})", R"({"apiUrl": "SECOND", "iSysStatus": 2})"},
    {"chosen line no longer there", R"({"lines": LIST, "values": {"cloudUrl": "SECOND/"}})", R"({"apiUrl": "HOUSE", "chosen": "SECOND/"})"},

    {"unknown terminal", R"({"values": {"secretKey": "wrong"}})", R"({"iSysStatus": 0, "messages": "error|*", "records": 1})"},
    {"line errors until it works", R"({"faults": {"RECORD": "refuse:NET_LINE_ERR_0000"}, "times": 2, "dialogs": 5})",
     R"({"iSysStatus": 2, "dialogs": 2, "records": 3, "messages": ""})"},
    {"line errors until the user gives up", R"({"faults": {"RECORD": "refuse:NET_LINE_ERR_0000"}, "dialogs": 1})",
     R"({"iSysStatus": 0, "dialogs": 2, "startFailure": "*"})"},
    {"no line, cache, no choice", R"({"dead": true, "settings": {"sys_api_req": "CACHE"}})",
     R"({"iSysStatus": 0, "dialogs": 1, "startFailure": "请求服务器失败"})"},
    {"line error without lines", R"({"faults": {"RECORD": "refuse:NET_LINE_ERR_0000"}, "lines": {"apiUrl": "HOUSE"}, "dialogs": 1})",
     R"({"iSysStatus": 0, "dialogs": 0, "records": 1})"},

    {"broker's address", R"({"record": {"mqttInfo": {"hostUrl": "tcp://b.example:1883", "mqttTopics": {"ROOMSTATUS": "R%s_%s"}}}})",
     R"({"mqttUrl": "b.example", "mqttPort": 1883, "MQTT_ROOM_STATUS": "R_", "MQTT_HARDCARDSCALLDATA": "", "iSysStatus": 2})"},
    {"broker without a scheme", R"({"record": {"mqttInfo": {"hostUrl": "b.example:1883"}}})", R"({"mqttUrl": "b.example", "mqttPort": 1883})"},
    {"broker without a port", R"({"record": {"mqttInfo": {"hostUrl": "tcp://b.example"}}})", R"({"mqttUrl": "BUILTIN", "mqttPort": 61613})"},
    {"broker's port no number", R"({"record": {"mqttInfo": {"hostUrl": "tcp://b.example:x"}}})", R"({"mqttUrl": "b.example", "mqttPort": 61613})"},
    {"broker by address", R"({"record": {"mqttInfo": {"hostUrl": "tcp://[::1]:1883"}}})", R"({"mqttUrl": "::1", "mqttPort": 1883})"},
    {"broker by address alone", R"({"record": {"mqttInfo": {"hostUrl": "tcp://[::1]"}}})", R"({"mqttUrl": "::1", "mqttPort": 61613})"},
    {"broker with too many colons", R"({"record": {"mqttInfo": {"hostUrl": "tcp://b.example:1:2"}}})", R"({"mqttUrl": "BUILTIN", "mqttPort": 61613})"},

    {"rights", R"({"record": {"modAuth": [
        {"funcVal": "SELF_ORDER", "authName": "自", "pid": "0", "authflg": true}, {"funcVal": "ROOMINFO_CTRL", "authName": "房", "pid": "0", "authflg": true},
        {"funcVal": "CONSUME_CTRL", "pid": "0", "authflg": false}, {"funcVal": "ZZC_CTRL", "pid": "405", "authflg": true},
        {"funcVal": "FOREIGN_CTRL", "pid": "0", "authflg": true}, {"funcVal": "SYS_CTRL", "pid": "0", "authflg": true},
        {"funcVal": "PAY_CTRL", "pid": "0", "authflg": true}, {"funcVal": "YJ", "pid": "0", "authflg": true}]}})",
     R"({"menu": "SELF_ORDER自 ROOMINFO_CTRL房 TRANSFER_CTRL手牌转账", "isVisSysConfig": true})"},
    {"no rights", R"({"record": {"modAuth": []}})", R"({"funcMenu": false, "isVisSysConfig": false, "iSysStatus": 2})"},
    {"empty record", R"({"record": null})", R"({"sysConfig": false, "iSysStatus": 2})"},

    {"odd settings", R"({"settings": {"room_item_count": "-2", "js_assign_type": "0", "hand_card_device": "2", "call_count": "drei"}})",
     R"({"room_item_count": -2, "js_assign_type": 1, "hand_card_device": 0, "call_count": 1, "zyTtsText": ""})"},
    {"settings", R"({"settings": {"js_item_count": "6", "js_assign_type": "5", "hand_card_device": "1", "call_count": "3", "zy_tts_text": "请%1号"}})",
     R"({"js_item_count": 6, "js_assign_type": 5, "hand_card_device": 1, "call_count": 3, "zyTtsText": "请%1号"})"},
};
// clang-format on

const char list[] =
    R"({"apiUrl":"HOUSE","reqLines":[{"subLines":[],"title":"一"},{"subLines":[{"domain":"SECOND"}]}]})";

/// The values of the shared state; of a record whether it is there.
QJsonObject stateOf(const GlobalConfig& config)
{
    QJsonObject state{{"apiUrl", config.apiUrl()},
                      {"mqttUrl", config.mqttUrl()},
                      {"ids", config.storeId() + ' ' + config.compId() + ' ' + config.deviceId()},
                      {"lines", config.sysApiReq() ? config.sysApiReq()->reqLines().size() : 0}};
    const QMetaObject* meta = config.metaObject();
    for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
        const QVariant value = meta->property(i).read(&config);
        const bool isObject = QMetaType::typeFlags(value.userType()) & QMetaType::PointerToQObject;
        state.insert(meta->property(i).name(), isObject ? QJsonValue(value.value<QObject*>() != nullptr)
                                                        : QJsonValue::fromVariant(value));
    }
    for (const Settings::Key& key : Settings::keys()) {
        if (key.number)
            state.insert(key.name, config.*key.number);
    }
    QStringList menu;
    if (config.funcMenu()) {
        for (const Func_Menu_struct& tile : config.funcMenu()->getAll())
            menu.append(tile.funcVal + tile.authName);
    }
    state.insert("menu", menu.join(' '));
    return state;
}

/// Starts up and prints what is there then.
int probe(QCoreApplication& application, int dialogLimit)
{
    QStringList messages;
    int dialogs = 0;
    QObject::connect(MyMessage::getInstance(), &MyMessage::showMessageSignal, &application,
                     [&](const QString& text, const QString& type) { messages.append(type + "|" + text); });
    QObject::connect(DlgManager::getInstance(), &DlgManager::cloudSignal, &application,
                     [&] { DlgManager::getInstance()->cloudResult(++dialogs <= dialogLimit); });
    MainClass* program = MainClass::getInstance();
    if (!GlobalConfig::getInstance()->initLibcurl())
        return 3;
    QTimer::singleShot(0, &application, [&] {
        program->init();
        QCoreApplication::quit();
    });
    QCoreApplication::exec();
    QJsonObject state = stateOf(*GlobalConfig::getInstance());
    state.insert("messages", messages.join(' '));
    state.insert("startFailure", program->startFailure());
    state.insert("dialogs", dialogs);
    std::printf("%s\n", QJsonDocument(state).toJson(QJsonDocument::Compact).constData());
    return 0;
}

} // namespace

class tst_startup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void road_data();
    void road();
    void cleanup() { QDir::setCurrent(QDir::rootPath()); }

private:
    QJsonObject json(QString text) const;
    void prepare(const QJsonObject& before);

    HouseProcess m_house{{"--mqtt-url", "tcp://broker.example:1884", "--mqtt-user", "u", "--mqtt-pwd", "p"}};
};

/// With the names in it replaced by what they stand for.
QJsonObject tst_startup::json(QString text) const
{
    const QString builtIn = GlobalConfig::getInstance()->mqttUrl();
    text.replace('\'', "\\\"").replace("CACHE", QString(list).replace('"', "\\\"")).replace("LIST", list);
    text.replace("LINES", "/kvsystem/common/getSysApiReqUrls").replace("RECORD", "/baa00/getSysInitByAuthCode");
    text.replace("HOUSE", m_house.url()).replace("BUILTIN", builtIn);
    return QJsonDocument::fromJson(
               text.replace("SECOND", m_house.url().replace("127.0.0.1", "localhost")).toUtf8())
        .object();
}

void tst_startup::prepare(const QJsonObject& before)
{
    m_house.reset();
    const auto answer = [&](const char* key, const char* path) {
        if (before.contains(key))
            m_house.answer(path, QJsonObject{{"code", "200"}, {"data", before.value(key)}});
    };
    answer("lines", "/kvsystem/common/getSysApiReqUrls");
    answer("record", "/baa00/getSysInitByAuthCode");
    const auto each = [&](const char* key, auto what) {
        const QVariantMap map = before.value(key).toObject().toVariantMap();
        for (auto it = map.begin(); it != map.end(); ++it)
            what(it.key(), it.value().toString());
    };
    each("faults", [&](const QString& path, const QString& fault) {
        m_house.fault(path, fault, 0, before.value("times").toInt(-1));
    });
    GlobalConfig::setRegValue("authCode", "KV-DEMO-0001");
    GlobalConfig::setRegValue("secretKey", "demo-secret-key-0001");
    each("values", &GlobalConfig::setRegValue);
    Sqlite table;
    QVERIFY(before.value("noTable").toBool() || (table.open() && table.createTable()));
    each("settings", &Settings::write);
}

void tst_startup::road_data()
{
    QVERIFY(m_house.isReady());
    QTest::addColumn<QJsonObject>("before");
    QTest::addColumn<QJsonObject>("after");
    for (const Road& road : roads)
        QTest::newRow(road.name) << json(road.before) << json(road.after);
}

void tst_startup::road()
{
    QFETCH(QJsonObject, before);
    QFETCH(QJsonObject, after);
    QVERIFY(!before.isEmpty() && !after.isEmpty());
    QTemporaryDir folder;
    QVERIFY(QDir::setCurrent(folder.path()));
    qputenv("XDG_CONFIG_HOME", folder.path().toUtf8());
    qputenv("KV_PANEL_API_URLS", (before.value("dead").toBool() ? deadEndpointUrl() : m_house.url()).toUtf8());
    prepare(before);
    QProcess probe;
    probe.start(QCoreApplication::applicationFilePath(),
                {"--probe", QString::number(before.value("dialogs").toInt())});
    QVERIFY(probe.waitForFinished(60000));
    QVERIFY2(probe.exitCode() == 0, probe.readAllStandardError().constData());
    QJsonObject state =
        QJsonDocument::fromJson(probe.readAllStandardOutput().trimmed().split('\n').last()).object();
    state.insert("records", m_house.seen("/baa00/getSysInitByAuthCode"));
    state.insert("cache", Settings::read("sys_api_req"));
    state.insert("chosen", GlobalConfig::getRegValue("cloudUrl"));
    for (auto it = after.begin(); it != after.end(); ++it) {
        QString expected = it.value().toString();
        const QString found = state.value(it.key()).toString();
        const bool isThere = expected.endsWith('*') ? found.startsWith(expected.remove('*'))
                                                    : state.value(it.key()) == it.value();
        QVERIFY2(isThere, qPrintable(it.key() + " is " + found + QJsonDocument(state).toJson()));
    }
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.value(1) == "--probe")
        return probe(application, arguments.value(2).toInt());
    tst_startup test;
    return QTest::qExec(&test, arguments);
}

#include "tst_startup.moc"
