#include "support/BrokerProcess.h"

#include "support/DeadEndpoint.h"

#include <QElapsedTimer>
#include <QFile>
#include <QLibraryInfo>
#include <QStandardPaths>
#include <QTcpSocket>
#include <QThread>
#include <QUrl>

#include <csignal>
#include <mosquitto.h>
#include <utility>

namespace {

QString program(const QString& name)
{
    const QString found = QStandardPaths::findExecutable(name);
    return found.isEmpty() ? QStringLiteral("/usr/sbin/") + name : found;
}

} // namespace

BrokerProcess::BrokerProcess(Kind kind) : m_port(QUrl(deadEndpointUrl()).port())
{
    const QString passwords = m_folder.filePath(QStringLiteral("passwords"));
    QProcess::execute(program(QStringLiteral("mosquitto_passwd")),
                      {QStringLiteral("-c"), QStringLiteral("-b"), passwords, user(), password()});
    QFile configuration(m_folder.filePath(QStringLiteral("broker.conf")));
    if (!configuration.open(QIODevice::WriteOnly))
        return;
    configuration.write(
        QStringLiteral("listener %1 127.0.0.1\nallow_anonymous false\npassword_file %2\n"
                       "persistence false\nmax_queued_messages 0\nlog_type all\nlog_dest file %3\n"
                       "user %4\n")
            .arg(m_port)
            .arg(passwords, logFile(), qEnvironmentVariable("USER", QStringLiteral("root")))
            .toUtf8());
    if (kind == RefuseTopics) {
        // It knows no client, and what it doesn't know it refuses.
        const QString rights = m_folder.filePath(QStringLiteral("rights.json"));
        QFile empty(rights);
        if (!empty.open(QIODevice::WriteOnly))
            return;
        empty.write("{}");
        configuration.write(
            QStringLiteral("plugin %1/mosquitto_dynamic_security.so\nplugin_opt_config_file %2\n")
                .arg(QLibraryInfo::location(QLibraryInfo::LibrariesPath), rights)
                .toUtf8());
    }
    configuration.close();
    m_process.setProgram(program(QStringLiteral("mosquitto")));
    m_process.setArguments({QStringLiteral("-c"), configuration.fileName()});
    start();
}

BrokerProcess::~BrokerProcess()
{
    thaw();
    stop();
}

bool BrokerProcess::start()
{
    m_process.start();
    m_process.waitForStarted();
    for (int i = 0; i < 100 && isRunning(); ++i) {
        QTcpSocket probe;
        probe.connectToHost(QHostAddress::LocalHost, static_cast<quint16>(m_port));
        if (probe.waitForConnected(1000))
            return true;
        QThread::msleep(50);
    }
    qWarning("no broker: %s", qPrintable(log()));
    return false;
}

void BrokerProcess::stop()
{
    m_process.terminate();
    if (!m_process.waitForFinished(5000))
        kill();
}

void BrokerProcess::kill()
{
    m_process.kill();
    m_process.waitForFinished();
}

void BrokerProcess::freeze() { ::kill(static_cast<pid_t>(m_process.processId()), SIGSTOP); }

void BrokerProcess::thaw()
{
    if (m_process.processId() > 0)
        ::kill(static_cast<pid_t>(m_process.processId()), SIGCONT);
}

bool BrokerProcess::publish(const QString& topic, const QByteArrayList& payloads)
{
    int acknowledged = 0;
    mosquitto* session = mosquitto_new(nullptr, true, &acknowledged);
    mosquitto_username_pw_set(session, user().toUtf8().constData(), password().toUtf8().constData());
    mosquitto_publish_callback_set(session, [](mosquitto*, void* count, int) { ++*static_cast<int*>(count); });
    bool isFine = mosquitto_connect(session, "127.0.0.1", m_port, 60) == MOSQ_ERR_SUCCESS;
    constexpr int acknowledgedByBroker = 1;
    for (const QByteArray& payload : payloads) {
        isFine =
            isFine && mosquitto_publish(session, nullptr, topic.toUtf8().constData(), payload.size(),
                                        payload.constData(), acknowledgedByBroker, false) == MOSQ_ERR_SUCCESS;
    }
    constexpr int limitMs = 5000;
    QElapsedTimer sinceAnswer;
    sinceAnswer.start();
    for (int before = 0; isFine && acknowledged < payloads.size();) {
        isFine = mosquitto_loop(session, 100, 1) == MOSQ_ERR_SUCCESS && !sinceAnswer.hasExpired(limitMs);
        if (std::exchange(before, acknowledged) < acknowledged)
            sinceAnswer.start();
    }
    mosquitto_disconnect(session);
    mosquitto_destroy(session);
    return isFine;
}

QString BrokerProcess::logFile() const { return m_folder.filePath(QStringLiteral("log")); }

QString BrokerProcess::log() const
{
    QFile file(logFile());
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}
