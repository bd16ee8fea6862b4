#pragma once

#include <cstring>
#include <string>

#include <sys/socket.h>
#include <sys/un.h>

/// The address of a local socket. False when the path is empty or longer than an address can hold.
inline bool localAddress(const std::string& path, sockaddr_un& address)
{
    address = {};
    address.sun_family = AF_UNIX;
    if (path.empty() || path.size() >= sizeof address.sun_path)
        return false;
    std::memcpy(address.sun_path, path.data(), path.size());
    return true;
}
