// Feeds arbitrary bytes as a back-end reply into every record class, and what was read back into text.
// "fuzz_records --dictionary" prints the keys of all records as a dictionary for the fuzzer.

#include "AllRecords.h"
#include "serialization/QJsonSerializer.h"
#include "serialization/RecordTable.h"

#include <QCoreApplication>
#include <QJsonDocument>

#include <cstdio>
#include <cstdlib>
#include <set>

namespace {

void printDictionary()
{
    std::set<QByteArray> keys;
    for (const QMetaObject* record : allRecords()) {
        for (const Field& field : RecordTable::of(record).fields())
            keys.insert(field.key.toUtf8());
    }
    for (const QByteArray& key : keys)
        std::printf("\"\\\"%s\\\":\"\n", key.constData());
}

/// JSON writes a number that isn't finite, which can come as a text, as null, and a null says nothing to a
/// number: such a one comes back as 0.
QJsonValue asReadBack(const QJsonValue& written)
{
    if (written.isNull())
        return 0;
    if (written.isArray()) {
        QJsonArray array;
        for (const QJsonValue element : written.toArray())
            array.append(asReadBack(element));
        return array;
    }
    QJsonObject object = written.toObject();
    for (auto it = object.begin(); it != object.end(); ++it)
        it.value() = asReadBack(it.value());
    return written.isObject() ? object : written;
}

void readInto(const QMetaObject* meta, const QJsonObject& json)
{
    const QJsonSerializer serializer;
    void* record = serializer.create(meta);
    if (!record)
        std::abort();
    serializer.deserializeObject(json, record, meta);
    const QJsonObject written = serializer.serializeObject(record, meta);

    // What was written must read back the same.
    void* copy = serializer.create(meta);
    serializer.deserializeObject(written, copy, meta);
    if (serializer.serializeObject(copy, meta) != asReadBack(written).toObject())
        std::abort();
    delete static_cast<QObject*>(record);
    delete static_cast<QObject*>(copy);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    static QCoreApplication application(*argc, *argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    if (*argc > 1 && QByteArray((*argv)[1]) == "--dictionary") {
        printDictionary();
        std::exit(0);
    }
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size)
{
    const QByteArray bytes =
        QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const QJsonObject json = QJsonDocument::fromJson(bytes).object();
    if (json.isEmpty())
        return 0;
    for (const QMetaObject* record : allRecords())
        readInto(record, json);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return 0;
}
