// Feeds arbitrary bytes as a back-end reply into every record class, and what was read back into text.
// "fuzz_records --dictionary" prints the keys of all records as a dictionary for the fuzzer.

#include "serialization/QJsonSerializer.h"
#include "serialization/RecordTable.h"
#include "support/AllRecords.h"

#include <QCoreApplication>
#include <QJsonDocument>

#include <cstdio>
#include <cstdlib>
#include <set>
#include <string>

namespace {

void printDictionary()
{
    std::set<std::string> keys;
    for (const RecordClass& record : allRecords()) {
        for (const Field& field : RecordTable::of(record.meta).fields())
            keys.insert(field.key.toStdString());
    }
    for (const std::string& key : keys)
        std::printf("\"\\\"%s\\\":\"\n", key.c_str());
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
    if (serializer.serializeObject(copy, meta) != written)
        std::abort();
    delete static_cast<QObject*>(record);
    delete static_cast<QObject*>(copy);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    static QCoreApplication application(*argc, *argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    if (*argc > 1 && std::string((*argv)[1]) == "--dictionary") {
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
    for (const RecordClass& record : allRecords())
        readInto(record.meta, json);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return 0;
}
