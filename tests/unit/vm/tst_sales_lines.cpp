// What the till does with its lines.

#include "SalesTest.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QtTest>

class tst_sales_lines : public SalesTest
{
    Q_OBJECT

private Q_SLOTS:
    void catalogue();
    void tapRoads_data();
    void tapRoads();
    void limits_data();
    void limits();
    void chargeback_data();
    void chargeback();
    void storedLines();
    void menus();
};

void tst_sales_lines::catalogue()
{
    QCOMPARE(m_vm->itemList()->rowCount(), 7); // no ticket
    QCOMPARE(m_terminal->sent(itemPath), QJsonObject({{"selAreaId", "A1"}, {"typeId", "T1"}}));
    m_vm->onSelectType("T2");
    QCOMPARE(m_vm->typeList()->checkedIndex(), 1);
    m_vm->queryPlu("MJ");
    QCOMPARE(m_terminal->sent(itemPath), QJsonObject({{"selAreaId", "A1"}, {"plucode", "MJ"}}));
    const int asked = m_terminal->house().seen(itemPath);
    m_vm->queryPlu({});
    QCOMPARE(m_vm->itemList()->rowCount(), 0);
    for (const QString typed : {"M", "MJ", "MJX"})
        m_vm->typePlu(typed);
    QTRY_COMPARE(m_vm->itemList()->rowCount(), 7);
    QCOMPARE(m_terminal->house().seen(itemPath), asked + 1);
    QCOMPARE(m_terminal->sent(itemPath).value("plucode"), QJsonValue("MJX"));

    // An answer that comes after the field was emptied fills nothing.
    m_terminal->house().fault(itemPath, "delay", 200, 1);
    QTimer::singleShot(50, m_vm.get(), [this] { m_vm->typePlu({}); });
    m_vm->queryPlu("MJ");
    QCOMPARE(m_vm->itemList()->rowCount(), 0);
    // An area that sells nothing leaves nothing of the one before.
    m_vm->onSelectType("T1");
    m_terminal->answer("/bca01/getTypeList", QJsonObject{{"typeList", QJsonArray()}});
    m_vm->selectArea("A2", "bath");
    QCOMPARE(m_vm->typeList()->rowCount() + m_vm->itemList()->rowCount(), 0);
}

void tst_sales_lines::tapRoads_data()
{
    QTest::addColumn<int>("item");
    QTest::addColumn<QStringList>("dialogs");
    QTest::addColumn<QString>("staffNo"); // known without asking
    QTest::addColumn<QVector<int>>("numsOfTwoTaps");
    QTest::newRow("plain") << 0 << QStringList{} << "1001" << QVector<int>{2};
    QTest::newRow("market price") << 1 << QStringList{"definePriceDlg"} << "1001" << QVector<int>{1, 1};
    QTest::newRow("taste") << 2 << QStringList{"tasteDlg"} << "1001" << QVector<int>{1, 1};
    QTest::newRow("technician") << 3 << QStringList{"setJsServiceDlg"} << "" << QVector<int>{1, 1};
    QTest::newRow("others earn it") << 4 << QStringList{"staffQueryDlg"} << "" << QVector<int>{2};
    QTest::newRow("my type earns it") << 5 << QStringList{} << "1001" << QVector<int>{2};
}

void tst_sales_lines::tapRoads()
{
    QFETCH(int, item);
    QAbstractItemModelTester lines(m_vm->newItemList());
    const QVariantMap line = m_vm->tapItem(item);
    QTEST(line.value("dialogs").toStringList(), "dialogs");
    QTEST(line.value("staffNo").toString(), "staffNo");
    sell(item);
    sell(item);
    QVector<int> nums;
    for (const new_item_struct& made : m_vm->newItemList()->rows())
        nums.append(made.num);
    QTEST(nums, "numsOfTwoTaps");
    QCOMPARE(m_vm->newAmount(), 20.0);
    QVERIFY(m_vm->tapItem(99).isEmpty());
}

void tst_sales_lines::limits_data()
{
    QTest::addColumn<bool>("isChargeback");
    QTest::addColumn<QString>("change");
    QTest::addColumn<int>("num");
    QTest::newRow("at least one") << false << "---" << 1;
    QTest::newRow("more") << false << "++-" << 2;
    QTest::newRow("entered") << false << "=" << 7;
    QTest::newRow("a gift keeps its quantity") << false << "+g" << 2;
    QTest::newRow("all of the stored line") << true << "-----" << -3;
    QTest::newRow("not none") << true << "+++" << -1;
    QTest::newRow("not entered") << true << "=" << -2;
    QTest::newRow("no gift") << true << "g-" << -3;
}

