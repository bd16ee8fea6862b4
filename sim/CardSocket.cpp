#include "CardSocket.h"

#include "LocalAddress.h"

#include <cstdio>
#include <cstdlib>

#include <unistd.h>

bool CardSocket::open()
{
    if (m_socket >= 0)
        return true;
    const char* path = std::getenv("KV_SIM_HAND_SOCKET");
    sockaddr_un address;
    if (!path || !localAddress(path, address))
        return false;
    const int fd = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (fd < 0)
        return false;
    ::unlink(path); // of a run that ended without tidying up
    if (::bind(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        std::perror(path);
        ::close(fd);
        return false;
    }
    m_socket = fd;
    m_path = path;
    return true;
}

void CardSocket::close()
{
    if (m_socket < 0)
        return;
    ::unlink(m_path.c_str());
    ::close(m_socket);
    m_socket = -1;
}

std::optional<std::string> CardSocket::takeCard()
{
    char serial[256];
    const ssize_t size = open() ? ::recv(m_socket, serial, sizeof serial, 0) : -1;
    if (size < 0)
        return std::nullopt;
    return std::string(serial, static_cast<size_t>(size));
}
