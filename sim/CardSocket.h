#pragma once

#include <optional>
#include <string>

/// Where the stand-ins take their cards from: a local datagram socket at the path that KV_SIM_HAND_SOCKET
/// gives. One datagram is one card. Made and read on any one thread at a time.
class CardSocket
{
public:
    CardSocket() = default;
    CardSocket(const CardSocket&) = delete;
    CardSocket& operator=(const CardSocket&) = delete;
    ~CardSocket() { close(); }

    /// False when the path isn't given or can't be used. Opening it again is no error.
    bool open();
    /// Takes the path away, so that whoever presents a card sees that nobody reads.
    void close();
    /// The next card's serial, without waiting. Opens the socket when it isn't open.
    std::optional<std::string> takeCard();

private:
    int m_socket = -1;
    std::string m_path;
};
