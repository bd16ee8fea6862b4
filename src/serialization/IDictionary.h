#pragma once

#include <QJsonValue>
#include <QMap>
#include <QVariant>

class IObjectFactory;
class SerializerBase;

/// A keyed property, seen without its element type.
class IDictionary
{
public:
    /// A JSON object of the elements, in the sorted order of the keys.
    virtual QJsonValue serialize(const SerializerBase& serializer) const;
    /// True when the elements are plain values, false when they are records.
    virtual bool isScalar() const = 0;
    /// The element class; null for plain values.
    virtual const QMetaObject* metaObject() const = 0;
    /// Makes a record through the factory and stores it under the key; a record that stood there is let go of,
    /// not deleted. Null, and nothing stored, when the factory fails.
    virtual void* createElement(const QString& key, const IObjectFactory& factory) = 0;
    virtual QMap<QString, QVariant> toVariantMap() const = 0;
    /// Stores a plain value; does nothing for records.
    virtual void addElement(const QString& key, const QVariant& value) = 0;
    /// Empties the dictionary without deleting its elements.
    virtual void initialize() = 0;

protected:
    ~IDictionary() = default;
};
