#pragma once

#include <QCoreApplication>
#include <QProcess>

/// Started with this argument and a model, the test program is a terminal with that hand card reader: the
/// library path is fixed when a process starts. It tells what happens, takes "start" and "stop", and ends with
/// its input.
const char readerArgument[] = "--reader";

/// A terminal in a process of its own, with the working directory of the test.
class Terminal
{
public:
    Terminal(int model, const QString& libraryFolder, const QString& socket = QString())
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("LD_LIBRARY_PATH"), libraryFolder);
        environment.insert(QStringLiteral("KV_SIM_HAND_SOCKET"), socket);
        m_process.setProcessEnvironment(environment);
        m_process.setProcessChannelMode(QProcess::MergedChannels);
        QObject::connect(&m_process, &QProcess::readyRead, &m_process, [this] { takeLines(); });
        m_process.start(QCoreApplication::applicationFilePath(),
                        {QString::fromLatin1(readerArgument), QString::number(model)});
    }
    ~Terminal() { end(); }

    void command(const char* line) { m_process.write(line); }
    /// Zero when all went well, leaks included.
    int end()
    {
        m_process.closeWriteChannel();
        if (!m_process.waitForFinished())
            m_process.kill();
        takeLines();
        return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
    }
    const QStringList& lines() const { return m_lines; }
    QStringList cards() const { return linesWith(QStringLiteral("card ")); }
    QStringList linesWith(const QString& beginning) const
    {
        QStringList found;
        for (const QString& line : m_lines) {
            if (line.startsWith(beginning))
                found.append(line.mid(beginning.size()));
        }
        return found;
    }

private:
    void takeLines()
    {
        while (m_process.canReadLine())
            m_lines.append(QString::fromUtf8(m_process.readLine()).remove(QLatin1Char('\n')));
    }

    QProcess m_process;
    QStringList m_lines;
};
