#pragma once

#include <QCoreApplication>
#include <QProcess>

/// A terminal in a process of its own, with the working directory of the test: the library path is fixed when a
/// process starts. Started with --reader and a model, the test program has that hand card reader, tells what
/// happens, takes "start" and "stop", and ends with its input.
class Terminal
{
public:
    Terminal(int model, const QString& libraryFolder, const QString& socket = {})
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("LD_LIBRARY_PATH", libraryFolder);
        environment.insert("KV_SIM_HAND_SOCKET", socket);
        m_process.setProcessEnvironment(environment);
        m_process.setProcessChannelMode(QProcess::MergedChannels);
        QObject::connect(&m_process, &QProcess::readyRead, &m_process, [this] { takeLines(); });
        m_process.start(QCoreApplication::applicationFilePath(), {"--reader", QString::number(model)});
    }
    ~Terminal() { end(); }

    void stop() { m_process.write("stop\n"); }
    void start() { m_process.write("start\n"); }
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
    /// What stands behind the beginning in the lines that begin with it.
    QStringList told(const QString& beginning) const
    {
        QStringList found;
        for (const QString& line : m_lines) {
            if (line.startsWith(beginning + ' '))
                found.append(line.mid(beginning.size() + 1));
        }
        return found;
    }
    bool hasStopped(int times = 1) const { return told("stopped").size() == times; }
    bool hasEnded() const { return m_lines.contains("thread ended"); }

private:
    void takeLines()
    {
        while (m_process.canReadLine())
            m_lines.append(QString::fromUtf8(m_process.readLine()).remove('\n'));
    }

    QProcess m_process;
    QStringList m_lines;
};
