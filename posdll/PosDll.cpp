// Our own implementation of the receipt printer library, for machines without the vendor's: the nine calls that
// the terminal makes, on one printer at a time. A slip is collected from its start to its end and sent as a
// whole.

#include "EscPos.h"
#include "Printer.h"
#include "platform/LocalText.h"
#include "print/PosApi.h"

#include <QDebug>

#ifdef _WIN32
#define POS_EXPORT extern "C" __declspec(dllexport)
#else
#define POS_EXPORT extern "C" __attribute__((visibility("default")))
#endif

namespace {

enum Result : int { Done = 0, Failed = 1, NotOpen = 2, NotSupported = 3 };

/// The opened printer and the slip that is being made for it.
struct Session
{
    std::unique_ptr<Printer> printer;
    QByteArray slip;
    unsigned height = 1;
    bool isBroken = false; ///< a printer that failed once isn't waited for again

    Result add(const QByteArray& bytes)
    {
        if (!printer)
            return NotOpen;
        slip += bytes;
        return Done;
    }

    Result send()
    {
        if (!printer)
            return NotOpen;
        if (!slip.isEmpty())
            isBroken = isBroken || !printer->send(slip);
        slip.clear();
        return isBroken ? Failed : Done;
    }
};

Session& session()
{
    static Session opened;
    return opened;
}

Result initialise()
{
    session().height = 1;
    return session().add(EscPos::initialise());
}

/// Text from elsewhere must not command the printer: control characters become blanks.
QByteArray printable(const char* text)
{
    QByteArray bytes(text);
    for (char& byte : bytes) {
        if (uchar(byte) < 0x20 || byte == 0x7f)
            byte = ' ';
    }
    return bytes;
}

} // namespace

POS_EXPORT PosHandle POS_CALL POS_Open(const char* name, unsigned, unsigned, unsigned, unsigned, unsigned kind)
{
    session() = Session();
    noteFault(PosNoFault);
    const QString printer = LocalText::decode(name);
    if (kind == PosPrinterName)
        session().printer = openNamedPrinter(printer, PrinterLimits());
    else if (kind == PosNetworkAddress)
        session().printer = openNetworkPrinter(printer, PrinterLimits());
    return session().printer ? session().printer.get() : posOpenFailed();
}

POS_EXPORT int POS_CALL POS_Close()
{
    const Result result = session().send();
    session() = Session();
    return result;
}

POS_EXPORT int POS_CALL POS_Reset() { return initialise(); }

POS_EXPORT int POS_CALL POS_StartDoc() { return initialise(); }

POS_EXPORT int POS_CALL POS_EndDoc() { return session().send(); }

/// Mode 0 prints line by line, which is how a printer starts.
POS_EXPORT int POS_CALL POS_SetMode(unsigned mode) { return mode == 0 ? session().add({}) : NotSupported; }

POS_EXPORT int POS_CALL POS_S_TextOut(const char* text, unsigned x, unsigned width, unsigned height,
                                      unsigned font, unsigned style)
{
    if (!text || x != 0 || width != 1 || height < 1 || height > 2 || font != 0 || style != 0)
        return NotSupported;
    QByteArray bytes;
    if (height != session().height)
        bytes = EscPos::height(height);
    session().height = height;
    return session().add(bytes + printable(text));
}

POS_EXPORT int POS_CALL POS_FeedLine() { return session().add(EscPos::feedLine()); }

POS_EXPORT int POS_CALL POS_CutPaper(unsigned mode, unsigned distance)
{
    if (mode != 0 || distance > 255)
        return NotSupported;
    return session().add(EscPos::cut(distance));
}

POS_EXPORT int POS_CALL KV_LastFault() { return lastFault(); }

#define CALLED(name, Type)
#define UNUSED(name)                                                                                           \
    POS_EXPORT int POS_CALL name() { return NotSupported; }
POS_ENTRY_POINTS(CALLED, UNUSED)
#undef CALLED
#undef UNUSED
