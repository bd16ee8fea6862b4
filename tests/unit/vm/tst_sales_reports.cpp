// What the till's reports ask for, show and print; the change of a package ticket.

#include "RoomFixture.h"

#include "common/GlobalConfig.h"
#include "vm/dialogs/TodaySumVm.h"
#include "vm/module2/AllInCardsVm.h"
#include "vm/module2/ChgTpVm.h"
#include "vm/module2/SellSumVm.h"

#include <QJsonArray>
#include <QtTest>

namespace {

const QString sumPath = QStringLiteral("/bca01/getSumList");

QJsonObject sumLine(const QString& name, double num, double amount, double commission)
{
    return {{"name", name}, {"num", num}, {"amount", amount}, {"performerAmt", commission}};
}

} // namespace

class tst_sales_reports : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_terminal->reset(); }
    void sumFilters_data();
    void sumFilters();
    void sums();
    void today();
    void tickets_data();
    void tickets();
    void cards();

private:
    std::unique_ptr<RoomFixture> m_terminal;
};

void tst_sales_reports::initTestCase()
{
    m_terminal.reset(new RoomFixture);
    QVERIFY(m_terminal->isUp());
}

void tst_sales_reports::sumFilters_data()
{
    QTest::addColumn<QString>("staffNo");
    QTest::addColumn<QString>("areaId");
    QTest::addColumn<QString>("start");
    QTest::addColumn<QJsonObject>("sent"); // empty: nothing
    const QJsonObject common{{"starttime", "2026-11-23 06:00:00"},
                             {"endtime", "2026-11-23 20:00:00"},
                             {"isOneItem", 1},
                             {"selectLocal", true},
                             {"orderType", 2}};
    const auto with = [&](const QString& code, const QString& areaId) {
        QJsonObject sent = common;
        if (!code.isEmpty())
            sent.insert("code", code);
        if (!areaId.isEmpty())
            sent.insert("areaId", areaId);
        return sent;
    };
    const QString start = QStringLiteral("2026-11-23 06:00:00");
    QTest::newRow("the operator's own") << ""
                                        << "" << start << with("1001", "");
    QTest::newRow("a person's") << "801"
                                << "" << start << with("801", "");
    QTest::newRow("an area's") << ""
                               << "A1" << start << with("", "A1");
    QTest::newRow("both") << "801"
                          << "A1" << start << with("801", "A1");
    QTest::newRow("backwards") << ""
                               << ""
                               << "2026-11-23 20:00:01" << QJsonObject{{"never", "sent"}};
}

void tst_sales_reports::sumFilters()
{
    QFETCH(QString, start);
    QFETCH(QString, staffNo);
    QFETCH(QString, areaId);
    QFETCH(QJsonObject, sent);
    SellSumVm vm;
    QCOMPARE(vm.pAreaModel()->row(0).areaName, QString("全部"));
    QVERIFY(vm.startTime().endsWith("06:00:00") && vm.startTime() < vm.endTime());
    vm.setStartTime(start);
    vm.setEndTime("2026-11-23 20:00:00");
    vm.setStaffNo(staffNo);
    vm.setAreaId(areaId);
    vm.setIsLocal(true);
    vm.setIsOneItem(true);
    vm.query();
    QCOMPARE(m_terminal->sent(sumPath), sent);
    QCOMPARE(m_terminal->takeShown().join(' '), sent.contains("never") ? "error|开始日期不能大于结束日期" : "");
    QVERIFY(vm.isBtnEnabled());
}

void tst_sales_reports::sums()
{
    const QJsonObject group{{"parentName", "茶"},
                            {"orderList", QJsonArray{sumLine("a", 1, 10, 0.5), sumLine("b", 2, 20, 1)}}};
    const QJsonObject empty{{"parentName", "空"}, {"orderList", QJsonArray{}}};
    m_terminal->answer(sumPath, QJsonArray{QJsonObject{{"areaName", "flat"},
                                                       {"totalNum", 1},
                                                       {"totalAmount", 5},
                                                       {"orderlist", QJsonArray{sumLine("c", 1, 5, 0.25)}},
                                                       {"parentList", QJsonArray{group}}},
                                           QJsonObject{{"areaName", "grouped"},
                                                       {"totalNum", 3},
                                                       {"totalAmount", 30},
                                                       {"parentList", QJsonArray{empty, group}}}});
    SellSumVm vm;
    vm.print();
    QCOMPARE(m_terminal->takePrinted(), QString());
    vm.query();
    QCOMPARE(vm.pSellSumModel()->rowCount(), 2);
    QCOMPARE(vm.pSellSumModel()->row(0)->tcAmt(), 0.25);
    QCOMPARE(vm.pSellSumModel()->row(0)->pSellItemModel()->rowCount(), 1);
    const SellSumAreaVm* grouped = vm.pSellSumModel()->row(1);
    QCOMPARE(grouped->tcAmt(), 1.5);
    QCOMPARE(grouped->pSellItemModel()->rowCount(), 3);
    const sell_sum_item_struct summary = grouped->pSellItemModel()->row(2);
    QCOMPARE(summary.itemName, QString("=【茶】="));
    QVERIFY(summary.isParent && summary.num == 3 && summary.amount == 30 && summary.tcAmt == 1.5);
    vm.print();
    const QString printed = m_terminal->takePrinted();
    for (const QString text : {"区域统计报表", "grouped - <区域>", "=【茶】="})
        QVERIFY2(printed.contains(text), qPrintable(text));
}

