#include "common/LogFolder.h"

#include "common/Clock.h"
#include "common/LoggerThread.h"

#include <QCoreApplication>
#include <QDir>

#include <cstdio>

namespace {

constexpr int drainLimitMs = 1000;
constexpr qint64 logAgeLimitSeconds = 604800;

void logerOutput(QtMsgType type, const QMessageLogContext& context, const QString& msg)
{
    Q_UNUSED(context)
    LoggerThread::getInstance()->log(msg);
    if (type != QtFatalMsg)
        return;
    // The program is gone when this returns; its cause mustn't be.
    std::fputs(qPrintable(msg + QLatin1Char('\n')), stderr);
    LoggerThread::getInstance()->drain(drainLimitMs);
}

} // namespace

QString logFolder() { return QStringLiteral("%1/log").arg(QCoreApplication::applicationDirPath()); }

void removeOldLogs(const QString& folder)
{
    const qint64 now = Clock::nowMs() / 1000;
    const QDir logs(folder);
    if (!logs.exists())
        return;
    for (const QFileInfo& entry : logs.entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)) {
        if (entry.isFile() && now - entry.lastModified().toSecsSinceEpoch() > logAgeLimitSeconds)
            QFile::remove(entry.filePath());
    }
}

void prepareLog()
{
    removeOldLogs(logFolder());
    qInstallMessageHandler(logerOutput);
}

void finishLog()
{
    qInstallMessageHandler(nullptr);
    LoggerThread::getInstance()->drain(drainLimitMs);
}
