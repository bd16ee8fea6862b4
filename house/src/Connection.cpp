#include "src/Connection.h"

#include <algorithm>
#include <arpa/inet.h>
#include <chrono>
#include <filesystem>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <vector>

namespace house {
namespace {

struct Address
{
    std::string host;
    int port = 0;
};

using AddressCall = int (*)(int, sockaddr*, socklen_t*);

/// An empty host and port 0 when the descriptor is no connected internet socket.
Address addressOf(int descriptor, AddressCall call)
{
    sockaddr_storage storage{};
    socklen_t size = sizeof storage;
    if (call(descriptor, reinterpret_cast<sockaddr*>(&storage), &size) != 0)
        return {};
    char host[INET6_ADDRSTRLEN] = "";
    if (storage.ss_family == AF_INET) {
        const auto* v4 = reinterpret_cast<const sockaddr_in*>(&storage);
        inet_ntop(AF_INET, &v4->sin_addr, host, sizeof host);
        return {host, ntohs(v4->sin_port)};
    }
    if (storage.ss_family == AF_INET6) {
        const auto* v6 = reinterpret_cast<const sockaddr_in6*>(&storage);
        inet_ntop(AF_INET6, &v6->sin6_addr, host, sizeof host);
        return {host, ntohs(v6->sin6_port)};
    }
    return {};
}

int peerName(int descriptor, sockaddr* address, socklen_t* size)
{
    return getpeername(descriptor, address, size);
}

int ownName(int descriptor, sockaddr* address, socklen_t* size)
{
    return getsockname(descriptor, address, size);
}

std::vector<int> openDescriptors()
{
    std::vector<int> descriptors;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd", error))
        descriptors.push_back(std::stoi(entry.path().filename().string()));
    return descriptors;
}

} // namespace

int findConnection(const std::string& peerAddress, int peerPort, int localPort)
{
    for (const int descriptor : openDescriptors()) {
        const Address peer = addressOf(descriptor, peerName);
        if (peer.port == peerPort && peer.host == peerAddress &&
            addressOf(descriptor, ownName).port == localPort)
            return descriptor;
    }
    return -1;
}

void cutConnection(int descriptor) { shutdown(descriptor, SHUT_RDWR); }

void cutAllConnections(int localPort)
{
    for (const int descriptor : openDescriptors())
        if (addressOf(descriptor, peerName).port != 0 && addressOf(descriptor, ownName).port == localPort)
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
