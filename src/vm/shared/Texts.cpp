#include "vm/shared/Texts.h"

#include <QLocale>

#include <algorithm>
#include <cmath>

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
    QString shown = text;
    shown.erase(std::remove_if(shown.begin(), shown.end(), turnsOrder), shown.end());
    return shown.size() > mostCharacters ? shown.left(mostCharacters - 1) + QChar(0x2026) : shown;
}
