#include "serialization/QJsonSerializer.h"
#include "serialization/RecordTable.h"
#include "support/AllRecords.h"

#include <QDirIterator>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QSet>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

Q_DECLARE_METATYPE(const QMetaObject*)

namespace {

QJsonObject parse(const QByteArray& text)
{
    const QJsonDocument document = QJsonDocument::fromJson(text);
    if (!document.isObject())
        qFatal("no JSON object: %s", text.constData());
    return document.object();
}

template <typename T>
void read(const QByteArray& text, T* record)
{
    QJsonSerializer().deserializeObject(parse(text), record, &T::staticMetaObject);
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
        ++counter;
        switch (field.kind) {
        case Field::Kind::String:
            sample.insert(field.key, field.key + QString::number(counter));
            break;
        case Field::Kind::Double:
            sample.insert(field.key, counter + 0.5);
            break;
        case Field::Kind::Bool:
            sample.insert(field.key, true);
            break;
        case Field::Kind::Record:
            sample.insert(field.key, sampleOf(field.recordMeta, counter));
            break;
        case Field::Kind::Array: {
            const QMetaObject* element = static_cast<const IArray*>(value.constData())->metaObject();
            sample.insert(field.key, QJsonArray{sampleOf(element, counter), sampleOf(element, counter)});
            break;
        }
        case Field::Kind::Dictionary: {
            const QMetaObject* element = static_cast<const IDictionary*>(value.constData())->metaObject();
            sample.insert(field.key, QJsonObject{{QStringLiteral("a"), sampleOf(element, counter)},
                                                 {QStringLiteral("b"), sampleOf(element, counter)}});
            break;
        }
        default:
            sample.insert(field.key, counter);
        }
    }
    return sample;
}

} // namespace

class tst_records : public QObject
{
    Q_OBJECT

private slots:
    void listIsComplete();
    void everyClass_data();
    void everyClass();
    void wrapperHasOnlyData_data() { everyClass_data(); }
    void wrapperHasOnlyData();
    void key_data();
    void key();
    void envelopeIsNotReadFromThePayload();
    void choiceIsNotReadFromTheWire();
    void choiceFollowsRefreshAndCopy_data();
    void choiceFollowsRefreshAndCopy();
    void rightsByTheirIds();
    void itemInTheFormOfTheClockPages();
    void clockKindLabels();
};

void tst_records::listIsComplete()
{
    QSet<QString> listed;
    for (const RecordClass& record : allRecords()) {
        QVERIFY2(!listed.contains(record.name), record.name);
        listed.insert(record.name);
    }

    QSet<QString> declared;
    const QRegularExpression declaration(QStringLiteral("^    RECORD(?:_ON)?\\((\\w+)"),
                                         QRegularExpression::MultilineOption);
    QDirIterator headers(QStringLiteral(KV_SOURCE_FOLDER "/src/dto"), {QStringLiteral("*.h")}, QDir::Files,
                         QDirIterator::Subdirectories);
    while (headers.hasNext()) {
        QFile header(headers.next());
        QVERIFY(header.open(QIODevice::ReadOnly));
        auto found = declaration.globalMatch(QString::fromUtf8(header.readAll()));
        while (found.hasNext())
            declared.insert(found.next().captured(1));
    }
    QCOMPARE(QStringList((declared - listed).values()), QStringList());
    QCOMPARE(QStringList((listed - declared).values()), QStringList());
}

void tst_records::everyClass_data()
{
    QTest::addColumn<const QMetaObject*>("meta");
    for (const RecordClass& record : allRecords())
        QTest::newRow(record.name) << record.meta;
}

void tst_records::everyClass()
{
    QFETCH(const QMetaObject*, meta);

    for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i) {
        const QMetaProperty property = meta->property(i);
        QVERIFY2(property.userType() != QMetaType::UnknownType, property.name());
        QVERIFY2(property.hasNotifySignal(), property.name());
    }
    const std::unique_ptr<QObject> record = make(meta);
    QVERIFY(record);

    int counter = 0;
    const QJsonObject sample = sampleOf(meta, counter);
    const QJsonSerializer serializer;
    serializer.deserializeObject(sample, record.get(), meta);
    QCOMPARE(serializer.serializeObject(record.get(), meta), sample);
}

void tst_records::wrapperHasOnlyData()
{
    QFETCH(const QMetaObject*, meta);
    if (meta->superClass() != &ApiRes::staticMetaObject)
        return;
    QCOMPARE(meta->propertyCount() - meta->propertyOffset(), 1);
    QCOMPARE(meta->property(meta->propertyOffset()).name(), "data");
}

