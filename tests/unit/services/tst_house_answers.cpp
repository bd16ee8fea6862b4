// What the demo house really answers to the queries: every field of every record is there, and reads as it was
// sent.

#include "Endpoints.h"

#include "serialization/IArray.h"
#include "serialization/RecordTable.h"
#include "serialization/SerializerBase.h"
#include "services/Bba01Service.h"
#include "services/Bca01Service.h"
#include "services/Bda02Service.h"
#include "services/Reply.h"
#include "support/HouseProcess.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QtTest>

#include <memory>

namespace {

/// The body of the last reply, taken from the line that the engine logs of each exchange.
QJsonObject lastReply;

void noteReply(QtMsgType, const QMessageLogContext&, const QString& line)
{
    const int body = line.lastIndexOf(QStringLiteral("\r\n"));
    if (line.contains(QStringLiteral("\r\nparam:")))
        lastReply = QJsonDocument::fromJson(line.mid(body + 2).toUtf8()).object();
}

void compareRecord(const QString& where, const QJsonObject& sent, const QJsonObject& read,
                   const QMetaObject* meta, QStringList& faults);

void compareField(const QString& where, const Field& field, const QJsonValue& sent, const QJsonValue& read,
                  QStringList& faults)
{
    switch (field.kind) {
    case Field::Kind::Record:
        if (sent.isObject())
            compareRecord(where, sent.toObject(), read.toObject(), field.recordMeta, faults);
        else if (!sent.isNull())
            faults.append(where + " is no record");
        break;
    case Field::Kind::Array: {
        const QVariant list(field.userType, nullptr);
        const QMetaObject* element = static_cast<const IArray*>(list.constData())->metaObject();
        if (sent.toArray().size() != read.toArray().size())
            faults.append(where + " lost elements");
        for (int i = 0; i < sent.toArray().size(); ++i)
            compareRecord(where + "[]", sent.toArray().at(i).toObject(), read.toArray().at(i).toObject(),
                          element, faults);
        break;
    }
    default:
        // The log, where the answers are read, hides what logs somebody in.
        if (sent != QJsonValue("***") && sent.toVariant().toString() != read.toVariant().toString())
            faults.append(where + " sent as " + sent.toVariant().toString() + ", read as " +
                          read.toVariant().toString());
    }
}

void compareRecord(const QString& where, const QJsonObject& sent, const QJsonObject& read,
                   const QMetaObject* meta, QStringList& faults)
{
    for (const Field& field : RecordTable::of(meta).fields()) {
        const QString name = where + "." + field.key;
        // A nested record may be left out where there is nothing to tell.
        if (!sent.contains(field.key) && field.kind != Field::Kind::Record)
            faults.append(name + " is not sent");
        else if (sent.contains(field.key))
            compareField(name, field, sent.value(field.key), read.value(field.key), faults);
    }
}

} // namespace

class tst_house_answers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { qInstallMessageHandler(nullptr); }
    void queries_data();
    void queries();

private:
    std::unique_ptr<HouseProcess> m_house;
    QMap<QString, QJsonObject> m_fields; ///< by the methods, of what is there in the house
};

void tst_house_answers::initTestCase()
{
    qInstallMessageHandler(&noteReply);
    m_house.reset(new HouseProcess({"--no-publish"}));
    const QStringList areas = logIn(*m_house);
    QVERIFY(!areas.isEmpty());

    QString usedRoom, usedRoomNo, restRoom, usedCard;
    const auto rooms = held(Bba01Service::getInstance()->getRoomList({}));
    for (const RoomDto* room : rooms->data()) {
        if (room->status() == 3)
            restRoom = room->id();
        if (room->status() == 2 && !room->cardnos().isEmpty()) {
            usedRoom = room->id();
            usedRoomNo = room->code();
            usedCard = room->cardnos().section(QLatin1Char(','), 0, 0);
        }
    }
    const auto staff = held(Bda02Service::getInstance()->getStaffInfo({{"staffNo", "801"}}));
    QVERIFY(!usedRoom.isEmpty() && !restRoom.isEmpty() && staff->data() && staff->data()->staffInfo());
    const QString staffId = staff->data()->staffInfo()->id();
    for (const char* method :
         {"getRoomList", "getFloorSum", "getRoomTypeSum", "getOverTime", "getOccTypeList", "getTodaySum",
          "getTrmSelfOrderSum", "getTrmSelfOrderDetail", "getHardCardCallList", "getSysMqttInfo"})
        m_fields.insert(method, {});
    m_fields.insert("getRoomDetailNew", {{"roomId", usedRoom}});
    m_fields.insert("getRoomConsList", {{"roomId", usedRoom}});
    m_fields.insert("getRoomPlanNew", {{"roomId", restRoom}, {"planType", 1}});
    m_fields.insert("getEmptyRoomList", {{"roomNo", ""}});
    m_fields.insert("getCanMergeRoomList", {{"roomNo", usedRoomNo}, {"schRoomNo", ""}});
    m_fields.insert("getHardCardDetail", {{"cardno", usedCard}});
    m_fields.insert("getHandCardList", {{"status", 1}});
    m_fields.insert("getItemTypeList", {{"selAreaId", areas.first()}});
    m_fields.insert("getItemList", {{"selAreaId", areas.first()}});
    m_fields.insert("getCardOrderInfo", {{"cardno", usedCard}});
    m_fields.insert("getStaffInfo", {{"staffNo", "801"}});
    m_fields.insert("getStaffItemList", {{"staffId", staffId}});
    m_fields.insert("getStaffWorkInfo", {{"staffId", staffId}});
    m_fields.insert("getStaffList1", {{"staffNo", "801"}});
}

void tst_house_answers::queries_data()
{
    QTest::addColumn<size_t>("row");
    const std::vector<Endpoint> all = endpoints();
    for (size_t i = 0; i < all.size(); ++i) {
        if (m_fields.contains(all[i].method))
            QTest::newRow(qPrintable(all[i].method)) << i;
    }
}

void tst_house_answers::queries()
{
    QFETCH(size_t, row);
    const Endpoint endpoint = endpoints()[row];
    const auto reply = held(endpoint.call(m_fields.value(endpoint.method)));
    QVERIFY2(isOk(*reply), qPrintable(reply->code() + reply->msg()));
    QVERIFY(!lastReply.value("data").isNull() && lastReply.contains("data"));
    const QMetaObject* meta = reply->metaObject();
    QStringList faults;
    compareRecord("data", QJsonObject{{"data", lastReply.value("data")}},
                  SerializerBase().serializeObject(reply.get(), meta), meta, faults);
    faults.removeDuplicates();
    QVERIFY2(faults.isEmpty(), qPrintable(faults.mid(0, 12).join("\n")));
}

QTEST_GUILESS_MAIN(tst_house_answers)
#include "tst_house_answers.moc"
