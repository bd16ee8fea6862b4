#pragma once

#include "mqtt/qmqtttopicname.h"

#include <QHash>
#include <QObject>
#include <QStringList>
#include <QTimer>

#include <deque>
#include <future>
#include <memory>

class QSocketNotifier;
struct mosquitto;
struct mosquitto_message;

/// The part of Qt's MQTT client that the terminal uses, over libmosquitto, where Qt's module isn't installed.
/// Main thread, driven by its event loop: names are looked up on threads of their own, sockets never block, and
/// every signal is emitted outside the library, so that a slot may delete the client.
class QMqttClient : public QObject
{
    Q_OBJECT

public:
    enum ClientState { Disconnected, Connecting, Connected };
    Q_ENUM(ClientState)
    enum ProtocolVersion { MQTT_3_1 = 3, MQTT_3_1_1 = 4 };
    Q_ENUM(ProtocolVersion)

    explicit QMqttClient(QObject* parent = nullptr);
    ~QMqttClient() override;

    void setHostname(const QString& hostname);
    void setPort(quint16 port) { m_port = port; }
    void setClientId(const QString& clientId) { m_clientId = clientId; }
    void setUsername(const QString& username) { m_username = username; }
    void setPassword(const QString& password) { m_password = password; }
    void setProtocolVersion(ProtocolVersion version) { m_version = version; }
    void setCleanSession(bool isClean) { m_isClean = isClean; }
    void setKeepAlive(quint16 seconds) { m_keepAliveSeconds = seconds; }
    ClientState state() const { return m_state; }

    /// Starts an attempt; it ends in connected() or, after 20 s for each address of the host at most, in
    /// disconnected(). Only while disconnected.
    void connectToHost();
    /// Says good-bye to the broker and hangs up.
    void disconnectFromHost();
    /// Only while connected, else nothing happens. A topic that the broker refuses is written to the log.
    void subscribe(const QString& topic, quint8 qos = 0);
    void unsubscribe(const QString& topic);

Q_SIGNALS:
    void connected();
    /// Also the end of an attempt that failed.
    void disconnected();
    /// Of a payload over 64 KiB its beginning.
    void messageReceived(const QByteArray& message, const QMqttTopicName& topic);

private:
    struct Message
    {
        QByteArray payload;
        QString topic;
    };

    bool isLookingUp() const;
    void takeAddresses();
    void tryNextAddress();
    bool openSession(const QString& address);
    void watchSocket();
    void goOn(int result);
    void deliver();
    void fail();
    void closeSession();

    static void onConnect(mosquitto*, void* client, int code);
    static void onMessage(mosquitto*, void* client, const mosquitto_message* message);
    static void onSubscribed(mosquitto*, void* client, int packet, int count, const int* answers);

    QString m_hostname;
    quint16 m_port = 1883;
    QString m_clientId;
    QString m_username;
    QString m_password;
    ProtocolVersion m_version = MQTT_3_1_1;
    bool m_isClean = true;
    quint16 m_keepAliveSeconds = 60;

    ClientState m_state = Disconnected;
    std::future<QStringList> m_lookup; ///< of the host's name; may go on after the attempt that began it
    QTimer m_lookupPoll;
    QStringList m_addresses; ///< not tried yet
    mosquitto* m_session = nullptr;
    int m_socket = -1; ///< the one that is watched
    std::unique_ptr<QSocketNotifier> m_readable;
    std::unique_ptr<QSocketNotifier> m_writable;
    QTimer m_upkeep;
    QTimer m_attemptLimit{this};
    QHash<int, QString> m_asked; ///< topics that the broker has yet to answer for, by their packet

    // What the library has reported and nobody has been told yet.
    int m_connectCode = -1; ///< the broker's answer, -1 for none
    std::deque<Message> m_messages;
};
