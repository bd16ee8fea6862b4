#include "platform/SingleInstance.h"

#include <QSharedMemory>

#ifndef Q_OS_WIN
#include <unistd.h>
#endif

namespace {

/// Where a segment outlives a process that was killed: the last one to detach removes it, so that attaching and
/// detaching clears a stale one and leaves a living owner's alone.
void clearStaleSegment(const QString& key)
{
#ifdef Q_OS_WIN
    Q_UNUSED(key)
#else
    QSharedMemory stale(key);
    if (stale.attach())
        stale.detach();
#endif
}

bool claim(QSharedMemory& segment)
{
    clearStaleSegment(segment.key());
    if (segment.create(1, QSharedMemory::ReadWrite))
        return true;
    // When the temporary folder was emptied under a stale segment, it is only found once the file that names it
    // has been made anew, which the failed try has done.
    clearStaleSegment(segment.key());
    return segment.create(1, QSharedMemory::ReadWrite);
}

} // namespace

bool claimSingleInstance()
{
    const QString name = QStringLiteral("Kv_Panel_V2");
    static QSharedMemory segment(name);
    if (claim(segment))
        return true;
#ifndef Q_OS_WIN
    // What a killed terminal of another user left behind can be neither taken nor removed, and would keep
    // everyone else out for good; then a terminal is guarded against others of its own user.
    if (segment.error() == QSharedMemory::PermissionDenied) {
        segment.setKey(QStringLiteral("%1_%2").arg(name).arg(getuid()));
        return claim(segment);
    }
#endif
    return false;
}
