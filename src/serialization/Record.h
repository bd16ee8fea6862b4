#pragma once

#include "serialization/Array.h"
#include "serialization/Dictionary.h"

#include <QObject>
#include <QString>

/// Copies the plain fields that the class declares itself.
void copyPlainFields(const QObject* from, QObject* to, const QMetaObject* meta);

/// The value behind a field of a record: knows how it is copied deeply and how it is freed.
/// A plain value is just copied.
template <typename T>
class RecordValue
{
public:
    explicit RecordValue(const RecordValue* from) : m_value(from ? from->m_value : T()) {}
    RecordValue(const RecordValue&) = delete;
    RecordValue& operator=(const RecordValue&) = delete;

    const T& get() const { return m_value; }
    /// True when the value really changed.
    bool set(const T& value)
    {
        if (m_value == value)
            return false;
        m_value = value;
        return true;
    }

private:
    T m_value;
};

/// A nested record, owned. One that is replaced is freed like the last one, at the next turn of the event loop,
/// so that whoever is just reading it may finish.
template <typename T>
class RecordValue<T*>
{
public:
    explicit RecordValue(const RecordValue* from)
        : m_value(from && from->m_value ? new T(from->m_value) : nullptr)
    {
    }
    RecordValue(const RecordValue&) = delete;
    RecordValue& operator=(const RecordValue&) = delete;
    ~RecordValue()
    {
        if (m_value)
            m_value->deleteLater();
    }

    T* get() const { return m_value; }
    bool set(T* value)
    {
        if (m_value == value)
            return false;
        if (m_value)
            m_value->deleteLater();
        m_value = value;
        return true;
    }

private:
    T* m_value;
};

/// A list of records, owned. A list that is set hands its records over; the ones held before are the caller's
/// again.
template <typename T>
class RecordValue<Array<T*>>
{
public:
    explicit RecordValue(const RecordValue* from)
    {
        if (!from)
            return;
        for (T* element : from->m_value)
            m_value.append(new T(element));
    }
    RecordValue(const RecordValue&) = delete;
    RecordValue& operator=(const RecordValue&) = delete;
    ~RecordValue() { qDeleteAll(m_value.list()); }

    const Array<T*>& get() const { return m_value; }
    bool set(const Array<T*>& value)
    {
        if (m_value == value)
            return false;
        m_value.setList(value.list());
        return true;
    }

private:
    Array<T*> m_value;
};

/// Keyed records, owned; as with a list.
template <typename T>
class RecordValue<Dictionary<T*>>
{
public:
    explicit RecordValue(const RecordValue* from)
    {
        if (!from)
            return;
        QHash<QString, T*> copies;
        for (auto it = from->m_value.hash().constBegin(); it != from->m_value.hash().constEnd(); ++it)
            copies.insert(it.key(), new T(it.value()));
        m_value.setHash(copies);
    }
    RecordValue(const RecordValue&) = delete;
    RecordValue& operator=(const RecordValue&) = delete;
    ~RecordValue() { qDeleteAll(m_value.hash()); }

    const Dictionary<T*>& get() const { return m_value; }
    bool set(const Dictionary<T*>& value)
    {
        if (m_value == value)
            return false;
        m_value.setHash(value.hash());
        return true;
    }

private:
    Dictionary<T*> m_value;
};

// A record is a list of fields, one line each:
//
//     class SubLineDto : public QObject
//     {
//         Q_OBJECT
//         RECORD(SubLineDto)
//         RECORD_FIELD(QString, title)  // name of the line
//         RECORD_FIELD(QString, domain) // base URL
//     };
//     RECORD_LIST(SubLineDto)
//
// The property's name is the JSON key. A field gives the property, a getter of its name, a comparing setter
// set_<name> and a change signal <name>Changed. Each macro leaves the access public.

/// The constructors of a record: with and without a parent, and the deep copy, whose parent is null.
#define RECORD(Class) RECORD_CONSTRUCTORS(Class, QObject, static_cast<QObject*>(nullptr))

/// The same for a record on top of another one, whose fields it copies too.
#define RECORD_ON(Class, Base) RECORD_CONSTRUCTORS(Class, Base, static_cast<Base*>(other))

#define RECORD_CONSTRUCTORS(Class, Base, copiedBase)                                                           \
public:                                                                                                        \
    Q_INVOKABLE explicit Class(QObject* parent = nullptr) : Base(parent) {}                                    \
    explicit Class(Class* other) : Base(copiedBase), m_copied(other) { m_copied = nullptr; }                   \
                                                                                                               \
private:                                                                                                       \
    Class* m_copied = nullptr; /* what the fields below are copied from, during the copy only */               \
                                                                                                               \
public:

#define RECORD_FIELD(Type, name) RECORD_FIELD_AS(Type, name, name, set_##name)

/// A field whose key can't be a function's name, or whose setter has a name of its own.
#define RECORD_FIELD_AS(Type, key, getter, setter)                                                             \
    Q_PROPERTY(Type key READ getter WRITE setter NOTIFY getter##Changed)                                       \
public:                                                                                                        \
    Type getter() const { return m_##getter.get(); }                                                           \
    void setter(Type const& value)                                                                             \
    {                                                                                                          \
        if (m_##getter.set(value))                                                                             \
            Q_EMIT getter##Changed();                                                                          \
    }                                                                                                          \
    Q_SIGNAL void getter##Changed();                                                                           \
                                                                                                               \
private:                                                                                                       \
    RecordValue<Type> m_##getter{m_copied ? &m_copied->m_##getter : nullptr};                                  \
                                                                                                               \
public:

/// Declares a record to the meta-type system as an element of lists.
#define RECORD_LIST(Class) Q_DECLARE_METATYPE(Array<Class*>)
/// The same for dictionaries.
#define RECORD_DICTIONARY(Class) Q_DECLARE_METATYPE(Dictionary<Class*>)

/// An operation that takes over every plain field of another record of the class, each signal only on a real
/// change. Nested records and lists stay as they are.
#define RECORD_REFRESH(Class, name)                                                                            \
public:                                                                                                        \
    void name(Class* other) { copyPlainFields(other, this, &staticMetaObject); }