void tst_sales_lines::limits()
{
    QFETCH(bool, isChargeback);
    QFETCH(QString, change);
    holdCard({stored("L", 3)});
    if (isChargeback)
        m_vm->refund(0, 2, {});
    else
        sell(0);
    for (const QChar step : change) {
        if (step == '-')
            m_vm->subNum(0, 1);
        else if (step == '+')
            m_vm->addNum(0, 1);
        else if (step == 'g')
            m_vm->giveFree(0);
        else
            m_vm->changeNum(0, 7);
    }
    QTEST(m_vm->newItemList()->row(0).num, "num");
    QCOMPARE(m_vm->newItemList()->row(0).status, isChargeback ? 3 : change.contains('g') ? 2 : 1);
    QCOMPARE(m_vm->totalAmount(), 68.5 + m_vm->newItemList()->row(0).amount());
    m_vm->deleteNewItem(0);
    QCOMPARE(m_vm->totalAmount(), 68.5);
}

void tst_sales_lines::chargeback_data()
{
    QTest::addColumn<QStringList>("entered");
    QTest::addColumn<int>("num");
    QTest::addColumn<double>("left");
    QTest::addColumn<QStringList>("shown");
    const QString tooMany = QStringLiteral("error|超过最大可退数量");
    QTest::newRow("some") << QStringList{"2"} << -2 << 1.0 << QStringList{};
    QTest::newRow("twice, on one line") << QStringList{"1", "2"} << -3 << 0.0 << QStringList{};
    QTest::newRow("too many") << QStringList{"4"} << 0 << 3.0 << QStringList{tooMany};
    QTest::newRow("too many of the rest") << QStringList{"2", "2"} << -2 << 1.0 << QStringList{tooMany};
    QTest::newRow("nothing") << QStringList{"0", "0.5", ""} << 0 << 3.0 << QStringList{};
}

void tst_sales_lines::chargeback()
{
    QFETCH(QStringList, entered);
    holdCard({stored("L", 3)});
    for (const QString& num : entered)
        m_vm->enterRefund(0, num);
    QTEST(m_vm->newItemList()->row(0).num, "num");
    QTEST(m_vm->checkRefundNum(0), "left");
    QTEST(m_terminal->takeShown(), "shown");
    if (m_vm->askRefund(0) == 0)
        QCOMPARE(m_terminal->takeShown(), QStringList("error|当前已无可退数量"));
}

void tst_sales_lines::storedLines()
{
    QAbstractItemModelTester lines(m_vm->oldItemList());
    holdCard({stored("a", 2), stored("b", 1, R"({"orderStatus":5})"),
              stored("c", 1, R"({"createtime":"2027-01-02 03:04","num":2.5,"is_pack_ticket":3})")});
    const QVector<old_item_struct> rows = m_vm->oldItemList()->rows();
    QCOMPARE(rows.size(), 2);
    QCOMPARE(rows[0].createTime, QString("11-23 20:00:00"));
    QCOMPARE(rows[1].createTime, QString("2027-01-02 03:04"));
    QVERIFY(rows[1].num == 2 && rows[1].isPackTicket);
    QCOMPARE(m_vm->oldAmount(), 68.5);
}

void tst_sales_lines::menus()
{
    const auto textsOf = [](const QVariantList& entries) {
        QStringList texts;
        for (const QVariant& entry : entries)
            texts.append(entry.toMap().value("text").toString() +
                         (entry.toMap().value("isEnabled").toBool() ? "" : "-"));
        return texts.join(' ');
    };
    holdCard({stored("a", 3), stored("b", 1, R"({"server_type":5,"is_pack_ticket":1})"),
              stored("c", 1, R"({"orderStatus":4})")});
    GlobalConfig* config = GlobalConfig::getInstance();
    config->setRights({"0202", "0207", "0210"});
    QCOMPARE(textsOf(m_vm->oldActions(0)), QString("退单 重印"));
    QCOMPARE(textsOf(m_vm->oldActions(1)), QString("更换套票 重印"));
    QCOMPARE(textsOf(m_vm->oldActions(2)), QString("退单"));
    config->setRights({"0169"}); // the right of rooms
    QCOMPARE(textsOf(m_vm->oldActions(0)), QString());
    sell(0);
    QCOMPARE(textsOf(m_vm->newActions(0)), QString("删除 赠送 改数量 备注 整单备注"));
    m_vm->giveFree(0);
    QCOMPARE(textsOf(m_vm->newActions(0)), QString("删除 取消赠送 改数量 备注 整单备注"));
    m_vm->refund(0, 1, {});
    QCOMPARE(textsOf(m_vm->newActions(0)), QString("删除 备注- 整单备注-"));
}

QTEST_GUILESS_MAIN(tst_sales_lines)
#include "tst_sales_lines.moc"
