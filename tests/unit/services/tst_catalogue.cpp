// What each method of the services sends: verb, path, fields and query, signed.

#include "Endpoints.h"

#include "services/Reply.h"
#include "support/HouseProcess.h"

#include <QLoggingCategory>
#include <QRegularExpression>
#include <QtTest>

#include <memory>

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
    QVERIFY(!logIn(*m_house).isEmpty());
}

void tst_catalogue::wire_data()
{
    QTest::addColumn<size_t>("row");
    const std::vector<Endpoint> all = endpoints();
    for (size_t i = 0; i < all.size(); ++i)
        QTest::newRow(qPrintable(all[i].method)) << i;
}

void tst_catalogue::wire()
{
    QFETCH(size_t, row);
    const Endpoint endpoint = endpoints()[row];
    m_house->reset();
    m_house->answer(endpoint.path, QJsonObject{{"code", "200"}, {"msg", "好"}}, 1);
    const QJsonObject fields{{"cardNo", "1001 & \"茶\""}, {"num", 2}};
    const auto reply = held(endpoint.call(fields));
    QCOMPARE(reply->code() + reply->msg(), QStringLiteral("200好"));

    const QJsonObject sent = m_house->lastRequest(endpoint.path);
    QCOMPARE(sent.value("method").toString(), endpoint.isGet ? QStringLiteral("GET") : QStringLiteral("POST"));
    // The fields that the endpoint wants are its callers' matter; all else of a wrong request is not.
    const QString objection = sent.value("code").toString();
    QVERIFY2(!objection.startsWith("REQ_ERR") || objection == "REQ_ERR_FIELD", qPrintable(m_house->log()));
    const QJsonObject json = sent.value("json").toObject();
    for (auto it = fields.begin(); it != fields.end(); ++it)
        QCOMPARE(json.value(it.key()), endpoint.takesFields ? it.value() : QJsonValue(QJsonValue::Undefined));
    for (const QString& name : {QStringLiteral("secretKey"), QStringLiteral("page"), QStringLiteral("limit")})
        QVERIFY(!json.contains(name));
    // What stands behind the JSON or the nonce, up to the signature.
    const QString target = sent.value("target").toString();
    QString query = target.section(endpoint.isGet ? "&data=" : "&nonce=", 1).section("&signature=", 0, 0);
    QCOMPARE(query.remove(QRegularExpression("^[^&]*")), endpoint.query);
}

QTEST_GUILESS_MAIN(tst_catalogue)
#include "tst_catalogue.moc"