void tst_records::key_data()
{
    QTest::addColumn<const QMetaObject*>("meta");
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("expected"); // lists: their size; invalid: null record

    const auto row = [](const QMetaObject& meta, const char* json, const char* property,
                        const QVariant& expected) {
        QTest::newRow(qPrintable(QStringLiteral("%1.%2 from %3").arg(meta.className(), property, json)))
            << &meta << QByteArray(json) << QByteArray(property) << expected;
    };
    // Neighbouring classes spell the same thing differently; the other's spelling must not reach a field.
    row(RoomDto::staticMetaObject, R"({"typename":"豪华","typeName":"x"})", "typename", QStringLiteral("豪华"));
    row(RoomDto::staticMetaObject, R"({"groupKey":"g"})", "group_key", QString());
    row(RoomDetailDto::staticMetaObject, R"({"startTime":"10:00"})", "start_time", QString());
    row(RoomDetailDto::staticMetaObject, R"({"start_time":"10:00"})", "startTime", QString());
    row(RoomDetailDto::staticMetaObject, R"({"cardList":[{}],"cardlist":[{},{}]})", "cardlist", 2);
    row(CanMergeRoomDto::staticMetaObject, R"({"group_key":"g"})", "groupKey", QString());
    row(CanMergeRoomDto::staticMetaObject, R"({"hourseName":"豪华","houseName":"x"})", "hourseName",
        QStringLiteral("豪华"));
    row(RoomCardsDto::staticMetaObject, R"({"cardNo":"1","cardno":"2"})", "cardno", QStringLiteral("2"));
    row(RoomAddCardErrDto::staticMetaObject, R"({"cardno":"1"})", "cardNo", QString());
    row(RoomInfoDto::staticMetaObject, R"({"cardlist":[{},{}],"cardList":[{}]})", "cardList", 1);
    row(SellSumDto::staticMetaObject, R"({"orderList":[{}]})", "orderlist", 0);
    row(SellParentDto::staticMetaObject, R"({"orderlist":[{}]})", "orderList", 0);
    row(ReprintDto::staticMetaObject, R"({"workNo":"1"})", "wrokNo", QString());
    row(BatchUpdateDto::staticMetaObject, R"({"wrokNo":"1"})", "workNo", QString());
    row(OldOrderItemDto::staticMetaObject, R"({"itemName":"x","itemname":"茶"})", "itemname",
        QStringLiteral("茶"));
    row(StaffDetailInfoDto::staticMetaObject, R"({"itemlist":[{}]})", "itemList", 0);
    row(JsCanDoItemListDto::staticMetaObject, R"({"itemList":[{}]})", "itemlist", 0);
    row(HandCardOrderInfoDto::staticMetaObject, R"({"cardInfo":{}})", "cardinfo", QVariant());
    row(GetCardOrderDto::staticMetaObject, R"({"cardinfo":{}})", "cardInfo", QVariant());
    row(HelpCallBashDto::staticMetaObject, R"({"createtime":"x"})", "createTime", QString());
    row(MealTimeInfoDto::staticMetaObject, R"({"remainingMinute":9,"remainingTime":"540"})", "remainingTime",
        540);
    // Ids, numbers and amounts come as text or as numbers.
    row(RoomDto::staticMetaObject, R"({"code":1001})", "code", QStringLiteral("1001"));
    row(RoomDto::staticMetaObject, R"({"surplus":"-12"})", "surplus", -12LL);
    row(RoomDto::staticMetaObject, R"({"needPayAmount":"38.50"})", "needPayAmount", 38.5);
    row(RoomDto::staticMetaObject, R"({"dirtyFlg":1})", "dirtyFlg", true);
    row(RoomDto::staticMetaObject, R"({"roomLock":"0"})", "roomLock", false);
    row(RoomDto::staticMetaObject, R"({"remark":null})", "remark", QString());
    row(CardInfoDto::staticMetaObject, R"({"status":1})", "status", QStringLiteral("1"));
    row(CardDetailDto::staticMetaObject, R"({"status":"1"})", "status", 1);
    row(ItemDto::staticMetaObject, R"({"tagId":"7"})", "tagId", 7);
    row(ItemDto::staticMetaObject, R"({"tagId":null})", "tagId", 0);
    row(LoginDto::staticMetaObject, R"({"timestamp":"7200"})", "timestamp", 7200);
    row(OldOrderItemDto::staticMetaObject, R"({"num":"2.5"})", "num", 2.5);
    row(MealTimesStatisticsDto::staticMetaObject, R"({"id":405757793603424257})", "id", 405757793603424257LL);
    row(ModAuthDto::staticMetaObject, R"({"authflg":1})", "authflg", true);
}

void tst_records::key()
{
    QFETCH(const QMetaObject*, meta);
    QFETCH(QByteArray, json);
    QFETCH(QByteArray, property);
    QFETCH(QVariant, expected);

    const std::unique_ptr<QObject> record = make(meta);
    QJsonSerializer().deserializeObject(parse(json), record.get(), meta);
    const int index = meta->indexOfProperty(property);
    QVERIFY(index >= 0);
    const QVariant value = record->property(property);
    const Field& field = RecordTable::of(meta).fields().at(static_cast<size_t>(index - meta->propertyOffset()));
    switch (field.kind) {
    case Field::Kind::Array:
        QCOMPARE(static_cast<const IArray*>(value.constData())->toVariantList().size(), expected.toInt());
        break;
    case Field::Kind::Record:
        QCOMPARE(value.value<QObject*>() != nullptr, expected.isValid());
        break;
    default:
        QCOMPARE(value.toString(), expected.toString());
    }
}

