#include "serialization/SerializerBase.h"

#include "serialization/IArray.h"
#include "serialization/IDictionary.h"
#include "serialization/RecordTable.h"

namespace {

QJsonValue plainValue(const QVariant& value)
{
    // fromVariant knows no long and would write it as text.
    if (value.userType() == QMetaType::Long)
        return static_cast<qint64>(value.value<long>());
    return QJsonValue::fromVariant(value);
}

} // namespace

QJsonObject SerializerBase::serializeObject(const void* object, const QMetaObject* meta) const
{
    QJsonObject json;
    for (const Field& field : RecordTable::of(meta).fields()) {
        const QVariant value = field.property.readOnGadget(object);
        switch (field.kind) {
        case Field::Kind::Array:
            json.insert(field.key, static_cast<const IArray*>(value.constData())->serialize(*this));
            break;
        case Field::Kind::Dictionary:
            json.insert(field.key, static_cast<const IDictionary*>(value.constData())->serialize(*this));
            break;
        case Field::Kind::Record:
            if (const void* nested = *static_cast<void* const*>(value.constData()))
                json.insert(field.key, serializeObject(nested, field.recordMeta));
            break;
        case Field::Kind::Unknown:
            break;
        default:
            json.insert(field.key, plainValue(value));
        }
    }
    return json;
}

QJsonArray SerializerBase::serializeArray(const IArray& array) const
{
    const QList<QVariant> elements = array.toVariantList();
    if (array.isScalar())
        return QJsonArray::fromVariantList(elements);
    QJsonArray json;
    for (const QVariant& element : elements) {
        if (const void* record = *static_cast<void* const*>(element.constData()))
            json.append(serializeObject(record, array.metaObject()));
    }
    return json;
}
