// Prints a slip of each kind through our own printer library to its preview printer, into a folder of your
// choice.

#include "Samples.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <cstdio>

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
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    for (const SampleSlip& slip : Samples::evening()) {
        QTemporaryDir printed;
        qputenv("KV_PANEL_PREVIEW_DIR", QFile::encodeName(printed.path()));
        Samples::print(slip, library, "预览打印机");
        // The preview printer counts its slips; this folder wants them by name.
        for (const QString suffix : {".bin", ".txt", ".png"}) {
            QFile::remove(folder.filePath(slip.name + suffix));
            if (!QFile::copy(printed.filePath("slip-0001" + suffix), folder.filePath(slip.name + suffix))) {
                std::fprintf(stderr, "kv_slips: %s wasn't printed\n", slip.name);
                return 1;
            }
        }
    }
    return 0;
}
