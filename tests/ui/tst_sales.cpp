// The till as a waiter uses it: its dialogs, and a sale from the card to the slip.

#include "Terminal.h"

#include "common/GlobalConfig.h"
#include "services/Baa01Service.h"
#include "services/Reply.h"

#include <QJsonArray>
#include <QQuickItem>
#include <QtTest>

#include <memory>

namespace {

const QString restHall = QStringLiteral("area_405800110000006035");
const QString footHall = QStringLiteral("area_405800110000004021");

/// Number of a hand card in use that has consumed something.
QString cardInUse()
{
    const auto reply = held(Baa01Service::getInstance()->getHandCardList({{"status", 1}}));
    for (const HandCardDto* card : reply->data()->list()) {
        if (card->sex() == 1 && card->amount() > 0)
            return card->cardno();
    }
    return {};
}

} // namespace

class tst_sales : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_terminal.reset(); }
    void service();
    void taste();
    void marketPrice();
    void sale();
    void search();
    void reports();
    void crowd();

private:
    std::unique_ptr<Terminal> m_terminal;
    QString m_card;
};

void tst_sales::initTestCase()
{
    m_terminal.reset(new Terminal);
    QVERIFY(m_terminal->isUp());
    m_terminal->login("tile_CONSUME_CTRL", "1001", "1001")
        .walk("-loginDlg")
        .walk("+numKeyDlg")
        .picture("till-guest");
    m_terminal->tap("cancelButton").walk("-numKeyDlg").picture("till-areas");
    QCOMPARE(m_terminal->run(), QString());
    m_card = cardInUse();
    QVERIFY(!m_card.isEmpty());
}

void tst_sales::service()
{
    m_terminal
        ->open("setJsServiceDlg", {{"itemName", "经典足疗60分钟"}, {"itemPrice", "¥128.00"}, {"itemNum", 1}})
        .tap("plusButton")
        .tap("plusButton")
        .tap("stepValue")
        .tap("shift_1")
        .tap("kind_3")
        .tap("confirmButton")
        .tap("staffField")
        .walk("#80")
        .picture("staff-query")
        .tap("confirmButton")
        .walk("#2")
        .tap("confirmButton")
        .walk("-staffQueryDlg")
        .tap("pushField")
        .tap("cancelButton")
        .walk("-staffQueryDlg")
        .picture("technician-service")
        .tap("confirmButton")
        .returned();
    QCOMPARE(m_terminal->run(), QString());
    QCOMPARE(m_terminal->result().toMap(), QVariantMap({{"dlgResult", true},
                                                        {"num", 2},
                                                        {"overFlg", 1},
                                                        {"serviceType", 3},
                                                        {"staffNo", "802"},
                                                        {"pushNo", ""}}));
    QCOMPARE(m_terminal->takeMessages(), QStringList({"error|请选择技师工号", "error|未查到对应工号的信息"}));
}

void tst_sales::taste()
{
    const auto group = [](const QString& name, int mulFlg) {
        QJsonArray choices;
        for (const QString choice : {"甲", "乙", "丙", "丁", "戊"})
            choices.append(QJsonObject{{"name", name + choice}, {"id", name + choice}});
        return QJsonObject{{"name", name}, {"mulFlg", mulFlg}, {"sels", choices}, {"id", name}};
    };
    const QJsonArray groups{group("辣度", 0), group("忌口", 1), group("加料", 1)};
    m_terminal->house().answer("/bca01/getTagList",
                               QJsonObject{{"code", "200"}, {"data", QJsonObject{{"tagList", groups}}}}, 1);
    m_terminal->open("tasteDlg", {{"itemId", "i"}, {"itemName", "红烧牛肉面"}, {"itemPrice", "¥38.00"}})
        .tap("taste_0_0")
        .tap("taste_0_1")
        .tap("taste_1_0")
        .tap("taste_1_2")
        .tap("phrase_少盐")
        .picture("taste")
        .tap("confirmButton")
        .returned();
    QCOMPARE(m_terminal->run(), QString());
    const QVariantMap result = m_terminal->result().toMap();
    QCOMPARE(result.value("tagIds").toStringList(), QStringList({"辣度乙", "忌口甲", "忌口丙"}));
    QCOMPARE(result.value("remark"), QVariant("少盐"));
    QCOMPARE(result.value("num"), QVariant(1));
}

void tst_sales::marketPrice()
{
    m_terminal->open("definePriceDlg", {{"itemName", "清蒸鲈鱼"}, {"itemPrice", "¥0.00"}})
        .tap("priceField")
        .walk("#68.5")
        .tap("confirmButton")
        .walk("-numDlg")
        .picture("market-price")
        .tap("confirmButton")
        .returned();
    QCOMPARE(m_terminal->run(), QString());
    QCOMPARE(m_terminal->result().toMap(),
             QVariantMap({{"dlgResult", true}, {"num", 1}, {"price", 68.5}, {"remark", ""}}));
}

