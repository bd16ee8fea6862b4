// The input dialogs, opened as a page opens them and driven by taps.

#include "Terminal.h"

#include "app/MainClass.h"
#include "common/BaseObject.h"
#include "common/GlobalConfig.h"
#include "common/MyMessage.h"

#include <QQuickItem>
#include <QStandardItemModel>
#include <QtTest>

#include <memory>

namespace {

/// A page's view-model that listens below whatever dialog is open.
class Listener : public BaseObject
{
public:
    QStringList cards;

    Listener() { MainClass::getInstance()->startReadStaff(this); }
    ~Listener() override { MainClass::getInstance()->stopReadStaff(this); }
    void readingExec(QString cardId) override { cards.append(cardId); }
};

} // namespace

class tst_dialogs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_terminal.reset(new Terminal);
        QVERIFY(m_terminal->isUp());
    }
    void cleanupTestCase() { m_terminal.reset(); }
    void init() { m_terminal->takeMessages(); }

    void unknownDialog();
    void numKey_data();
    void numKey();
    void numKeyByCard();
    void numKeyWithoutReader();
    void num_data();
    void num();
    void inputOrRead();
    void inputOrReadByCard();
    void dateTime_data();
    void dateTime();
    void dayLimits_data();
    void dayLimits();
    void remark_data();
    void remark();
    void workArea();
    void confirm();
    void nestedDialogs();
    void cardGoesToTheTop();
    void messageWindow();

private:
    std::unique_ptr<Terminal> m_terminal;
};

void tst_dialogs::unknownDialog()
{
    QCOMPARE(m_terminal->open("noSuchDlg").returned().open("testDialog").returned().run(), QString());
    QVERIFY(m_terminal->result().isEmpty());
}

void tst_dialogs::numKey_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("dlgResult");
    QTest::addColumn<QString>("inputText");
    QTest::newRow("confirmed") << "1023"
                               << "confirmButton" << true << "1023";
    QTest::newRow("cancelled") << "1023"
                               << "cancelButton" << false << "";
}

void tst_dialogs::numKey()
{
    QFETCH(QString, typed);
    QFETCH(QString, button);
    QFETCH(bool, dlgResult);
    QFETCH(QString, inputText);
    QCOMPARE(m_terminal->open("numKeyDlg", {{"strText", "请输入手牌号"}})
                 .see("numKeyDlg")
                 .tap("confirmButton")
                 .until("the message",
                        [&] { return m_terminal->takeMessages() == QStringList{"error|输入内容不能为空"}; })
                 .picture("message-error")
                 .keys(typed)
                 .picture("number-or-card")
                 .tap(button)
                 .returned()
                 .run(),
             QString());
    const QVariantMap result = m_terminal->result();
    QCOMPARE(result.value("dlgResult").toBool(), dlgResult);
    QCOMPARE(result.value("inputText").toString(), inputText);
    QCOMPARE(result.value("isRead").toBool(), false);
    QVERIFY(!m_terminal->item("numKeyDlg"));
}

void tst_dialogs::numKeyByCard()
{
    // Typed text doesn't count; readType 1 without a hand card reader takes the staff reader.
    for (const int readType : {0, 1}) {
        QCOMPARE(m_terminal->open("numKeyDlg", {{"isReadOk", true}, {"readType", readType}})
                     .see("numKeyDlg")
                     .keys("12")
                     .presentCard("123")
                     .returned()
                     .run(),
                 QString());
        const QVariantMap result = m_terminal->result();
        QVERIFY(result.value("dlgResult").toBool() && result.value("isRead").toBool());
        QCOMPARE(result.value("cardUid").toString(), QStringLiteral("00000123"));
        QCOMPARE(result.value("inputText").toString(), QString());
    }
}

void tst_dialogs::numKeyWithoutReader()
{
    Listener below;
    QCOMPARE(m_terminal->open("numKeyDlg", {{"isReadOk", false}, {"readType", 1}})
                 .see("numKeyDlg")
                 .presentCard("55555555")
                 .until("the page below has it", [&] { return below.cards == QStringList{"55555555"}; })
                 .see("numKeyDlg")
                 .tap("cancelButton")
                 .returned()
                 .run(),
             QString());
    QVERIFY(!m_terminal->result().value("dlgResult").toBool());
}

void tst_dialogs::num_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("num");
    QTest::newRow("whole") << "12"
                           << "12";
    QTest::newRow("zero") << "0"
                          << "0";
    QTest::newRow("fraction") << "0.5"
                              << "0.5";
    QTest::newRow("second point") << "1.2.3"
                                  << "1.23";
    QTest::newRow("first point") << ".7"
                                 << "7";
    QTest::newRow("taken back") << "12<<3"
                                << "3";
}

