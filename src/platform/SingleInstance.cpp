#include "platform/SingleInstance.h"

#include <QSharedMemory>

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

} // namespace

bool claimSingleInstance()
{
    static QSharedMemory segment(QStringLiteral("Kv_Panel_V2"));
    clearStaleSegment(segment.key());
    if (segment.create(1, QSharedMemory::ReadWrite))
        return true;
    // When the temporary folder was emptied under a stale segment, it is only found once the file that names it
    // has been made anew, which the failed try has done.
    clearStaleSegment(segment.key());
    return segment.create(1, QSharedMemory::ReadWrite);
}
