// Self entry, buffet and transfer: what each sends, refuses, answers and prints.

#include "RoomFixture.h"

#include "common/BaseObject.h"
#include "vm/module7/Module7Register.h"
#include "vm/module8/Module8Register.h"
#include "vm/module9/Module9Register.h"

#include <QTimer>

namespace {

const QString mealPath = QStringLiteral("/bca01/addCardMealTimes");
const QString mealTimes = QStringLiteral("/bca01/getMealTimesInfo");
const QString selfInput = QStringLiteral("/baa01/selfInput");
const QString transferPath = QStringLiteral("/bea01/transferAct");

// Shorthands of the steps: m.. of meals, s.. of self entry, t.. of transfers.
const char script[] = R"(
var meal = '/bca01/addCardMealTimes', times = '/bca01/getMealTimesInfo', entry = '/baa01/selfInput'
var lookup = '/baa01/getCardSelfOrder', orders = '/bea01/getOrderListNew', act = '/bea01/transferAct'
function serve(name = '晚餐') { f.answer(times, {mealId: 'M-' + name, mealName: name, startTime: '17:00',
                                              endTime: '21:30', remainingTime: 3600}) }
function eaten(num = 1) { f.answer(meal, {cardNo: '8001', orderDate: '2026-11-23 18:00:00', itemName: '自助晚餐',
                                          childNum: num, price: 58}) }
function rows() { return f.listed(p.pMealCardsModel, 'itemName') + '/' + f.listed(p.pMealCardsModel, 'childNum') }
function said() { return p.answer + ':' + p.answerText }
function holds(no, status, ...items) { f.answer(orders, {cardinfo: {id: 'C' + no, cardno: no, status},
    orderinfo: items.map(i => ({orderId: 'o' + i, cardno: no, itemName: '茶' + i, num: 2, price: 10 + i}))}, 1) }
function target(no, status = 1) { f.answer(cards, {id: 'T' + no, cardno: no, status}, 1) }
)";

} // namespace

class tst_counters_vm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_terminal->reset(); }
    void rules_data();
    void rules();
    void mealThatChanges();
    void pollsAgainAfterAFailureOfTheLine();
    void opensWhileTheLineIsGone();
    void transferOfSeveral();
    void slips();
    void lyingCard();
    void whatTheLastGuestLeft();

private:
    std::unique_ptr<RoomFixture> m_terminal;
};

void tst_counters_vm::initTestCase()
{
    m_terminal.reset(new RoomFixture);
    QVERIFY(m_terminal->isUp());
    Module7Register().init();
    Module8Register().init();
    Module9Register().init();
    m_terminal->run(QString::fromUtf8(script));
}

