#pragma once

#include <QImage>
#include <QStringList>

class QColor;
class QQuickItem;

/// What a page promises to eyes and fingers: texts of at least 14 px with a contrast of at least 4.5 to their
/// ground that fit their place, and targets of at least 48 px.
namespace Legibility {

/// Of two colours without transparency, from 1 to 21.
double contrast(const QColor& one, const QColor& other);

/// Whether the item is a text that somebody reads; a glyph of the icons isn't one.
bool isReadableText(const QQuickItem* item);
/// All items below this one that are on the screen as a whole: not hidden, and not cut by what they lie in.
QList<QQuickItem*> wholeItems(const QQuickItem* page);
/// What of the items breaks the promise, a line for each; none when all is well. The picture is one of the
/// window's content, as it is now.
QStringList faults(const QList<QQuickItem*>& items, const QImage& screen);

} // namespace Legibility