void tst_dialogs::num()
{
    QFETCH(QString, typed);
    QFETCH(QString, num);
    QCOMPARE(
        m_terminal->open("numDlg")
            .see("numDlg")
            .tap("confirmButton")
            .until("the message", [&] { return m_terminal->takeMessages() == QStringList{"error|不能为空"}; })
            .keys(typed)
            .picture("quantity")
            .tap("confirmButton")
            .returned()
            .run(),
        QString());
    QCOMPARE(m_terminal->result().value("num").toString(), num);
    QVERIFY(m_terminal->result().value("dlgResult").toBool());
}

void tst_dialogs::inputOrRead()
{
    QString prompts;
    const auto notePrompt = [&] {
        prompts += m_terminal->property("inputLine", "placeholderText").toString() + ";";
    };
    QCOMPARE(m_terminal->open("inputOrReadDlg")
                 .see("inputOrReadDlg")
                 .act(notePrompt)
                 .picture("identity")
                 .tap("confirmButton")
                 .until("the message",
                        [&] { return m_terminal->takeMessages() == QStringList{"error|用户名或密码不能为空"}; })
                 .keys("601")
                 .tap("confirmButton")
                 .act(notePrompt)
                 .tap("confirmButton")
                 .until("the message",
                        [&] { return m_terminal->takeMessages() == QStringList{"error|用户名或密码不能为空"}; })
                 .tap("key_A~Z")
                 .keys("a")
                 .tap("confirmButton")
                 .returned()
                 .run(),
             QString());
    QCOMPARE(prompts, QStringLiteral("请刷入或输入员工卡;请输入密码;"));
    const QVariantMap result = m_terminal->result();
    QVERIFY(result.value("dlgResult").toBool() && !result.value("isRead").toBool());
    QCOMPARE(result.value("user").toString() + "/" + result.value("pwd").toString(), QStringLiteral("601/A"));
}

void tst_dialogs::inputOrReadByCard()
{
    QCOMPARE(m_terminal->open("inputOrReadDlg")
                 .see("inputOrReadDlg")
                 .keys("601")
                 .tap("confirmButton")
                 .keys("9")
                 .presentCard("31927757")
                 .returned()
                 .open("inputOrReadDlg")
                 .see("inputOrReadDlg")
                 .tap("cancelButton")
                 .returned()
                 .run(),
             QString());
    QVERIFY(!m_terminal->result().value("dlgResult").toBool());

    QCOMPARE(m_terminal->open("inputOrReadDlg")
                 .see("inputOrReadDlg")
                 .keys("601")
                 .tap("confirmButton")
                 .keys("9")
                 .presentCard("31927757")
                 .returned()
                 .run(),
             QString());
    const QVariantMap result = m_terminal->result();
    QVERIFY(result.value("dlgResult").toBool() && result.value("isRead").toBool());
    QCOMPARE(result.value("cardUid").toString(), QStringLiteral("31927757"));
    QCOMPARE(result.value("user").toString() + "/" + result.value("pwd").toString(), QStringLiteral("601/"));
}

void tst_dialogs::dateTime_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QStringList>("wheels");
    QTest::newRow("both") << "DateTime" << QStringList{"year", "month", "day", "hour", "minute", "second"};
    QTest::newRow("date") << "Date" << QStringList{"year", "month", "day"};
    QTest::newRow("time") << "Time" << QStringList{"hour", "minute", "second"};
}

void tst_dialogs::dateTime()
{
    QFETCH(QString, type);
    QFETCH(QStringList, wheels);
    QStringList seen;
    QCOMPARE(m_terminal
                 ->open("dateTimeDlg",
                        {{"text", "开始时间"}, {"type", type}, {"defaultTime", "2026-01-31 06:07:08"}})
                 .see("confirmButton")
                 .picture("date-time-" + type)
                 .act([&] {
                     for (const char* wheel : {"year", "month", "day", "hour", "minute", "second"}) {
                         if (m_terminal->item(wheel))
                             seen.append(wheel);
                     }
                 })
                 .tap("confirmButton")
                 .returned()
                 .run(),
             QString());
    QCOMPARE(seen, wheels);
    QVERIFY(m_terminal->result().value("dlgResult").toBool());
    QCOMPARE(m_terminal->result().value("date").toDateTime(), QDateTime(QDate(2026, 1, 31), QTime(6, 7, 8)));

    QCOMPARE(m_terminal->open("dateTimeDlg").see("cancelButton").tap("cancelButton").returned().run(),
             QString());
    QVERIFY(!m_terminal->result().value("dlgResult").toBool());
}

