#pragma once

#include "net/MqttClient.h"
#include "support/BrokerProcess.h"

#include <QSignalSpy>
#include <QtTest>

/// A client, what it told, and its waits.
struct MqttChannel
{
    MqttChannel(const QString& host, int port, const QString& password = BrokerProcess::password())
        : client(host, port, BrokerProcess::user(), password, "client_101_abc")
    {
    }
    explicit MqttChannel(const BrokerProcess& broker, const QString& password = BrokerProcess::password())
        : MqttChannel("127.0.0.1", broker.port(), password)
    {
    }

    /// Milliseconds until the next attempt, 0 when none is waited for.
    int waited() const { return wait->isActive() ? wait->interval() : 0; }
    /// Lets the attempt that is waited for begin now.
    void hurry() { wait->start(0); }

    MqttClient client;
    QSignalSpy connected{&client, &MqttClient::connected};
    QSignalSpy messages{&client, &MqttClient::mqttMsgSignal};
    QTimer* const wait = client.findChild<QTimer*>("mqttReconnect");
};
