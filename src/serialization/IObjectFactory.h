#pragma once

struct QMetaObject;

/// Makes the records that a reply asks for.
class IObjectFactory
{
public:
    /// A new record of the class, owned by the caller; null when it can't be made.
    virtual void* create(const QMetaObject* meta) const = 0;

protected:
    ~IObjectFactory() = default;
};