void tst_counters_vm::rules_data()
{
    addRows(R"T(
Module7Vm | p.doConsume('', '') | said() | refused:手牌号不能为空 | error|手牌号不能为空
Module7Vm | f.answer(lookup, null); p.doConsume('1', '') | said() + f.seen(entry) | refused:未能获取到手牌信息0 | error|未能获取到手牌信息
Module7Vm | f.refuse(lookup, '没有这张牌'); p.present('', 'u1') | said() + sent(lookup) | refused:没有这张牌{"cardUid":"u1"} | error|没有这张牌
Module7Vm | f.answer(lookup, {cardno: '8001', ticketNum: 2, selfNum: 0, id: 'i'}); f.answer(entry, null); p.doConsume('8001', '')
    | said() + sent(lookup) + sent(entry) | taken:手牌 8001{"cardno":"8001"}{"id":"i"} | success|操作成功
Module7Vm | f.answer(lookup, {cardno: '8001', ticketNum: 2, selfNum: 1, id: 'i'}); f.answer(entry, null); p.doConsume('8001', '')
    | said() | taken:手牌 8001
    | question|提示|手牌【8001】\r\n门票数量[ <font color='red'><b>2</b></font> ]</br>已录入数[ <font color='red'><b>1</b></font> ]; success|操作成功
Module7Vm | f.answerQuestions(0); f.answer(lookup, {cardno: '8001', ticketNum: 1, selfNum: 1, id: 'i'}); p.doConsume('8001', '')
    | said() + f.seen(entry) | again:手牌 80010
    | question|提示|手牌【8001】\r\n门票数量[ <font color='red'><b>1</b></font> ]</br>已录入数[ <font color='red'><b>1</b></font> ]
Module7Vm | f.answer(lookup, {cardno: '8001', id: 'i'}); f.refuse(entry, '门票已用完'); p.doConsume('8001', '') | said() | again:门票已用完 | error|门票已用完
Module7Vm | p.init() | p.itemName + p.totalCount + f.listed(p.pOrderModel, 'cardNo') + f.listed(p.pCardTypeModel, 'typeName') | 自助水果0男宾牌 女宾牌 贵宾牌 儿童牌 |
Module7Vm | f.answer('/baa01/getTrmSelfOdrSum', {cardTypeSumInfo: [{cardTypeName: 'x'}]}); p.totalCount = 7; p.init() | p.totalCount + f.listed(p.pCardTypeModel, 'typeName') | 7 |
Module8Vm | p.addMeal('8001', '') | said() + f.seen(meal) | refused:当前非用餐时间0 | error|当前非用餐时间
Module8Vm | serve(); eaten(); p.init(); p.addMeal('8001', '') | sent(meal) + said() + rows() | {"cardNo":"8001","isChild":0,"mealId":"M-晚餐"}taken:手牌 8001  自助晚餐 × 1自助晚餐/1 | error|餐次不存在
Module8Vm | serve(); eaten(3); p.init(); p.isChild = true; p.changeChildNum(2); p.addMeal('', 'u1') | sent(meal) + p.isChild + p.childNum
    | {"cardUid":"u1","childNum":3,"isChild":1,"mealId":"M-晚餐"}false1 | error|餐次不存在
Module8Vm | serve(); f.refuse(meal, '本餐次已用餐'); p.init(); p.isChild = true; p.addMeal('', 'u1') | said() + p.isChild | again:本餐次已用餐true | error|餐次不存在; error|本餐次已用餐
Module8Vm | p.changeChildNum(-5) | p.childNum | 1 |
Module8Vm | serve(); f.answer('/bca01/getMealTimesStatistics', [{sName: '成人', num: 4}, {sName: '儿童', num: 1}]); f.answer('/bca01/getMealCards', [{cardNo: '1', itemTime: 't', itemName: '甲'}]); p.init()
    | p.mealName + JSON.stringify(p.mealPerson) + rows() | 餐次: 晚餐(17:00-21:30)"成人: 4\r\n儿童: 1\r\n"甲/0 |
Module9Vm | holds('1', '1', 1, 2); p.getOrderList(['1']) | p.transNum + '/' + p.transAmount + f.listed(p.pHandCardOrderModel, 'amount') | 4/4646 |
Module9Vm | p.getOrderList(['8001', '8099', '8002']) | p.transNum + f.listed(p.pHandCardOrderModel, 'cardNo') + f.seen(orders) | 02 | error|[8099]手牌不处于在用状态
Module9Vm | f.answer(orders, null, 1); p.getOrderList(['1', '8002']) | f.listed(p.pHandCardOrderModel, 'cardNo') | 8002 |
Module9Vm | f.answer(cards, null, 1); p.save('9', '') | sent(cards) | {"cardUid":"","cardno":"9"} | error|手牌不存在
Module9Vm | target('9', 2); p.save('9', '') | f.seen(act) | 0 | error|手牌不处于可用状态
Module9Vm | holds('2', '1'); p.getOrderList(['2']); target('9'); p.save('9', '') | f.seen(act) | 0 | error|请选择需要转账的手牌或消费
Module9Vm | holds('1', '1', 1); p.getOrderList(['1']); target('9'); f.answer(act, null); p.save('', 'u9')
    | sent(act) | {"newCardId":"T9","newCardNo":"9","srcCardInfo":[{"cardId":"C1","cardNo":"1","orderIds":["o1"]}]}
    | question|提示|将手牌【1】的 1 笔消费，合计 ¥22.00，转入手牌【9】，确定吗？
Module9Vm | holds('1', '1', 1); p.getOrderList(['1']); target('1'); f.answer(act, null); p.save('1', '') | f.seen(act) | 1
    | question|提示|将手牌【1】的 1 笔消费，合计 ¥22.00，转入手牌【1】，确定吗？; question|提示|手牌【1】自己也在被转的手牌之中，确定要转入它吗？
Module9Vm | f.answerQuestions(0); holds('1', '1', 1); p.getOrderList(['1']); target('9'); p.save('9', '') | f.seen(act) + f.listed(p.pHandCardOrderModel, 'cardNo') | 01
    | question|提示|将手牌【1】的 1 笔消费，合计 ¥22.00，转入手牌【9】，确定吗？
Module9Vm | holds('1', '1', 1); p.getOrderList(['1']); p.isUnsure = true; p.save('9', ''); holds('1', '1'); p.readAgain() | p.isUnsure + '' + p.transNum + f.seen(cards) | false00 | error|上一次转账没有收到答复，请先重新读取
TransferCardsVm | p.save() | p.pCardModel.rowCount() | 0 | error|转账手牌不能为空
TransferCardsVm | target('1'); p.addNew('1', ''); target('1'); p.addNew('', 'u'); target('2', 0); p.addNew('2', ''); target('3'); p.addNew('3', '') | p.save() + sent(cards) | 1,3{"cardno":"3"}
    | error|当前手牌已存在,不能重复添加; error|手牌不处于可用状态
TransferCardsVm | target('1'); p.addNew('1', ''); p.remove(0) | p.pCardModel.rowCount() | 0 |
)T");
}

