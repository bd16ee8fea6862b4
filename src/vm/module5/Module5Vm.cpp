#include "vm/module5/Module5Vm.h"

#include "app/Voice.h"
#include "common/GlobalConfig.h"
#include "common/MyMessage.h"
#include "devices/SerialPort.h"
#include "platform/SpeechEngine.h"
#include "print/InstalledPrinters.h"

namespace {

constexpr int leastColumns = 6;
constexpr int leastRoomColumns = 8; ///< that a stored number is shown from; fewer may be entered
constexpr int mostCalls = 3;
constexpr int highestSpeed = 100; ///< beyond it a number stands for a negative one

QString stored(const char* key) { return Settings::read(QLatin1String(key)); }
bool isStoredOn(const char* key) { return Settings::isOn(QLatin1String(key)); }

bool isRefused(const QString& property, int number)
{
    const bool isColumns = property.endsWith(QLatin1String("ItemCount"));
    const char* refusal = isColumns && number < leastColumns                             ? "列数不能<6"
                          : property == QLatin1String("callCount") && number > mostCalls ? "播报次数不能大于3"
                                                                                         : nullptr;
    if (refusal)
        MyMessage::getInstance()->ShowError(QString::fromUtf8(refusal));
    return refusal;
}

} // namespace

Module5Vm::Module5Vm(QObject* parent)
    : QObject(parent), m_printers(new StringModel(this)), m_printModes(new StringModel(this)),
      m_ports(new StringModel(this)), m_handReaders(new StringModel(this)), m_languages(new StringModel(this)),
      m_voices(new StringModel(this))
{
    loadPrinters();
    loadPorts();
    setIsSinglePrint(isStoredOn("is_single_print"));
    setIsOpenRoomPrint(isStoredOn("is_open_room_print"));
    setIsSmallImgMode(isStoredOn("is_small_img_mode"));
    setSpeed(stored("tts_speed").toInt());
    setIsUseTts(isStoredOn("is_use_tts"));
    if (isUseTts())
        loadVoice();
    const int assigned = QStringList{QStringLiteral("1"), QStringLiteral("5"), QStringLiteral("2")}.indexOf(
        stored("js_assign_type"));
    setJsAssIndex(qMax(0, assigned));
    loadCounts();
    loadReaders();
    watchChanges();
}

void Module5Vm::loadPrinters()
{
    m_printers->update(QStringList{QString()} + installedPrinters());
    setPrintIndex(m_printers->indexOf(stored("print")));
    m_printModes->update({QStringLiteral("TM48"), QStringLiteral("TM42")});
    setPrintModeIndex(isStoredOn("print_mode") ? 1 : 0);
}

/// A stored port stays in the list, also when this machine has none of that name.
void Module5Vm::loadPorts()
{
    constexpr int ports = 8;
    QStringList names;
    for (int i = 1; i <= ports; ++i)
        names.append(QStringLiteral("COM%1").arg(i));
    for (const char* key : {"staff_device_com", "hand_card_com"}) {
        const QString name = stored(key);
        if (!name.isEmpty() && !names.contains(name))
            names.append(name);
    }
    setComList(names);
    m_ports->update(names);
    setComIndex(names.indexOf(stored("staff_device_com")));
}

void Module5Vm::loadVoice()
{
    m_isVoiceLoaded = true;
    const QString text = stored("zy_tts_text");
    const QString count = stored("call_count");
    if (!text.isEmpty())
        setZytts(text);
    if (!count.isEmpty())
        setCallCount(count.toInt());
    if (!makeEngine())
        return;
    const QString language = stored("tts_language");
    QStringList labels;
    for (const QLocale& locale : m_engine->availableLocales()) {
        labels.append(Voice::label(locale));
        if (labels.last() == language && m_langIndex < 0) {
            m_engine->setLocale(locale);
            m_langIndex = labels.size() - 1;
        }
    }
    setLangList(labels);
    m_languages->update(labels);
    listVoices();
    setVoiceIndex(qMax(0, m_voices->indexOf(stored("tts_voice"))));
}

bool Module5Vm::makeEngine()
{
    if (!m_engine && QTextToSpeech::availableEngines().contains(speechEngineName()))
        m_engine = new QTextToSpeech(speechEngineName(), this);
    return m_engine;
}

/// The language is set already. Without lists the engine's own voice speaks, as it would in the program.
QTextToSpeech* Module5Vm::voiceToTry()
{
    if (!makeEngine())
        return nullptr;
    m_engine->setVolume(1.0);
    m_engine->setRate(speed());
    const QVector<QVoice> voices = m_engine->availableVoices();
    if (m_isVoiceLoaded && voiceIndex() >= 0 && voiceIndex() < voices.size())
        m_engine->setVoice(voices.at(voiceIndex()));
    return m_engine;
}

void Module5Vm::listVoices()
{
    QStringList names;
    for (const QVoice& voice : m_engine->availableVoices())
        names.append(voice.name());
    setVoiceList(names);
    m_voices->update(names);
}

void Module5Vm::loadCounts()
{
    const auto taken = [](const char* key, int least, int otherwise) {
        const int number = stored(key).toInt();
        return number >= least ? number : otherwise;
    };
    setJsItemCount(taken("js_item_count", leastColumns, jsItemCount()));
    setConsItemCount(taken("cons_item_count", leastColumns, consItemCount()));
    setRoomItemCount(taken("room_item_count", leastRoomColumns, roomItemCount()));
    setStopServerCount(stored("stop_server_print_count").toInt());
    setLeaveRoomCount(stored("leave_room_print_count").toInt());
}

void Module5Vm::loadReaders()
{
    setHandList({QStringLiteral("使用员工读卡器"), QStringLiteral("使用手牌读卡器")});
    m_handReaders->update(handList());
    setHandIndex(isStoredOn("hand_card_device") ? 1 : 0);
    setHandComIndex(m_ports->indexOf(stored("hand_card_com")));
    setIsRfid8(isStoredOn("is_rfid_8"));
    const CardConfigDto* cards = GlobalConfig::getInstance()->cardConfig();
    setIsVisRfid8(cards && (cards->lock_type() == 4 || cards->lock_type() == 5));
}

void Module5Vm::setLangIndex(int index)
{
    if (m_langIndex == index)
        return;
    m_langIndex = index;
    if (m_engine && index >= 0 && index < m_languages->rowCount()) {
        m_engine->setLocale(m_engine->availableLocales().value(index));
        listVoices();
        setVoiceIndex(0);
    }
    Q_EMIT langIndexChanged();
}

void Module5Vm::enterNumber(const QString& property, const QString& text)
{
    bool isNumber = false;
    const double typed = text.toDouble(&isNumber);
    if (!isNumber)
        return;
    int number = static_cast<int>(qBound(0.0, typed, 1e6));
    if (property == QLatin1String("speed") && number > highestSpeed)
        number = highestSpeed - number;
    if (!isRefused(property, number))
        setProperty(property.toLatin1().constData(), number);
}

bool Module5Vm::isPortThere(const QString& name) const { return SerialPort::isThere(name); }
