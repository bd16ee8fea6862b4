#include "net/EventLoopFilter.h"

#include <QCoreApplication>
#include <QEvent>
#include <QThread>

int EventLoopFilter::exec()
{
    QCoreApplication* application = QCoreApplication::instance();
    if (application && QThread::currentThread() == application->thread()) {
        application->installEventFilter(this);
        m_installed = true;
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
        return !m_isThread;
    default:
        return QEventLoop::eventFilter(watched, event);
    }
}