void tst_counters_vm::rules()
{
    QFETCH(QStringList, cells);
    m_terminal->check(cells);
}

void tst_counters_vm::mealThatChanges()
{
    const std::unique_ptr<QObject> page(m_terminal->page("Module8Vm", "|| serve('午餐'); eaten(); p.init(); "
                                                                      "p.addMeal('1', '')"));
    auto* timer = page->findChild<QTimer*>("mealTimer");
    QCOMPARE(timer->interval(), 3601000);
    QCOMPARE(m_terminal->run("rows()").toString(), QString("自助晚餐/1"));
    m_terminal->run("p.mealPerson = 'as it was'");
    for (const char* step : {"serve('午餐')", "serve('晚餐')"}) {
        m_terminal->run(step);
        timer->start(0);
        QTRY_COMPARE(m_terminal->house().seen(mealTimes), QString(step).contains("午") ? 2 : 3);
        QTRY_COMPARE(m_terminal->run("rows()").toString(), QString(step).contains("午") ? "自助晚餐/1" : "/");
    }
    QCOMPARE(page->property("mealPerson").toString(), QString("as it was"));
    m_terminal->house().answer(mealTimes, QJsonObject{{"code", "BCA_ERR_0005"}, {"msg", "none"}});
    timer->start(0);
    QTRY_COMPARE(page->property("mealName").toString(), QString("自助餐【当前无餐次】"));
    QCOMPARE(page->property("isOnMealTime").toBool(), false);
    QCOMPARE(timer->interval(), 10000);
    m_terminal->refuse(mealTimes, "停用");
    m_terminal->takeShown();
    timer->start(0);
    QStringList shown;
    QTRY_VERIFY(!(shown += m_terminal->takeShown()).isEmpty());
    QCOMPARE(shown, QStringList("error|停用"));
    QVERIFY(!timer->isActive());
}

void tst_counters_vm::pollsAgainAfterAFailureOfTheLine()
{
    const std::unique_ptr<QObject> page(m_terminal->page("Module8Vm", "|| serve(); eaten(); p.init(); "
                                                                      "p.addMeal('1', '')"));
    auto* timer = page->findChild<QTimer*>("mealTimer");
    m_terminal->takeShown();
    m_terminal->house().answer(mealTimes, QJsonObject{{"code", "-2"}, {"msg", "line gone"}}, 2);
    for (const QStringList& shown : {QStringList("error|line gone"), QStringList()}) {
        const int before = m_terminal->house().seen(mealTimes);
        timer->start(0);
        QTRY_COMPARE(m_terminal->house().seen(mealTimes), before + 1);
        QTRY_VERIFY(timer->isActive() && timer->interval() == 10000);
        QCOMPARE(page->property("pollFailure").toString(), QString("line gone"));
        QCOMPARE(m_terminal->takeShown(), shown);
    }
    m_terminal->run("serve()");
    timer->start(0);
    QTRY_COMPARE(page->property("pollFailure").toString(), QString());
    QCOMPARE(m_terminal->run("rows() + p.isOnMealTime").toString(), QString("自助晚餐/1true"));
}

void tst_counters_vm::opensWhileTheLineIsGone()
{
    m_terminal->house().answer(mealTimes, QJsonObject{{"code", "-2"}, {"msg", "line gone"}}, 1);
    const std::unique_ptr<QObject> page(m_terminal->page(
        "Module8Vm",
        "|| f.answer('/bca01/getMealCards', [{cardNo: '1', itemTime: 't', itemName: '甲'}]); p.init()"));
    QCOMPARE(m_terminal->run("rows() + p.isOnMealTime").toString(), QString("/false"));
    m_terminal->run("serve()");
    page->findChild<QTimer*>("mealTimer")->start(0);
    QTRY_COMPARE(m_terminal->run("rows() + p.isOnMealTime").toString(), QString("甲/0true"));
}

