#include "AllRecords.h"
#include "serialization/QJsonSerializer.h"
#include "serialization/RecordTable.h"
#include "support/Rows.h"

#include <QJsonDocument>
#include <QSignalSpy>

#include <memory>

namespace {

template <typename T>
void read(const QByteArray& text, T* record)
{
    QJsonSerializer().deserializeObject(QJsonDocument::fromJson(text).object(), record, &T::staticMetaObject);
}

std::unique_ptr<QObject> make(const QMetaObject* meta)
{
    return std::unique_ptr<QObject>(static_cast<QObject*>(QJsonSerializer().create(meta)));
}

/// JSON with a value of its own for each field of the class, nested ones included; counter goes up with each
/// value.
QJsonObject sampleOf(const QMetaObject* meta, int& counter)
{
    const std::unique_ptr<QObject> record = make(meta);
    QJsonObject sample;
    for (const Field& field : RecordTable::of(meta).fields()) {
        const QVariant value = field.property.readOnGadget(record.get());
        const auto elements = [&](const auto* container) {
            return std::make_pair(sampleOf(container->metaObject(), counter),
                                  sampleOf(container->metaObject(), counter));
        };
        QJsonValue content = ++counter;
        if (field.kind == Field::Kind::String) {
            content = field.key + QString::number(counter);
        } else if (field.kind == Field::Kind::Double) {
            content = counter + 0.5;
        } else if (field.kind == Field::Kind::Bool) {
            content = true;
        } else if (field.kind == Field::Kind::Record) {
            content = sampleOf(field.recordMeta, counter);
        } else if (field.kind == Field::Kind::Array) {
            const auto both = elements(static_cast<const IArray*>(value.constData()));
            content = QJsonArray{both.first, both.second};
        } else if (field.kind == Field::Kind::Dictionary) {
            const auto both = elements(static_cast<const IDictionary*>(value.constData()));
            content = QJsonObject{{"a", both.first}, {"b", both.second}};
        }
        sample.insert(field.key, content);
    }
    return sample;
}

using ClassRows = Rows<const QMetaObject*>;

} // namespace

class tst_records : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyClass_data()
    {
        std::vector<ClassRows::Row> rows;
        for (const QMetaObject* record : allRecords())
            rows.push_back({record->className(), record});
        QVERIFY(rows.size() > 100);
        ClassRows::add(rows);
    }
    void everyClass()
    {
        const auto& [name, meta] = ClassRows::current();
        for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
            const QMetaProperty property = meta->property(i);
            QVERIFY2(property.userType() != QMetaType::UnknownType && property.hasNotifySignal(),
                     property.name());
        }
        if (meta->superClass() == &ApiRes::staticMetaObject) {
            QCOMPARE(meta->propertyCount() - meta->propertyOffset(), 1);
            QCOMPARE(meta->property(meta->propertyOffset()).name(), "data");
        }
        int counter = 0;
        const QJsonObject sample = sampleOf(meta, counter);
        const std::unique_ptr<QObject> record = make(meta);
        QJsonSerializer().deserializeObject(sample, record.get(), meta);
        QCOMPARE(QJsonSerializer().serializeObject(record.get(), meta), sample);
    }

    void envelopeIsNotReadFromThePayload()
    {
        GetRoomListDto reply;
        reply.setCode("200");
        read(R"({"code":"500","msg":"m","authId":"1","data":[{"code":"888"}]})", &reply);
        QCOMPARE(reply.code() + reply.msg() + reply.authId(), QString("200"));
        QCOMPARE(reply.data().at(0)->code(), QString("888"));
    }

    void clockPages()
    {
        JsCanDoItemDto item;
        read(R"({"itemId":"i1","name":"足疗","typeName":"t","times":"60","price":198.5})", &item);
        const std::unique_ptr<ServerItemDto> form(ServerItemDto::fromCanDoItem(item));
        const QJsonObject expected{{"item_id", "i1"},   {"itemName", "足疗"}, {"price", 198.5},
                                   {"times", 60},       {"typeId", ""},       {"pic_path", ""},
                                   {"isAssign", false}, {"status", 0},        {"add_times", 0}};
        QCOMPARE(QJsonSerializer().serializeObject(form.get(), &ServerItemDto::staticMetaObject), expected);

        QStringList labels;
        for (int code = 0; code <= 7; ++code)
            labels.append(clockKindLabel(code));
        QCOMPARE(labels.join('|'), QString("|点  钟|选  钟|CALL钟|捡  钟|轮  钟|加  钟|"));
    }

    /// A choice isn't of the wire, and follows refresh and copy.
    void choices()
    {
        checkChoices<RoomFloorDto>();
        checkChoices<RoomTypeDto>();
    }

private:
    template <typename Record>
    void checkChoices()
    {
        for (const auto& [before, after] : Table<bool, bool>{{false, true}, {true, false}, {true, true}}) {
            Record shown, fresh;
            shown.set_isChecked(before);
            read(R"({"id":"1","name":"一楼","roomUseSum":3,"roomAllSum":8,"isChecked":true})", &shown);
            QCOMPARE(shown.isChecked(), before);
            fresh.set_isChecked(after);
            read(R"({"id":"2","name":"二楼","roomUseSum":3,"roomAllSum":9})", &fresh);
            QSignalSpy choice(&shown, &Record::isCheckedChanged);
            QSignalSpy inUse(&shown, &Record::roomUseSumChanged);
            shown.refresh(&fresh);
            QCOMPARE(choice.count(), before == after ? 0 : 1);
            QCOMPARE(inUse.count(), 0);
            const Record copy(&shown);
            QCOMPARE(copy.id() + copy.name() + QString::number(copy.roomAllSum()), QString("2二楼9"));
            QCOMPARE(copy.isChecked(), after);
            QVERIFY(!QJsonSerializer().serializeObject(&copy, copy.metaObject()).contains("isChecked"));
        }
    }
};

QTEST_GUILESS_MAIN(tst_records)
#include "tst_records.moc"
