#include "platform/SingleInstance.h"

#include <QSharedMemory>

bool claimSingleInstance()
{
    static QSharedMemory segment(QStringLiteral("Kv_Panel_V2"));
#ifndef Q_OS_WIN
    {
        // Here the segment outlives a process that was killed; the last one to detach removes it, so that attaching
        // and detaching clears a stale one and leaves a living owner's alone.
        QSharedMemory stale(segment.key());
        if (stale.attach())
            stale.detach();
    }
#endif
    return segment.create(1, QSharedMemory::ReadWrite);
}
