#pragma once

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <QTcpServer>
#include <QTemporaryDir>

#include <memory>
#include <mosquitto.h>

/// A mosquitto broker on a port of its own that lets everybody in; ends with the object.
class LocalBroker
{
public:
    LocalBroker() : m_program(QStandardPaths::findExecutable("mosquitto", {"/usr/sbin", "/usr/bin"}))
    {
        QTcpServer placeholder;
        placeholder.listen(QHostAddress::LocalHost);
        m_port = placeholder.serverPort();
    }
    ~LocalBroker() { stop(); }

    bool isInstalled() const { return !m_program.isEmpty(); }
    int port() const { return m_port; }
    QString url() const { return QStringLiteral("tcp://127.0.0.1:%1").arg(m_port); }
    const QTemporaryDir& folder() const { return m_folder; }

    /// Connections are accepted a moment later.
    bool start()
    {
        QFile config(m_folder.filePath("mosquitto.conf"));
        if (!config.open(QIODevice::WriteOnly))
            return false;
        config.write("listener " + QByteArray::number(m_port) + " 127.0.0.1\nallow_anonymous true\n");
        config.close();
        m_process.start(m_program, {"-c", config.fileName()});
        return m_process.waitForStarted();
    }
    bool stop()
    {
        m_process.terminate();
        return m_process.state() == QProcess::NotRunning || m_process.waitForFinished();
    }

private:
    const QString m_program;
    QTemporaryDir m_folder;
    QProcess m_process;
    int m_port = 0;
};

/// Hears all that is published.
class Listener
{
public:
    Listener() : m_client(mosquitto_new(nullptr, true, &m_received), mosquitto_destroy)
    {
        mosquitto_message_callback_set(
            m_client.get(), [](mosquitto*, void* list, const mosquitto_message* heard) {
                *static_cast<QStringList*>(list)
                    << heard->topic << QByteArray(static_cast<const char*>(heard->payload), heard->payloadlen);
            });
    }

    /// False while the broker isn't there.
    bool listen(int port)
    {
        return mosquitto_connect(m_client.get(), "127.0.0.1", port, 20) == MOSQ_ERR_SUCCESS &&
               mosquitto_subscribe(m_client.get(), nullptr, "#", 0) == MOSQ_ERR_SUCCESS;
    }
    /// Topics and payloads in turn, after another moment's listening.
    const QStringList& received()
    {
        mosquitto_loop(m_client.get(), 50, 1);
        return m_received;
    }

private:
    QStringList m_received;
    std::unique_ptr<mosquitto, void (*)(mosquitto*)> m_client;
};
