#include "common/Log.h"

#include "common/LogFolder.h"
#include "common/LoggerThread.h"

#include <cstdio>

namespace {

constexpr int drainLimitMs = 1000;

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
