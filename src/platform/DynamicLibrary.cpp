#include "platform/DynamicLibrary.h"

#include <QCoreApplication>

bool DynamicLibrary::load(const QStringList& names, int version)
{
    const QString folder = QCoreApplication::applicationDirPath();
    for (const QString& name : names) {
        for (const QString& path : {folder + QLatin1Char('/') + name, name}) {
            m_library.setFileNameAndVersion(path, version);
            if (m_library.load())
                return true;
        }
    }
    return false;
}
