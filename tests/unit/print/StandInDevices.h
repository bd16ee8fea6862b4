#pragma once

#include <QFile>
#include <QtTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

/// A named pipe with its reading end, which never waits.
class Pipe
{
public:
    explicit Pipe(const QString& path)
    {
        const QByteArray name = QFile::encodeName(path);
        m_made = ::mkfifo(name.constData(), 0600) == 0;
        m_end = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    }
    ~Pipe() { close(); }
    bool isOpen() const { return m_made && m_end >= 0; }
    QByteArray readAll()
    {
        QByteArray all(1 << 20, '\0');
        all.resize(int(qMax<ssize_t>(0, ::read(m_end, all.data(), size_t(all.size())))));
        return all;
    }
    void close()
    {
        if (m_end >= 0)
            ::close(m_end);
        m_end = -1;
    }

private:
    bool m_made = false;
    int m_end = -1;
};

/// An executable of ours in the place of a command.
inline void writeScript(const QString& path, const QByteArray& script)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("#!/bin/sh\n" + script);
    file.close();
    QVERIFY(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}
