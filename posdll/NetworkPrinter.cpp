#include "Printer.h"

#include <QDeadlineTimer>
#include <QDebug>
#include <QHostAddress>
#include <QTcpSocket>
#include <QUrl>

#ifdef Q_OS_LINUX
#include <cerrno>
#include <linux/sockios.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>
#endif

namespace {

/// Bytes that the system took but the printer hasn't confirmed; 0 where the system doesn't tell.
int unconfirmedBytes(const QTcpSocket& socket)
{
    int bytes = 0;
#ifdef Q_OS_LINUX
    if (ioctl(int(socket.socketDescriptor()), SIOCOUTQ, &bytes) != 0)
        bytes = 0;
#else
    Q_UNUSED(socket)
#endif
    return bytes;
}

PosFault faultOf(const QTcpSocket& socket)
{
    switch (socket.error()) {
    case QAbstractSocket::ConnectionRefusedError:
    case QAbstractSocket::RemoteHostClosedError:
        return PosRefused;
    case QAbstractSocket::SocketTimeoutError:
        return PosTimedOut;
    default:
        return PosOutOfReach;
    }
}

/// Whether the printer hangs up on what it has confirmed but not read, which resets the connection. One that
/// goes down in the midst of a slip does so at once, so that a moment's waiting tells. False where the system
/// doesn't tell.
bool isReset(const QTcpSocket& socket)
{
#ifdef Q_OS_LINUX
    constexpr int momentMs = 50;
    pollfd line{int(socket.socketDescriptor()), POLLIN, 0};
    char byte = 0;
    return ::poll(&line, 1, momentMs) > 0 && ::recv(line.fd, &byte, 1, MSG_PEEK | MSG_DONTWAIT) < 0 &&
           errno != EAGAIN && errno != EINTR;
#else
    Q_UNUSED(socket)
    return false;
#endif
}

class NetworkPrinter : public Printer
{
public:
    NetworkPrinter(const QString& address, const PrinterLimits& limits) : m_name(address), m_limits(limits) {}
    ~NetworkPrinter() override
    {
        m_socket.disconnectFromHost();
        if (m_socket.state() != QAbstractSocket::UnconnectedState)
            m_socket.waitForDisconnected(m_limits.stallMs);
    }

    bool open()
    {
        constexpr int usualPort = 9100;
        const QUrl url = QUrl(QStringLiteral("tcp://") + m_name);
        // Looking a name up can take longer than anybody waits at a screen.
        const QHostAddress host = url.host() == QLatin1String("localhost")
                                      ? QHostAddress(QHostAddress::LocalHost)
                                      : QHostAddress(url.host());
        if (host.isNull()) {
            noteFault(PosNoPrinter);
            qWarning().noquote() << "receipt printer" << m_name << "isn't a numeric network address";
            return false;
        }
        m_socket.connectToHost(host, quint16(url.port(usualPort)));
        if (m_socket.waitForConnected(m_limits.connectMs))
            return true;
        noteFault(faultOf(m_socket));
        qWarning().noquote() << "receipt printer" << m_name << "can't be reached:" << m_socket.errorString();
        return false;
    }

    bool send(const QByteArray& slip) override
    {
        QDeadlineTimer end(m_limits.jobMs);
        m_socket.write(slip);
        while (m_socket.bytesToWrite() > 0) {
            if (!m_socket.waitForBytesWritten(qMin(m_limits.stallMs, int(end.remainingTime()))))
                return giveUp();
        }
        if (!waitUntilConfirmed(end))
            return giveUp();
        if (!isReset(m_socket))
            return true;
        giveUp();
        noteFault(PosRefused);
        return false;
    }

private:
    /// A slip fits into the system's buffers, so that only the printer's confirmation tells whether it is
    /// taken.
    bool waitUntilConfirmed(const QDeadlineTimer& end)
    {
        QDeadlineTimer stall(m_limits.stallMs);
        int before = unconfirmedBytes(m_socket);
        while (before > 0) {
            if (stall.hasExpired() || end.hasExpired())
                return false;
            m_socket.waitForReadyRead(pollMs); // an answer isn't expected, but a lost connection shows
            if (m_socket.state() != QAbstractSocket::ConnectedState)
                return false;
            const int now = unconfirmedBytes(m_socket);
            if (now < before)
                stall.setRemainingTime(m_limits.stallMs);
            before = now;
        }
        return true;
    }

    bool giveUp()
    {
        noteFault(m_socket.state() == QAbstractSocket::ConnectedState ? PosTimedOut : faultOf(m_socket));
        qWarning().noquote() << "receipt printer" << m_name << "stopped taking data:" << m_socket.errorString();
        m_socket.abort();
        return false;
    }

    static constexpr int pollMs = 10;
    const QString m_name;
    const PrinterLimits m_limits;
    QTcpSocket m_socket;
};

} // namespace

std::unique_ptr<Printer> openNetworkPrinter(const QString& address, const PrinterLimits& limits)
{
    auto printer = std::make_unique<NetworkPrinter>(address, limits);
    if (!printer->open())
        return nullptr;
    return printer;
}
