#pragma once

#include <QJsonArray>
#include <QJsonObject>

class IArray;

/// Records to JSON, by their own properties (those of base classes are left out). Stateless, made on the stack.
class SerializerBase
{
public:
    /// A null nested record gives no key, an empty list gives [].
    QJsonObject serializeObject(const void* object, const QMetaObject* meta) const;
    QJsonArray serializeArray(const IArray& array) const;
};
