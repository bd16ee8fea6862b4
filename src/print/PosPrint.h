#pragma once

#include "common/Singleton.h"
#include "print/PosPrintDLL.h"
#include "print/PrintRecords.h"
#include "print/SlipPaper.h"

#include <QObject>
#include <QVariant>

class GlobalConfig;
class MyMessage;

/// The slips, as PosPrint::print takes them.
enum PrintKind : int {
    PrintOrder = 4,          ///< consumer_print_struct
    PrintOrderAgain = 5,     ///< consumer_print_struct
    PrintTransfer = 6,       ///< transfer_print_struct
    PrintTechnicianEnd = 13, ///< end_server_print_struct
    PrintSalesReport = 16,   ///< sell_sum_print_struct
    PrintBuffet = 23,        ///< buffet_print_struct
    PrintOpenRoom = 30,      ///< open_room_print_struct
    PrintLeaveRoom = 38,     ///< leave_room_print_struct
    PrintServiceEnd = 50,    ///< js_server_print
};

/// How a test slip ended.
enum class PrintOutcome { Done, NoLibrary, NoPrinter, OutOfReach, Refused, TimedOut, NotOpened };

/// What steers printing, read once; changed settings take effect at the next start.
struct PrintSettings
{
    bool isIndent = true;         ///< the wider model, "TM48"
    QString printerName;          ///< empty when none is set or the one set isn't installed
    QString storeName;            ///< head line of most slips
    int orderPrintNum = 0;        ///< copies of the order slip
    bool isSinglePrint = false;   ///< an order slip for each line
    bool isOpenRoomPrint = false; ///< a slip at the opening of a room

    /// From the settings table and the shared state.
    static PrintSettings ofTerminal();
};

/// The receipt printer. Main thread; the calls return when the last line is handed over.
///
/// Nothing that fails here reaches the caller: without the library printing is silent, without the printer the
/// user is told which slip was lost, and may have it printed again as long as that message stands.
class PosPrint : public QObject, public Singleton<PosPrint>
{
    Q_OBJECT

public:
    /// The library, loaded or not, must outlive the printer.
    PosPrint(const PosPrintDLL& library, bool isLoaded, const PrintSettings& settings);

    /// Prints a record as the slip of a PrintKind. A port makes address the printer, else the setting does.
    void print(int kind, const QVariant& data, const QString& address, const QString& port);

    /// False when the printer can't be opened.
    bool openDevice(const QString& address, const QString& port);
    /// One line of 42 columns and a feed; width is 1, height 1 or 2.
    void posTextOut(const QString& text, unsigned width, unsigned height);
    void cutPaper();

    /// Prints a slip that shows what the printer can do, on this printer and nothing else; what came of it. On
    /// any thread, which it keeps for seconds when the printer doesn't answer; other slips wait meanwhile.
    static PrintOutcome printTest(const QString& printerName, bool isIndent);

private:
    friend class Singleton<PosPrint>;
    PosPrint();

    void tellFailure(int kind, const QVariant& data, const QString& address, const QString& port);
    void printSlips(int kind, const QVariant& data);
    void printOrders(const consumer_print_struct& record);
    template <typename Record, typename Layout>
    void printCopies(const QVariant& data, int copies, Layout layout);

    const PosPrintDLL& m_library;
    const bool m_isLoaded;
    const PrintSettings m_settings;
    SlipPaper m_paper;
    MyMessage* m_message;
    GlobalConfig* m_config;
};
