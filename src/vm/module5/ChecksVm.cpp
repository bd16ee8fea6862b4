#include "vm/module5/ChecksVm.h"

#include "common/Clock.h"
#include "common/LogFolder.h"
#include "devices/Tg_Device.h"
#include "net/NetServer.h"
#include "print/PosPrint.h"
#include "vm/module5/Diagnosis.h"
#include "vm/shared/Beside.h"
#include "vm/shared/CallText.h"

namespace {

constexpr int mostReadings = 20;

QString outcomeText(PrintOutcome outcome)
{
    switch (outcome) {
    case PrintOutcome::Done:
        return QStringLiteral("已打印，请看测试单");
    case PrintOutcome::NoLibrary:
        return QStringLiteral("打印组件没有装好");
    case PrintOutcome::NoPrinter:
        return QStringLiteral("没有这台打印机");
    case PrintOutcome::OutOfReach:
        return QStringLiteral("连不上打印机，请查电源和网线");
    case PrintOutcome::Refused:
        return QStringLiteral("打印机拒绝，可能被占用或无权限");
    case PrintOutcome::TimedOut:
        return QStringLiteral("打印机没有回应，等待超时");
    case PrintOutcome::NotOpened:
        break;
    }
    return QStringLiteral("打不开打印机");
}

/// Bytes as pairs, then what of them can be read.
QString rawText(const QByteArray& raw)
{
    constexpr int mostBytes = 32;
    const QByteArray shown = raw.left(mostBytes);
    QString characters;
    for (const char byte : shown)
        characters += byte >= 0x20 && byte < 0x7f ? QLatin1Char(byte) : QLatin1Char('.');
    return QString::fromLatin1(shown.toHex(' ').toUpper()) + QStringLiteral("  ") + characters;
}

int readerModel()
{
    const CardConfigDto* cards = GlobalConfig::getInstance()->cardConfig();
    return cards ? cards->lock_type() : 0;
}

bool knowsEightDigits(int model) { return model == 4 || model == 5; }

} // namespace

ReadingModel::ReadingModel(QObject* parent)
    : RowModel({field("reader", &reading_struct::reader),
                field("time", &reading_struct::time),
                field("raw", &reading_struct::raw),
                field("number", &reading_struct::number),
                {"backColor",
                 [](const reading_struct& row) {
                     return row.number.isEmpty() ? QStringLiteral("#FDE2E2") : QStringLiteral("#FFFFFF");
                 }}},
               parent)
{
}

void ReadingModel::add(const reading_struct& reading)
{
    insertAt(0, reading);
    removeAt(mostReadings);
}

LineCheckModel::LineCheckModel(QObject* parent)
    : RowModel({field("name", &line_check_struct::name), field("result", &line_check_struct::result),
                field("isOk", &line_check_struct::isOk)},
               parent)
{
}

ChecksVm::ChecksVm(QObject* parent)
    : ActionVm(parent), m_readings(new ReadingModel(this)), m_lines(new LineCheckModel(this))
{
}

ChecksVm::~ChecksVm() { stopReading(); }

void ChecksVm::printTest(Module5Vm* settings)
{
    const QString printer = settings->pPrintModel()->at(settings->printIndex());
    const bool isIndent = settings->printModeIndex() == 0;
    act([&] {
        const QPointer<ChecksVm> self(this);
        setIsPrintGood(false);
        setPrintResult(QStringLiteral("正在打印…"));
        PosPrint::getInstance(); // is made on this thread
        PrintOutcome outcome = PrintOutcome::NotOpened;
        runBeside([&] { outcome = PosPrint::printTest(printer, isIndent); });
        if (!self)
            return false;
        setIsPrintGood(outcome == PrintOutcome::Done);
        setPrintResult(printer.isEmpty() ? QStringLiteral("没有选择打印机") : outcomeText(outcome));
        return isPrintGood();
    });
}

void ChecksVm::voiceTest(Module5Vm* settings)
{
    m_leftToSay = 0;
    if (!settings->isUseTts()) {
        setVoiceResult(QStringLiteral("语音未启用，呼叫时不会播报"));
        return;
    }
    QTextToSpeech* engine = settings->voiceToTry();
    if (!engine || engine->state() == QTextToSpeech::BackendError) {
        setVoiceResult(engine ? QStringLiteral("语音引擎出错") : QStringLiteral("本机没有语音引擎"));
        return;
    }
    if (m_engine != engine) {
        m_engine = engine;
        connect(engine, &QTextToSpeech::stateChanged, this, &ChecksVm::sayNext);
    }
    m_sentence = callText(settings->zytts(), QStringLiteral("8001"));
    m_leftToSay = settings->callCount();
    setVoiceResult(m_leftToSay > 0 ? m_sentence.simplified() + QStringLiteral("  ×%1").arg(m_leftToSay)
                                   : QStringLiteral("播报次数为0，呼叫时不会播报"));
    engine->stop();
    sayNext();
}

