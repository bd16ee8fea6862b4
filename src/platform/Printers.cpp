#include "platform/Printers.h"

#include <QStringList>

#include <algorithm>

namespace {

void append(QVector<OwnPrinter>& printers, const OwnPrinter& printer)
{
    const bool isKnown = std::any_of(printers.cbegin(), printers.cend(),
                                     [&](const OwnPrinter& known) { return known.name == printer.name; });
    if (!printer.name.isEmpty() && !printer.target.isEmpty() && !isKnown)
        printers.append(printer);
}

} // namespace

QVector<OwnPrinter> ownPrinters()
{
    QVector<OwnPrinter> printers;
    for (const QString& entry : qEnvironmentVariable("KV_PANEL_PRINTERS").split(QLatin1Char(';'))) {
        const QString name = entry.section(QLatin1Char('='), 0, 0).trimmed();
        append(printers, {name, entry.section(QLatin1Char('='), 1).trimmed()});
    }

    QString folder = qEnvironmentVariable("KV_PANEL_PREVIEW_DIR");
#ifndef Q_OS_WIN
    if (folder.isEmpty())
        folder = QStringLiteral("slips");
#endif
    if (!folder.isEmpty())
        append(printers, {QStringLiteral("预览打印机"), QStringLiteral("preview:") + folder});
    return printers;
}
