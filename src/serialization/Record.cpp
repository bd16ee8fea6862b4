#include "serialization/Record.h"

#include "serialization/RecordTable.h"

void copyPlainFields(const QObject* from, QObject* to, const QMetaObject* meta)
{
    for (const Field& field : RecordTable::of(meta).fields()) {
        if (field.isPlain())
            field.property.writeOnGadget(to, field.property.readOnGadget(from));
    }
}
