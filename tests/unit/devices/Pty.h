#pragma once

#include <QByteArray>
#include <QString>

#include <cstdlib>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

/// A serial line of its own: the program under test opens the line, the test holds the other end.
class Pty
{
public:
    Pty() : m_master(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC))
    {
        char name[128] = {};
        if (m_master < 0 || ::grantpt(m_master) != 0 || ::unlockpt(m_master) != 0 ||
            ::ptsname_r(m_master, name, sizeof name) != 0)
            return;
        m_line = QString::fromLocal8Bit(name);
        // Held open, so that the line outlives whoever uses it, and raw from the beginning.
        m_held = ::open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
        termios settings;
        if (::tcgetattr(m_held, &settings) == 0) {
            ::cfmakeraw(&settings);
            ::tcsetattr(m_held, TCSANOW, &settings);
        }
    }
    Pty(const Pty&) = delete;
    Pty& operator=(const Pty&) = delete;
    ~Pty() { vanish(); }

    QString line() const { return m_line; }
    int master() const { return m_master; }
    bool write(const QByteArray& bytes) const
    {
        return ::write(m_master, bytes.constData(), static_cast<size_t>(bytes.size())) == bytes.size();
    }
    /// As when the plug is pulled.
    void vanish()
    {
        if (m_held >= 0)
            ::close(m_held);
        if (m_master >= 0)
            ::close(m_master);
        m_held = m_master = -1;
    }

private:
    int m_master;
    int m_held = -1;
    QString m_line;
};
