#pragma once

#include <QLibrary>
#include <QStringList>

/// A shared library bound at run time. It stays loaded to the end of the process unless it is let go of.
class DynamicLibrary
{
public:
    /// Tries the names in order: in the program's folder by absolute path first, then as the system finds them.
    /// A name with a version is tried as "name", version. False when none could be loaded.
    bool load(const QStringList& names, int version = -1);

    /// Lets go of the library; nothing resolved from it may be called any more.
    void unload() { m_library.unload(); }

    /// Null when the library lacks the symbol.
    template <typename Function>
    bool resolve(Function& function, const char* symbol)
    {
        function = reinterpret_cast<Function>(m_library.resolve(symbol));
        return function != nullptr;
    }

    QString errorString() const { return m_library.errorString(); }

private:
    QLibrary m_library;
};
