#pragma once

#include <QJsonArray>
#include <QJsonObject>

class IArray;
class IDictionary;
class IObjectFactory;
struct Field;

/// JSON to records: each property of the target's own class takes the value under its exact name. Nothing is
/// reported to the caller, a record is filled as far as the JSON allows. Made on the stack for one call.
///
/// A value whose shape doesn't fit the property (a list for a plain field, an object for a number) leaves the
/// property as it is; so does a record that the factory couldn't make, with a line in the log.
class DeserializerBase
{
public:
    explicit DeserializerBase(const IObjectFactory& factory) : m_factory(factory) {}

    void deserializeObject(const QJsonObject& json, void* target, const QMetaObject* meta) const;
    void deserializeArray(const QJsonArray& json, IArray& array) const;
    void deserializeDictionary(const QJsonObject& json, IDictionary& dictionary) const;

private:
    void writeObject(const Field& field, const QJsonValue& value, void* target) const;

    const IObjectFactory& m_factory;
};
