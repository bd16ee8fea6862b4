#pragma once

#include "vm/shared/OrderLines.h"

#include <QDateTime>

/// An ended service, as its slip tells of it.
struct ServiceEnd
{
    QString staffNo;
    QString cardNo;
    QString seatNo;
    QString startTime; ///< "yyyy-MM-dd HH:mm:ss"
    QDateTime stoppedAt;
};

/// Seconds from a time that is a text, 0 when that can't be read.
qint64 secondsSince(const QString& startTime, const QDateTime& now);

/// How long the service took, and by how many minutes it ended after it was due, negative when before.
QString serviceTimeText(qint64 seconds, qint64 overrunSeconds);

/// Prints the slip, where the terminal is set to.
void printServiceEnd(const ServiceEnd& end, const QVector<new_item_struct>& lines);
