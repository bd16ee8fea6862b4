#include "net/EventLoopFilter.h"

#include "common/WaitStack.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>

namespace {

std::function<void()>& onWaitHook()
{
    static std::function<void()> hook;
    return hook;
}

} // namespace

void EventLoopFilter::setOnWait(std::function<void()> onWait) { onWaitHook() = std::move(onWait); }

int EventLoopFilter::exec()
{
    QCoreApplication* application = QCoreApplication::instance();
    if (application && QThread::currentThread() == application->thread()) {
        if (!m_isThread && onWaitHook())
            onWaitHook()();
        application->installEventFilter(this);
        m_installed = true;
        const WaitStack::Entry entry(this);
        return QEventLoop::exec();
    }
    return QEventLoop::exec();
}

void EventLoopFilter::deleteLater()
{
    if (m_installed) {
        QCoreApplication::instance()->removeEventFilter(this);
        m_installed = false;
    }
    QEventLoop::deleteLater();
}

bool EventLoopFilter::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::Enter:
    case QEvent::Leave:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::HoverEnter:
    case QEvent::HoverLeave:
    case QEvent::HoverMove:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        return !m_isThread && WaitStack::isInnermost(this);
    default:
        return QEventLoop::eventFilter(watched, event);
    }
}
