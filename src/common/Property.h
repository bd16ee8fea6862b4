#pragma once

#include <QObject>

// One line for a property of a view-model or singleton. The getter bears the property's name, the setter
// compares and signals <name>Changed on a real change. Each macro leaves the access public.

#define PROPERTY(Type, name, setter, ...)                                                                      \
    Q_PROPERTY(Type name READ name WRITE setter NOTIFY name##Changed)                                          \
public:                                                                                                        \
    Type name() const { return m_##name; }                                                                     \
    void setter(Type const& value)                                                                             \
    {                                                                                                          \
        if (m_##name == value)                                                                                 \
            return;                                                                                            \
        m_##name = value;                                                                                      \
        Q_EMIT name##Changed();                                                                                \
    }                                                                                                          \
    Q_SIGNAL void name##Changed();                                                                             \
                                                                                                               \
private:                                                                                                       \
    Type m_##name = __VA_ARGS__;                                                                               \
                                                                                                               \
public:

/// An object that the property owns; null until one is set. One that is replaced goes at the next turn of the
/// event loop, so that bindings have moved on.
#define OWNED_PROPERTY(Type, name, setter)                                                                     \
    Q_PROPERTY(Type* name READ name WRITE setter NOTIFY name##Changed)                                         \
public:                                                                                                        \
    Type* name() const { return m_##name; }                                                                    \
    void setter(Type* value)                                                                                   \
    {                                                                                                          \
        if (m_##name == value)                                                                                 \
            return;                                                                                            \
        if (m_##name)                                                                                          \
            m_##name->deleteLater();                                                                           \
        m_##name = value;                                                                                      \
        Q_EMIT name##Changed();                                                                                \
    }                                                                                                          \
    Q_SIGNAL void name##Changed();                                                                             \
                                                                                                               \
private:                                                                                                       \
    Type* m_##name = nullptr;                                                                                  \
                                                                                                               \
public:

/// For the pages it never changes.
#define CONSTANT_PROPERTY(Type, name, value)                                                                   \
    Q_PROPERTY(Type name READ name CONSTANT)                                                                   \
public:                                                                                                        \
    Type name() const { return value; }

/// Not for the pages: a getter and a setter, no signal.
#define PLAIN_FIELD(Type, name, setter, ...)                                                                   \
public:                                                                                                        \
    Type name() const { return m_##name; }                                                                     \
    void setter(Type const& value) { m_##name = value; }                                                       \
                                                                                                               \
private:                                                                                                       \
    Type m_##name = __VA_ARGS__;                                                                               \
                                                                                                               \
public:
