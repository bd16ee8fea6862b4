#include "Printer.h"

#include "platform/Printers.h"

namespace {

PosFault noted = PosNoFault;

} // namespace

PosFault lastFault() { return noted; }

void noteFault(PosFault fault) { noted = fault; }

std::unique_ptr<Printer> openNamedPrinter(const QString& name, const PrinterLimits& limits)
{
    const QString network = QStringLiteral("tcp://");
    const QString preview = QStringLiteral("preview:");
    for (const OwnPrinter& own : ownPrinters()) {
        if (own.name != name)
            continue;
        if (own.target.startsWith(network))
            return openNetworkPrinter(own.target.mid(network.size()), limits);
        if (own.target.startsWith(preview))
            return openPreviewPrinter(own.target.mid(preview.size()));
        return openDeviceFile(own.target, limits);
    }
    return openSystemPrinter(name, limits);
}
