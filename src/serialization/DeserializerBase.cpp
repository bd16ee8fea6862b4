#include "serialization/DeserializerBase.h"

#include "serialization/DefaultObjectFactory.h"
#include "serialization/IArray.h"
#include "serialization/IDictionary.h"
#include "serialization/RecordTable.h"

#include <QDebug>

namespace {

/// Beyond this a double no longer holds every whole number.
constexpr double exactIntegerLimit = 9007199254740992.0;

void writeNumber(const Field& field, const QJsonValue& value, void* target)
{
    const double number = value.toDouble();
    if (number > -exactIntegerLimit && number < exactIntegerLimit) {
        const auto whole = static_cast<qlonglong>(number);
        if (static_cast<double>(whole) == number)
            field.writeInteger(target, whole);
        else
            field.writeDouble(target, number);
    } else {
        field.writeVariant(target, value.toVariant());
    }
}

} // namespace

void DeserializerBase::deserializeObject(const QJsonObject& json, void* target, const QMetaObject* meta) const
{
    if (json.isEmpty())
        return;
    for (const Field& field : RecordTable::of(meta).fields()) {
        const QJsonObject::const_iterator found = json.constFind(field.key);
        if (found == json.constEnd())
            continue;
        const QJsonValue value = found.value();
        switch (value.type()) {
        case QJsonValue::Undefined:
            break;
        case QJsonValue::Array:
            if (field.kind == Field::Kind::Array) {
                // The copy leads to the record's own array, so nothing is written back.
                QVariant copy = field.property.readOnGadget(target);
                deserializeArray(value.toArray(), *static_cast<IArray*>(copy.data()));
            }
            break;
        case QJsonValue::Object:
            writeObject(field, value, target);
            break;
        case QJsonValue::Null:
            field.writeNull(target);
            break;
        case QJsonValue::Bool:
            field.writeBool(target, value.toBool());
            break;
        case QJsonValue::Double:
            writeNumber(field, value, target);
            break;
        case QJsonValue::String:
            field.writeString(target, value.toString());
            break;
        }
    }
}

void DeserializerBase::writeObject(const Field& field, const QJsonValue& value, void* target) const
{
    switch (field.kind) {
    case Field::Kind::Unknown:
        qCritical() << "Unknown user type for property" << field.property.name();
        break;
    case Field::Kind::Dictionary: {
        QVariant copy = field.property.readOnGadget(target);
        deserializeDictionary(value.toObject(), *static_cast<IDictionary*>(copy.data()));
        break;
    }
    case Field::Kind::Record: {
        void* nested = m_factory.create(field.recordMeta);
        if (!nested) {
            DefaultObjectFactory::reportFailure(field.recordMeta);
            break;
        }
        deserializeObject(value.toObject(), nested, field.recordMeta);
        field.writeTyped(target, &nested);
        break;
    }
    default:
        break;
    }
}

void DeserializerBase::deserializeArray(const QJsonArray& json, IArray& array) const
{
    array.initialize();
    const bool scalar = array.isScalar();
    const QMetaObject* meta = array.metaObject();
    for (const QJsonValue value : json) {
        if (scalar)
            array.addElement(value.toVariant());
        else if (void* element = array.createElement(m_factory))
            deserializeObject(value.toObject(), element, meta);
        else
            DefaultObjectFactory::reportFailure(meta);
    }
}

void DeserializerBase::deserializeDictionary(const QJsonObject& json, IDictionary& dictionary) const
{
    dictionary.initialize();
    const bool scalar = dictionary.isScalar();
    const QMetaObject* meta = dictionary.metaObject();
    for (auto it = json.constBegin(); it != json.constEnd(); ++it) {
        if (scalar)
            dictionary.addElement(it.key(), it.value().toVariant());
        else if (void* element = dictionary.createElement(it.key(), m_factory))
            deserializeObject(it.value().toObject(), element, meta);
        else
            DefaultObjectFactory::reportFailure(meta);
    }
}
