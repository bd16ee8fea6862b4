#pragma once

#include <QList>
#include <QObject>
#include <QTimer>

class QMqttClient;
class QMqttTopicName;

/// The channel to the store's broker: connects at once, keeps trying for as long as it lives, and restores its
/// subscriptions after each connect. Main thread.
class MqttClient : public QObject
{
    Q_OBJECT

public:
    /// A port outside of 1 to 65535 is like an address where no broker is: there is no connection, and it is
    /// tried again.
    MqttClient(const QString& host, int port, const QString& user, const QString& password,
               const QString& clientId, QObject* parent = nullptr);
    ~MqttClient() override;

    /// The topics to be subscribed, in place of those before. Without a connection they take effect with the
    /// next one. What no packet can carry as a topic, such as an empty text, is logged and left out.
    void setTopic(const QList<QString>& topics);

    /// Milliseconds before the next attempt.
    int currentDelayMs() const { return m_delayMs; }

Q_SIGNALS:
    void mqttMsgSignal(const QString& topic, const QString& msg);
    /// The channel stands, for the first time or again. What was published before is lost.
    void connected();
    /// The channel is lost, or could not be made.
    void disconnected();

private:
    void onConnected();
    void onDisconnected();
    void onMessageReceived(const QByteArray& message, const QMqttTopicName& topic);
    void subscribe();
    void reconnect();

    QMqttClient* m_client;
    bool m_isClosing = false;
    QTimer* m_reconnectTimer; ///< runs while waiting for the next attempt
    int m_delayMs;
    QList<QString> m_subscribedTopics;
    QList<QString> m_wantedTopics;
};
