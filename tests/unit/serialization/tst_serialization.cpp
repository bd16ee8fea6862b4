#include "TestRecords.h"

#include "dto/system/LineRecords.h"
#include "serialization/QJsonSerializer.h"
#include "serialization/RecordTable.h"

#include <QJsonDocument>
#include <QSignalSpy>
#include <QtTest>

namespace {

QJsonObject parse(const QByteArray& text)
{
    QJsonParseError error;
    const QJsonObject object = QJsonDocument::fromJson(text, &error).object();
    if (error.error != QJsonParseError::NoError)
        qFatal("bad JSON in a test: %s", text.constData());
    return object;
}

template <typename T>
void read(const QByteArray& text, T* record)
{
    QJsonSerializer().deserializeObject(parse(text), record, &T::staticMetaObject);
}

QString write(const QObject* record)
{
    const QJsonObject json = QJsonSerializer().serializeObject(record, record->metaObject());
    return QString::fromUtf8(QJsonDocument(json).toJson(QJsonDocument::Compact));
}

/// Collects what is logged at the critical level while it lives.
class CriticalLines
{
public:
    CriticalLines()
    {
        lines().clear();
        m_previous = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
            if (type == QtCriticalMsg)
                lines().append(text);
        });
    }
    ~CriticalLines() { qInstallMessageHandler(m_previous); }
    static QStringList& lines()
    {
        static QStringList collected;
        return collected;
    }

private:
    QtMessageHandler m_previous;
};

} // namespace

class tst_serialization : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    void conversion_data();
    void conversion();
    void ownPropertiesOnly();
    void missingKeysKeepWhatIsThere();
    void signalsOnRealChangesOnly();
    void nestedRecords();
    void listsAndDictionaries();
    void refilledListLetsGoOfItsElements();
    void copiesOfAListReachItsOwner();
    void wrongShapesAreSkipped();
    void unmakeableRecordsAreReported();
    void replaceableFactory();
    void scalarContainers();
    void serializing();
    void lineListRoundTrip();
    void deepCopy();
    void nestedRecordIsFreedWhenReplaced();
    void refresh();
};

void tst_serialization::conversion_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QVariant>("expected");

    // The property holds "before", 7, 8, 1.5, true and 9 beforehand.
    const auto row = [](const char* field, const char* json, const QVariant& expected) {
        QTest::newRow(qPrintable(QStringLiteral("%1 from %2").arg(field, json)))
            << QByteArray(field) << QByteArray(json) << expected;
    };
    row("text", "\"abc\"", "abc");
    row("text", "\"\"", "");
    row("text", "12", "12");
    row("text", "12.5", "12.5");
    row("text", "12.0", "12");
    row("text", "-3", "-3");
    row("text", "0", "0");
    row("text", "405757793603424257", "405757793603424257");
    row("text", "1e300", "1e+300");
    row("text", "true", "true");
    row("text", "false", "false");
    row("text", "null", "");
    row("number", "12", 12);
    row("number", "3.7", 4);
    row("number", "-3.7", -4);
    row("number", "2147483647", 2147483647);
    row("number", "\"1001\"", 1001);
    row("number", "\"-5\"", -5);
    row("number", "\"abc\"", 7);
    row("number", "\"\"", 7);
    row("number", "\"3.0\"", 7);
    row("number", "true", 1);
    row("number", "false", 0);
    row("number", "null", 7);
    row("big", "9007199254740991", 9007199254740991LL);
    row("big", "405757793603424257", 405757793603424257LL);
    row("big", "\"12\"", 12LL);
    row("big", "2.5", 3LL);
    row("big", "null", 8LL);
    row("real", "12", 12.0);
    row("real", "12.25", 12.25);
    row("real", "\"12.25\"", 12.25);
    row("real", "\"x\"", 1.5);
    row("real", "true", 1.0);
    row("real", "null", 1.5);
    row("flag", "0", false);
    row("flag", "2", true);
    row("flag", "0.5", true);
    row("flag", "\"\"", false);
    row("flag", "\"0\"", false);
    row("flag", "\"false\"", false);
    row("flag", "\"no\"", true);
    row("flag", "false", false);
    row("flag", "null", true);
    row("lifetime", "7200", 7200LL);
    row("lifetime", "\"7200\"", 7200LL);
    row("lifetime", "null", 9LL);
}

