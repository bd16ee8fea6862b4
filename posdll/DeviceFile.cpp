#include "Printer.h"

#include <QDebug>

#ifdef Q_OS_UNIX

#include <QDeadlineTimer>
#include <QFile>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {

/// A pipe whose reader is gone would end the program.
void ignoreBrokenPipes()
{
    struct sigaction action = {};
    if (sigaction(SIGPIPE, nullptr, &action) == 0 && action.sa_handler == SIG_DFL)
        std::signal(SIGPIPE, SIG_IGN);
}

class DeviceFile : public Printer
{
public:
    DeviceFile(const QString& path, const PrinterLimits& limits) : m_path(path), m_limits(limits)
    {
        m_file = ::open(QFile::encodeName(path).constData(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    }
    ~DeviceFile() override
    {
        if (m_file >= 0)
            ::close(m_file);
    }
    bool isOpen() const { return m_file >= 0; }

    bool send(const QByteArray& slip) override
    {
        QDeadlineTimer end(m_limits.jobMs);
        const char* next = slip.constData();
        qint64 left = slip.size();
        while (left > 0) {
            pollfd ready = {m_file, POLLOUT, 0};
            const int wait = qMin(m_limits.stallMs, int(end.remainingTime()));
            if (::poll(&ready, 1, wait) <= 0)
                return giveUp("no byte taken in time", PosTimedOut);
            const ssize_t written = ::write(m_file, next, size_t(left));
            if (written < 0 && errno != EAGAIN && errno != EINTR)
                return giveUp(std::strerror(errno), PosOutOfReach);
            next += qMax<ssize_t>(written, 0);
            left -= qMax<ssize_t>(written, 0);
        }
        return true;
    }

private:
    bool giveUp(const char* reason, PosFault fault)
    {
        noteFault(fault);
        qWarning().noquote() << "receipt printer" << m_path << "stopped taking data:" << reason;
        return false;
    }

    const QString m_path;
    const PrinterLimits m_limits;
    int m_file = -1;
};

} // namespace

std::unique_ptr<Printer> openDeviceFile(const QString& path, const PrinterLimits& limits)
{
    ignoreBrokenPipes();
    auto printer = std::make_unique<DeviceFile>(path, limits);
    if (printer->isOpen())
        return printer;
    noteFault(errno == ENOENT ? PosNoPrinter : errno == EACCES || errno == EBUSY ? PosRefused : PosOutOfReach);
    qWarning().noquote() << "receipt printer" << path << "can't be opened:" << std::strerror(errno);
    return nullptr;
}

#else

std::unique_ptr<Printer> openDeviceFile(const QString& path, const PrinterLimits&)
{
    noteFault(PosNoPrinter);
    qWarning().noquote() << "receipt printer" << path << ": no device files on this system";
    return nullptr;
}

#endif
