// Presents a card to a demo: to the staff reader's serial line, or to a stand-in for a hand card reader.

#include "LocalAddress.h"

#include <cstdio>
#include <string>

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace {

constexpr int wrongUse = 2;

int failed(const std::string& what)
{
    std::perror(what.c_str());
    return 1;
}

/// Writes the number and an end of line, as a reader on the line does.
int presentToStaffReader(const std::string& line, const std::string& number)
{
    const int fd = ::open(line.c_str(), O_WRONLY | O_NOCTTY);
    if (fd < 0)
        return failed(line);
    termios settings;
    if (::tcgetattr(fd, &settings) == 0) {
        ::cfmakeraw(&settings); // a terminal would turn the end of line into another one
        ::tcsetattr(fd, TCSANOW, &settings);
    }
    const std::string burst = number + "\r\n";
    const bool isWritten = ::write(fd, burst.data(), burst.size()) == static_cast<ssize_t>(burst.size());
    const int result = isWritten ? 0 : failed(line);
    ::close(fd);
    return result;
}

int presentToHandReader(const std::string& path, const std::string& serial)
{
    sockaddr_un address;
    if (!localAddress(path, address)) {
        std::fprintf(stderr, "%s: not a path of a local socket\n", path.c_str());
        return 1;
    }
    const int fd = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (fd < 0)
        return failed("socket");
    const ssize_t sent = ::sendto(fd, serial.data(), serial.size(), 0,
                                  reinterpret_cast<const sockaddr*>(&address), sizeof address);
    const int result = sent == static_cast<ssize_t>(serial.size()) ? 0 : failed(path);
    ::close(fd);
    return result;
}

} // namespace

int main(int argc, char** argv)
{
    const std::string reader = argc == 4 ? argv[1] : "";
    if (reader == "staff")
        return presentToStaffReader(argv[2], argv[3]);
    if (reader == "hand")
        return presentToHandReader(argv[2], argv[3]);
    std::fputs(
        "usage: kv_card staff LINE NUMBER      writes the number to a serial line\n"
        "       kv_card hand SOCKET SERIAL     presents a card to a hand card reader's stand-in\n"
        "\n"
        "A hand card's serial: eight hexadecimal digits (models 1, 2, 19, 20), twelve digits (4, 5), or any\n"
        "text (7, 8).\n",
        stderr);
    return wrongUse;
}
