#include "inspect/ScreenItems.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QQuickItem>
#include <QQuickWindow>

namespace {

/// Notices whether input arrives anywhere.
class InputProbe : public QObject
{
public:
    bool arrived = false;
    bool event(QEvent* event) override
    {
        arrived = arrived || event->type() == QEvent::KeyPress;
        return true;
    }
};

bool isNamed(const QString& objectName, const QString& name)
{
    return name.endsWith(QLatin1Char('*')) ? objectName.startsWith(name.chopped(1)) : objectName == name;
}

QQuickItem* findVisible(QQuickItem* parent, const QString& name)
{
    // The last child is painted on top.
    const QList<QQuickItem*> children = parent->childItems();
    for (auto it = children.rbegin(); it != children.rend(); ++it) {
        QQuickItem* child = *it;
        if (!child->isVisible())
            continue;
        if (isNamed(child->objectName(), name))
            return child;
        if (QQuickItem* found = findVisible(child, name))
            return found;
    }
    return nullptr;
}

/// Those that are on the screen.
QList<QQuickWindow*> windowsFromTheTop()
{
    QList<QQuickWindow*> found;
    const QWindowList windows = QGuiApplication::topLevelWindows();
    for (auto it = windows.rbegin(); it != windows.rend(); ++it) {
        auto* window = qobject_cast<QQuickWindow*>(*it);
        if (window && window->isVisible())
            found.append(window);
    }
    return found;
}

/// A popup of the window, which isn't an item itself.
QObject* visiblePopup(QQuickWindow* window, const QString& name)
{
    for (QObject* popup : window->findChildren<QObject*>(name)) {
        if (popup->property("modal").isValid() && popup->property("visible").toBool())
            return popup;
    }
    return nullptr;
}

} // namespace

QObject* findDialog(const QString& name)
{
    for (QQuickWindow* window : windowsFromTheTop()) {
        if (window->objectName() == name)
            return window;
        if (QObject* popup = visiblePopup(window, name))
            return popup;
    }
    return nullptr;
}

QQuickItem* findPageItem(const QString& name)
{
    for (QQuickWindow* window : windowsFromTheTop()) {
        if (window->objectName() == name)
            return window->contentItem();
        if (QObject* popup = visiblePopup(window, name))
            return popup->property("contentItem").value<QQuickItem*>();
        if (QQuickItem* found = findVisible(window->contentItem(), name))
            return found;
    }
    return nullptr;
}

QObjectList dialogsOver(const QQuickItem* item)
{
    QObjectList found;
    for (QQuickWindow* window : windowsFromTheTop()) {
        if (window != item->window() && window->property("dlgResult").isValid())
            found.append(window);
        for (QObject* popup : window->findChildren<QObject*>()) {
            if (!popup->property("modal").toBool() || !popup->property("visible").toBool())
                continue;
            const auto* content = popup->property("contentItem").value<QQuickItem*>();
            if (content && !content->isAncestorOf(item) && content != item && !item->isAncestorOf(content))
                found.append(popup);
        }
    }
    return found;
}

bool takesInput()
{
    InputProbe probe;
    QKeyEvent key(QEvent::KeyPress, Qt::Key_F35, Qt::NoModifier);
    QCoreApplication::sendEvent(&probe, &key);
    return probe.arrived;
}
