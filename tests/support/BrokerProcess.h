#pragma once

#include "support/ChildProcess.h"

#include <QByteArrayList>
#include <QString>
#include <QTemporaryDir>

/// A real broker of one test's own, on a loopback port that it keeps through restarts, with one user.
class BrokerProcess
{
public:
    enum Kind { Plain, RefuseTopics };

    /// Runs when this returns; isRunning() tells. One that refuses topics lets nobody subscribe any.
    explicit BrokerProcess(Kind kind = Plain);
    ~BrokerProcess();

    bool isRunning() const { return m_process.state() == QProcess::Running; }
    int port() const { return m_port; }
    QString url() const { return QStringLiteral("tcp://127.0.0.1:%1").arg(m_port); }
    static QString user() { return QStringLiteral("terminal"); }
    static QString password() { return QStringLiteral("demo-broker"); }

    bool start();
    /// Ends it; killed, it has no time to say good-bye.
    void stop();
    void kill();
    /// Takes connections no more than the system does for it, and answers nothing, until thaw().
    void freeze();
    void thaw();

    /// Publishes the payloads on the topic and returns when the broker has them all; false when it hasn't after
    /// 5 s without an answer.
    bool publish(const QString& topic, const QByteArrayList& payloads);
    /// What it wrote about connections and packets since its first start.
    QString log() const;

private:
    QString logFile() const;

    QTemporaryDir m_folder;
    ChildProcess m_process;
    int m_port = 0;
};