/// An engine that is given a text while it speaks cuts what it says.
void ChecksVm::sayNext()
{
    if (m_leftToSay <= 0 || !m_engine || m_engine->state() != QTextToSpeech::Ready)
        return;
    --m_leftToSay;
    m_engine->say(m_sentence);
}

void ChecksVm::startReading(Module5Vm* settings)
{
    stopReading();
    m_readings->replace({});
    // On top of both stacks, and nothing is done with the cards there.
    m_staffCards.listenToStaff();
    m_handCards.listenToHand();
    setReadersResult(listenToStaffReader(settings->pComModel()->at(settings->comIndex())) +
                     QStringLiteral("；") + listenToHandReader(settings));
    setIsReading(true);
}

QString ChecksVm::listenToStaffReader(const QString& port)
{
    const QString name = QStringLiteral("员工读卡器");
    const auto take = [this, name](const QByteArray& raw, const QString& text) { note(name, raw, text); };
    if (port.isEmpty())
        return name + QStringLiteral("未选串口");
    MainClass* program = MainClass::getInstance();
    if (port == program->staffPort()) {
        m_taps.append(connect(program, &MainClass::staffReceived, this, take));
        return name + QLatin1Char(' ') + port;
    }
    m_ownPort = std::make_unique<SerialPort>();
    connect(m_ownPort.get(), &StaffDevice::received, this, take);
    if (m_ownPort->open(port))
        return name + QLatin1Char(' ') + port;
    m_ownPort.reset();
    return name + QLatin1Char(' ') + port + QStringLiteral(" 打不开");
}

QString ChecksVm::listenToHandReader(Module5Vm* settings)
{
    const QString name = QStringLiteral("手牌读卡器");
    if (settings->handIndex() == 0)
        return QStringLiteral("手牌用员工读卡器");
    const int model = readerModel();
    // How a card is written is the page's choice, whatever the running reader does.
    const QPointer<Module5Vm> page(settings);
    const auto take = [this, name, model, page](const QByteArray& raw, const QString& text) {
        const bool isOnPage = page && knowsEightDigits(model);
        note(name, raw, isOnPage ? Tg_Device::cardText(raw, page->isRfid8()) : text);
    };
    MainClass* program = MainClass::getInstance();
    if (program->hasHandReader()) {
        m_taps.append(connect(program, &MainClass::handReceived, this, take));
        return name;
    }
    m_ownHand.reset(HandCardDevice::initDevice(model));
    if (!m_ownHand)
        return QStringLiteral("后台没有配置手牌读卡器型号");
    if (!m_ownHand->getInitStatus()) {
        m_ownHand.reset();
        return name + QStringLiteral("打不开");
    }
    connect(m_ownHand.get(), &HandCardDevice::received, this, take);
    m_ownHand->startDevice(0);
    return name;
}

void ChecksVm::stopReading()
{
    m_staffCards.end();
    m_handCards.end();
    for (const QMetaObject::Connection& tap : m_taps)
        disconnect(tap);
    m_taps.clear();
    m_ownPort.reset();
    m_ownHand.reset();
    setIsReading(false);
    setReadersResult({});
}

void ChecksVm::note(const QString& reader, const QByteArray& raw, const QString& number)
{
    m_readings->add({reader, Clock::now().toString(QStringLiteral("HH:mm:ss")), rawText(raw), number});
}

void ChecksVm::measureLines()
{
    act([this] {
        const SysApiReqDto* lines = GlobalConfig::getInstance()->sysApiReq();
        m_lines->replace({});
        setLinesResult(lines ? QString() : QStringLiteral("没有线路列表"));
        if (!lines)
            return false;
        QVector<line_check_struct> rows;
        QStringList urls;
        for (const ReqLineDto* platform : lines->reqLines()) {
            for (const SubLineDto* line : platform->subLines()) {
                rows.append({line->title(), QStringLiteral("…"), false});
                urls.append(line->domain() + lines->lineCheckHttpPath());
            }
        }
        m_lines->replace(rows);
        const QPointer<ChecksVm> self(this);
        for (int i = 0; i < urls.size(); ++i) {
            const int milliseconds = NetWorkUtls::NetServer(true, nullptr).testApi(urls.at(i));
            if (!self)
                return false;
            m_lines->changeAt(i, [&](line_check_struct& row) {
                row.isOk = milliseconds >= 0;
                row.result = row.isOk ? QStringLiteral("%1ms").arg(milliseconds) : QStringLiteral("离线");
            });
        }
        return true;
    });
}

void ChecksVm::writeDiagnosis()
{
    act([this] {
        const QPointer<ChecksVm> self(this);
        setDiagnosisResult(QStringLiteral("正在收集…"));
        const Diagnosis diagnosis;
        QString path;
        runBeside([&] { path = diagnosis.write(logFolder()); });
        if (self)
            setDiagnosisResult(path.isEmpty() ? QStringLiteral("写不出诊断文件，磁盘已满或没有权限") : path);
        return !path.isEmpty();
    });
}
