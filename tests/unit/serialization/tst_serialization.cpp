#include "TestRecords.h"
#include "serialization/QJsonSerializer.h"
#include "support/ErrorLog.h"
#include "support/Rows.h"

#include <QJsonDocument>
#include <QSignalSpy>

namespace {

QJsonObject parse(const QByteArray& text)
{
    const QJsonDocument document = QJsonDocument::fromJson(text);
    return document.isObject() ? document.object() : throw std::invalid_argument(text.toStdString());
}

template <typename T>
void read(const QByteArray& text, T* record)
{
    QJsonSerializer().deserializeObject(parse(text), record, &T::staticMetaObject);
}

QByteArray write(const QObject* record)
{
    const QJsonObject json = QJsonSerializer().serializeObject(record, record->metaObject());
    return QJsonDocument(json).toJson(QJsonDocument::Compact);
}

void endDeferred() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

const QByteArray tree =
    R"({"byKey":{"k":{"big":1,"flag":true,"lifetime":60,"number":2,"real":0.5,"text":"x"}},)"
    R"("leaf":{"big":0,"flag":false,"lifetime":0,"number":0,"real":0,"text":"茶\n"},)"
    R"("leaves":[{"big":0,"flag":false,"lifetime":0,"number":1,"real":0,"text":""}],"name":"n"})";

using ConversionRows = Rows<QByteArray, QByteArray, QString>;

} // namespace

