#pragma once

#include <QString>

/// What is said to call a guest: the template with his number at %1, read digit by digit. A template without %1
/// stands for the usual one.
inline QString callText(const QString& wording, const QString& cardNo)
{
    QString spelled;
    for (const QChar character : cardNo) {
        spelled += character;
        spelled += QLatin1Char(' ');
    }
    // The blanks are a pause before the text is said again.
    QString text = wording.contains(QLatin1String("%1")) ? wording + QStringLiteral("      ")
                                                         : QStringLiteral("请%1号贵宾前往助浴区");
    return text.replace(QLatin1String("%1"), spelled);
}
