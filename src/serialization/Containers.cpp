#include "serialization/IArray.h"
#include "serialization/IDictionary.h"
#include "serialization/SerializerBase.h"

#include <QJsonArray>
#include <QJsonObject>

QJsonValue IArray::serialize(const SerializerBase& serializer) const
{
    return serializer.serializeArray(*this);
}

QJsonValue IDictionary::serialize(const SerializerBase& serializer) const
{
    QJsonObject object;
    const QMap<QString, QVariant> elements = toVariantMap();
    for (auto it = elements.constBegin(); it != elements.constEnd(); ++it) {
        if (isScalar())
            object.insert(it.key(), QJsonValue::fromVariant(it.value()));
        else if (const void* element = *static_cast<void* const*>(it.value().constData()))
            object.insert(it.key(), serializer.serializeObject(element, metaObject()));
    }
    return object;
}
