#include "print/PosPrintDLL.h"

bool PosPrintDLL::LoadPosdll(const QString& name)
{
    if (!m_library.load({name})) {
        m_error = m_library.errorString();
        return false;
    }
    m_library.resolve(m_lastFault, "KV_LastFault");
    if (resolveAll())
        return true;
    UnloadPosdll();
    return false;
}

bool PosPrintDLL::resolveAll()
{
    QFunctionPointer unused = nullptr;
#define CALLED(name, Type)                                                                                     \
    if (!m_library.resolve(name, #name)) {                                                                     \
        m_error = QStringLiteral("no entry point " #name);                                                     \
        return false;                                                                                          \
    }
#define UNUSED(name)                                                                                           \
    if (!m_library.resolve(unused, #name)) {                                                                   \
        m_error = QStringLiteral("no entry point " #name);                                                     \
        return false;                                                                                          \
    }
    POS_ENTRY_POINTS(CALLED, UNUSED)
#undef CALLED
#undef UNUSED
    return true;
}

void PosPrintDLL::UnloadPosdll()
{
    m_lastFault = nullptr;
#define CALLED(name, Type) name = nullptr;
#define UNUSED(name)
    POS_ENTRY_POINTS(CALLED, UNUSED)
#undef CALLED
#undef UNUSED
}
