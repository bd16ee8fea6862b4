// The guests' counters by cards and taps: self entry, buffet, transfer.

#include "Terminal.h"

#include "common/GlobalConfig.h"

#include <QJsonArray>
#include <QQuickItem>
#include <QtTest>

#include <memory>

namespace {

// Serials of hand cards in the house; hand cards are read on the staff reader here, which keeps eight digits.
const char free8052[] = "69264670";

} // namespace

class tst_counters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_terminal.reset(); }
    void selfEntry();
    void buffet();
    void transfer();

private:
    Terminal& answered(const QString& word)
    {
        return m_terminal->walk("+counterAnswer ?answerWord.text=" + word);
    }

    std::unique_ptr<Terminal> m_terminal;
};

void tst_counters::initTestCase()
{
    m_terminal.reset(new Terminal);
    QVERIFY(m_terminal->isUp());
}

void tst_counters::selfEntry()
{
    m_terminal->login("tile_SELF_ORDER", "1001", "1001").walk("-loginDlg +Module7 +cardType_0");
    m_terminal->walk("?counterTitle.text=自助水果").picture("self-waits");
    m_terminal->walk("counterButton +numKeyDlg #8001 confirmButton -numKeyDlg");
    answered("已录入").walk("+entry_0").picture("self-taken");
    // The next card isn't held up by that answer. A question tells of the entry before.
    m_terminal->walk("counterButton #8001 confirmButton +msgConfirmDlg").picture("self-question");
    m_terminal->walk("cancelButton -msgConfirmDlg");
    answered("已录入过").picture("self-again");
    m_terminal->walk("@" + QString(free8052));
    answered("未录入").picture("self-refused");
    m_terminal->walk("-counterAnswer returnButton +tileGrid");
    WALKED(*m_terminal);
    QCOMPARE(m_terminal->house().executed("/baa01/selfInput"), 1);
    for (const QString& message : m_terminal->takeMessages())
        QVERIFY2(!message.startsWith("page|"), qPrintable(message));
}

void tst_counters::buffet()
{
    const auto serve = [this](const QString& meal, int seconds) {
        m_terminal->house().order("meal", {{"meal", meal}, {"seconds", seconds}});
    };
    serve("晚餐", 3600);
    m_terminal->login("tile_ZZC_CTRL", "1001", "1001").walk("-loginDlg +Module8 ?counterTitle.text=餐次:");
    m_terminal->picture("buffet-waits");
    WALKED(*m_terminal);
}

void tst_counters::transfer() {}

QTEST_MAIN(tst_counters)
#include "tst_counters.moc"
