#pragma once

#include "print/PosApi.h"

#include <QByteArray>
#include <QString>

#include <memory>

/// How long a printer may keep the caller waiting, in milliseconds. Nobody can use the screen meanwhile.
struct PrinterLimits
{
    int connectMs = 2000; ///< until it is reached
    int stallMs = 3000;   ///< without taking a byte
    int jobMs = 8000;     ///< for a whole slip
};

/// Why the printer in use failed last. The library serves one thread at a time.
PosFault lastFault();
void noteFault(PosFault fault);

/// An opened printer.
class Printer
{
public:
    virtual ~Printer() = default;
    /// Hands one slip over. False, with a line in the log, when the printer didn't take all of it within the
    /// limits; it isn't asked again then.
    virtual bool send(const QByteArray& slip) = 0;
};

// Each opens one kind of printer, or gives null, with a line in the log, when it isn't there.

/// A numeric address or "localhost", with a port behind a colon where it isn't 9100.
std::unique_ptr<Printer> openNetworkPrinter(const QString& address, const PrinterLimits& limits);
/// A device file or a named pipe; it must exist.
std::unique_ptr<Printer> openDeviceFile(const QString& path, const PrinterLimits& limits);
/// A printer of the system's, which gets the bytes as they are.
std::unique_ptr<Printer> openSystemPrinter(const QString& name, const PrinterLimits& limits);
/// A folder that gets each slip as bytes, as UTF-8 text and as a picture; made where it is missing.
std::unique_ptr<Printer> openPreviewPrinter(const QString& folder);

/// By the name that the user chose: one of our own, or else one of the system's.
std::unique_ptr<Printer> openNamedPrinter(const QString& name, const PrinterLimits& limits);
