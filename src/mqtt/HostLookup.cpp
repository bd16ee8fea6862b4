#include "mqtt/HostLookup.h"

#include <QStringList>
#include <QUrl>

#include <system_error>
#include <thread>

#ifdef Q_OS_WIN
#include <ws2tcpip.h>
#else
#include <netdb.h>
#include <sys/socket.h>
#endif

namespace {

/// May still run while the process takes itself down, so that it uses nothing that ends before.
QStringList addressesOf(const QByteArray& name)
{
    QStringList addresses;
    addrinfo wanted{};
    wanted.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (name.isEmpty() || getaddrinfo(name.constData(), nullptr, &wanted, &found) != 0)
        return addresses;
    for (const addrinfo* each = found; each; each = each->ai_next) {
        char text[NI_MAXHOST];
        if (getnameinfo(each->ai_addr, static_cast<socklen_t>(each->ai_addrlen), text, sizeof text, nullptr, 0,
                        NI_NUMERICHOST) == 0)
            addresses.append(QString::fromLatin1(text));
    }
    freeaddrinfo(found);
    return addresses;
}

} // namespace

std::future<QStringList> lookUpHost(const QString& name)
{
    std::packaged_task<QStringList()> task([ace = QUrl::toAce(name)] { return addressesOf(ace); });
    std::future<QStringList> addresses = task.get_future();
    try {
        std::thread(std::move(task)).detach();
    } catch (const std::system_error&) {
        return {};
    }
    return addresses;
}
