#include "platform/PrivateFiles.h"

#include <QFile>

#ifndef Q_OS_WIN
#include <sys/stat.h>

namespace {

constexpr mode_t permissionBits = 07777;
constexpr mode_t others = 007;
constexpr mode_t allButTheUser = 077;

mode_t currentMask()
{
    const mode_t mask = ::umask(allButTheUser);
    ::umask(mask);
    return mask;
}

} // namespace

void keepFilesPrivate()
{
    if ((currentMask() & others) != others)
        ::umask(allButTheUser);
}

void makePrivate(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    const mode_t mask = currentMask();
    struct stat status = {};
    if (::stat(name.constData(), &status) == 0 && (status.st_mode & mask) != 0)
        ::chmod(name.constData(), status.st_mode & permissionBits & ~mask);
}

#else

void keepFilesPrivate() {}

void makePrivate(const QString&) {}

#endif