void tst_serialization::conversion()
{
    QFETCH(QByteArray, field);
    QFETCH(QByteArray, json);
    QFETCH(QVariant, expected);

    LeafRecord record;
    read("{\"text\":\"before\",\"number\":7,\"big\":8,\"real\":1.5,\"flag\":true,\"lifetime\":9}", &record);
    read("{\"" + field + "\":" + json + "}", &record);

    // What Qt's own conversion makes of the value, without the typed short cuts.
    LeafRecord plain;
    read("{\"text\":\"before\",\"number\":7,\"big\":8,\"real\":1.5,\"flag\":true,\"lifetime\":9}", &plain);
    const QMetaProperty property = plain.metaObject()->property(plain.metaObject()->indexOfProperty(field));
    property.writeOnGadget(&plain, parse("{\"v\":" + json + "}").value(QStringLiteral("v")).toVariant());

    QCOMPARE(record.property(field).toString(), expected.toString());
    QCOMPARE(record.property(field), plain.property(field));
}

void tst_serialization::ownPropertiesOnly()
{
    DerivedRecord record;
    read(R"({"own":"mine","text":"inherited","Own":"other case","stranger":1})", &record);
    QCOMPARE(record.own(), QStringLiteral("mine"));
    QCOMPARE(record.text(), QString());
}

void tst_serialization::missingKeysKeepWhatIsThere()
{
    LeafRecord record;
    record.set_number(5);
    read(R"({"text":"x"})", &record);
    QCOMPARE(record.number(), 5);
    read("{}", &record);
    QCOMPARE(record.text(), QStringLiteral("x"));
}

void tst_serialization::signalsOnRealChangesOnly()
{
    LeafRecord record;
    QSignalSpy text(&record, &LeafRecord::textChanged);
    QSignalSpy number(&record, &LeafRecord::numberChanged);
    read(R"({"text":"a","number":0})", &record);
    read(R"({"text":"a","number":1})", &record);
    QCOMPARE(text.count(), 1);
    QCOMPARE(number.count(), 1);
}

void tst_serialization::nestedRecords()
{
    TreeRecord record;
    read(R"({"leaf":{"text":"one"}})", &record);
    QVERIFY(record.leaf());
    QCOMPARE(record.leaf()->text(), QStringLiteral("one"));

    // A nested record is always made anew.
    const QPointer<LeafRecord> first = record.leaf();
    read(R"({"leaf":{"number":3}})", &record);
    QVERIFY(record.leaf() != first.data());
    QCOMPARE(record.leaf()->text(), QString());

    read(R"({"leaf":null})", &record);
    QCOMPARE(record.leaf()->number(), 3);
}

void tst_serialization::listsAndDictionaries()
{
    TreeRecord record;
    read(
        R"({"leaves":[{"text":"b"},{"text":"a"},"no object",7],"byKey":{"k2":{"number":2},"k1":{"number":1}}})",
        &record);
    QCOMPARE(record.leaves().size(), 4);
    QCOMPARE(record.leaves().at(0)->text(), QStringLiteral("b"));
    QCOMPARE(record.leaves().at(1)->text(), QStringLiteral("a"));
    QCOMPARE(record.leaves().at(2)->text(), QString());
    QCOMPARE(record.byKey().size(), 2);
    QCOMPARE(record.byKey().hash().value(QStringLiteral("k1"))->number(), 1);

    // The same key again replaces the record under it.
    Dictionary<LeafRecord*> dictionary;
    QJsonSerializer factory;
    void* first = dictionary.createElement(QStringLiteral("k"), factory);
    void* second = dictionary.createElement(QStringLiteral("k"), factory);
    QCOMPARE(dictionary.size(), 1);
    QCOMPARE(static_cast<void*>(dictionary.hash().value(QStringLiteral("k"))), second);
    delete static_cast<LeafRecord*>(first);
    delete static_cast<LeafRecord*>(second);
}

