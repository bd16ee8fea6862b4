#pragma once

#include <QByteArray>
#include <QString>

#include <pty.h>
#include <unistd.h>

/// A serial line of its own, raw from the beginning: the program under test opens the line, the test holds the
/// other end, and the line too, so that it outlives whoever uses it.
class Pty
{
public:
    Pty()
    {
        termios settings = {};
        ::cfmakeraw(&settings);
        char name[128] = {};
        if (::openpty(&m_master, &m_held, name, &settings, nullptr) == 0)
            m_line = QString::fromLocal8Bit(name);
    }
    Pty(const Pty&) = delete;
    Pty& operator=(const Pty&) = delete;
    /// As when the plug is pulled.
    ~Pty()
    {
        ::close(m_held);
        ::close(m_master);
    }

    QString line() const { return m_line; }
    bool write(const QByteArray& bytes) const
    {
        return ::write(m_master, bytes.constData(), static_cast<size_t>(bytes.size())) == bytes.size();
    }

private:
    int m_master = -1;
    int m_held = -1;
    QString m_line;
};
