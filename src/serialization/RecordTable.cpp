#include "serialization/RecordTable.h"

#include <QHash>
#include <QMutex>
#include <QVariant>

#include <limits>
#include <memory>

namespace {

Field::Kind kindOf(int userType, const char* typeName)
{
    switch (userType) {
    case QMetaType::UnknownType:
        return Field::Kind::Unknown;
    case QMetaType::QString:
        return Field::Kind::String;
    case QMetaType::Int:
        return Field::Kind::Int;
    case QMetaType::LongLong:
        return Field::Kind::LongLong;
    case QMetaType::Double:
        return Field::Kind::Double;
    case QMetaType::Bool:
        return Field::Kind::Bool;
    default:
        break;
    }
    const QMetaType::TypeFlags flags = QMetaType::typeFlags(userType);
    if (flags & (QMetaType::PointerToQObject | QMetaType::PointerToGadget))
        return Field::Kind::Record;
    // The container templates are the only other user types with a shape that JSON can fill.
    if (qstrncmp(typeName, "Array<", 6) == 0)
        return Field::Kind::Array;
    if (qstrncmp(typeName, "Dictionary<", 11) == 0)
        return Field::Kind::Dictionary;
    return Field::Kind::Other;
}

} // namespace

RecordTable::RecordTable(const QMetaObject* meta)
{
    m_fields.reserve(static_cast<size_t>(meta->propertyCount() - meta->propertyOffset()));
    for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
        Field field;
        field.property = meta->property(i);
        field.key = QString::fromLatin1(field.property.name());
        field.owner = meta;
        field.index = i - meta->propertyOffset();
        field.userType = field.property.userType();
        field.kind = kindOf(field.userType, field.property.typeName());
        if (field.kind == Field::Kind::Record)
            field.recordMeta = QMetaType(field.userType).metaObject();
        m_fields.push_back(field);
    }
}

const RecordTable& RecordTable::of(const QMetaObject* meta)
{
    static QMutex mutex;
    static QHash<const QMetaObject*, std::shared_ptr<const RecordTable>> tables;
    QMutexLocker lock(&mutex);
    std::shared_ptr<const RecordTable>& table = tables[meta];
    if (!table)
        table.reset(new RecordTable(meta));
    return *table;
}

void Field::writeTyped(void* target, const void* value) const
{
    // What QMetaProperty::writeOnGadget ends in, without a QVariant on the way.
    void* arguments[] = {const_cast<void*>(value)};
    owner->d.static_metacall(static_cast<QObject*>(target), QMetaObject::WriteProperty, index, arguments);
}

void Field::writeString(void* target, const QString& value) const
{
    if (kind == Kind::String)
        writeTyped(target, &value);
    else
        writeVariant(target, value);
}

void Field::writeInteger(void* target, qlonglong value) const
{
    if (kind == Kind::Int && value >= std::numeric_limits<int>::min() &&
        value <= std::numeric_limits<int>::max()) {
        const int number = static_cast<int>(value);
        writeTyped(target, &number);
    } else if (kind == Kind::LongLong) {
        writeTyped(target, &value);
    } else if (kind == Kind::Double) {
        const double number = static_cast<double>(value);
        writeTyped(target, &number);
    } else if (kind == Kind::String) {
        const QString text = QString::number(value);
        writeTyped(target, &text);
    } else {
        writeVariant(target, value);
    }
}

void Field::writeDouble(void* target, double value) const
{
    if (kind == Kind::Double)
        writeTyped(target, &value);
    else
        writeVariant(target, value);
}

void Field::writeBool(void* target, bool value) const
{
    if (kind == Kind::Bool)
        writeTyped(target, &value);
    else
        writeVariant(target, value);
}

void Field::writeNull(void* target) const
{
    if (kind == Kind::String) {
        const QString empty;
        writeTyped(target, &empty);
    }
}

void Field::writeVariant(void* target, const QVariant& value) const
{
    if (isPlain())
        property.writeOnGadget(target, value);
}
