// The dialogs that a line of an order may ask: who, which service, how prepared.

#include "RoomFixture.h"

#include "common/GlobalConfig.h"
#include "vm/dialogs/JsServiceVm.h"
#include "vm/dialogs/StaffQueryVm.h"
#include "vm/dialogs/TasteVm.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QtTest>

namespace {

const QString staffPath = QStringLiteral("/bea01/getStaffList");
const QString tastePath = QStringLiteral("/bca01/getTagList");

QJsonObject staff(const QString& id, const QString& number)
{
    return {{"staffId", id}, {"staffNo", number}, {"staffName", "name of " + id}};
}

} // namespace

class tst_sales_dialogs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_terminal->reset(); }
    void staffQuery_data();
    void staffQuery();
    void serviceIsComplete_data();
    void serviceIsComplete();
    void serviceChoices();
    void tastes_data();
    void tastes();
    void tastesThatDidNotCome();

private:
    std::unique_ptr<RoomFixture> m_terminal;
};

void tst_sales_dialogs::initTestCase()
{
    m_terminal.reset(new RoomFixture);
    QVERIFY(m_terminal->isUp());
}

void tst_sales_dialogs::staffQuery_data()
{
    QTest::addColumn<QJsonValue>("data"); // undefined: the house refuses
    QTest::addColumn<QString>("found");   // id of the staff member
    QTest::addColumn<QStringList>("shown");
    const QStringList unknown{"error|未查到对应工号的信息"};
    QTest::newRow("there") << QJsonValue(QJsonObject{{"stafflist", QJsonArray{staff("a", "801")}}}) << "a"
                           << QStringList{};
    QTest::newRow("only as part of a longer number")
        << QJsonValue(QJsonObject{{"stafflist", QJsonArray{staff("a", "8011"), staff("b", "1801")}}}) << ""
        << unknown;
    QTest::newRow("the first of two") << QJsonValue(QJsonObject{
                                             {"stafflist", QJsonArray{staff("x", "80"), staff("a", "801"),
                                                                      staff("b", "801")}}})
                                      << "a" << QStringList{};
    QTest::newRow("no data") << QJsonValue(QJsonValue::Null) << "" << unknown;
    QTest::newRow("refused") << QJsonValue(QJsonValue::Undefined) << "" << QStringList{"error|系统忙"};
}

void tst_sales_dialogs::staffQuery()
{
    QFETCH(QJsonValue, data);
    QFETCH(QString, found);
    if (data.isUndefined())
        m_terminal->refuse(staffPath, "系统忙");
    else
        m_terminal->answer(staffPath, data);
    StaffQueryVm vm;
    QSignalSpy success(&vm, &StaffQueryVm::successSignal);
    QSignalSpy error(&vm, &StaffQueryVm::errorSignal);
    vm.queryApi("801");
    QCOMPARE(m_terminal->sent(staffPath), QJsonObject({{"staffNo", "801"}}));
    QCOMPARE(success.count(), found.isEmpty() ? 0 : 1);
    QCOMPARE(error.count(), found.isEmpty() ? 1 : 0);
    if (!found.isEmpty())
        QCOMPARE(success.first(), QVariantList({found, "801", "name of " + found}));
    QTEST(m_terminal->takeShown(), "shown");
}

void tst_sales_dialogs::serviceIsComplete_data()
{
    QTest::addColumn<int>("shift");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("staffNo");
    QTest::addColumn<QString>("pushNo");
    QTest::addColumn<int>("isPush");
    QTest::addColumn<QString>("missing");
    QTest::newRow("nothing") << -1 << -1 << ""
                             << "" << 1 << "请选择工作状态";
    QTest::newRow("shift") << 0 << -1 << ""
                           << "" << 1 << "请选择上钟类型";
    QTest::newRow("and kind") << 0 << 5 << ""
                              << "801" << 1 << "请选择技师工号";
    QTest::newRow("and technician") << 1 << 1 << "801"
                                    << "" << 1 << "请选择派钟人";
    QTest::newRow("all") << 1 << 1 << "801"
                         << "802" << 1 << "";
    QTest::newRow("no pusher needed") << 0 << 6 << "801"
                                      << "" << 0 << "";
}

