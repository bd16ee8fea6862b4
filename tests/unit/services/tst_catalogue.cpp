#include "CatalogueTable.h"

#include "common/GlobalConfig.h"
#include "serialization/IArray.h"
#include "serialization/IDictionary.h"
#include "serialization/RecordTable.h"
#include "serialization/SerializerBase.h"
#include "services/Baa00Service.h"
#include "services/Reply.h"
#include "support/HouseProcess.h"

#include <QJsonArray>
#include <QLoggingCategory>
#include <QRegularExpression>
#include <QtTest>

#include <memory>

namespace {

/// Makes a value for every field of a record, each one different, as a back end that leaves nothing out.
class SampleMaker
{
public:
    QJsonObject record(const QMetaObject* meta)
    {
        QJsonObject json;
        for (const Field& field : RecordTable::of(meta).fields())
            json.insert(field.key, value(field));
        return json;
    }

    QJsonValue value(const Field& field)
    {
        ++m_count;
        switch (field.kind) {
        case Field::Kind::Record:
            return record(field.recordMeta);
        case Field::Kind::Array: {
            const QVariant list(field.userType, nullptr);
            const QMetaObject* element = static_cast<const IArray*>(list.constData())->metaObject();
            return QJsonArray{record(element), record(element)};
        }
        case Field::Kind::Dictionary: {
            const QVariant dictionary(field.userType, nullptr);
            const QMetaObject* element = static_cast<const IDictionary*>(dictionary.constData())->metaObject();
            return QJsonObject{{"405757793603424257", record(element)}, {"1", record(element)}};
        }
        case Field::Kind::String:
            return QStringLiteral("值%1").arg(m_count);
        case Field::Kind::Double:
            return m_count + 0.25;
        case Field::Kind::Bool:
            return true;
        default:
            return m_count;
        }
    }

private:
    int m_count = 0;
};

/// The property that a wrapper adds, if it is one.
const Field* payloadOf(const QMetaObject* meta)
{
    for (const Field& field : RecordTable::of(meta).fields()) {
        if (field.key == QLatin1String("data"))
            return &field;
    }
    return nullptr;
}

} // namespace

class tst_catalogue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void wire_data();
    void wire();

private:
    std::unique_ptr<HouseProcess> m_house;
};

void tst_catalogue::initTestCase()
{
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));
    m_house.reset(new HouseProcess);
    QVERIFY(m_house->isReady());
    GlobalConfig* config = GlobalConfig::getInstance();
    QVERIFY(config->initLibcurl());
    config->setApiUrl(m_house->url());
    config->setApiUrls({m_house->url()});
    const QString key = QStringLiteral("demo-secret-key-0001");
    const std::unique_ptr<GetSysInitByAuthCode, DeleteLater> init(
        Baa00Service::getInstance()->getSysInitByAuthCode(key));
    QVERIFY(init->data() && init->data()->terminalInfo());
    config->setStoreId(init->data()->terminalInfo()->storeId());
    config->setCompId(init->data()->terminalInfo()->compId());
    config->setDeviceId(init->data()->terminalInfo()->id());
    const std::unique_ptr<LoginMod, DeleteLater> login(Baa00Service::getInstance()->loginMod(
        {{"workNo", "1001"}, {"pwd", "1001"}, {"modCode", "ROOMINFO_CTRL"}}, key));
    QVERIFY(login->data());
    config->setToken(login->data()->token());
    config->setSecret(login->data()->secret());
    config->userInfo()->update(login->data()->userInfo());
}

void tst_catalogue::wire_data()
{
    QTest::addColumn<int>("row");
    const std::vector<CatalogueRow> rows = catalogue();
    QCOMPARE(rows.size(), size_t(87)); // every method of the nine services
    for (size_t i = 0; i < rows.size(); ++i)
        QTest::newRow(rows[i].method) << static_cast<int>(i);
}

void tst_catalogue::wire()
{
    QFETCH(int, row);
    const CatalogueRow endpoint = catalogue()[static_cast<size_t>(row)];
    const QString path = QString::fromLatin1(endpoint.path);

    // The reply's class is known once there is one; a first call tells it.
    m_house->reset();
    m_house->answer(path, QJsonObject{{"code", "200"}}, 1);
    const std::unique_ptr<ApiRes, DeleteLater> empty(endpoint.call(endpoint.fields));
    QCOMPARE(empty->code(), QStringLiteral("200"));
    const QMetaObject* meta = empty->metaObject();
    const Field* payload = payloadOf(meta);
    QCOMPARE(payload != nullptr, meta != &ApiRes::staticMetaObject);

    QJsonObject answer{{"code", "200"}, {"msg", "好"}};
    if (payload)
        answer.insert("data", SampleMaker().value(*payload));
    m_house->answer(path, answer, 1);
    const std::unique_ptr<ApiRes, DeleteLater> reply(endpoint.call(endpoint.fields));
    QCOMPARE(reply->code(), QStringLiteral("200"));
    QCOMPARE(reply->msg(), QStringLiteral("好"));
    if (payload)
        QCOMPARE(SerializerBase().serializeObject(reply.get(), meta).value("data"), answer.value("data"));

    const QJsonObject sent = m_house->lastRequest(path);
    QCOMPARE(sent.value("method").toString(), QString::fromLatin1(endpoint.verb));
    QVERIFY2(!sent.value("code").toString().startsWith(QLatin1String("REQ_ERR")),
             qPrintable(sent.value("code").toString() + m_house->log()));
    const QString target = sent.value("target").toString();
    QVERIFY(target.startsWith(path + QStringLiteral("?timestamp=")));
    const bool isGet = QLatin1String(endpoint.verb) == QLatin1String("GET");
    QCOMPARE(target.contains(QStringLiteral("&data=")), isGet);
    QCOMPARE(sent.value("body").toString().startsWith(QStringLiteral("data=")), !isGet);
    // What stands behind the JSON or the nonce, up to the signature.
    QString query = target.section(isGet ? QStringLiteral("&data=") : QStringLiteral("&nonce="), 1);
    query = query.mid(query.indexOf(QLatin1Char('&')));
    QCOMPARE(query.section(QStringLiteral("&signature="), 0, 0).remove(QRegularExpression("^[^&]*$")),
             QString::fromLatin1(endpoint.query));
    const QJsonObject json = sent.value("json").toObject();
    for (auto it = endpoint.fields.begin(); it != endpoint.fields.end(); ++it)
        QCOMPARE(json.value(it.key()), it.value());
    for (const QString& name : {QStringLiteral("secretKey"), QStringLiteral("page"), QStringLiteral("limit")})
        QVERIFY(!json.contains(name));
}

QTEST_GUILESS_MAIN(tst_catalogue)
#include "tst_catalogue.moc"
