#include "common/RightsData.h"

#include <QRegularExpression>
#include <QSet>
#include <QtTest>

class tst_rights : public QObject
{
    Q_OBJECT

private slots:
    void codeTable();
    void moduleWords();
    void unknownNames();
    void rulesOfPath_data();
    void rulesOfPath();
    void rulesAreWellFormed();
};

namespace {

bool isRightId(const QString& text)
{
    static const QRegularExpression id(QStringLiteral("^[0-9]{18}$"));
    return id.match(text).hasMatch();
}

} // namespace

void tst_rights::codeTable()
{
    const QMap<QString, QString>& table = Rights::codeTable();
    QCOMPARE(table.size(), 197); // a row with another row's id would be lost

    const QRegularExpression digits(QStringLiteral("^[0-9]{4}$"));
    const QRegularExpression word(QStringLiteral("^[A-Z_]+$"));
    QSet<QString> codes;
    int words = 0;
    for (auto it = table.constBegin(); it != table.constEnd(); ++it) {
        QVERIFY2(isRightId(it.key()), qPrintable(it.key()));
        QVERIFY2(!codes.contains(it.value()), qPrintable(it.value()));
        codes.insert(it.value());
        const bool isWord = word.match(it.value()).hasMatch();
        QVERIFY2(isWord || digits.match(it.value()).hasMatch(), qPrintable(it.value()));
        words += isWord ? 1 : 0;
    }
    QCOMPARE(words, 13);

    // The ends of the list, and the gaps in its numbers.
    QCOMPARE(Rights::codeOfId(QStringLiteral("405754323659919362")), QStringLiteral("0001"));
    QCOMPARE(Rights::codeOfId(QStringLiteral("410372939579658242")), QStringLiteral("0903"));
    for (const char* gap : {"0023", "0124", "0149", "0516", "0518"})
        QVERIFY2(!codes.contains(QLatin1String(gap)), gap);
}

void tst_rights::moduleWords()
{
    QSet<QString> ids;
    QSet<QString> withoutCode;
    for (const Rights::ModuleWord& module : Rights::moduleWords) {
        const QString id = Rights::idOfModuleWord(QLatin1String(module.word));
        QVERIFY2(isRightId(id), module.word);
        ids.insert(id);
        const QString code = Rights::codeOfId(id);
        if (code.isEmpty())
            withoutCode.insert(QLatin1String(module.word));
        else
            QCOMPARE(code, QLatin1String(module.word));
    }
    QCOMPARE(ids.size(), 10);
    QCOMPARE(withoutCode, (QSet<QString>{QStringLiteral("STAFF_QTZ_CTRL"), QStringLiteral("ZZC_CTRL"),
                                         QStringLiteral("HELP_BASH_WAIT")}));
}

void tst_rights::unknownNames()
{
    QCOMPARE(Rights::idOfModuleWord(QStringLiteral("MEMBER_CARD_CTRL")), QString()); // a code, but no module
    QCOMPARE(Rights::idOfModuleWord(QString()), QString());
    QCOMPARE(Rights::codeOfId(QStringLiteral("0101")), QString());
    QVERIFY(Rights::rulesOf(QStringLiteral("/bba01/getRoomList")).isEmpty());
    QVERIFY(Rights::rulesOf(QStringLiteral("/chgCleanRoom")).isEmpty());
    QVERIFY(Rights::rulesOf(QStringLiteral("/bba01/chgCleanRoom/")).isEmpty());
}

void tst_rights::rulesOfPath_data()
{
    QTest::addColumn<QString>("codes"); // of the rules' rights in their order, "-" for a right without a code

    QTest::newRow("/bca01/batchUpdateOrder") << "0201 0202 0203 0121 0520";
    QTest::newRow("/bba01/chgCleanRoom") << "0115 0114";
    QTest::newRow("/bda02/startServerWithoutOrder") << "0336";
    QTest::newRow("/bfa01/serveDishes") << "-";
    QTest::newRow("/baa01/setHardCardStatus") << "- 0008 0009 0021 0022 0019 0020 0006 0010";
    QTest::newRow("/bda02/workOvertime") << "0313";
    QTest::newRow("/bea01/changeItem") << "0123 0517";
    QTest::newRow("/bea01/settleAccount") << "0501 0502 0533";
    QTest::newRow("/bea01/getSaleCoupons") << "-";
    QTest::newRow("/baa01/setLimitRemark") << "0007 0017";
    QTest::newRow("/bda02/changeAssignRoom") << "0322";
    QTest::newRow("/bda02/punchRecord") << "0339 0338";
    QTest::newRow("/bda02/endOvertime") << "0337";
    QTest::newRow("/bca01/batchUpdateRoomOrder") << "0168 0169 0170 0169";
    QTest::newRow("/bea01/getMemberInfo") << "0603";
    QTest::newRow("/bda02/reserve/getReserveListNew") << "0335";
    QTest::newRow("/bea01/getPayInfoRecords") << "0510";
    QTest::newRow("/baa01/editAchiMan") << "0014 0208 0525";
    QTest::newRow("/baa01/editPkgCards") << "0013 0207 0524";
    QTest::newRow("/bba01/changeRoom") << "-";
    QTest::newRow("/bda02/assignOrder") << "0120 0301 0326";
    QTest::newRow("/bda02/endServer") << "0304";
    QTest::newRow("/bda02/changeServer") << "0314";
    QTest::newRow("/bda02/changeCard") << "0316";
    QTest::newRow("/bba01/getRoomChgLogList") << "0165";
    QTest::newRow("/bba01/cancelRoom") << "-";
    QTest::newRow("/baa01/changeHardCard") << "-";
}

void tst_rights::rulesOfPath()
{
    QFETCH(QString, codes);
    QStringList found;
    for (const Rights::Rule& rule : Rights::rulesOf(QLatin1String(QTest::currentDataTag()))) {
        const QString code = Rights::codeOfId(QLatin1String(rule.acode));
        found.append(code.isEmpty() ? QStringLiteral("-") : code);
    }
    QCOMPARE(found.join(QLatin1Char(' ')), codes);
}

void tst_rights::rulesAreWellFormed()
{
    QSet<QString> paths;
    QSet<QStringList> conditions;
    int reachable = 0;
    for (const Rights::Rule& rule : Rights::rules) {
        QVERIFY2(isRightId(QLatin1String(rule.acode)), rule.acode);
        QCOMPARE(rule.code != nullptr, rule.value != nullptr);
        QCOMPARE(rule.code1 != nullptr, rule.value1 != nullptr);
        QVERIFY2(rule.code || !rule.code1, rule.path);
        const QStringList condition{rule.path, rule.code, rule.value, rule.code1, rule.value1};
        QVERIFY2(!conditions.contains(condition), qPrintable(condition.join(QLatin1Char(' '))));
        conditions.insert(condition);
        paths.insert(QLatin1String(rule.path));
    }
    for (const QString& path : paths)
        reachable += Rights::rulesOf(path).size();
    QCOMPARE(paths.size(), 27);
    QCOMPARE(reachable, 54);
}

QTEST_GUILESS_MAIN(tst_rights)
#include "tst_rights.moc"
