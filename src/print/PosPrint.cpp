#include "print/PosPrint.h"

#include "common/GlobalConfig.h"
#include "common/MyMessage.h"
#include "common/Settings.h"
#include "platform/LocalText.h"
#include "print/InstalledPrinters.h"
#include "print/Slips.h"

#include <QDebug>
#include <QTimer>

#include <mutex>

namespace {

PosHandle printerHandle = nullptr; // written by each open

/// The slip in words.
QString slipName(int kind)
{
    switch (kind) {
    case PrintOrder:
    case PrintOrderAgain:
        return QStringLiteral("【消费单】");
    case PrintTransfer:
        return QStringLiteral("【转账单】");
    case PrintTechnicianEnd:
    case PrintServiceEnd:
        return QStringLiteral("【下钟单】");
    case PrintSalesReport:
        return QStringLiteral("【业绩单】");
    case PrintBuffet:
        return QStringLiteral("【自助餐单】");
    case PrintOpenRoom:
        return QStringLiteral("【开房单】");
    case PrintLeaveRoom:
        return QStringLiteral("【离房单】");
    default:
        return {};
    }
}

/// The library serves one slip at a time.
std::mutex& printing()
{
    static std::mutex mutex;
    return mutex;
}

PosPrintDLL& terminalLibrary()
{
    static PosPrintDLL library;
    return library;
}

bool loadTerminalLibrary()
{
    const bool isLoaded = terminalLibrary().LoadPosdll();
    if (!isLoaded)
        qDebug().noquote() << "POSDLL:" << terminalLibrary().errorString();
    return isLoaded;
}

} // namespace

PrintSettings PrintSettings::ofTerminal()
{
    GlobalConfig* config = GlobalConfig::getInstance();
    PrintSettings settings;
    settings.isIndent = !Settings::isOn(QStringLiteral("print_mode"));
    const QString printer = Settings::read(QStringLiteral("print"));
    if (installedPrinters().contains(printer))
        settings.printerName = printer;
    settings.storeName = config->storeName();
    if (config->terminalInfo())
        settings.orderPrintNum = qMax(0, config->terminalInfo()->orderPrintNum());
    settings.isSinglePrint = Settings::isOn(QStringLiteral("is_single_print"));
    settings.isOpenRoomPrint = Settings::isOn(QStringLiteral("is_open_room_print"));
    return settings;
}

namespace {

PrintOutcome outcomeOf(PosFault fault, bool isOpened)
{
    switch (fault) {
    case PosNoPrinter:
        return PrintOutcome::NoPrinter;
    case PosOutOfReach:
        return PrintOutcome::OutOfReach;
    case PosRefused:
        return PrintOutcome::Refused;
    case PosTimedOut:
        return PrintOutcome::TimedOut;
    default:
        return isOpened ? PrintOutcome::Done : PrintOutcome::NotOpened;
    }
}

} // namespace

PrintOutcome PosPrint::printTest(const QString& printerName, bool isIndent)
{
    const PosPrint* terminal = getInstance();
    if (!terminal->m_isLoaded)
        return PrintOutcome::NoLibrary;
    if (printerName.isEmpty() || !installedPrinters().contains(printerName))
        return PrintOutcome::NoPrinter;
    PrintSettings settings;
    settings.isIndent = isIndent;
    settings.printerName = printerName;
    settings.storeName = terminal->m_settings.storeName;
    const std::lock_guard<std::mutex> lock(printing());
    PosPrint test(terminal->m_library, true, settings);
    const bool isOpened = test.openDevice({}, {});
    if (isOpened) {
        Slips::test(test.m_paper, settings.storeName);
        terminal->m_library.POS_Close();
    }
    return outcomeOf(terminal->m_library.lastFault(), isOpened);
}

PosPrint::PosPrint() : PosPrint(terminalLibrary(), loadTerminalLibrary(), PrintSettings::ofTerminal()) {}

PosPrint::PosPrint(const PosPrintDLL& library, bool isLoaded, const PrintSettings& settings)
    : m_library(library), m_isLoaded(isLoaded), m_settings(settings), m_paper(library, settings.isIndent),
      m_message(MyMessage::getInstance()), m_config(GlobalConfig::getInstance())
{
}

bool PosPrint::openDevice(const QString& address, const QString& port)
{
    const bool isNetwork = !port.isEmpty();
    const QByteArray name = LocalText::encode(isNetwork ? address : m_settings.printerName);
    printerHandle =
        m_library.POS_Open(name.constData(), 0, 0, 0, 0, isNetwork ? PosNetworkAddress : PosPrinterName);
    if (printerHandle == posOpenFailed())
        return false;
    if (isNetwork)
        m_library.POS_Reset();
    return true;
}

