#pragma once

#include "serialization/IObjectFactory.h"

class QObject;

/// Makes records by their public parameterless invokable constructor. There is no class registry: the
/// meta-object is the only look-up. Stateless; where each class keeps its constructor is remembered for the
/// process.
class DefaultObjectFactory : public IObjectFactory
{
public:
    void* create(const QMetaObject* meta) const override;

    /// The two lines that tell the log of a record that couldn't be made.
    static void reportFailure(const QMetaObject* meta);

protected:
    ~DefaultObjectFactory() = default;
    /// Null when the class has no such constructor.
    static QObject* newInstance(const QMetaObject* meta);
};
