#include "common/RightsData.h"

#include <QRegularExpression>
#include <QSet>
#include <QtTest>

class tst_rights : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void noRowIsLost();
    void lookUps();
    void rulesOfAPath();
};

namespace {

bool isRightId(const char* text) { return QRegularExpression("^[0-9]{18}$").match(text).hasMatch(); }

} // namespace

/// A row with another row's key would hide it.
void tst_rights::noRowIsLost()
{
    QSet<QString> codes;
    for (const Rights::RightCode& right : Rights::rightCodes) {
        QVERIFY2(isRightId(right.id) && QRegularExpression("^([0-9]{4}|[A-Z_]+)$").match(right.code).hasMatch(),
                 right.code);
        codes.insert(right.code);
    }
    QCOMPARE(codes.size(), Rights::rightCodeCount);
    QCOMPARE(Rights::codeTable().size(), Rights::rightCodeCount);

    QSet<QString> ids;
    for (const Rights::ModuleWord& module : Rights::moduleWords) {
        const QString id = Rights::idOfModuleWord(module.word);
        QVERIFY2(isRightId(module.id) && id == module.id, module.word);
        ids.insert(id);
        // Three of them have no code; the others' code is their word.
        QVERIFY2(Rights::codeOfId(id).isEmpty() || Rights::codeOfId(id) == module.word, module.word);
    }
    QCOMPARE(ids.size(), Rights::moduleWordCount);

    QSet<QStringList> conditions;
    int reachable = 0;
    for (const Rights::Rule& rule : Rights::rules) {
        QVERIFY2(isRightId(rule.acode) && !rule.code == !rule.value && !rule.code1 == !rule.value1, rule.path);
        conditions.insert({rule.path, rule.code, rule.value, rule.code1, rule.value1});
        reachable += Rights::rulesOf(rule.path).first().acode == QLatin1String(rule.acode) ? 1 : 0;
    }
    QCOMPARE(conditions.size(), Rights::ruleCount);
    QCOMPARE(reachable, 27); // the first rule of each path
}

void tst_rights::lookUps()
{
    QCOMPARE(Rights::codeOfId("405757793603424257"), QStringLiteral("0101"));
    QCOMPARE(Rights::codeOfId("0101") + Rights::codeOfId("425971602183950337"), QString());
    QCOMPARE(Rights::idOfModuleWord("MEMBER_CARD_CTRL"), QString()); // a code, but no module
    for (const char* path : {"/bba01/getRoomList", "/chgCleanRoom", "/bba01/chgCleanRoom/"})
        QVERIFY2(Rights::rulesOf(path).isEmpty(), path);
}

void tst_rights::rulesOfAPath()
{
    QStringList found;
    for (const Rights::Rule& rule : Rights::rulesOf("/bca01/batchUpdateRoomOrder"))
        found.append(Rights::codeOfId(rule.acode) + rule.code + rule.value1);
    QCOMPARE(found, (QStringList{"0168isNormal1", "0169isDel1", "0170isGive1", "0169isDel3"}));
}

QTEST_GUILESS_MAIN(tst_rights)
#include "tst_rights.moc"
