#pragma once

#include "serialization/IDictionary.h"
#include "serialization/IObjectFactory.h"

#include <QHash>
#include <QMetaType>

#include <type_traits>

/// Keyed property of a record; copies and ownership are as with Array.
template <typename T>
class Dictionary final : public IDictionary
{
public:
    Dictionary() : m_owner(this) {}
    Dictionary(const Dictionary& other) : m_hash(other.m_hash), m_owner(other.m_owner) {}
    /// Makes a copy of this one too: the meta-object system hands property values out by assignment.
    Dictionary& operator=(const Dictionary& other) = default;
    ~Dictionary() = default;

    bool isScalar() const override { return !std::is_pointer<T>::value; }

    const QMetaObject* metaObject() const override
    {
        if constexpr (std::is_pointer<T>::value)
            return &std::remove_pointer<T>::type::staticMetaObject;
        else
            return nullptr;
    }

    void* createElement(const QString& key, const IObjectFactory& factory) override
    {
        if constexpr (std::is_pointer<T>::value) {
            void* element = factory.create(metaObject());
            if (element)
                m_owner->m_hash.insert(key, static_cast<T>(element));
            return element;
        } else {
            Q_UNUSED(key)
            Q_UNUSED(factory)
            return nullptr;
        }
    }

    QMap<QString, QVariant> toVariantMap() const override
    {
        QMap<QString, QVariant> variants;
        for (auto it = m_hash.constBegin(); it != m_hash.constEnd(); ++it)
            variants.insert(it.key(), QVariant::fromValue(it.value()));
        return variants;
    }

    void addElement(const QString& key, const QVariant& value) override
    {
        if constexpr (std::is_pointer<T>::value) {
            Q_UNUSED(key)
            Q_UNUSED(value)
        } else {
            m_owner->m_hash.insert(key, value.value<T>());
        }
    }

    void initialize() override { m_owner->m_hash.clear(); }

    const QHash<QString, T>& hash() const { return m_hash; }
    void setHash(const QHash<QString, T>& hash) { m_hash = hash; }
    int size() const { return m_hash.size(); }
    bool isEmpty() const { return m_hash.isEmpty(); }
    bool operator==(const Dictionary& other) const { return m_hash == other.m_hash; }
    bool operator!=(const Dictionary& other) const { return m_hash != other.m_hash; }

private:
    QHash<QString, T> m_hash;
    Dictionary* m_owner;
};