void tst_serialization::refilledListLetsGoOfItsElements()
{
    TreeRecord record;
    read(R"({"leaves":[{"text":"old"}],"byKey":{"k":{}}})", &record);
    const QPointer<LeafRecord> old = record.leaves().at(0);
    const QPointer<LeafRecord> oldByKey = record.byKey().hash().value(QStringLiteral("k"));
    read(R"({"leaves":[{"text":"new"},{"text":"newer"}],"byKey":{}})", &record);
    QCOMPARE(record.leaves().size(), 2);
    QCOMPARE(record.leaves().at(0)->text(), QStringLiteral("new"));
    QVERIFY(record.byKey().isEmpty());
    QVERIFY(old && oldByKey);
    delete old;
    delete oldByKey;
}

void tst_serialization::copiesOfAListReachItsOwner()
{
    TreeRecord record;
    Array<LeafRecord*> copy = record.leaves();
    Array<LeafRecord*> copyOfCopy = copy;
    QVariant variant = QVariant::fromValue(copyOfCopy);
    QJsonSerializer factory;
    const QScopedPointer<LeafRecord> element(
        static_cast<LeafRecord*>(static_cast<IArray*>(variant.data())->createElement(factory)));
    QCOMPARE(record.leaves().size(), 1);
    copyOfCopy.initialize();
    QVERIFY(record.leaves().isEmpty());

    // A copy that is given to another record becomes that record's own.
    TreeRecord source;
    read(R"({"leaves":[{"text":"x"}]})", &source);
    TreeRecord target;
    target.set_leaves(source.leaves());
    source.set_leaves({});
    target.leaves().createElement(factory);
    QCOMPARE(target.leaves().size(), 2);
    QVERIFY(source.leaves().isEmpty());
}

void tst_serialization::wrongShapesAreSkipped()
{
    TreeRecord record;
    record.set_name(QStringLiteral("kept"));
    read(R"({"name":[1,2],"leaf":[{}],"byKey":[{}],"leaves":{"a":{}}})", &record);
    read(R"({"name":{"x":1},"leaf":5,"leaves":"text","byKey":true})", &record);
    QCOMPARE(record.name(), QStringLiteral("kept"));
    QVERIFY(!record.leaf());
    QVERIFY(record.leaves().isEmpty());
    QVERIFY(record.byKey().isEmpty());

    LeafRecord leaf;
    read(R"({"number":[1],"flag":{},"real":[],"big":{},"text":[]})", &leaf);
    QCOMPARE(leaf.number(), 0);
}

void tst_serialization::unmakeableRecordsAreReported()
{
    CriticalLines critical;
    OddRecord record;
    read(R"({"unmakeable":{},"unmakeables":[{},{}],"unknown":{},"after":"filled"})", &record);
    QVERIFY(!record.unmakeable());
    QVERIFY(record.unmakeables().isEmpty());
    QCOMPARE(record.after(), QStringLiteral("filled"));
    QVERIFY(critical.lines().contains(QStringLiteral("Failed to create an instance of type UnmakeableRecord")));
    QVERIFY(critical.lines().contains(
        QStringLiteral("Did you forget to declare a public parameterless Q_INVOKABLE constructor?")));
    QVERIFY(critical.lines().contains(QStringLiteral("Unknown user type for property unknown")));
}

void tst_serialization::replaceableFactory()
{
    struct Refusing : IObjectFactory
    {
        void* create(const QMetaObject*) const override { return nullptr; }
    };
    CriticalLines critical;
    const Refusing refusing;
    QJsonSerializer serializer;
    serializer.setObjectFactory(&refusing);
    TreeRecord record;
    serializer.deserializeObject(parse(R"({"leaf":{},"leaves":[{}],"byKey":{"a":{}},"name":"n"})"), &record,
                                 &TreeRecord::staticMetaObject);
    QVERIFY(!record.leaf());
    QVERIFY(record.leaves().isEmpty());
    QVERIFY(record.byKey().isEmpty());
    QCOMPARE(record.name(), QStringLiteral("n"));
    QCOMPARE(critical.lines().size(), 6);
}

