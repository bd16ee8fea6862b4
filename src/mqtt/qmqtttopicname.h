#pragma once

#include <QString>

/// Name of the topic that a message came on.
class QMqttTopicName
{
public:
    explicit QMqttTopicName(const QString& name = {}) : m_name(name) {}

    QString name() const { return m_name; }

private:
    QString m_name;
};
