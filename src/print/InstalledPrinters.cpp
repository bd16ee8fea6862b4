#include "print/InstalledPrinters.h"

#include "platform/Printers.h"

#include <QPrinterInfo>

QStringList installedPrinters()
{
    QStringList names = QPrinterInfo::availablePrinterNames();
    for (const OwnPrinter& printer : ownPrinters())
        names.append(printer.name);
    names.removeDuplicates();
    return names;
}
