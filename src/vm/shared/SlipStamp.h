#pragma once

#include <QDateTime>

/// Who does something and when, as the slips tell it.
struct SlipStamp
{
    QString staffCode;
    QString staffName;
    QString time; ///< "yyyy-MM-dd HH:mm:ss"

    /// The operator, now.
    static SlipStamp now();

    /// Puts the stamp on a slip, whose time field differs by its kind.
    template <typename Slip>
    void putOn(Slip& slip, QString Slip::*timeField) const
    {
        slip.staffCode = staffCode;
        slip.staffName = staffName;
        slip.*timeField = time;
    }
};

/// The start of the business day that the moment lies in: the store's day doesn't begin at midnight.
QDateTime businessDayStart(const QDateTime& moment);