void tst_sales::sale()
{
    m_terminal->tap(restHall)
        .walk("+item_0")
        .tap("addGuestButton")
        .walk("#" + m_card)
        .tap("confirmButton")
        .walk("-numKeyDlg");
    m_terminal->walk("+guestText").walk("+oldLine_0").picture("till-card");
    // Plain items merge, a dish asks for its taste, a fish for its price.
    m_terminal->tap("type_1").tap("item_0").walk("+newLine_0").tap("item_0").tap("item_1").walk("+newLine_1");
    m_terminal->tap("plus_0").tap("minus_1").tap("num_1").walk("#12").tap("confirmButton").walk("-numDlg");
    QCOMPARE(m_terminal->run(), QString());
    QCOMPARE(m_terminal->property("newLines", "sum").toDouble() > 0, true);
    m_terminal->tap("type_0")
        .tap("item_0")
        .walk("+tasteDlg")
        .tap("taste_0_1")
        .tap("confirmButton")
        .walk("-tasteDlg")
        .walk("+newLine_2");
    m_terminal->tap("newMenu_0").picture("till-menu").tap("entry_gift").walk("-entry_gift");
    m_terminal->tap("newMenu_1")
        .tap("entry_allRemark")
        .tap("phrase_加茶水")
        .tap("confirmButton")
        .walk("-remarkDlg");
    m_terminal->tap("newMenu_2").tap("entry_delete").walk("-newLine_2");
    m_terminal->picture("till-lines")
        .tap("saveSaleButton")
        .walk("+numKeyDlg")
        .picture("till-saved")
        .tap("cancelButton");
    QCOMPARE(m_terminal->run(), QString());
    QCOMPARE(m_terminal->takeMessages(), QStringList{"success|操作成功"});
    const QJsonObject sent =
        m_terminal->house().lastRequest("/bca01/batchUpdateOrder").value("json").toObject();
    QStringList lines;
    for (const QJsonValue& line : sent.value("items").toArray())
        lines.append(QString("%1x%2").arg(line["status"].toInt()).arg(line["num"].toInt()));
    QCOMPARE(lines, QStringList({"2x1", "1x2"}));
    QCOMPARE(sent.value("remark"), QJsonValue("加茶水"));
}

/// However fast the letters are, the field has them all; a booked item empties it again.
void tst_sales::search()
{
    m_terminal->tap(restHall)
        .walk("+item_0")
        .tap("searchKey")
        .tap("initial_K")
        .tap("initial_Q")
        .tap("initial_S");
    m_terminal->until("the only item",
                      [this] { return m_terminal->item("item_0") && !m_terminal->item("item_1"); });
    m_terminal->picture("till-search").tap("item_0").walk("+newLine_0").walk("-item_0").tap("searchClose");
    m_terminal->tap("cancelSaleButton").walk("+msgConfirmDlg").tap("confirmButton").walk("-newLine_0");
    QCOMPARE(m_terminal->run(), QString());
    QCOMPARE(m_terminal->house().lastRequest("/bca01/getItemList")["json"].toObject().value("plucode"),
             QJsonValue("KQS"));
}

void tst_sales::reports()
{
    m_terminal->tap("sumsButton")
        .walk("+sellSumDlg")
        .tap("areaField")
        .tap(restHall)
        .tap("queryButton")
        .walk("+sumArea_0");
    m_terminal->picture("sums").tap("backButton").walk("-sellSumDlg");
    m_terminal->tap("cardsButton")
        .walk("+inCard_" + m_card)
        .tap("sortByTime")
        .picture("cards-inside")
        .tap("backButton");
    m_terminal->open("todaySumDlg").walk("+todayHead_0").picture("today").tap("backButton").returned();
    m_terminal->open("chgTpDlg", {{"cardType", "1"}})
        .tap("ticket_0")
        .picture("ticket-change")
        .tap("backButton")
        .returned();
    QCOMPARE(m_terminal->run(), QString());
}

/// A long evening: many lines of both kinds, long names.
void tst_sales::crowd()
{
    QJsonArray items;
    QJsonArray lines;
    for (int i = 0; i < 400; ++i) {
        const QString name =
            i % 5 == 1 ? QString("贵宾特享秘制冰镇酸梅汤超大壶装%1").arg(i) : QString("项目%1").arg(i);
        items.append(QJsonObject{{"id", QString("i%1").arg(i)},
                                 {"name", name},
                                 {"price", i % 7 == 0 ? 12888.0 : 38.5},
                                 {"unit", "份"},
                                 {"server_type", 1}});
        lines.append(QJsonObject{{"id", QString("o%1").arg(i)},
                                 {"itemname", name},
                                 {"num", 1 + i % 12},
                                 {"price", i % 9 == 0 ? 1288.0 : 28.0},
                                 {"orderStatus", 1 + i % 2},
                                 {"staffNo", "1001"},
                                 {"areaName", "休息厅"},
                                 {"createtime", "2026-11-23 20:15:00"}});
    }
    const QJsonObject card{{"id", "C"}, {"cardno", m_card}, {"status", 1}};
    m_terminal->house().answer("/bca01/getItemList",
                               QJsonObject{{"code", "200"}, {"data", QJsonObject{{"itemList", items}}}});
    m_terminal->house().answer(
        "/bca01/getCardOrderInfo",
        QJsonObject{{"code", "200"},
                    {"data", QJsonObject{{"cardInfo", card}, {"amount", 123456.5}, {"orderList", lines}}}});
    m_terminal->tap(restHall)
        .walk("+item_0")
        .tap("addGuestButton")
        .walk("#" + m_card)
        .tap("confirmButton")
        .walk("-numKeyDlg");
    for (int i = 0; i < 40; ++i)
        m_terminal->tap(QString("item_%1").arg(i)).walk(QString("+newLine_%1").arg(qMin(i, 2)));
    // A merging tap brings its line into sight, at the far end too.
    m_terminal->tap("oldMenu_0")
        .walk("+entry_refund")
        .picture("till-crowd")
        .tap("item_0")
        .walk("+newLine_39")
        .picture("till-merged");
    m_terminal->tap("oldMenu_1")
        .tap("entry_refund")
        .walk("+numDlg")
        .walk("#1")
        .tap("confirmButton")
        .walk("-numDlg")
        .walk("+newLine_0");
    m_terminal->picture("till-chargeback").tap("cancelSaleButton").tap("confirmButton").walk("-newLine_0");
    QCOMPARE(m_terminal->run(), QString());
    m_terminal->house().reset();
}

QTEST_MAIN(tst_sales)
#include "tst_sales.moc"
