#include "vm/shared/Texts.h"

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

constexpr int mostCharacters = 200;
constexpr qint64 minutesPerHour = 60;
constexpr qint64 mostMinutes = 366 * 24 * minutesPerHour;

bool turnsOrder(QChar character)
{
    const ushort code = character.unicode();
    return code == 0x061C || code == 0x200E || code == 0x200F || (code >= 0x202A && code <= 0x202E) ||
           (code >= 0x2066 && code <= 0x2069);
}

} // namespace

QString shortMoney(double yuan)
{
    return std::isfinite(yuan) ? QString::number(yuan, 'f', QLocale::FloatingPointShortest) : QString();
}

QString hoursAndMinutes(qint64 minutes)
{
    const qint64 shown = qBound(-mostMinutes, minutes, mostMinutes);
    return QString::number(shown / minutesPerHour) + QLatin1Char(':') + QString::number(shown % minutesPerHour);
}

QString shownText(const QString& text)
{
    if (text.size() <= mostCharacters && std::none_of(text.begin(), text.end(), turnsOrder))
        return text;
    QString shown;
    std::remove_copy_if(text.begin(), text.end(), std::back_inserter(shown), turnsOrder);
    return shown.size() > mostCharacters ? shown.left(mostCharacters - 1) + QChar(0x2026) : shown;
}
