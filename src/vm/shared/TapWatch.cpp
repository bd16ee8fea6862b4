#include "vm/shared/TapWatch.h"

#include "common/WaitStack.h"
#include "net/EventLoopFilter.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTouchEvent>

namespace {

/// Below that nobody has seen what has changed; of two taps in a row the second still means the first's target.
constexpr ulong reactionMs = 300;

} // namespace

TapWatch* TapWatch::s_installed = nullptr;

TapWatch::TapWatch(QObject* parent) : QObject(parent) {}

void TapWatch::install()
{
    auto* watch = new TapWatch(qApp);
    s_installed = watch;
    qApp->installEventFilter(watch);
    const QPointer<TapWatch> installed(watch);
    EventLoopFilter::setOnWait([installed] {
        if (installed)
            installed->cancelPresses();
    });
    connect(watch, &QObject::destroyed, qApp, [] { s_installed = nullptr; });
}

bool TapWatch::isFingerDown()
{
    return QGuiApplication::mouseButtons() != Qt::NoButton || (s_installed && s_installed->m_touch);
}

bool TapWatch::isTapWithin(int ms)
{
    return s_installed && s_installed->m_sinceTap.isValid() && !s_installed->m_sinceTap.hasExpired(ms);
}

bool TapWatch::isPressStray()
{
    return s_installed && s_installed->m_sincePress.isValid() &&
           s_installed->m_dialogChanges != WaitStack::dialogChanges() &&
           !s_installed->m_sincePress.hasExpired(reactionMs);
}

bool TapWatch::isStray(ulong timestamp) const
{
    return m_sincePress.isValid() && m_dialogChanges != WaitStack::dialogChanges() &&
           timestamp - m_pressedAt < reactionMs;
}

void TapWatch::notePress(ulong timestamp)
{
    m_sincePress.start();
    m_pressedAt = timestamp;
    m_dialogChanges = WaitStack::dialogChanges();
}

/// Windows see each event first, so that it is counted once. Only a stray press is taken.
bool TapWatch::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    const bool isPress =
        type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick || type == QEvent::TouchBegin;
    if (isPress && watched->isWindowType()) {
        const ulong timestamp = static_cast<QInputEvent*>(event)->timestamp();
        if (isStray(timestamp))
            return true;
        notePress(timestamp);
    }
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
        m_sinceTap.start();
        break;
    case QEvent::TouchBegin:
        if (auto* window = qobject_cast<QQuickWindow*>(watched)) {
            m_touch = static_cast<QTouchEvent*>(event)->device();
            m_touchedWindow = window;
        }
        m_sinceTap.start();
        break;
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        m_touch = nullptr;
        m_sinceTap.start();
        break;
    default:
        break;
    }
    return false;
}

void TapWatch::cancelPresses()
{
    const QWindowList windows = QGuiApplication::allWindows();
    for (QWindow* window : windows) {
        const auto* quickWindow = qobject_cast<QQuickWindow*>(window);
        QQuickItem* pressed = quickWindow ? quickWindow->mouseGrabberItem() : nullptr;
        if (pressed)
            pressed->ungrabMouse();
    }
    if (!m_touch)
        return;
    QTouchEvent cancel(QEvent::TouchCancel, m_touch);
    m_touch = nullptr;
    if (m_touchedWindow)
        QCoreApplication::sendEvent(m_touchedWindow, &cancel);
}
