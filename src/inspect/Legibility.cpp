#include "inspect/Legibility.h"

#include <QColor>
#include <QFont>
#include <QHash>
#include <QJSValue>
#include <QQuickItem>
#include <QQuickWindow>

#include <algorithm>
#include <cmath>

namespace {

constexpr int leastTextPx = 14;
constexpr int leastTargetPx = 48;
constexpr double leastContrast = 4.5;
constexpr double fadedOpacity = 0.5;  ///< below that it is on its way out, as a wheel's other numbers are
constexpr ushort firstGlyph = 0xE000; ///< of the icon font, in the private area

QRectF placeOf(const QQuickItem* item) { return item->mapRectToScene({0, 0, item->width(), item->height()}); }

double luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

/// The commonest colour there but the text's own.
QColor groundOf(const QImage& screen, const QRectF& place, const QColor& own)
{
    const QRect area = place.toAlignedRect() & screen.rect();
    QHash<QRgb, int> counts;
    QRgb most = own.rgb();
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QRgb pixel = screen.pixel(x, y);
            if (pixel != own.rgb() && ++counts[pixel] > counts.value(most))
                most = pixel;
        }
    }
    return most;
}

/// By itself or with what it belongs to.
double opacityOf(const QQuickItem* item)
{
    double opacity = 1;
    for (; item; item = item->parentItem())
        opacity *= item->opacity();
    return opacity;
}

/// What is seen of a colour that lets its ground through.
QColor seenOf(const QColor& own, double opacity, const QColor& ground)
{
    const double cover = own.alphaF() * opacity;
    const auto mixed = [cover](double front, double back) { return front * cover + back * (1 - cover); };
    return QColor::fromRgbF(mixed(own.redF(), ground.redF()), mixed(own.greenF(), ground.greenF()),
                            mixed(own.blueF(), ground.blueF()));
}

void collect(const QQuickItem* parent, QRectF visible, QList<QQuickItem*>& found)
{
    if (parent->clip())
        visible &= placeOf(parent);
    for (QQuickItem* child : parent->childItems()) {
        if (!child->isVisible() || child->opacity() == 0)
            continue;
        if (child->width() > 0 && visible.contains(placeOf(child)))
            found.append(child);
        collect(child, visible, found);
    }
}

QString textOf(const QQuickItem* item) { return item->property("text").toString().remove(QChar(0x200B)); }

QStringList textFaults(const QQuickItem* item, const QImage& screen)
{
    QStringList found;
    const QString name = QStringLiteral("\"%1\" ").arg(textOf(item).left(30));
    const QJSValue drawn = item->property("fontInfo").value<QJSValue>(); // a field's text has none
    const int size = drawn.isObject() ? drawn.property(QStringLiteral("pixelSize")).toInt()
                                      : item->property("font").value<QFont>().pixelSize();
    if (size < leastTextPx)
        found.append(name + QStringLiteral("has %1 px").arg(size));
    if (item->property("paintedWidth").toDouble() > item->width() + 1 ||
        item->property("paintedHeight").toDouble() > std::max(item->height(), size * 1.0) * 1.3)
        found.append(name + QStringLiteral("is larger than its place"));
    const auto own = item->property("color").value<QColor>();
    const QColor ground = groundOf(screen, placeOf(item), own);
    const double opacity = opacityOf(item);
    const double seen = Legibility::contrast(seenOf(own, opacity, ground), ground);
    if (item->isEnabled() && opacity > fadedOpacity && seen < leastContrast)
        found.append(name + QStringLiteral("has a contrast of %1").arg(seen, 0, 'f', 1));
    return found;
}

} // namespace

double Legibility::contrast(const QColor& one, const QColor& other)
{
    const double first = luminance(one), second = luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

bool Legibility::isReadableText(const QQuickItem* item)
{
    if (!item->property("paintedWidth").isValid())
        return false;
    const QString text = textOf(item).trimmed();
    return !text.isEmpty() && text.at(0).unicode() < firstGlyph;
}

QList<QQuickItem*> Legibility::wholeItems(const QQuickItem* page)
{
    QList<QQuickItem*> found;
    if (page->window())
        collect(page, QRectF({}, page->window()->size()), found);
    return found;
}

QStringList Legibility::faults(const QList<QQuickItem*>& items, const QImage& screen)
{
    QStringList found;
    for (const QQuickItem* item : items) {
        // Whatever is tapped is pressed.
        const bool isTarget = (item->property("isPressed").isValid() || item->property("pressed").isValid()) &&
                              !item->inherits("QQuickScrollBar"); // a list is also drawn by itself
        const double reach = 2 * item->property("reach").toDouble();
        const double least = std::min(item->width(), item->height()) + reach;
        if (isTarget && item->property("enabled").toBool() && least < leastTargetPx)
            found.append(
                QStringLiteral("%1 is a target of %2 px").arg(item->objectName(), QString::number(least)));
        if (isReadableText(item))
            found += textFaults(item, screen);
    }
    found.removeDuplicates();
    return found;
}
