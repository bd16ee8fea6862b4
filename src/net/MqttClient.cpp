#include "net/MqttClient.h"

#include "net/BrokerLog.h"

#include <qmqttclient.h>
#include <qmqtttopicname.h>

#include <limits>

Q_LOGGING_CATEGORY(brokerLog, "broker")

namespace {

constexpr int firstDelayMs = 1000;
constexpr int delayStepMs = 15000;
constexpr int maxDelayMs = 900000;
constexpr quint16 mqttKeepAliveSeconds = 20;

/// On port 0 nobody listens: a number that is no port fails like every address without a broker.
quint16 portOf(int number)
{
    const bool isPort = number > 0 && number <= std::numeric_limits<quint16>::max();
    return static_cast<quint16>(isPort ? number : 0);
}

/// Whether it can stand in a packet; a broker hangs up at one that can't.
bool isTopic(const QString& text)
{
    const int bytes = text.toUtf8().size();
    return bytes > 0 && bytes <= std::numeric_limits<quint16>::max() && !text.contains(QChar::Null);
}

} // namespace

MqttClient::MqttClient(const QString& host, int port, const QString& user, const QString& password,
                       const QString& clientId, QObject* parent)
    : QObject(parent), m_client(new QMqttClient(this)), m_reconnectTimer(new QTimer(this)),
      m_delayMs(firstDelayMs)
{
    m_client->setHostname(host);
    m_client->setPort(portOf(port));
    m_client->setUsername(user);
    m_client->setPassword(password);
    m_client->setClientId(clientId);
    m_client->setProtocolVersion(QMqttClient::MQTT_3_1_1);
    m_client->setCleanSession(true);
    m_client->setKeepAlive(mqttKeepAliveSeconds);
    m_reconnectTimer->setObjectName(QStringLiteral("mqttReconnect"));
    m_reconnectTimer->setSingleShot(true);
    connect(m_client, &QMqttClient::messageReceived, this, &MqttClient::onMessageReceived);
    connect(m_client, &QMqttClient::connected, this, &MqttClient::onConnected);
    connect(m_client, &QMqttClient::disconnected, this, &MqttClient::onDisconnected);
    connect(m_reconnectTimer, &QTimer::timeout, this, &MqttClient::reconnect);
    m_client->connectToHost();
}

MqttClient::~MqttClient()
{
    m_isClosing = true;
    m_reconnectTimer->stop();
    delete m_reconnectTimer;
    for (const QString& topic : m_subscribedTopics)
        m_client->unsubscribe(topic);
    m_client->disconnectFromHost();
    delete m_client;
}

void MqttClient::setTopic(const QList<QString>& topics)
{
    m_wantedTopics = topics;
    subscribe();
}

void MqttClient::onConnected()
{
    subscribe();
    qCDebug(brokerLog).noquote() << QStringLiteral("mqtt connected");
    Q_EMIT connected();
}

void MqttClient::onDisconnected()
{
    if (m_isClosing)
        return;
    m_reconnectTimer->start(m_delayMs);
    Q_EMIT disconnected();
}

void MqttClient::onMessageReceived(const QByteArray& message, const QMqttTopicName& topic)
{
    Q_EMIT mqttMsgSignal(topic.name(), QString::fromLatin1(message.constData(), message.size()));
}

void MqttClient::subscribe()
{
    // Topics can also change between two attempts; then the next one comes soon, instead of never.
    const bool isWaiting = m_reconnectTimer->isActive();
    m_reconnectTimer->stop();
    m_delayMs = firstDelayMs;
    for (const QString& topic : m_subscribedTopics)
        m_client->unsubscribe(topic);
    m_subscribedTopics.clear();
    for (const QString& topic : m_wantedTopics) {
        if (isTopic(topic)) {
            m_client->subscribe(topic, 0);
            m_subscribedTopics.append(topic);
        } else {
            qCCritical(brokerLog).noquote() << QStringLiteral("\"%1\" is no mqtt topic").arg(topic);
        }
    }
    if (isWaiting && m_client->state() == QMqttClient::Disconnected)
        m_reconnectTimer->start(m_delayMs);
}

void MqttClient::reconnect()
{
    m_reconnectTimer->stop();
    m_client->connectToHost();
    if (m_delayMs < maxDelayMs)
        m_delayMs += delayStepMs;
    qCDebug(brokerLog).noquote()
        << QStringLiteral("reconnect times: %1").arg((m_delayMs - firstDelayMs) / delayStepMs);
}