void tst_serialization::scalarContainers()
{
    const QJsonSerializer factory;
    const DeserializerBase reader(factory);
    Array<int> numbers;
    reader.deserializeArray(QJsonArray{1, 2.6, QStringLiteral("3")}, numbers);
    QCOMPARE(numbers.list(), (QList<int>{1, 3, 3}));
    QCOMPARE(SerializerBase().serializeArray(numbers), (QJsonArray{1, 3, 3}));

    Dictionary<QString> texts;
    reader.deserializeDictionary(parse(R"({"b":"2","a":"1"})"), texts);
    QCOMPARE(texts.serialize(SerializerBase()).toObject(), parse(R"({"a":"1","b":"2"})"));
}

void tst_serialization::serializing()
{
    TreeRecord record;
    QCOMPARE(write(&record), QStringLiteral(R"({"byKey":{},"leaves":[],"name":""})"));
    const QByteArray text =
        R"({"byKey":{"k":{"big":1,"flag":true,"lifetime":60,"number":2,"real":0.5,"text":"x"}},)"
        R"("leaf":{"big":0,"flag":false,"lifetime":0,"number":0,"real":0,"text":"\"茶\""},)"
        R"("leaves":[{"big":0,"flag":false,"lifetime":0,"number":1,"real":0,"text":""}],"name":"n"})";
    read(text, &record);
    QCOMPARE(write(&record), QString::fromUtf8(text));
}

void tst_serialization::lineListRoundTrip()
{
    const QByteArray text =
        R"({"apiUrl":"https://a.example","lineCheckHttpPath":"/check","reqLines":[)"
        R"({"icon":"https://a.example/i.png","subLines":[)"
        R"({"domain":"https://b.example","title":"电信"},{"domain":"https://c.example","title":"联通"}],)"
        R"("title":"平台一"},{"icon":"","subLines":[],"title":"平台二"}]})";
    SysApiReqDto lines;
    read(text, &lines);
    QCOMPARE(lines.reqLines().at(0)->subLines().at(1)->domain(), QStringLiteral("https://c.example"));
    QCOMPARE(write(&lines), QString::fromUtf8(text));
    SysApiReqDto copy(&lines);
    QCOMPARE(write(&copy), QString::fromUtf8(text));
}

void tst_serialization::deepCopy()
{
    auto* original = new TreeRecord;
    read(R"({"name":"n","leaf":{"text":"x"},"leaves":[{"number":1}],"byKey":{"k":{"number":2}}})", original);
    const QString text = write(original);
    TreeRecord copy(original);
    delete original;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(write(&copy), text);
    QVERIFY(!copy.parent());

    DerivedRecord derived;
    derived.set_text(QStringLiteral("base"));
    derived.set_own(QStringLiteral("own"));
    DerivedRecord derivedCopy(&derived);
    QCOMPARE(derivedCopy.text(), QStringLiteral("base"));
    QCOMPARE(derivedCopy.own(), QStringLiteral("own"));
}

void tst_serialization::nestedRecordIsFreedWhenReplaced()
{
    QPointer<LeafRecord> first = new LeafRecord;
    QPointer<LeafRecord> second = new LeafRecord;
    {
        TreeRecord record;
        record.set_leaf(first);
        record.set_leaf(first);
        record.set_leaf(second);
        QVERIFY(first && second);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!first && second);
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!second);
}

void tst_serialization::refresh()
{
    LeafRecord shown;
    read(R"({"text":"a","number":1})", &shown);
    LeafRecord fresh;
    read(R"({"text":"a","number":2,"flag":true})", &fresh);
    QSignalSpy text(&shown, &LeafRecord::textChanged);
    QSignalSpy number(&shown, &LeafRecord::numberChanged);
    shown.refresh(&fresh);
    QCOMPARE(write(&shown), write(&fresh));
    QCOMPARE(text.count(), 0);
    QCOMPARE(number.count(), 1);
}

QTEST_GUILESS_MAIN(tst_serialization)
#include "tst_serialization.moc"
