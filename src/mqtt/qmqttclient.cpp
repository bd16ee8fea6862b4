#include "mqtt/qmqttclient.h"

#include "mqtt/HostLookup.h"

#include <QHostAddress>
#include <QLoggingCategory>
#include <QPointer>
#include <QSocketNotifier>

#include <mosquitto.h>

namespace {

constexpr int upkeepMs = 1000;
constexpr int attemptLimitMs = 20000;
constexpr int lookupPollMs = 20;
constexpr int packetsAtOnce = 1;
constexpr int mostPayloadBytes = 64 * 1024; // of what is only a doorbell
constexpr int subscriptionRefused = 0x80;

struct MosquittoLibrary
{
    MosquittoLibrary() { mosquitto_lib_init(); }
    ~MosquittoLibrary() { mosquitto_lib_cleanup(); }
};

void logRefused(const QString& topic, const char* cause)
{
    static const QLoggingCategory brokerLog("broker"); // as that of the channel that uses this
    qCCritical(brokerLog).noquote()
        << QStringLiteral("mqtt topic \"%1\" isn't subscribed: %2").arg(topic, cause);
}

} // namespace

QMqttClient::QMqttClient(QObject* parent) : QObject(parent)
{
    static const MosquittoLibrary library;
    connect(&m_upkeep, &QTimer::timeout, this, [this] { goOn(mosquitto_loop_misc(m_session)); });
    connect(&m_lookupPoll, &QTimer::timeout, this, &QMqttClient::takeAddresses);
    m_attemptLimit.setObjectName(QStringLiteral("mqttAttempt"));
    m_attemptLimit.setSingleShot(true);
    connect(&m_attemptLimit, &QTimer::timeout, this, [this] {
        if (m_addresses.isEmpty())
            fail();
        else
            tryNextAddress();
    });
}

QMqttClient::~QMqttClient() { closeSession(); }

void QMqttClient::setHostname(const QString& hostname)
{
    m_hostname = hostname;
    m_lookup = {};
}

void QMqttClient::connectToHost()
{
    if (m_state != Disconnected)
        return;
    m_state = Connecting;
    m_attemptLimit.start(attemptLimitMs);
    if (QHostAddress(m_hostname).isNull()) {
        // One that still runs since an earlier attempt answers this one too, so that they can't pile up.
        if (!isLookingUp())
            m_lookup = lookUpHost(m_hostname);
        m_lookupPoll.start(lookupPollMs);
        return;
    }
    // No name, nothing to look up; the signals still come after this has returned.
    m_addresses = QStringList{m_hostname};
    QTimer::singleShot(0, this, [this] {
        if (m_state == Connecting && !m_session)
            tryNextAddress();
    });
}

bool QMqttClient::isLookingUp() const
{
    return m_lookup.valid() && m_lookup.wait_for(std::chrono::seconds(0)) != std::future_status::ready;
}

void QMqttClient::takeAddresses()
{
    if (isLookingUp())
        return;
    m_lookupPoll.stop();
    if (m_lookup.valid())
        m_addresses = m_lookup.get();
    tryNextAddress();
}

void QMqttClient::tryNextAddress()
{
    closeSession();
    while (!m_addresses.isEmpty()) {
        if (openSession(m_addresses.takeFirst()))
            return;
        closeSession();
    }
    fail();
}

bool QMqttClient::openSession(const QString& address)
{
    m_session = mosquitto_new(m_clientId.toUtf8().constData(), m_isClean, this);
    if (!m_session)
        return false;
    mosquitto_int_option(m_session, MOSQ_OPT_PROTOCOL_VERSION, m_version);
    if (!m_username.isEmpty()) {
        mosquitto_username_pw_set(m_session, m_username.toUtf8().constData(), m_password.toUtf8().constData());
    }
    mosquitto_connect_callback_set(m_session, &QMqttClient::onConnect);
    mosquitto_message_callback_set(m_session, &QMqttClient::onMessage);
    mosquitto_subscribe_callback_set(m_session, &QMqttClient::onSubscribed);
    if (mosquitto_connect_async(m_session, address.toLatin1().constData(), m_port, m_keepAliveSeconds) !=
        MOSQ_ERR_SUCCESS)
        return false;
    m_upkeep.start(upkeepMs);
    m_attemptLimit.start(attemptLimitMs); // for each address of its own
    watchSocket();
    return true;
}

