#pragma once

#include "serialization/DefaultObjectFactory.h"
#include "serialization/DeserializerBase.h"
#include "serialization/SerializerBase.h"

/// Both directions with one factory, the object's own unless another is given. Made on the stack for one call.
class QJsonSerializer : public DefaultObjectFactory
{
public:
    QJsonSerializer() : m_factory(this) {}
    QJsonSerializer(const QJsonSerializer&) = delete;
    QJsonSerializer& operator=(const QJsonSerializer&) = delete;

    /// The factory stays the caller's and must outlive this object.
    void setObjectFactory(const IObjectFactory* factory) { m_factory = factory; }

    QJsonObject serializeObject(const void* object, const QMetaObject* meta) const
    {
        return SerializerBase().serializeObject(object, meta);
    }
    void deserializeObject(const QJsonObject& json, void* target, const QMetaObject* meta) const
    {
        DeserializerBase(*m_factory).deserializeObject(json, target, meta);
    }

private:
    IObjectFactory const* m_factory;
};