void tst_sales_reports::today()
{
    const QJsonArray two{QJsonObject{{"name", "男宾"}, {"num", 3}}, QJsonObject{{"name", "女宾"}, {"num", 4}}};
    m_terminal->answer("/baa01/getTodaySum",
                       QJsonObject{{"onCount", two}, {"inCount", QJsonArray{}}, {"exitCount", two}});
    TodaySumVm vm;
    vm.init();
    QCOMPARE(vm.pTodaySumModel()->rowCount(), 2);
    const todaysum_struct left = vm.pTodaySumModel()->row(1);
    QCOMPARE(left.typeName, QString("离场"));
    QCOMPARE(left.totalCount, 7);
    QCOMPARE(left.content, QString("男宾: 3 || 女宾: 4 || "));
}

void tst_sales_reports::tickets_data()
{
    QTest::addColumn<QVector<int>>("taps");
    QTest::addColumn<QJsonObject>("sent");
    const QJsonObject common{{"cardId", "C"}, {"orderId", "L"}, {"type", 2}, {"checkMode", 2}};
    QJsonObject withTicket = common;
    withTicket.insert("pkgTktId", "t1");
    QTest::newRow("none") << QVector<int>{} << QJsonObject{{"never", "sent"}};
    QTest::newRow("a ticket, the last one tapped") << QVector<int>{0, 1, 9} << withTicket;
    QTest::newRow("not quite a ticket") << QVector<int>{2} << common;
}

void tst_sales_reports::tickets()
{
    QFETCH(QVector<int>, taps);
    QFETCH(QJsonObject, sent);
    QJsonArray tickets;
    for (int i = 0; i < 3; ++i)
        tickets.append(
            QJsonObject{{"id", QString("t%1").arg(i)}, {"name", "ticket"}, {"isPackTicket", i}, {"price", 98}});
    m_terminal->answer("/baa01/getPkgTktsList", tickets);
    m_terminal->answer("/baa01/editPkgCards", QJsonValue::Null);
    ChgTpVm vm;
    vm.init("C", "1", "L", 2);
    for (const int tap : taps)
        vm.select(tap);
    QCOMPARE(vm.save(), !taps.isEmpty());
    QCOMPARE(m_terminal->sent("/baa01/editPkgCards"), sent);
    QCOMPARE(m_terminal->takeShown().join(' '), taps.isEmpty() ? "error|请选择需要更换的套票" : "");
}

void tst_sales_reports::cards()
{
    const auto card = [](const QString& number, int sex, const QString& time) {
        return QJsonObject{{"cardno", number}, {"sex", sex}, {"createtime", time}, {"amount", 1.5}};
    };
    m_terminal->answer(
        "/baa01/getHardCardList",
        QJsonObject{{"list", QJsonArray{card("1", 1, "2026-11-23 20:00"), card("2", 0, "2031-01-01 00:00"),
                                        card("3", 2, ""), card("4", 1, "2030-05-05 05:05")}}});
    AllInCardsVm vm;
    vm.init();
    QCOMPARE(m_terminal->sent("/baa01/getHardCardList"), QJsonObject({{"status", 1}}));
    QCOMPARE(vm.totalInfo(), QString("合计: 4  男: 2  女: 1"));
    QCOMPARE(vm.pManModel()->row(1).createTime, QString("05-05 05:05"));
    QCOMPARE(vm.pFemaleModel()->row(0).createTime, QString("2031-01-01 00:00"));
    vm.setIsSortCardNo(false);
    vm.query();
    QCOMPARE(m_terminal->sent("/baa01/getHardCardList"), QJsonObject({{"status", 1}, {"usedCardSort", 1}}));
}

QTEST_GUILESS_MAIN(tst_sales_reports)
#include "tst_sales_reports.moc"