void tst_dialogs::dayLimits_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("wheel");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("max");
    QTest::addColumn<int>("day"); // 0: any that exists
    QTest::newRow("March to February") << "2026-03-31 00:00:00"
                                       << "month" << 2 << 28 << 0;
    QTest::newRow("the day stays") << "2026-03-15 00:00:00"
                                   << "month" << 2 << 28 << 15;
    QTest::newRow("leap year") << "2024-03-29 00:00:00"
                               << "month" << 2 << 29 << 29;
    QTest::newRow("a year later") << "2024-02-29 00:00:00"
                                  << "year" << 2025 << 28 << 0;
    QTest::newRow("2100 as well") << "2099-02-28 00:00:00"
                                  << "year" << 2100 << 29 << 28;
    QTest::newRow("thirty days") << "2026-05-31 00:00:00"
                                 << "month" << 6 << 30 << 0;
    QTest::newRow("back to thirty-one") << "2026-04-30 00:00:00"
                                        << "month" << 5 << 31 << 30;
}

void tst_dialogs::dayLimits()
{
    QFETCH(QString, from);
    QFETCH(QString, wheel);
    QFETCH(int, value);
    QFETCH(int, max);
    QFETCH(int, day);
    int shownMax = 0;
    int shownDay = 0;
    QCOMPARE(m_terminal->open("dateTimeDlg", {{"defaultTime", from}})
                 .see(wheel)
                 .act([&] { m_terminal->item(wheel)->setProperty("current", value); })
                 .until("the days follow", [&] { return m_terminal->property("day", "max").toInt() == max; })
                 .act([&] {
                     shownMax = m_terminal->property("day", "max").toInt();
                     shownDay = m_terminal->property("day", "current").toInt();
                 })
                 .tap("confirmButton")
                 .returned()
                 .run(),
             QString());
    QCOMPARE(shownMax, max);
    QVERIFY(shownDay >= 1 && shownDay <= max);
    if (day)
        QCOMPARE(shownDay, day);
    QCOMPARE(m_terminal->result().value("date").toDateTime().date().day(), shownDay);
}

void tst_dialogs::remark_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("text") << "客人要热水\n少冰";
    QTest::newRow("empty") << "";
}

void tst_dialogs::remark()
{
    QFETCH(QString, text);
    QCOMPARE(m_terminal->open("remarkDlg", {{"remark", "旧的"}})
                 .see("remarkArea")
                 .until("the old remark", [&] { return m_terminal->property("remarkArea", "text") == "旧的"; })
                 .act([&] { m_terminal->item("remarkArea")->setProperty("text", text); })
                 .picture("remark")
                 .tap("confirmButton")
                 .returned()
                 .run(),
             QString());
    QVERIFY(m_terminal->result().value("dlgResult").toBool());
    QCOMPARE(m_terminal->result().value("remark").toString(), text);

    QCOMPARE(m_terminal->open("remarkDlg", {{"remark", "旧的"}})
                 .see("remarkArea")
                 .tap("backButton")
                 .returned()
                 .run(),
             QString());
    QVERIFY(!m_terminal->result().value("dlgResult").toBool());
}

void tst_dialogs::workArea()
{
    QStandardItemModel areas;
    areas.setItemRoleNames({{Qt::UserRole + 1, "areaId"}, {Qt::UserRole + 2, "areaName"}});
    for (const char* id : {"", "7"}) {
        auto* area = new QStandardItem;
        area->setData(QString::fromLatin1(id), Qt::UserRole + 1);
        area->setData(QStringLiteral("区域%1").arg(QLatin1String(id)), Qt::UserRole + 2);
        areas.appendRow(area);
    }
    const QVariantMap list{{"areaList", QVariant::fromValue<QObject*>(&areas)}};
    QCOMPARE(m_terminal->open("workAreaDlg", list)
                 .see("area_7")
                 .picture("work-areas")
                 .tap("area_7")
                 .returned()
                 .run(),
             QString());
    QVERIFY(m_terminal->result().value("dlgResult").toBool());
    QCOMPARE(m_terminal->result().value("areaId").toString() +
                 m_terminal->result().value("areaName").toString(),
             QStringLiteral("7区域7"));
    QCOMPARE(m_terminal->open("workAreaDlg", list).see("area_").tap("area_").returned().run(), QString());
    QVERIFY(m_terminal->result().value("dlgResult").toBool()); // no area is a choice
    QCOMPARE(m_terminal->open("workAreaDlg", {}).see("workAreaDlg").tap("closeButton").returned().run(),
             QString());
    QVERIFY(!m_terminal->result().value("dlgResult").toBool());
}

