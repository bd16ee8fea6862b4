#include "vm/module6/ServiceSlip.h"

#include "common/GlobalConfig.h"
#include "print/PosPrint.h"

#include <numeric>

namespace {

constexpr qint64 minuteSeconds = 60;
constexpr qint64 hourSeconds = 3600;

const QString slipTime = QStringLiteral("yyyy-MM-dd HH:mm:ss");

qint64 plannedMinutes(const QVector<new_item_struct>& lines)
{
    return std::accumulate(lines.begin(), lines.end(), qint64(0), [](qint64 sum, const new_item_struct& line) {
        return sum + qint64(line.times) * line.num;
    });
}

} // namespace

qint64 secondsSince(const QString& startTime, const QDateTime& now)
{
    return QDateTime::fromString(startTime, slipTime).secsTo(now);
}

QString serviceTimeText(qint64 seconds, qint64 overrunSeconds)
{
    const qint64 minutes = seconds / minuteSeconds;
    const qint64 overrun = overrunSeconds / minuteSeconds;
    if (seconds < hourSeconds)
        return QStringLiteral("%1分钟 %2").arg(minutes).arg(overrun);
    return QStringLiteral("%1小时%2分钟 %3").arg(seconds / hourSeconds).arg(minutes % 60).arg(overrun);
}

void printServiceEnd(const ServiceEnd& end, const QVector<new_item_struct>& lines)
{
    if (GlobalConfig::getInstance()->stop_server_print_count <= 0)
        return;
    const QDateTime due =
        QDateTime::fromString(end.startTime, slipTime).addSecs(plannedMinutes(lines) * minuteSeconds);
    js_server_print slip;
    slip.cardNo = end.cardNo;
    slip.staffNo = end.staffNo;
    slip.seatNo = end.seatNo;
    slip.startTime = end.startTime;
    slip.realTime = end.stoppedAt.toString(slipTime);
    slip.dueTime = due.toString(slipTime);
    slip.serviceTime = serviceTimeText(secondsSince(end.startTime, end.stoppedAt), due.secsTo(end.stoppedAt));
    slip.items = slipLines(lines, {}, {});
    PosPrint::getInstance()->print(PrintServiceEnd, QVariant::fromValue(slip), {}, {});
}
