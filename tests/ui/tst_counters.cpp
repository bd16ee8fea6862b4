// The guests' counters by cards and taps: self entry, buffet, transfer.

#include "Terminal.h"

#include <QJsonArray>
#include <QtTest>

#include <memory>

namespace {

// Serials of hand cards; they are read on the staff reader here.
const QString card8003 = QStringLiteral("61893583");
const QString freeCard = QStringLiteral("11186427");

} // namespace

class tst_counters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_terminal.reset(); }
    void cleanup();
    void selfEntry();
    void buffet();
    void mealThatEnds();
    void transfer();
    void crowd();

private:
    Terminal& answered(const QString& word)
    {
        return m_terminal->walk("+counterAnswer ?answerWord.text=" + word);
    }
    Terminal& typed(const QString& button, const QString& number)
    {
        return m_terminal->walk(button + " +numKeyDlg #" + number + " confirmButton -numKeyDlg");
    }
    void serve(const QString& meal, int seconds)
    {
        m_terminal->house().order("meal", {{"meal", meal}, {"seconds", seconds}});
    }

    std::unique_ptr<Terminal> m_terminal;
};

void tst_counters::initTestCase()
{
    m_terminal.reset(new Terminal);
    QVERIFY(m_terminal->isUp());
}

void tst_counters::cleanup()
{
    for (const QString& message : m_terminal->takeMessages())
        QVERIFY2(!message.startsWith("page|"), qPrintable(message));
}

void tst_counters::selfEntry()
{
    m_terminal->login("tile_SELF_ORDER", "1001", "1001").walk("-loginDlg +Module7 +cardType_0");
    m_terminal->walk("?counterTitle.text=自助水果").picture("self-waits");
    typed("counterButton", "8001");
    answered("已录入").walk("+entry_0").picture("self-taken");
    // The next card isn't held up by that answer; a question tells of the entry before.
    m_terminal->walk("counterButton #8001 confirmButton +msgConfirmDlg").picture("self-question");
    m_terminal->walk("cancelButton -msgConfirmDlg");
    answered("已录入过").picture("self-again");
    // A prompt takes a card too.
    m_terminal->walk("counterButton +numKeyDlg @" + freeCard + " -numKeyDlg");
    answered("未录入").picture("self-refused");
    m_terminal->walk("-counterAnswer returnButton +tileGrid");
    WALKED(*m_terminal);
    QCOMPARE(m_terminal->house().executed("/baa01/selfInput"), 1);
}

void tst_counters::buffet()
{
    serve("晚餐", 3600);
    m_terminal->login("tile_ZZC_CTRL", "1001", "1001").walk("-loginDlg +Module8 +mealPerson");
    m_terminal->until("the meal's name",
                      [this] { return m_terminal->text("counterTitle").startsWith("餐次: 晚餐"); });
    m_terminal->picture("buffet-waits").walk("@" + card8003);
    answered("请用餐").walk("+meal_0").picture("buffet-taken");
    typed("counterButton", "8003");
    answered("已用过餐").picture("buffet-again");
    m_terminal->walk("counterAnswer -counterAnswer childBox plusButton plusButton").picture("buffet-child");
    typed("counterButton", "8003");
    answered("请用餐").walk("+meal_1 ?childBox.isChecked=false");
    m_terminal->walk("@" + freeCard);
    answered("未录入").picture("buffet-refused");
    m_terminal->walk("returnButton +tileGrid");
    WALKED(*m_terminal);
    const QJsonArray sent = m_terminal->house().requests("/bca01/addCardMealTimes");
    QCOMPARE(unlike(sent.at(0).toObject()["json"].toObject(), R"({"cardUid": "61893583", "isChild": 0})"),
             QString());
    QCOMPARE(
        unlike(sent.at(2).toObject()["json"].toObject(), R"({"cardNo": "8003", "isChild": 1, "childNum": 3})"),
        QString());
}

void tst_counters::mealThatEnds()
{
    serve("夜宵", 2);
    m_terminal->login("tile_ZZC_CTRL", "1001", "1001").walk("-loginDlg +Module8 +mealPerson");
    m_terminal->walk("?counterTitle.text=自助餐【当前无餐次】").picture("buffet-closed").walk("@" + card8003);
    answered("未录入").walk("?answerText.text=当前非用餐时间").walk("returnButton +tileGrid");
    WALKED(*m_terminal);
}

void tst_counters::transfer()
{
    m_terminal->login("tile_TRANSFER_CTRL", "1001", "1001").walk("-loginDlg +transferCardsDlg");
    typed("cardButton", "8001").walk("+card_8001 @" + card8003 + " +card_8003");
    typed("cardButton", "8005").walk("+card_8005").picture("transfer-cards");
    m_terminal->walk("remove_8005 -card_8005 confirmButton -transferCardsDlg +cardFact_0").picture("transfer");
    m_terminal->walk("counterButton +numKeyDlg #8001 confirmButton +msgConfirmDlg")
        .picture("transfer-question")
        .walk("confirmButton ~200 +msgConfirmDlg cancelButton -msgConfirmDlg");
    m_terminal->walk(
        "counterButton +numKeyDlg #8030 confirmButton +msgConfirmDlg confirmButton -Module9 +tileGrid");
    WALKED(*m_terminal);
    QCOMPARE(m_terminal->house().executed("/bea01/transferAct"), 1);
}

/// Long lists and long names stay in their places.
void tst_counters::crowd()
{
    QJsonArray cards;
    QJsonArray lines;
    for (int i = 0; i < 300; ++i) {
        const QString name = i % 4 ? "自助晚餐" : "贵宾特享海鲜自助晚餐（含饮料与餐后甜点）";
        cards.append(QJsonObject{
            {"cardNo", QString::number(18000 + i)}, {"itemTime", "2026-11-23 18:00:00"}, {"itemName", name}});
        lines.append(QJsonObject{{"orderId", QString::number(i)},
                                 {"cardno", "8001"},
                                 {"itemName", name},
                                 {"num", 12},
                                 {"price", 12888.5}});
    }
    const QJsonObject card{{"id", "C"}, {"cardno", "8001"}, {"status", "1"}};
    m_terminal->house().answer("/bca01/getMealCards", ok(cards));
    m_terminal->house().answer("/bea01/getOrderListNew",
                               ok(QJsonObject{{"cardinfo", card}, {"orderinfo", lines}}));
    m_terminal->house().answer(
        "/bca01/addCardMealTimes",
        QJsonObject{{"code", "X"}, {"msg", QString("余额不足，请到前台充值后再来。").repeated(4)}});
    serve("晚餐", 3600);
    m_terminal->login("tile_ZZC_CTRL", "1001", "1001").walk("-loginDlg +Module8 +meal_3 @" + card8003);
    answered("未录入").picture("buffet-crowd").walk("returnButton +tileGrid");
    m_terminal->login("tile_TRANSFER_CTRL", "1001", "1001").walk("-loginDlg +transferCardsDlg");
    typed("cardButton", "8030").walk("+card_8030 confirmButton -transferCardsDlg +cardFact_0");
    m_terminal->picture("transfer-crowd").walk("returnButton +tileGrid");
    WALKED(*m_terminal);
    m_terminal->house().reset();
}

QTEST_MAIN(tst_counters)
#include "tst_counters.moc"
