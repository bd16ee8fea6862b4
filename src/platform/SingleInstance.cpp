#include "platform/SingleInstance.h"

#include <QString>

#ifdef Q_OS_WIN

#include <QDeadlineTimer>
#include <QSharedMemory>
#include <QThread>

Claim claimSingleInstance(QString& cause)
{
    static QSharedMemory segment(QStringLiteral("Kv_Panel_V2"));
    // The one that started this one in its place is on its way out.
    const QDeadlineTimer end(qEnvironmentVariableIsSet("KV_PANEL_RESTART") ? 10000 : 0);
    qunsetenv("KV_PANEL_RESTART");
    do {
        if (segment.create(1, QSharedMemory::ReadWrite))
            return Claim::Ours;
        QThread::msleep(end.hasExpired() ? 0 : 100);
    } while (!end.hasExpired());
    cause = QStringLiteral("another terminal runs already");
    return Claim::Taken;
}

#else

#include "platform/UserValues.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {

/// The folder is the user's own, so that no other user can be there before him; and a file that he may only
/// read can be locked all the same.
int openLock(const QByteArray& path)
{
    constexpr int flags = O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK;
    const int file = ::open(path.constData(), O_RDWR | O_CREAT | flags, S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP);
    return file >= 0 ? file : ::open(path.constData(), O_RDONLY | flags);
}

} // namespace

Claim claimSingleInstance(QString& cause)
{
    const QDir folder = QFileInfo(UserValues::path()).dir();
    QDir().mkpath(folder.path());
    const QString path = folder.filePath(QStringLiteral("KV_PANEL_V2.lock"));
    const int file = openLock(QFile::encodeName(path)); // never closed: the claim goes with the process
    if (file >= 0 && ::flock(file, LOCK_EX | LOCK_NB) == 0)
        return Claim::Ours;
    const int error = errno;
    if (file >= 0)
        ::close(file);
    if (error == EWOULDBLOCK) {
        cause = QStringLiteral("another terminal runs already, it holds %1").arg(path);
        return Claim::Taken;
    }
    cause = QStringLiteral("whether another terminal runs can't be told: %1: %2")
                .arg(path, QString::fromLocal8Bit(std::strerror(error)));
    return Claim::Unguarded;
}

#endif
