// What the demo house really answers to the queries: every field of every record is there, and reads as it was
// sent.

#include "CatalogueTable.h"

#include "common/GlobalConfig.h"
#include "serialization/IArray.h"
#include "serialization/RecordTable.h"
#include "serialization/SerializerBase.h"
#include "services/Baa00Service.h"
#include "services/Baa01Service.h"
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
        if (sent.toVariant().toString() != read.toVariant().toString())
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
    void cleaningShowsOnTheBoard();

private:
    QJsonObject fieldsOf(const QString& method) const;

    std::unique_ptr<HouseProcess> m_house;
    QString m_usedRoom;
    QString m_usedRoomNo;
    QString m_emptyRoom;
    QString m_restRoom;
    QString m_staff;
    QString m_area;
    QString m_card; ///< in use
};

void tst_house_answers::initTestCase()
{
    qInstallMessageHandler(&noteReply);
    m_house.reset(new HouseProcess({"--no-publish"}));
    QVERIFY(m_house->isReady());
    GlobalConfig* config = GlobalConfig::getInstance();
    QVERIFY(config->initLibcurl());
    config->setApiUrl(m_house->url());
    config->setApiUrls({m_house->url()});
    const QString key = QStringLiteral("demo-secret-key-0001");
    const auto init = held(Baa00Service::getInstance()->getSysInitByAuthCode(key));
    QVERIFY(init->data());
    config->setStoreId(init->data()->terminalInfo()->storeId());
    config->setCompId(init->data()->terminalInfo()->compId());
    config->setDeviceId(init->data()->terminalInfo()->id());
    const auto login = held(Baa00Service::getInstance()->loginMod(
        {{"workNo", "1001"}, {"pwd", "1001"}, {"modCode", "ROOMINFO_CTRL"}}, key));
    QVERIFY(login->data());
    config->setToken(login->data()->token());
    config->setSecret(login->data()->secret());
    config->userInfo()->update(login->data()->userInfo());
    m_area = login->data()->workarealist().at(0)->areaId();

    const auto rooms = held(Bba01Service::getInstance()->getRoomList({}));
    QVERIFY(rooms->data().size() >= 60);
    for (const RoomDto* room : rooms->data()) {
        if (room->status() == 1 && !room->roomLock())
            m_emptyRoom = room->id();
        if (room->status() == 3)
            m_restRoom = room->id();
        if (room->status() == 2 && !room->cardnos().isEmpty()) {
            m_usedRoom = room->id();
            m_usedRoomNo = room->code();
            m_card = room->cardnos().section(QLatin1Char(','), 0, 0);
        }
    }
    QVERIFY(!m_emptyRoom.isEmpty() && !m_usedRoom.isEmpty() && !m_restRoom.isEmpty());
    const auto staff = held(Bda02Service::getInstance()->getStaffInfo({{"staffNo", "801"}}));
    QVERIFY2(isOk(*staff), qPrintable(staff->msg()));
    QVERIFY(staff->data() && staff->data()->staffInfo());
    m_staff = staff->data()->staffInfo()->id();
}

QJsonObject tst_house_answers::fieldsOf(const QString& method) const
{
    const QMap<QString, QJsonObject> fields{
        {"getRoomDetailNew", {{"roomId", m_usedRoom}}},
        {"getRoomDetailNew1", {{"roomNo", m_usedRoomNo}}},
        {"getRoomConsList", {{"roomId", m_usedRoom}}},
        {"getRoomPlanNew", {{"roomId", m_restRoom}, {"planType", 1}}},
        {"getEmptyRoomList", {{"roomNo", ""}}},
        {"getCanMergeRoomList", {{"roomNo", m_usedRoomNo}, {"schRoomNo", ""}}},
        {"getHardCardDetail", {{"cardno", m_card}}},
        {"getHandCardList", {{"status", 1}}},
        {"getItemTypeList", {{"selAreaId", m_area}}},
        {"getItemList", {{"selAreaId", m_area}}},
        {"getCardOrderInfo", {{"cardno", m_card}}},
        {"getStaffInfo", {{"staffNo", "801"}}},
        {"getStaffItemList", {{"staffId", m_staff}}},
        {"getStaffWorkInfo", {{"staffId", m_staff}}},
        {"getStaffList1", {{"staffNo", "801"}}},
    };
    return fields.value(method);
}

void tst_house_answers::queries_data()
{
    QTest::addColumn<QString>("method");
    for (const char* method :
         {"getRoomList",      "getFloorSum",       "getRoomTypeSum",      "getOverTime",
          "getRoomDetailNew", "getRoomDetailNew1", "getRoomConsList",     "getRoomPlanNew",
          "getOccTypeList",   "getEmptyRoomList",  "getCanMergeRoomList", "getHardCardDetail",
          "getHandCardList",  "getTodaySum",       "getTrmSelfOrderSum",  "getTrmSelfOrderDetail",
          "getItemTypeList",  "getItemList",       "getCardOrderInfo",    "getHardCardCallList",
          "getStaffInfo",     "getStaffItemList",  "getStaffWorkInfo",    "getStaffList1",
          "getSysMqttInfo"})
        QTest::newRow(method) << QString::fromLatin1(method);
}

void tst_house_answers::queries()
{
    QFETCH(QString, method);
    for (const CatalogueRow& endpoint : catalogue()) {
        if (method != QLatin1String(endpoint.method))
            continue;
        const auto reply = held(endpoint.call(fieldsOf(method)));
        QVERIFY2(isOk(*reply), qPrintable(reply->code() + reply->msg()));
        const QMetaObject* meta = reply->metaObject();
        QStringList faults;
        const QJsonObject read = SerializerBase().serializeObject(reply.get(), meta);
        QVERIFY(!lastReply.value("data").isNull() && lastReply.contains("data"));
        compareRecord("data", QJsonObject{{"data", lastReply.value("data")}}, read, meta, faults);
        faults.removeDuplicates();
        QVERIFY2(faults.isEmpty(), qPrintable(faults.mid(0, 12).join("\n")));
        return;
    }
    QFAIL("no such method");
}

void tst_house_answers::cleaningShowsOnTheBoard()
{
    const auto cards = held(Baa01Service::getInstance()->getHandCardList({{"status", 1}}));
    QVERIFY(isOk(*cards));
    const auto occupied =
        held(Bba01Service::getInstance()->chgCleanRoom({{"id", m_emptyRoom}, {"isClean", 1}}));
    QVERIFY2(isOk(*occupied), qPrintable(occupied->msg()));
    const auto rooms = held(Bba01Service::getInstance()->getRoomList({}));
    for (const RoomDto* room : rooms->data()) {
        if (room->id() == m_emptyRoom)
            QCOMPARE(room->status(), 4);
    }
    // Not a second time.
    QVERIFY(!isOk(*held(Bba01Service::getInstance()->chgCleanRoom({{"id", m_emptyRoom}, {"isClean", 1}}))));
}

QTEST_GUILESS_MAIN(tst_house_answers)
#include "tst_house_answers.moc"
