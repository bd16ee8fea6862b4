// Runs the second half of the start-up once, in the working directory, and prints what it left as one line of
// JSON. With "--line-dialog N" the line dialog closes N times; after that it ends the program, as a user would
// who gives up.

#include "app/MainClass.h"
#include "common/DlgManager.h"
#include "common/GlobalConfig.h"
#include "common/MyMessage.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTimer>

#include <cstdio>

namespace {

QJsonArray menuOf(const GlobalConfig& config)
{
    QJsonArray menu;
    for (const Func_Menu_struct& tile : config.funcMenu()->getAll())
        menu.append(tile.funcVal + QLatin1Char('|') + tile.authName);
    return menu;
}

QJsonObject stateOf(const GlobalConfig& config)
{
    QJsonObject state{{"iSysStatus", config.iSysStatus()},
                      {"apiUrl", config.apiUrl()},
                      {"mqttUrl", config.mqttUrl()},
                      {"mqttPort", config.mqttPort()},
                      {"mqttUser", config.mqttUser()},
                      {"mqttPwd", config.mqttPwd()},
                      {"roomTopic", config.MQTT_ROOM_STATUS()},
                      {"callTopic", config.MQTT_HARDCARDSCALLDATA()},
                      {"storeId", config.storeId()},
                      {"compId", config.compId()},
                      {"deviceId", config.deviceId()},
                      {"storeName", config.storeName()},
                      {"kvupload", config.kvupload()},
                      {"secretKey", config.secretKey()},
                      {"isVisSysConfig", config.isVisSysConfig()},
                      {"hasPlanConfig", config.planConfig() != nullptr},
                      {"hasSysConfig", config.sysConfig() != nullptr},
                      {"hasCardConfig", config.cardConfig() != nullptr},
                      {"terminalStore", config.terminalInfo() ? config.terminalInfo()->storeName() : QString()},
                      {"room_item_count", config.room_item_count},
                      {"js_assign_type", config.js_assign_type},
                      {"hand_card_device", config.hand_card_device},
                      {"call_count", config.call_count},
                      {"zyTtsText", config.zyTtsText()}};
    if (config.sysApiReq())
        state.insert(QStringLiteral("platforms"), config.sysApiReq()->reqLines().size());
    if (config.funcMenu())
        state.insert(QStringLiteral("menu"), menuOf(config));
    return state;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    const int dialogLimit = arguments.value(arguments.indexOf(QStringLiteral("--line-dialog")) + 1).toInt();

    QJsonArray messages;
    int dialogs = 0;
    QObject::connect(
        MyMessage::getInstance(), &MyMessage::showMessageSignal, &application,
        [&](const QString& text, const QString& type) { messages.append(type + QLatin1Char('|') + text); });
    QObject::connect(DlgManager::getInstance(), &DlgManager::cloudSignal, &application, [&] {
        if (++dialogs > dialogLimit)
            QCoreApplication::quit();
    });
    MainClass* program = MainClass::getInstance();
    if (!GlobalConfig::getInstance()->initLibcurl())
        return 3;
    QTimer::singleShot(0, &application, [&] {
        program->init();
        QCoreApplication::quit();
    });
    QCoreApplication::exec();

    QJsonObject state = stateOf(*GlobalConfig::getInstance());
    state.insert(QStringLiteral("messages"), messages);
    state.insert(QStringLiteral("dialogs"), dialogs);
    std::printf("%s\n", QJsonDocument(state).toJson(QJsonDocument::Compact).constData());
    return 0;
}
