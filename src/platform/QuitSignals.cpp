#include "platform/QuitSignals.h"

#include <QCoreApplication>

#ifndef Q_OS_WIN
#include <QSocketNotifier>

#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace {

int signalSockets[2] = {-1, -1};

/// In a signal handler nothing but this is safe; the notifier does the rest.
void passOn(int)
{
    const char byte = 1;
    const ssize_t written = ::write(signalSockets[0], &byte, 1);
    static_cast<void>(written);
}

} // namespace

void quitOnTerminationSignals()
{
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, signalSockets) != 0)
        return;
    auto* notifier = new QSocketNotifier(signalSockets[1], QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(notifier, &QSocketNotifier::activated, QCoreApplication::instance(), [notifier] {
        notifier->setEnabled(false);
        QCoreApplication::quit();
    });
    for (const int signal : {SIGTERM, SIGINT, SIGHUP})
        std::signal(signal, &passOn);
}

#else

void quitOnTerminationSignals() {}

#endif
