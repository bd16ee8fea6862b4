#pragma once

#include "platform/DynamicLibrary.h"
#include "print/PosApi.h"

/// The receipt printer library, bound at run time: the vendor's, or our own beside the program.
class PosPrintDLL
{
public:
    /// Loads the library and resolves its entry points in order. The first that is missing ends it with false,
    /// named in errorString().
    bool LoadPosdll(const QString& name = QStringLiteral("POSDLL"));
    /// Forgets the entry points; the library itself stays mapped to the end of the process.
    void UnloadPosdll();
    QString errorString() const { return m_error; }
    /// Why the last slip wasn't printed, as far as the library tells.
    PosFault lastFault() const { return m_lastFault ? static_cast<PosFault>(m_lastFault()) : PosNoFault; }

#define CALLED(name, Type) Type name = nullptr;
#define UNUSED(name)
    POS_ENTRY_POINTS(CALLED, UNUSED)
#undef CALLED
#undef UNUSED

private:
    bool resolveAll();

    DynamicLibrary m_library;
    QString m_error;
    PosPlain m_lastFault = nullptr; ///< null with a library that doesn't tell
};
