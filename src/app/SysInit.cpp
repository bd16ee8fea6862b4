#include "app/SysInit.h"

#include "common/GlobalConfig.h"
#include "common/Modules.h"
#include "serialization/QJsonSerializer.h"

#include <QJsonDocument>

namespace {

QString topicPrefix(QString topic) { return topic.remove(QStringLiteral("%s")); }

/// Both, or something else. Between brackets stands an address with colons of its own; it does without a port.
QStringList hostAndPort(const QString& address)
{
    const int end = address.indexOf(QLatin1Char(']'));
    if (!address.startsWith(QLatin1Char('[')) || end < 0)
        return address.split(QLatin1Char(':'));
    const QString port = address.mid(end + 1);
    if (!port.isEmpty() && !port.startsWith(QLatin1Char(':')))
        return {};
    return {address.mid(1, end - 1), port.mid(1)};
}

void applyTopics(const MqttTopicsDto* topics, GlobalConfig* config)
{
    config->setMQTT_ROOM_STATUS(topicPrefix(topics->ROOMSTATUS()));
    config->setMQTT_STAFF_STATUS(topicPrefix(topics->STAFFSTATUS()));
    config->setMQTT_CALL_CHGDATA(topicPrefix(topics->CALLCHGDATA()));
    config->setMQTT_HARDCARDSCALLSTATUS(topicPrefix(topics->HARDCARDSCALLSTATUS()));
    config->setMQTT_HARDCARDSCALLDATA(topicPrefix(topics->HARDCARDSCALLDATA()));
}

void applyTerminal(const SysInitDto* sysInit, GlobalConfig* config)
{
    TerminalDto* terminal = sysInit->terminalInfo();
    if (terminal) {
        config->setStoreId(terminal->storeId());
        config->setCompId(terminal->compId());
        config->setDeviceId(terminal->id());
        config->setTerminalInfo(new TerminalDto(terminal));
        config->setStoreName(terminal->storeName());
    }
    config->setKvupload(sysInit->kvupload());
}

/// The page makes an item for each at once; a shop has eight.
constexpr int mostTiles = 64;

void buildFuncMenu(const QList<ModAuthDto*>& rights, GlobalConfig* config)
{
    QList<ModAuthDto*> tiles;
    for (ModAuthDto* right : rights) {
        const Module& module = Modules::find(right->funcVal());
        if (!*module.code || right->pid() != QLatin1String("0") || !right->getAuthflg())
            continue;
        if (module.entry == Module::RightedButton)
            config->setIsVisSysConfig(true);
        else if (module.entry == Module::Tile && tiles.size() < mostTiles)
            tiles.append(right);
    }
    QObject owner;
    for (const Module& module : Modules::all()) {
        if (module.entry != Module::FreeTile)
            continue;
        auto* tile = new ModAuthDto(&owner);
        tile->set_funcVal(QLatin1String(module.code));
        tile->set_authName(QString::fromUtf8(module.name));
        tiles.append(tile);
    }
    config->setFuncMenu(new FuncMenuModel(tiles));
}

} // namespace

void applyMqttInfo(const SysMqttInfoDto* info, GlobalConfig* config)
{
    const QStringList address = hostAndPort(info->hostUrl().remove(QStringLiteral("tcp://")));
    if (address.size() == 2) {
        config->setMqttUrl(address.at(0));
        bool isNumber = false;
        const int port = address.at(1).toInt(&isNumber);
        if (isNumber)
            config->setMqttPort(port);
    }
    config->setMqttUser(info->username());
    config->setMqttPwd(info->password());
    if (info->mqttTopics())
        applyTopics(info->mqttTopics(), config);
}

void applySysInit(const SysInitDto* sysInit, GlobalConfig* config)
{
    if (sysInit->mqttInfo())
        applyMqttInfo(sysInit->mqttInfo(), config);
    applyTerminal(sysInit, config);
    if (sysInit->planconfig())
        config->setPlanConfig(new PlanConfigDto(sysInit->planconfig()));
    if (sysInit->sysconfig())
        config->setSysConfig(new SysConfigDto(sysInit->sysconfig()));
    if (sysInit->cardconfig())
        config->setCardConfig(new CardConfigDto(sysInit->cardconfig()));
    if (!sysInit->modAuth().isEmpty())
        buildFuncMenu(sysInit->modAuth().list(), config);
}

SysApiReqDto* parseLines(const QString& text)
{
    auto* lines = new SysApiReqDto;
    QJsonSerializer().deserializeObject(QJsonDocument::fromJson(text.toUtf8()).object(), lines,
                                        &SysApiReqDto::staticMetaObject);
    return lines;
}

QString linesText(const SysApiReqDto* lines)
{
    const QJsonObject json = QJsonSerializer().serializeObject(lines, &SysApiReqDto::staticMetaObject);
    return QString::fromUtf8(QJsonDocument(json).toJson(QJsonDocument::Compact));
}
