// What the settings' page writes, and what of it waits for the next start.

#include "app/MainClass.h"
#include "common/MyMessage.h"
#include "platform/Restart.h"
#include "vm/module5/Module5Vm.h"

#include <QMetaProperty>

#include <algorithm>

namespace {

/// Stored for the positions of the box.
const char* const assignTypes[] = {"1", "5", "2"};

QString flag(bool isOn) { return isOn ? QStringLiteral("1") : QString(); }

QHash<QString, QString> hashOf(const Settings::Values& values)
{
    QHash<QString, QString> found;
    for (const auto& value : values)
        found.insert(value.first, value.second);
    return found;
}

/// What the program makes of a stored text.
QString effectOf(const QString& name, const QString& stored)
{
    const Settings::Key* key = Settings::find(name);
    if (!key || key->kind == Settings::Kind::Text)
        return stored;
    if (key->kind == Settings::Kind::Flag)
        return flag(stored == QLatin1String("1"));
    return QString::number((stored.isEmpty() ? QString::fromLatin1(key->byDefault) : stored).toInt());
}

/// What is stored, by what the program makes of it.
QHash<QString, QString> storedEffects()
{
    QHash<QString, QString> found;
    for (const Settings::Key& key : Settings::keys()) {
        const QString name = QLatin1String(key.name);
        found.insert(name, effectOf(name, Settings::read(name)));
    }
    return found;
}

/// What the program runs with: only this page changes what is stored, and its first one in the process is
/// before that.
const QHash<QString, QString>& running()
{
    static const QHash<QString, QString> atStart = storedEffects();
    return atStart;
}

/// Read whenever they are needed, or by nobody.
bool takesEffectAtOnce(const QString& name)
{
    return name == QLatin1String("is_small_img_mode") || name == QLatin1String("hand_card_com");
}

QString refusalFor(const QString& key)
{
    if (key == QLatin1String("print") || key == QLatin1String("print_mode"))
        return QStringLiteral("保存打印机参数失败");
    if (key == QLatin1String("staff_device_com"))
        return QStringLiteral("保存读卡器参数失败");
    return QStringLiteral("参数保存失败");
}

} // namespace

/// In the order in which they are written. What couldn't be chosen stays as it is stored.
Settings::Values Module5Vm::values() const
{
    const auto number = [](int value) { return QString::number(value); };
    const bool isTemplate = zytts().contains(QLatin1String("%1"));
    Settings::Values all{{"print", m_printers->at(printIndex())},
                         {"print_mode", number(printModeIndex())},
                         {"staff_device_com", m_ports->at(comIndex())},
                         {"is_single_print", flag(isSinglePrint())},
                         {"is_open_room_print", flag(isOpenRoomPrint())},
                         {"is_use_tts", flag(isUseTts())},
                         {"tts_language", m_languages->at(langIndex())},
                         {"tts_voice", m_voices->at(voiceIndex())},
                         {"tts_speed", number(speed())},
                         {"cons_item_count", number(consItemCount())},
                         {"js_item_count", number(jsItemCount())},
                         {"room_item_count", number(roomItemCount())},
                         {"stop_server_print_count", number(stopServerCount())},
                         {"leave_room_print_count", number(leaveRoomCount())},
                         {"js_assign_type", assignTypes[qBound(0, jsAssIndex(), 2)]},
                         {"hand_card_device", number(handIndex())},
                         {"hand_card_com", m_ports->at(handComIndex())},
                         {"is_rfid_8", flag(isRfid8())},
                         {"zy_tts_text", isTemplate ? zytts() : QString()},
                         {"call_count", number(callCount())},
                         {"is_small_img_mode", flag(isSmallImgMode())}};
    const auto isUnchosen = [this](const auto& value) {
        return (value.first == QLatin1String("tts_language") && !m_languages->has(langIndex())) ||
               (value.first == QLatin1String("tts_voice") && !m_voices->has(voiceIndex())) ||
               (value.first == QLatin1String("hand_card_com") && !m_ports->has(handComIndex()));
    };
    all.erase(std::remove_if(all.begin(), all.end(), isUnchosen), all.end());
    return all;
}

bool Module5Vm::save()
{
    if (!isOverwritingAgreed())
        return false;
    QString failed;
    if (!Settings::writeAll(values(), failed)) {
        MyMessage::getInstance()->ShowError(refusalFor(failed));
        return false;
    }
    if (!zytts().contains(QLatin1String("%1")))
        setZytts({});
    noteSaved();
    MyMessage::getInstance()->showOk(QStringLiteral("参数保存成功"));
    return true;
}

/// With the voice off neither was read, and what stands on the page is no more than a default.
bool Module5Vm::isOverwritingAgreed() const
{
    const QString text = Settings::read(QStringLiteral("zy_tts_text"));
    const QString count = Settings::read(QStringLiteral("call_count"));
    const QHash<QString, QString> written = hashOf(values());
    const bool isSame = (text.isEmpty() || text == written.value(QStringLiteral("zy_tts_text"))) &&
                        (count.isEmpty() || count == written.value(QStringLiteral("call_count")));
    if (m_isVoiceLoaded || isSame)
        return true;
    const QString question = QStringLiteral("语音未启用，原来的助浴TTS内容和播报次数没有读出：\n【%1】 %2次\n"
                                            "保存会用页面上的覆盖它们，确定吗？");
    return MainClass::getInstance()->showMsgConfirm(
               QStringLiteral("提示"), question.arg(text, count.isEmpty() ? QStringLiteral("1") : count)) == 1;
}

void Module5Vm::noteSaved()
{
    running();
    m_saved = hashOf(values());
    m_stored = storedEffects();
    compare();
}

void Module5Vm::compare()
{
    QVariantMap found;
    bool isAnyChanged = false;
    bool isAnyWaiting = false;
    const QHash<QString, QString> shown = hashOf(values());
    for (auto value = shown.begin(); value != shown.end(); ++value) {
        const QString& key = value.key();
        if (value.value() != m_saved.value(key)) {
            isAnyChanged = true;
            found.insert(key, QStringLiteral("changed"));
        } else if (!takesEffectAtOnce(key) && m_stored.value(key) != running().value(key)) {
            isAnyWaiting = true;
            found.insert(key, QStringLiteral("restart"));
        }
    }
    setMarks(found);
    setIsChanged(isAnyChanged);
    setNeedsRestart(isAnyWaiting);
}

void Module5Vm::restart() { askForRestart(); }

/// Whatever of the page changes is compared with what is saved.
void Module5Vm::watchChanges()
{
    const QStringList outcome{QStringLiteral("marks"), QStringLiteral("isChanged"),
                              QStringLiteral("needsRestart")};
    const QMetaMethod slot = staticMetaObject.method(staticMetaObject.indexOfSlot("compare()"));
    for (int i = staticMetaObject.propertyOffset(); i < staticMetaObject.propertyCount(); ++i) {
        const QMetaProperty property = staticMetaObject.property(i);
        if (property.hasNotifySignal() && !outcome.contains(QLatin1String(property.name())))
            connect(this, property.notifySignal(), this, slot);
    }
    noteSaved();
}
