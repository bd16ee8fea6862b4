#pragma once

#include "serialization/IArray.h"
#include "serialization/IObjectFactory.h"

#include <QMetaType>

#include <type_traits>

/// List property of a record.
///
/// A copy keeps pointing at the array it came from, its owner, however long the chain of copies: elements that
/// are added through a property value that the meta-object system handed out land in the record's own array.
/// The owner must outlive its copies; a copy meant to last is made from list(). The array doesn't delete its
/// elements, the record does.
template <typename T>
class Array final : public IArray
{
public:
    Array() : m_owner(this) {}
    Array(const Array& other) : m_list(other.m_list), m_owner(other.m_owner) {}
    explicit Array(const QList<T>& list) : m_list(list), m_owner(this) {}
    /// Makes a copy of this one too: the meta-object system hands property values out by assignment.
    Array& operator=(const Array& other) = default;
    ~Array() = default;

    bool isScalar() const override { return !std::is_pointer<T>::value; }

    const QMetaObject* metaObject() const override
    {
        if constexpr (std::is_pointer<T>::value)
            return &std::remove_pointer<T>::type::staticMetaObject;
        else
            return nullptr;
    }

    void* createElement(const IObjectFactory& factory) override
    {
        if constexpr (std::is_pointer<T>::value) {
            void* element = factory.create(metaObject());
            if (element)
                m_owner->m_list.append(static_cast<T>(element));
            return element;
        } else {
            Q_UNUSED(factory)
            return nullptr;
        }
    }

    QList<QVariant> toVariantList() const override
    {
        QList<QVariant> variants;
        variants.reserve(m_list.size());
        for (const T& element : m_list)
            variants.append(QVariant::fromValue(element));
        return variants;
    }

    void addElement(const QVariant& value) override
    {
        if constexpr (std::is_pointer<T>::value)
            Q_UNUSED(value)
        else
            m_owner->m_list.append(value.value<T>());
    }

    void initialize() override { m_owner->m_list.clear(); }

    const QList<T>& list() const { return m_list; }
    void setList(const QList<T>& list) { m_list = list; }
    int size() const { return m_list.size(); }
    bool isEmpty() const { return m_list.isEmpty(); }
    const T& at(int index) const { return m_list.at(index); }
    void append(const T& element) { m_list.append(element); }
    typename QList<T>::const_iterator begin() const { return m_list.constBegin(); }
    typename QList<T>::const_iterator end() const { return m_list.constEnd(); }
    bool operator==(const Array& other) const { return m_list == other.m_list; }
    bool operator!=(const Array& other) const { return m_list != other.m_list; }

private:
    QList<T> m_list;
    Array* m_owner;
};
