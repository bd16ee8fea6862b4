#pragma once

#include "support/BrokerProcess.h"

#include <QStringList>

#include <memory>
#include <mosquitto.h>

/// Hears all that is published.
class BrokerListener
{
public:
    BrokerListener() : m_client(mosquitto_new(nullptr, true, &m_received), mosquitto_destroy)
    {
        mosquitto_username_pw_set(m_client.get(), qPrintable(BrokerProcess::user()),
                                  qPrintable(BrokerProcess::password()));
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
