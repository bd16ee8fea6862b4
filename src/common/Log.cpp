#include "common/Log.h"

#include "common/LogFolder.h"
#include "common/LoggerThread.h"

#include <cstdio>

namespace {

constexpr int drainLimitMs = 1000;
constexpr char brokerCategory[] = "broker"; ///< of whatever a broker can cause to be logged

void logerOutput(QtMsgType type, const QMessageLogContext& context, const QString& msg)
{
    if (qstrcmp(context.category, brokerCategory) == 0)
        LoggerThread::getInstance()->logCounted(msg);
    else
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
