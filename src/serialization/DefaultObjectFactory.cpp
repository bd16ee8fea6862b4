#include "serialization/DefaultObjectFactory.h"

#include <QDebug>
#include <QHash>
#include <QMetaObject>
#include <QMutex>

namespace {

/// Index of the parameterless constructor, -1 when there is none.
int findConstructor(const QMetaObject* meta)
{
    QByteArray signature = meta->className();
    signature.remove(0, signature.lastIndexOf(':') + 1);
    signature += "()";
    int index = meta->indexOfConstructor(signature);
    if (index < 0)
        index = meta->indexOfConstructor(QMetaObject::normalizedSignature(signature));
    return index;
}

int constructorOf(const QMetaObject* meta)
{
    static QMutex mutex;
    static QHash<const QMetaObject*, int> constructors;
    QMutexLocker lock(&mutex);
    auto known = constructors.constFind(meta);
    if (known == constructors.constEnd())
        known = constructors.insert(meta, findConstructor(meta));
    return known.value();
}

} // namespace

QObject* DefaultObjectFactory::newInstance(const QMetaObject* meta)
{
    const int constructor = constructorOf(meta);
    if (constructor < 0)
        return nullptr;
    QObject* instance = nullptr;
    void* arguments[] = {&instance};
    meta->static_metacall(QMetaObject::CreateInstance, constructor, arguments);
    return instance;
}

void* DefaultObjectFactory::create(const QMetaObject* meta) const
{
    QObject* instance = newInstance(meta);
    if (!instance)
        reportFailure(meta);
    return instance;
}

void DefaultObjectFactory::reportFailure(const QMetaObject* meta)
{
    qCritical() << "Failed to create an instance of type" << meta->className();
    qCritical() << "Did you forget to declare a public parameterless Q_INVOKABLE constructor?";
}
