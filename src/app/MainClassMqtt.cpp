// The broker's channel, as the view-models see it.

#include "app/MainClass.h"
#include "app/SysInit.h"
#include "common/GlobalConfig.h"
#include "common/MyMessage.h"
#include "net/BrokerLog.h"
#include "net/MqttClient.h"
#include "services/Baa00Service.h"
#include "services/Reply.h"

#include <QUuid>

bool MainClass::fetchMqttInfo()
{
    const auto reply = held(m_baa00->getSysInitByAuthCode(m_config->secretKey()));
    if (!isOkOrShown(*reply))
        return false;
    if (!reply->data()) {
        m_message->showError(QStringLiteral("获取mqtt信息出错"));
        return false;
    }
    if (reply->data()->mqttInfo())
        applyMqttInfo(reply->data()->mqttInfo(), m_config);
    return true;
}

void MainClass::initMqtt(bool keepParameters)
{
    if (!keepParameters && !fetchMqttInfo())
        return;
    if (m_mqttClient) {
        m_mqttClient->disconnect(this);
        m_mqttClient->deleteLater();
    }
    const QString clientId =
        QStringLiteral("client_%1_%2").arg(m_config->storeId(), QUuid::createUuid().toString(QUuid::Id128));
    m_mqttClient = new MqttClient(m_config->mqttUrl(), m_config->mqttPort(), m_config->mqttUser(),
                                  m_config->mqttPwd(), clientId, this);
    connect(m_mqttClient, &MqttClient::mqttMsgSignal, this, &MainClass::onMqttMessage);
    connect(m_mqttClient, &MqttClient::connected, this, &MainClass::mqttConnected);
    connect(m_mqttClient, &MqttClient::connected, this, [this] { setIsBrokerAway(false); });
    connect(m_mqttClient, &MqttClient::disconnected, this, [this] { setIsBrokerAway(true); });
}

void MainClass::setMqttTopics(const QList<QString>& topics)
{
    if (m_mqttClient)
        m_mqttClient->setTopic(topics);
}

void MainClass::onMqttMessage(const QString& topic, const QString& msg)
{
    QString shortTopic = topic;
    shortTopic.remove(m_config->storeId());
    qCDebug(brokerLog).noquote() << shortTopic;
    Q_EMIT mqttSignal(shortTopic, msg);
}