void tst_records::envelopeIsNotReadFromThePayload()
{
    GetRoomListDto reply;
    reply.setCode(QStringLiteral("200"));
    read(R"({"code":"500","msg":"m","authId":"1","data":[{"code":"888"}]})", &reply);
    QCOMPARE(reply.code(), QStringLiteral("200"));
    QCOMPARE(reply.msg(), QString());
    QCOMPARE(reply.authId(), QString());
    QCOMPARE(reply.data().at(0)->code(), QStringLiteral("888"));
}

void tst_records::choiceIsNotReadFromTheWire()
{
    RoomFloorDto floor;
    read(R"({"id":"1","isChecked":true})", &floor);
    QVERIFY(!floor.isChecked());
    RoomTypeDto type;
    type.set_isChecked(true);
    read(R"({"id":"1","isChecked":false})", &type);
    QVERIFY(type.isChecked());

    const QJsonObject written = QJsonSerializer().serializeObject(&type, &RoomTypeDto::staticMetaObject);
    QVERIFY(!written.contains(QStringLiteral("isChecked")));
}

void tst_records::choiceFollowsRefreshAndCopy_data()
{
    QTest::addColumn<bool>("before");
    QTest::addColumn<bool>("after");
    QTest::newRow("to another choice") << false << true;
    QTest::newRow("to none") << true << false;
    QTest::newRow("kept") << true << true;
}

void tst_records::choiceFollowsRefreshAndCopy()
{
    QFETCH(bool, before);
    QFETCH(bool, after);
    const auto check = [&](auto shown, auto fresh) {
        using Record = std::remove_pointer_t<decltype(shown)>;
        const std::unique_ptr<Record> shownOwner(shown);
        const std::unique_ptr<Record> freshOwner(fresh);
        shown->set_isChecked(before);
        read(R"({"id":"1","name":"一楼","roomUseSum":3,"roomAllSum":8})", shown);
        fresh->set_isChecked(after);
        read(R"({"id":"2","name":"二楼","roomUseSum":3,"roomAllSum":9})", fresh);
        QSignalSpy choice(shown, SIGNAL(isCheckedChanged()));
        QSignalSpy inUse(shown, SIGNAL(roomUseSumChanged()));
        shown->refresh(fresh);
        QCOMPARE(shown->id(), QStringLiteral("2"));
        QCOMPARE(shown->roomAllSum(), 9);
        QCOMPARE(shown->isChecked(), after);
        QCOMPARE(choice.count(), before == after ? 0 : 1);
        QCOMPARE(inUse.count(), 0);
        const Record copy(shown);
        QCOMPARE(copy.isChecked(), after);
        QCOMPARE(copy.name(), QStringLiteral("二楼"));
    };
    check(new RoomFloorDto, new RoomFloorDto);
    check(new RoomTypeDto, new RoomTypeDto);
}

void tst_records::rightsByTheirIds()
{
    GetAuthInfoByCode reply;
    read(R"({"data":{"405757793603424257":{"isHave":true,"isGranted":false},"405757827476623362":{"isHave":0},)"
         R"("405757869302222849":{}}})",
         &reply);
    const QHash<QString, AuthInfoDto*> rights = reply.data().hash();
    QCOMPARE(rights.size(), 3);
    QVERIFY(rights.value(QStringLiteral("405757793603424257"))->isHave());
    QVERIFY(!rights.value(QStringLiteral("405757827476623362"))->isHave());
    QVERIFY(!rights.value(QStringLiteral("405757869302222849"))->isHave());
}

void tst_records::itemInTheFormOfTheClockPages()
{
    JsCanDoItemDto item;
    read(R"({"itemId":"i1","name":"足疗","typeName":"t","times":"60","price":198.5})", &item);
    const std::unique_ptr<ServerItemDto> form(ServerItemDto::fromCanDoItem(item));
    const QJsonObject expected =
        parse(R"({"item_id":"i1","itemName":"足疗","price":198.5,"times":60,"typeId":"",)"
              R"("pic_path":"","isAssign":false,"status":0,"add_times":0})");
    QCOMPARE(QJsonSerializer().serializeObject(form.get(), &ServerItemDto::staticMetaObject), expected);
}

void tst_records::clockKindLabels()
{
    QSet<QString> labels;
    for (int code = 1; code <= 6; ++code)
        labels.insert(clockKindLabel(code).remove(QStringLiteral("  ")));
    QCOMPARE(labels, (QSet<QString>{QStringLiteral("点钟"), QStringLiteral("选钟"), QStringLiteral("CALL钟"),
                                    QStringLiteral("捡钟"), QStringLiteral("轮钟"), QStringLiteral("加钟")}));
    QCOMPARE(clockKindLabel(0), QString());
    QCOMPARE(clockKindLabel(7), QString());
}

QTEST_GUILESS_MAIN(tst_records)
#include "tst_records.moc"
