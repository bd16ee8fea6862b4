#include "src/Connection.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <vector>

namespace house {
namespace {

using NameCall = int (*)(int, sockaddr*, socklen_t*);

/// The port of one end, 0 when the descriptor is no connected socket of the internet's.
int portOf(int descriptor, NameCall nameOf)
{
    sockaddr_storage address{};
    socklen_t size = sizeof address;
    if (nameOf(descriptor, reinterpret_cast<sockaddr*>(&address), &size) != 0)
        return 0;
    if (address.ss_family == AF_INET6)
        return ntohs(reinterpret_cast<const sockaddr_in6*>(&address)->sin6_port);
    return address.ss_family == AF_INET ? ntohs(reinterpret_cast<const sockaddr_in*>(&address)->sin_port) : 0;
}

int peerPort(int descriptor) { return portOf(descriptor, getpeername); }

int ownPort(int descriptor) { return portOf(descriptor, getsockname); }

std::vector<int> openDescriptors()
{
    std::vector<int> descriptors;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd", error))
        descriptors.push_back(std::stoi(entry.path().filename().string()));
    return descriptors;
}

} // namespace

int findConnection(int fromPort, int localPort)
{
    for (const int descriptor : openDescriptors())
        if (peerPort(descriptor) == fromPort && ownPort(descriptor) == localPort)
            return descriptor;
    return -1;
}

void cutConnection(int descriptor) { shutdown(descriptor, SHUT_RDWR); }

void cutAllConnections(int localPort)
{
    for (const int descriptor : openDescriptors())
        if (peerPort(descriptor) != 0 && ownPort(descriptor) == localPort)
            cutConnection(descriptor);
}

bool waitOnConnection(int descriptor, int milliseconds, const std::atomic<bool>& stopping)
{
    using Clock = std::chrono::steady_clock;
    constexpr int sliceMs = 50; // how soon `stopping` is noticed
    const auto end = Clock::now() + std::chrono::milliseconds(milliseconds);
    while (!stopping) {
        int waitMs = sliceMs;
        if (milliseconds != forever) {
            const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
            if (left <= 0)
                return true;
            waitMs = static_cast<int>(std::min<long long>(left, sliceMs));
        }
        pollfd watched{descriptor, POLLRDHUP, 0};
        if (poll(&watched, 1, waitMs) > 0)
            return false;
    }
    return false;
}

} // namespace house
