#include "entry/PageItems.h"

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

} // namespace

QQuickItem* findPageItem(const QString& name)
{
    const QWindowList windows = QGuiApplication::topLevelWindows();
    for (auto it = windows.rbegin(); it != windows.rend(); ++it) {
        auto* window = qobject_cast<QQuickWindow*>(*it);
        if (!window || !window->isVisible())
            continue;
        if (window->objectName() == name)
            return window->contentItem();
        // A dialog of the pages isn't an item itself; its content is.
        for (QObject* dialog : window->findChildren<QObject*>(name)) {
            if (dialog->property("modal").isValid() && dialog->property("visible").toBool())
                return dialog->property("contentItem").value<QQuickItem*>();
        }
        if (QQuickItem* found = findVisible(window->contentItem(), name))
            return found;
    }
    return nullptr;
}

bool takesInput()
{
    InputProbe probe;
    QKeyEvent key(QEvent::KeyPress, Qt::Key_F35, Qt::NoModifier);
    QCoreApplication::sendEvent(&probe, &key);
    return probe.arrived;
}
