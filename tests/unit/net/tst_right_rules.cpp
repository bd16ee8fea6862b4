#include "common/GlobalConfig.h"
#include "common/RightsTables.h"
#include "net/NetServer.h"

#include <QtTest>

class tst_right_rules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ofACall_data();
    void ofACall();
    void heldRights();
};

void tst_right_rules::ofACall_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QJsonObject>("data");
    QTest::addColumn<QStringList>("codes"); // of the code table, or the id of a right without one
    const QString order = QStringLiteral("/bca01/batchUpdateOrder");
    const QString roomOrder = QStringLiteral("/bca01/batchUpdateRoomOrder");
    const QString clean = QStringLiteral("/bba01/chgCleanRoom");
    const auto row = [](const char* name, const QString& path, const QJsonObject& data,
                        const QStringList& codes) { QTest::newRow(name) << path << data << codes; };

    row("no rules", "/bba01/getRoomList", {}, {});
    row("always", "/bda02/endServer", {}, {"0304"});
    row("always, no code", "/bba01/changeRoom", {{"status", 2}}, {"418838415448215554"});
    row("path must match whole", "/bda02/endServer/", {}, {});
    row("without its segment", "endServer", {}, {});

    row("one field, number", clean, {{"isClean", 0}}, {"0115"});
    row("one field, other value", clean, {{"isClean", 1}}, {"0114"});
    row("one field, text", clean, {{"isClean", "1"}}, {"0114"});
    row("one field, true", clean, {{"isClean", true}}, {"0114"});
    row("one field, false", clean, {{"isClean", false}}, {"0115"});
    row("one field, fraction", clean, {{"isClean", 1.9}}, {"0114"});
    row("one field, no rule's value", clean, {{"isClean", 2}}, {});
    row("one field, missing", clean, {}, {});
    row("one field, null", clean, {{"isClean", QJsonValue::Null}}, {});
    row("one field, list", clean, {{"isClean", QJsonArray{1}}}, {});

    row("two fields", order, {{"isNormal", 1}, {"mode", 0}}, {"0201"});
    row("two fields, second missing", order, {{"isNormal", 1}}, {});
    row("two fields, second differs", order, {{"isNormal", 1}, {"mode", 2}}, {});
    row("two fields, mode 1", order, {{"isNormal", 1}, {"mode", 1}}, {"0121"});
    row("two fields, mode 3", order, {{"isDel", 1}, {"mode", 3}}, {"0520"});
    row("several, in the list's order", order, {{"isDel", 1}, {"isNormal", 1}, {"mode", 0}}, {"0201", "0202"});
    row("room order", roomOrder, {{"isNormal", true}, {"isDel", true}, {"isGive", true}, {"mode", 1}},
        {"0168", "0169", "0170"});
    row("room order, mode 3", roomOrder, {{"isNormal", 1}, {"isDel", 1}, {"mode", 3}}, {"0169"});
    row("three values of one field", "/baa01/editPkgCards", {{"checkMode", 2}}, {"0207"});
    row("two values and another field", "/bea01/settleAccount", {{"type", 10}, {"payType", 13}},
        {"0502", "0533"});
    row("zero and one swapped in order", "/bda02/punchRecord", {{"punchStatus", 0}}, {"0339"});

    row("stale rights go", clean, {{"acode", QJsonArray{"1"}}, {"isClean", 1}}, {"0114"});
    row("stale rights go without a match", clean, {{"acode", QJsonArray{"1"}}}, {});
}

void tst_right_rules::ofACall()
{
    QFETCH(QString, path);
    QFETCH(QJsonObject, data);
    QFETCH(QStringList, codes);

    QJsonObject expected = data;
    expected.remove(QStringLiteral("acode"));
    QJsonArray ids;
    for (const QString& code : codes)
        ids.append(Rights::codeTable().key(code, code));
    if (!ids.isEmpty())
        expected.insert(QStringLiteral("acode"), ids);
    NetWorkUtls::NetServer::chechAuth(path, data);
    QCOMPARE(data, expected);

    // Where there are no rules, whatever the caller gave goes out.
    QJsonObject untouched{{"acode", "given"}};
    NetWorkUtls::NetServer::chechAuth(QStringLiteral("/bba01/getRoomList"), untouched);
    QCOMPARE(untouched.value("acode").toString(), QStringLiteral("given"));
}

void tst_right_rules::heldRights()
{
    GlobalConfig* config = GlobalConfig::getInstance();
    QVERIFY(!config->isHaveAuth(QStringLiteral("0101")));
    config->setRights({QStringLiteral("0101"), QStringLiteral("0104")});
    QVERIFY(config->isHaveAuth(QStringLiteral("0104")));
    QVERIFY(!config->isHaveAuth(QStringLiteral("0105")));
    config->setRights({});
    QVERIFY(!config->isHaveAuth(QStringLiteral("0101")));

    const QJsonArray all = config->getACodes();
    QCOMPARE(all.size(), 197);
    for (int i = 1; i < all.size(); ++i)
        QVERIFY(all.at(i - 1).toString() < all.at(i).toString());
}

QTEST_GUILESS_MAIN(tst_right_rules)
#include "tst_right_rules.moc"