/// Behind what the caller has to say: his "操作成功" would take this one's place at once.
void PosPrint::tellFailure(int kind, const QVariant& data, const QString& address, const QString& port)
{
    QTimer::singleShot(0, this, [=] {
        const QString failure = QStringLiteral("打印失败,未正确连接打印机");
        const QString slip = slipName(kind);
        const QString printer = port.isEmpty() ? m_settings.printerName : address;
        const QString named = printer.isEmpty() ? failure : failure + QStringLiteral("：") + printer;
        m_message->showErrorWithReprint(slip.isEmpty() ? failure : slip + named,
                                        [=] { print(kind, data, address, port); });
    });
}

void PosPrint::posTextOut(const QString& text, unsigned width, unsigned height)
{
    m_paper.textOut(text, width, height);
}

void PosPrint::cutPaper() { m_paper.cutPaper(); }

void PosPrint::print(int kind, const QVariant& data, const QString& address, const QString& port)
{
    if (kind == PrintOpenRoom && !m_settings.isOpenRoomPrint)
        return;
    if (!m_isLoaded)
        return;
    const std::lock_guard<std::mutex> lock(printing());
    if (!openDevice(address, port)) {
        tellFailure(kind, data, address, port);
        return;
    }
    const int lackingBefore = m_paper.lackingCharacters();
    printSlips(kind, data);
    m_library.POS_Close();
    if (const int lacking = m_paper.lackingCharacters() - lackingBefore)
        qDebug() << "print" << kind << ":" << lacking << "characters that the printer lacks, printed as ?";
}

void PosPrint::printSlips(int kind, const QVariant& data)
{
    const QString& store = m_settings.storeName;
    switch (kind) {
    case PrintOrder:
        return printCopies<consumer_print_struct>(data, 1, [&](const auto& record) { printOrders(record); });
    case PrintOrderAgain:
        return printCopies<consumer_print_struct>(
            data, 1, [&](const auto& record) { Slips::order(m_paper, record, store, 1, true); });
    case PrintTransfer:
        return printCopies<transfer_print_struct>(
            data, 1, [&](const auto& record) { Slips::transfer(m_paper, record, store); });
    case PrintTechnicianEnd:
        return printCopies<end_server_print_struct>(
            data, 1, [&](const auto& record) { Slips::technicianEnd(m_paper, record); });
    case PrintSalesReport:
        return printCopies<sell_sum_print_struct>(
            data, 1, [&](const auto& record) { Slips::salesReport(m_paper, record); });
    case PrintBuffet:
        return printCopies<buffet_print_struct>(
            data, 1, [&](const auto& record) { Slips::buffet(m_paper, record, store); });
    case PrintOpenRoom:
        return printCopies<open_room_print_struct>(
            data, 1, [&](const auto& record) { Slips::openRoom(m_paper, record, store); });
    case PrintLeaveRoom:
        return printCopies<leave_room_print_struct>(
            data, m_config->leave_room_print_count,
            [&](const auto& record) { Slips::leaveRoom(m_paper, record, store); });
    case PrintServiceEnd:
        return printCopies<js_server_print>(data, m_config->stop_server_print_count,
                                            [&](const auto& record) { Slips::serviceEnd(m_paper, record); });
    default:
        qDebug() << "print: no slip of kind" << kind;
    }
}

template <typename Record, typename Layout>
void PosPrint::printCopies(const QVariant& data, int copies, Layout layout)
{
    if (copies > 0 && !data.canConvert<Record>()) {
        m_message->showError(QStringLiteral("打印失败【数据格式转换不正确】"));
        return;
    }
    const Record record = data.value<Record>();
    for (int copy = 0; copy < copies; ++copy)
        layout(record);
}

void PosPrint::printOrders(const consumer_print_struct& record)
{
    if (m_settings.orderPrintNum <= 0)
        return;
    if (!m_settings.isSinglePrint) {
        for (int number = 1; number <= m_settings.orderPrintNum; ++number)
            Slips::order(m_paper, record, m_settings.storeName, number, false);
        return;
    }
    consumer_print_struct single = record;
    for (const consumer_item_struct& item : record.items) {
        single.items = {item};
        Slips::order(m_paper, single, m_settings.storeName, 1, false);
    }
}