void tst_sales_dialogs::serviceIsComplete()
{
    QFETCH(int, shift);
    QFETCH(int, kind);
    QFETCH(QString, staffNo);
    QFETCH(QString, pushNo);
    QFETCH(int, isPush);
    QFETCH(QString, missing);
    auto* plan = new PlanConfigDto(GlobalConfig::getInstance());
    plan->set_isPush(isPush);
    GlobalConfig::getInstance()->setPlanConfig(plan);
    JsServiceVm vm;
    QCOMPARE(vm.isComplete(shift, kind, staffNo, pushNo), missing.isEmpty());
    QCOMPARE(m_terminal->takeShown().join(' '), missing.isEmpty() ? QString() : "error|" + missing);
}

void tst_sales_dialogs::serviceChoices()
{
    QStringList kinds;
    const QVariantList choices = JsServiceVm().kinds();
    for (const QVariant& kind : choices)
        kinds.append(kind.toMap().value("label").toString() + kind.toMap().value("value").toString());
    QCOMPARE(kinds, QStringList({"轮钟5", "点钟1", "加钟6", "call钟3", "捡钟4", "选钟2"}));
}

void tst_sales_dialogs::tastes_data()
{
    QTest::addColumn<QVector<QPair<int, int>>>("taps"); // group and choice
    QTest::addColumn<QStringList>("chosen");
    using Taps = QVector<QPair<int, int>>;
    QTest::newRow("one of a kind, the later one counts") << Taps{{0, 0}, {0, 2}} << QStringList{"a2"};
    QTest::newRow("given up again") << Taps{{0, 1}, {0, 1}} << QStringList{};
    QTest::newRow("several, in the order of the groups")
        << Taps{{1, 1}, {1, 0}, {0, 1}} << QStringList{"a1", "b0", "b1"};
    QTest::newRow("one of several given up") << Taps{{1, 0}, {1, 1}, {1, 0}} << QStringList{"b1"};
    QTest::newRow("no such choice") << Taps{{0, 1}, {0, 7}, {0, -1}} << QStringList{"a1"};
}

void tst_sales_dialogs::tastes()
{
    using Taps = QVector<QPair<int, int>>;
    QFETCH(Taps, taps);
    QFETCH(QStringList, chosen);
    const auto group = [](const QString& id, int mulFlg) {
        QJsonArray choices;
        for (int i = 0; i < 3; ++i)
            choices.append(QJsonObject{{"name", id}, {"id", id + QString::number(i)}});
        return QJsonObject{{"name", "group " + id}, {"mulFlg", mulFlg}, {"sels", choices}, {"id", id}};
    };
    m_terminal->answer(tastePath, QJsonObject{{"tagList", QJsonArray{group("a", 0), group("b", 2)}}});
    TasteVm vm;
    QAbstractItemModelTester groups(vm.tasteTagModel());
    vm.getTasteApi("i1");
    QCOMPARE(m_terminal->sent(tastePath), QJsonObject({{"itemId", "i1"}}));
    for (const auto& tap : taps) {
        const TasteTagData* tapped = vm.tasteTagModel()->row(tap.first);
        tapped->selModel()->onChecked(tap.second, tapped->mulFlg());
    }
    QCOMPARE(vm.getCheckedSel(), chosen);
    QCOMPARE(vm.isChosen(), !chosen.isEmpty());
    QCOMPARE(m_terminal->takeShown().join(' '), chosen.isEmpty() ? "error|请选择需要的做法或口味" : "");
}

void tst_sales_dialogs::tastesThatDidNotCome()
{
    m_terminal->refuse(tastePath, "系统忙");
    TasteVm vm;
    vm.getTasteApi("i1");
    QCOMPARE(vm.tasteTagModel()->rowCount(), 0);
    QVERIFY(!vm.isChosen());
    QCOMPARE(m_terminal->takeShown(), QStringList({"error|系统忙", "error|请选择需要的做法或口味"}));
}

QTEST_GUILESS_MAIN(tst_sales_dialogs)
#include "tst_sales_dialogs.moc"
