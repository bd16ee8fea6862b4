// Prints a slip of each kind through our own printer library to its preview printer, into a folder of your
// choice.

#include "Samples.h"
#include "common/Clock.h"
#include "common/GlobalConfig.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <cstdio>

namespace {

/// The preview printer counts its slips; this folder wants them by name.
bool keep(const QDir& printed, const QDir& folder, const QString& name)
{
    for (const char* suffix : {".bin", ".txt", ".png"}) {
        const QString target = folder.filePath(name + QLatin1String(suffix));
        QFile::remove(target);
        if (!QFile::copy(printed.filePath(QStringLiteral("slip-0001") + QLatin1String(suffix)), target))
            return false;
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    if (argc != 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
        std::fprintf(stderr, "usage: kv_slips FOLDER\n");
        return 2;
    }
    PosPrintDLL library;
    if (!library.LoadPosdll()) {
        std::fprintf(stderr, "kv_slips: %s\n", qPrintable(library.errorString()));
        return 1;
    }

    Clock::setSource(&Samples::printedAtMs);
    GlobalConfig::getInstance()->leave_room_print_count = 1;
    GlobalConfig::getInstance()->stop_server_print_count = 1;
    PrintSettings settings;
    settings.printerName = QStringLiteral("预览打印机");
    settings.storeName = QString::fromUtf8(Samples::storeName);
    settings.orderPrintNum = 1;
    settings.isOpenRoomPrint = true;
    PosPrint printer(library, true, settings);
    for (const Samples::Slip& slip : Samples::all()) {
        QTemporaryDir printed;
        qputenv("KV_PANEL_PREVIEW_DIR", QFile::encodeName(printed.path()));
        printer.print(slip.kind, slip.record, {}, {});
        if (!keep(printed.path(), QString::fromLocal8Bit(argv[1]), QString::fromLatin1(slip.name))) {
            std::fprintf(stderr, "kv_slips: %s wasn't printed\n", slip.name);
            return 1;
        }
    }
    return 0;
}
