#pragma once

#include <QObject>
#include <QString>

class QQuickItem;

/// The visible item with this object name, in the window on top that has one; of a dialog its content. Null
/// without one. A name that ends with "*" stands for all that begin so.
QQuickItem* findPageItem(const QString& name);

/// The dialog with this object name that is on the screen, be it a popup or a window of its own; null without.
QObject* findDialog(const QString& name);

/// The dialogs that stand in front of the item, be they popups or windows; the one that it lies in doesn't.
QObjectList dialogsOver(const QQuickItem* item);

/// Whether the user's input arrives: during a back-end call it doesn't.
bool takesInput();
