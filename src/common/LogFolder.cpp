#include "common/LogFolder.h"

#include "common/Clock.h"

#include <QCoreApplication>
#include <QDir>

QString logFolder() { return QStringLiteral("%1/log").arg(QCoreApplication::applicationDirPath()); }

void removeOldLogs(const QString& folder)
{
    constexpr qint64 ageLimitSeconds = 604800;
    const qint64 now = Clock::nowMs() / 1000;
    const QDir logs(folder);
    if (!logs.exists())
        return;
    for (const QFileInfo& entry : logs.entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)) {
        if (entry.isFile() && now - entry.lastModified().toSecsSinceEpoch() > ageLimitSeconds)
            QFile::remove(entry.filePath());
    }
}