void tst_dialogs::confirm()
{
    // Its result is a plain bool, which a map doesn't hold: what counts is that each button closes it.
    for (const char* button : {"confirmButton", "cancelButton"}) {
        QCOMPARE(m_terminal->open("confirmDlg", {{"titleText", "提示"}, {"contentText", "确定退单吗"}})
                     .see("confirmDlg")
                     .picture("question")
                     .tap(button)
                     .returned()
                     .run(),
                 QString());
        QVERIFY(!m_terminal->item("confirmDlg"));
    }
}

void tst_dialogs::nestedDialogs()
{
    // A question comes up over a dialog; the dialog below ends after it, whatever order the user wants.
    QStringList ends;
    QCOMPARE(m_terminal->open("numKeyDlg")
                 .see("numKeyDlg")
                 .act([&] {
                     QTimer::singleShot(0, qApp, [&] {
                         MainClass::getInstance()->showMsgConfirm(QStringLiteral("提示"),
                                                                  QStringLiteral("还有一件事"));
                         ends.append(QStringLiteral("question"));
                     });
                 })
                 .see("msgConfirmDlg")
                 .tap("confirmButton")
                 .seeNot("msgConfirmDlg")
                 .until("the question returned", [&] { return ends.size() == 1; })
                 .see("numKeyDlg")
                 .keys("5")
                 .tap("confirmButton")
                 .returned()
                 .run(),
             QString());
    QCOMPARE(m_terminal->result().value("inputText").toString(), QStringLiteral("5"));
}

void tst_dialogs::cardGoesToTheTop()
{
    Listener page;
    QCOMPARE(m_terminal->presentCard("11111111")
                 .until("the page has it", [&] { return page.cards.size() == 1; })
                 .open("inputOrReadDlg")
                 .see("inputOrReadDlg")
                 .presentCard("22222222")
                 .returned()
                 .presentCard("33333333")
                 .until("the page has it again", [&] { return page.cards.size() == 2; })
                 .run(),
             QString());
    QCOMPARE(page.cards, (QStringList{"11111111", "33333333"}));
    QCOMPARE(m_terminal->result().value("cardUid").toString(), QStringLiteral("22222222"));
}

void tst_dialogs::messageWindow()
{
    QWindow* window = nullptr;
    for (QWindow* candidate : QGuiApplication::topLevelWindows()) {
        if (candidate->objectName() == QLatin1String("messageWindow"))
            window = candidate;
    }
    QVERIFY(window);
    // Of a type without a time it stays until it is tapped.
    QTest::mouseClick(window, Qt::LeftButton, {}, {20, 20});
    Q_EMIT MyMessage::getInstance()->showMessageSignal(QStringLiteral("留着"), QStringLiteral("other"));
    QTRY_VERIFY(window->isVisible());
    QTest::qWait(200);
    QVERIFY(window->isVisible());
    QTest::mouseClick(window, Qt::LeftButton, {}, {20, 20});
    QTRY_VERIFY(!window->isVisible());

    // A newer text comes at once and doesn't restart the time of the older one.
    QElapsedTimer shown;
    shown.start();
    MyMessage::getInstance()->showOk(QStringLiteral("一"));
    QTRY_VERIFY(window->isVisible());
    QCOMPARE(window->property("text").toString(), QStringLiteral("一"));
    QTest::qWait(2000);
    MyMessage::getInstance()->showMessage(QStringLiteral("二"), 2);
    QCOMPARE(window->property("text").toString(), QStringLiteral("二"));
    QTRY_VERIFY(!window->isVisible());
    QVERIFY(shown.elapsed() >= 3000 && shown.elapsed() < 8000);

    // What was tapped away takes its time with it; what fails without a text has one all the same.
    MyMessage::getInstance()->showError(QString());
    QTRY_COMPARE(m_terminal->property("messageText", "text").toString(), QStringLiteral("请求失败"));
    QTest::mouseClick(window, Qt::LeftButton, {}, {20, 20});
    QTRY_VERIFY(!window->isVisible());
    MyMessage::getInstance()->showOk(QStringLiteral("三"));
    QTRY_VERIFY(window->isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(!window->isVisible(), 8000);
}

QTEST_MAIN(tst_dialogs)
#include "tst_dialogs.moc"
