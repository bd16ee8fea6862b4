#include "print/SlipText.h"

#include "common/Clock.h"
#include "platform/LocalText.h"

int SlipText::getLength(const QString& text) { return LocalText::columns(text); }

int SlipText::fittingLength(const QString& text, int columns)
{
    int length = 0;
    int taken = 0;
    while (length < text.size()) {
        const bool isPair = text.at(length).isHighSurrogate() && length + 1 < text.size() &&
                            text.at(length + 1).isLowSurrogate();
        const int units = isPair ? 2 : 1;
        taken += getLength(text.mid(length, units));
        if (taken > columns)
            break;
        length += units;
    }
    return length;
}

QString SlipText::subStringByByte(const QString& text, int start, int length)
{
    if (text.trimmed().isEmpty())
        return QString();
    if (getLength(text) < start + length + 1)
        return text;
    const QString part = text.left(fittingLength(text, length));
    return part + QString(length - getLength(part), QLatin1Char(' '));
}

namespace {

/// A text that isn't wider than the field. A cut blank text is empty and gets its columns back by the filling.
QString cut(const QString& text, int width)
{
    return SlipText::getLength(text) > width ? SlipText::subStringByByte(text, 0, width) : text;
}

} // namespace

QString SlipText::padRight(const QString& text, int width, QChar fill)
{
    const QString part = cut(text, width);
    return part + QString(width - getLength(part), fill);
}

QString SlipText::padLeft(const QString& text, int width, QChar fill)
{
    const QString part = cut(text, width);
    return QString(width - getLength(part), fill) + part;
}

QString SlipText::padBoth(const QString& text, int width, QChar fill)
{
    const QString part = cut(text, width);
    const int free = width - getLength(part);
    return QString(free / 2, fill) + part + QString(free - free / 2, fill);
}

QString SlipText::withoutLineBreaks(QString text)
{
    return text.remove(QLatin1Char('\r')).remove(QLatin1Char('\n'));
}

QString SlipText::printCurTime() { return Clock::now().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")); }

QString SlipText::amount(double value) { return QString::number(value, 'f', 2); }

QString SlipText::quantity(double value) { return QString::number(value, 'g', 6); }

QString SlipText::quantityIn(const QString& text, double value)
{
    return text.arg(value, 0, 'g', -1, QLatin1Char(' '));
}