class tst_serialization : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { endDeferred(); }

    /// The fields hold "before", 7, 8, 1.5, true and 9 beforehand.
    void conversion_data()
    {
        const QMap<QString, QString> fields = {
            {"text", R"("abc"=abc ""= 12=12 12.5=12.5 12.0=12 -3=-3 405757793603424257=405757793603424257 )"
                     R"(1e300=1e+300 true=true false=false null=)"},
            {"number", R"(12=12 3.7=4 -3.7=-4 2147483647=2147483647 "1001"=1001 "-5"=-5 "abc"=7 ""=7 "3.0"=7 )"
                       "true=1 null=7"},
            {"big", R"(9007199254740991=9007199254740991 405757793603424257=405757793603424257 "12"=12 2.5=3 )"
                    "null=8"},
            {"real", R"(12=12 12.25=12.25 "12.25"=12.25 "x"=1.5 true=1 null=1.5)"},
            {"flag",
             R"(0=false 2=true 0.5=true ""=false "0"=false "false"=false "no"=true false=false null=true)"},
            {"lifetime", R"(7200=7200 "7200"=7200 null=9)"}};
        std::vector<ConversionRows::Row> rows;
        for (const QString& field : fields.keys()) {
            for (const QString& change : fields.value(field).split(' '))
                rows.push_back({field + ' ' + change, field.toLatin1(), change.section('=', 0, 0).toLatin1(),
                                change.section('=', 1)});
        }
        ConversionRows::add(rows);
    }

    void conversion()
    {
        const auto& [name, field, json, expected] = ConversionRows::current();
        const QByteArray before = R"({"text":"before","number":7,"big":8,"real":1.5,"flag":true,"lifetime":9})";
        LeafRecord record;
        read(before, &record);
        read("{\"" + field + "\":" + json + "}", &record);

        // What Qt's own conversion makes of the value, without the typed short cuts.
        LeafRecord plain;
        read(before, &plain);
        const QMetaProperty property = plain.metaObject()->property(plain.metaObject()->indexOfProperty(field));
        property.writeOnGadget(&plain, parse("{\"v\":" + json + "}").value("v").toVariant());

        QCOMPARE(record.property(field).toString(), expected);
        QCOMPARE(record.property(field), plain.property(field));
    }

    void plainFields()
    {
        // The class's own ones, by their exact names.
        DerivedRecord derived;
        read(R"({"own":"mine","text":"inherited","Own":"other case","stranger":1})", &derived);
        QCOMPARE(derived.own() + derived.text(), QString("mine"));

        // Missing ones keep what is there, and only a real change is told.
        LeafRecord record;
        QSignalSpy text(&record, &LeafRecord::textChanged);
        QSignalSpy number(&record, &LeafRecord::numberChanged);
        read(R"({"text":"a","number":0})", &record);
        read(R"({"text":"a","number":1})", &record);
        read(R"({"text":"a"})", &record);
        read("{}", &record);
        QCOMPARE(record.text() + QString::number(record.number()), QString("a1"));
        QCOMPARE(text.count(), 1);
        QCOMPARE(number.count(), 1);
    }

    void nestedRecords()
    {
        TreeRecord record;
        read(R"({"leaf":{"text":"one"}})", &record);
        QCOMPARE(record.leaf()->text(), QString("one"));
        const QPointer<LeafRecord> first = record.leaf();
        read(R"({"leaf":{"number":3}})", &record); // is always made anew
        QVERIFY(first && record.leaf() != first);
        QCOMPARE(record.leaf()->text(), QString());
        read(R"({"leaf":null})", &record);
        QCOMPARE(record.leaf()->number(), 3);
    }

    void listsAndDictionaries()
    {
        TreeRecord record;
        read(
            R"({"leaves":[{"text":"b"},{"text":"a"},"no object",7],"byKey":{"k2":{"number":2},"k1":{"number":1}}})",
            &record);
        QStringList texts;
        for (const LeafRecord* leaf : record.leaves())
            texts.append(leaf->text());
        QCOMPARE(texts, (QStringList{"b", "a", "", ""}));
        QCOMPARE(record.byKey().size(), 2);
        QCOMPARE(record.byKey().hash().value("k1")->number(), 1);

        // Filled again, they let go of what they held.
        const QList<LeafRecord*> old = record.leaves().list() + record.byKey().hash().values();
        read(R"({"leaves":[{"text":"new"}],"byKey":{}})", &record);
        QCOMPARE(record.leaves().size(), 1);
        QCOMPARE(record.leaves().at(0)->text(), QString("new"));
        QVERIFY(record.byKey().isEmpty());
        qDeleteAll(old);

        // The same key again replaces the record under it.
        Dictionary<LeafRecord*> dictionary;
        const QScopedPointer<LeafRecord> first(
            static_cast<LeafRecord*>(dictionary.createElement("k", QJsonSerializer())));
        const QScopedPointer<LeafRecord> second(
            static_cast<LeafRecord*>(dictionary.createElement("k", QJsonSerializer())));
        QCOMPARE(dictionary.hash(), (QHash<QString, LeafRecord*>{{"k", second.data()}}));
    }

    void copiesOfAListReachItsOwner()
    {
        const QJsonSerializer factory;
        TreeRecord record;
        Array<LeafRecord*> copy = record.leaves();
        Array<LeafRecord*> copyOfCopy = copy;
        QVariant variant = QVariant::fromValue(copyOfCopy);
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

    void wrongShapesAreSkipped()
    {
        TreeRecord record;
        read(R"({"name":"kept"})", &record);
        for (const char* text : {R"({"name":[1,2],"leaf":[{}],"byKey":[{}],"leaves":{"a":{}}})",
                                 R"({"name":{"x":1},"leaf":5,"leaves":"text","byKey":true})"}) {
            read(text, &record);
            QCOMPARE(write(&record), QByteArray(R"({"byKey":{},"leaves":[],"name":"kept"})"));
        }
        LeafRecord leaf;
        read(R"({"number":[1],"flag":{},"real":[],"big":{},"text":[]})", &leaf);
        QCOMPARE(leaf.number(), 0);
    }

    void unmakeableRecordsAreReported()
    {
        const ErrorLog log;
        OddRecord record;
        read(R"({"unmakeable":{},"unmakeables":[{},{}],"unknown":{},"after":"filled"})", &record);
        QVERIFY(!record.unmakeable() && record.unmakeables().isEmpty());
        QCOMPARE(record.after(), QString("filled"));
        for (const char* line : {"Failed to create an instance of type UnmakeableRecord",
                                 "Did you forget to declare a public parameterless Q_INVOKABLE constructor?",
                                 "Unknown user type for property unknown"})
            QVERIFY2(log.lines.contains(line), line);

        // So are those that another factory doesn't make.
        struct Refusing : IObjectFactory
        {
            void* create(const QMetaObject*) const override { return nullptr; }
        } refusing;
        log.lines.clear();
        QJsonSerializer serializer;
        serializer.setObjectFactory(&refusing);
        TreeRecord refused;
        serializer.deserializeObject(parse(tree), &refused, &TreeRecord::staticMetaObject);
        QCOMPARE(write(&refused), QByteArray(R"({"byKey":{},"leaves":[],"name":"n"})"));
        QCOMPARE(log.lines.size(), 6);
    }

    void roundTripsAndCopies()
    {
        auto* original = new TreeRecord(this);
        read(tree, original);
        QCOMPARE(write(original), tree);
        const TreeRecord copy(original);
        delete original;
        endDeferred();
        QCOMPARE(write(&copy), tree);
        QVERIFY(!copy.parent());

        DerivedRecord derived;
        derived.set_text("base");
        derived.set_own("own");
        const DerivedRecord derivedCopy(&derived);
        QCOMPARE(derivedCopy.text() + derivedCopy.own(), QString("baseown"));
    }

    void lifetimes()
    {
        const QPointer<LeafRecord> first = new LeafRecord;
        const QPointer<LeafRecord> second = new LeafRecord;
        QPointer<LeafRecord> listed, keyed;
        {
            TreeRecord record;
            record.set_leaf(first);
            record.set_leaf(first);
            record.set_leaf(second);
            read(R"({"leaves":[{}],"byKey":{"k":{}}})", &record);
            listed = record.leaves().at(0);
            keyed = record.byKey().hash().value("k");
            QVERIFY(first && second);
            endDeferred();
            QVERIFY(!first && second && listed && keyed);
        }
        endDeferred();
        QVERIFY(!second && !listed && !keyed);
    }

    void refresh()
    {
        LeafRecord shown;
        LeafRecord fresh;
        read(R"({"text":"a","number":1,"flag":true,"real":2.5,"big":3,"lifetime":4})", &fresh);
        shown.set_text("a");
        QSignalSpy text(&shown, &LeafRecord::textChanged);
        QSignalSpy number(&shown, &LeafRecord::numberChanged);
        shown.refresh(&fresh);
        QCOMPARE(write(&shown), write(&fresh));
        QCOMPARE(text.count(), 0);
        QCOMPARE(number.count(), 1);
    }
};

QTEST_GUILESS_MAIN(tst_serialization)
#include "tst_serialization.moc"
