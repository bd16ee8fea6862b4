#pragma once

#include <atomic>

/// The sockets under the HTTP library, which keeps them to itself: found by their ports on this machine.
namespace house {

/// The descriptor of the connection between a peer's port and one of ours; -1 when there is none.
int findConnection(int fromPort, int localPort);

/// Cuts a connection in both directions, so that nothing more is sent; the library closes it afterwards.
void cutConnection(int descriptor);

/// Cuts every connection to a port of ours.
void cutAllConnections(int localPort);

constexpr int forever = -1;

/// Blocks until the time is over, the peer has gone, or `stopping` is set. True when only the time is over.
bool waitOnConnection(int descriptor, int milliseconds, const std::atomic<bool>& stopping);

} // namespace house
