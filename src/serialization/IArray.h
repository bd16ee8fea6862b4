#pragma once

#include <QJsonValue>
#include <QList>
#include <QVariant>

class IObjectFactory;
class SerializerBase;

/// A list-valued property, seen without its element type.
class IArray
{
public:
    virtual QJsonValue serialize(const SerializerBase& serializer) const;
    /// True when the elements are plain values, false when they are records.
    virtual bool isScalar() const = 0;
    /// The element class; null for plain values.
    virtual const QMetaObject* metaObject() const = 0;
    /// Makes a record through the factory and appends it. Null, and nothing appended, when the factory fails.
    virtual void* createElement(const IObjectFactory& factory) = 0;
    virtual QList<QVariant> toVariantList() const = 0;
    /// Appends a plain value; does nothing for records.
    virtual void addElement(const QVariant& value) = 0;
    /// Empties the list without deleting its elements.
    virtual void initialize() = 0;

protected:
    ~IArray() = default;
};