/// Follows the library's socket, which it may have changed, and its wish to write.
void QMqttClient::watchSocket()
{
    const int socket = mosquitto_socket(m_session);
    if (socket != m_socket) {
        m_socket = socket;
        m_readable.reset();
        m_writable.reset();
        if (socket >= 0) {
            m_readable = std::make_unique<QSocketNotifier>(socket, QSocketNotifier::Read);
            connect(m_readable.get(), &QSocketNotifier::activated, this,
                    [this] { goOn(mosquitto_loop_read(m_session, packetsAtOnce)); });
            m_writable = std::make_unique<QSocketNotifier>(socket, QSocketNotifier::Write);
            connect(m_writable.get(), &QSocketNotifier::activated, this,
                    [this] { goOn(mosquitto_loop_write(m_session, packetsAtOnce)); });
        }
    }
    if (m_writable)
        m_writable->setEnabled(mosquitto_want_write(m_session));
}

/// After each step of the library: tells what it reported, and hangs up when it failed.
void QMqttClient::goOn(int result)
{
    const QPointer<QMqttClient> self(this);
    const mosquitto* session = m_session;
    deliver();
    if (!self || m_session != session || !m_session)
        return;
    if (result == MOSQ_ERR_SUCCESS) {
        watchSocket();
        return;
    }
    if (m_state == Connecting && !m_addresses.isEmpty())
        tryNextAddress();
    else
        fail();
}

void QMqttClient::deliver()
{
    const QPointer<QMqttClient> self(this);
    const int code = std::exchange(m_connectCode, -1);
    if (code > 0) {
        fail();
        return;
    }
    if (code == 0) {
        m_attemptLimit.stop();
        m_addresses.clear();
        m_state = Connected;
        Q_EMIT connected();
    }
    while (self && !m_messages.empty()) {
        const Message message = m_messages.front();
        m_messages.pop_front();
        Q_EMIT messageReceived(message.payload, QMqttTopicName(message.topic));
    }
}

void QMqttClient::fail()
{
    closeSession();
    m_attemptLimit.stop();
    m_addresses.clear();
    m_lookupPoll.stop();
    if (std::exchange(m_state, Disconnected) != Disconnected)
        Q_EMIT disconnected();
}

void QMqttClient::closeSession()
{
    m_upkeep.stop();
    // A notifier may be what brought us here.
    for (auto* notifier : {m_readable.release(), m_writable.release()}) {
        if (notifier) {
            notifier->setEnabled(false);
            notifier->disconnect();
            notifier->deleteLater();
        }
    }
    m_socket = -1;
    m_connectCode = -1;
    m_messages.clear();
    m_asked.clear();
    if (m_session)
        mosquitto_destroy(std::exchange(m_session, nullptr));
}

void QMqttClient::disconnectFromHost()
{
    if (m_session && m_state == Connected)
        mosquitto_disconnect(m_session);
    fail();
}

void QMqttClient::subscribe(const QString& topic, quint8 qos)
{
    if (m_state != Connected)
        return;
    int packet = 0;
    const int result = mosquitto_subscribe(m_session, &packet, topic.toUtf8().constData(), qos);
    if (result == MOSQ_ERR_SUCCESS)
        m_asked.insert(packet, topic);
    else
        logRefused(topic, mosquitto_strerror(result));
    watchSocket();
}

void QMqttClient::unsubscribe(const QString& topic)
{
    if (m_state != Connected)
        return;
    mosquitto_unsubscribe(m_session, nullptr, topic.toUtf8().constData());
    watchSocket();
}

void QMqttClient::onConnect(mosquitto*, void* client, int code)
{
    static_cast<QMqttClient*>(client)->m_connectCode = code;
}

void QMqttClient::onMessage(mosquitto*, void* client, const mosquitto_message* message)
{
    static_cast<QMqttClient*>(client)->m_messages.push_back(
        {QByteArray(static_cast<const char*>(message->payload), qMin(message->payloadlen, mostPayloadBytes)),
         QString::fromUtf8(message->topic)});
}

void QMqttClient::onSubscribed(mosquitto*, void* client, int packet, int count, const int* answers)
{
    const QString topic = static_cast<QMqttClient*>(client)->m_asked.take(packet);
    if (count > 0 && answers[0] >= subscriptionRefused)
        logRefused(topic, "the broker refuses it");
}
