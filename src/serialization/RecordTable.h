#pragma once

#include <QMetaProperty>
#include <QString>

#include <vector>

class RecordTable;

/// One property of a record class, with what the mapping needs to know of it.
struct Field
{
    enum class Kind { String, Int, LongLong, Double, Bool, Record, Array, Dictionary, Other, Unknown };

    QString key; ///< the JSON key, the property's exact name
    QMetaProperty property;
    const QMetaObject* owner = nullptr;      ///< the class that declares the property
    int index = 0;                           ///< the property's index within its owner
    Kind kind = Kind::Unknown;               ///< Unknown: the meta-type system doesn't know the type
    int userType = 0;                        ///< meta-type id of the property
    const QMetaObject* recordMeta = nullptr; ///< class of a nested record

    /// Neither a record, nor a container, nor a type that the meta-type system doesn't know.
    bool isPlain() const { return kind <= Kind::Bool || kind == Kind::Other; }

    /// Stores a value of exactly the property's type; the setter runs and signals fire.
    void writeTyped(void* target, const void* value) const;

    // One function for each kind of JSON value, so that any reader of JSON can fill records. A value that the
    // property's type can't take leaves the property as it is.
    void writeString(void* target, const QString& value) const;
    void writeInteger(void* target, qlonglong value) const;
    void writeDouble(void* target, double value) const;
    void writeBool(void* target, bool value) const;
    void writeNull(void* target) const;
    void writeVariant(void* target, const QVariant& value) const;
};

/// The properties that a record class declares itself, in their order. Made once for each class and kept to the
/// end of the process; may be asked for on any thread.
class RecordTable
{
public:
    static const RecordTable& of(const QMetaObject* meta);

    const std::vector<Field>& fields() const { return m_fields; }

private:
    explicit RecordTable(const QMetaObject* meta);

    std::vector<Field> m_fields;
};
