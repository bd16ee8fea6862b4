#pragma once

#include <QString>

class QObject;
class QQuickItem;

/// The visible item with this object name, in the window on top that has one; of a dialog its content. Null
/// without one. A name that ends with "*" stands for all that begin so.
QQuickItem* findPageItem(const QString& name);

/// The dialog with this object name that is on the screen, be it a popup or a window of its own; null without.
QObject* findDialog(const QString& name);

/// Whether the user's input arrives: during a back-end call it doesn't.
bool takesInput();