/// The house moves what was shown: the sources are empty then, and the target has it all.
void tst_counters_vm::transferOfSeveral()
{
    const QString shown = "p.transNum + '/' + p.transAmount.toFixed(2)";
    const std::unique_ptr<QObject> page(m_terminal->page("Module9Vm", "|| p.getOrderList(['8001', '8003'])"));
    const QString sum = m_terminal->run(shown).toString();
    QVERIFY(sum != "0/0.00");
    QVERIFY(m_terminal->run("p.getOrderList(['8030'])").toBool());
    const QStringList before = m_terminal->run(shown).toString().split('/');
    QVERIFY(m_terminal->run("p.getOrderList(['8001', '8003']) && p.save('8030', '')").toBool());
    QCOMPARE(m_terminal->sent(transferPath).value("srcCardInfo").toArray().size(), 2);
    QVERIFY(m_terminal->takePrinted().contains("共2位"));
    m_terminal->run("p.getOrderList(['8001', '8003'])");
    QCOMPARE(m_terminal->run(shown).toString(), QString("0/0.00"));
    m_terminal->run("p.getOrderList(['8030'])");
    const QStringList after = m_terminal->run(shown).toString().split('/');
    for (int i = 0; i < 2; ++i)
        QCOMPARE(after[i].toDouble(), before[i].toDouble() + sum.split('/')[i].toDouble());
}

void tst_counters_vm::slips()
{
    delete m_terminal->page("Module8Vm",
                            "|| serve(); eaten(3); p.init(); p.isChild = true; p.addMeal('1', '')");
    const QString meal = m_terminal->takePrinted();
    QVERIFY2(meal.contains("自助晚餐") && meal.contains("8001") && meal.contains("174.00"), qPrintable(meal));
    delete m_terminal->page("Module9Vm", "|| holds('1', '1', 1, 3); p.getOrderList(['1']); target('9'); "
                                         "f.answer(act, null); p.save('9', '')");
    const QString transfer = m_terminal->takePrinted();
    QVERIFY2(transfer.contains("茶1") && transfer.contains("茶3") && transfer.contains("48.00") &&
                 transfer.contains("[9]结账") && transfer.contains("共1位"),
             qPrintable(transfer));
    // A refused one prints nothing, and neither does one whose answer was lost; that one must be read again.
    m_terminal->house().fault(transferPath, "drop-after");
    const std::unique_ptr<QObject> lost(m_terminal->page(
        "Module9Vm", "|| holds('1', '1', 1); p.getOrderList(['1']); target('9'); p.save('9', '')"));
    QCOMPARE(m_terminal->takePrinted(), QString());
    QVERIFY(lost->property("isUnsure").toBool());
}

/// Once for as long as it lies there, whatever else comes in between; a page that goes books nothing.
void tst_counters_vm::lyingCard()
{
    const std::unique_ptr<QObject> page(m_terminal->page("Module8Vm", "|| serve(); eaten(); p.init()"));
    auto* counter = qobject_cast<BaseObject*>(page.get());
    for (int i = 0; i < 6; ++i) {
        counter->readingExec("u1");
        if (i == 2)
            counter->readingHandExec("u2");
        m_terminal->run("p.present('', 'u1')");
        QTest::qWait(500);
    }
    QCOMPARE(m_terminal->house().seen(mealPath), 2);
    QTest::qWait(2100);
    counter->readingExec("u1");
    QCOMPARE(m_terminal->house().seen(mealPath), 3);

    m_terminal->run("f.answer(lookup, {cardno: '8001', ticketNum: 2, selfNum: 0, id: 'i'})");
    m_terminal->page("Module7Vm");
    m_terminal->closeDuring("/baa01/getCardSelfOrder");
    m_terminal->run("p.doConsume('8001', '')");
    QCOMPARE(m_terminal->house().seen(selfInput), 0);
}

void tst_counters_vm::whatTheLastGuestLeft()
{
    const std::unique_ptr<QObject> page(
        m_terminal->page("Module8Vm", "|| p.isChild = true; p.changeChildNum(4)"));
    auto* timer = page->findChild<QTimer*>("childTimer");
    QCOMPARE(timer->interval(), 30000);
    timer->start(0);
    QTRY_COMPARE(m_terminal->run("p.isChild + '' + p.childNum").toString(), QString("false1"));
    m_terminal->run("p.addMeal('1', '')");
    QCOMPARE(page->property("answer").toString(), QString("refused"));
    page->findChild<QTimer*>("answerTimer")->start(0);
    QTRY_COMPARE(page->property("answer").toString(), QString());
}

QTEST_GUILESS_MAIN(tst_counters_vm)
#include "tst_counters_vm.moc"
