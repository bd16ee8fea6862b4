// The roads through login, lock, supervisor and lines, as a person takes them.

#include "Terminal.h"

#include "app/MainClass.h"
#include "common/DlgManager.h"
#include "common/GlobalConfig.h"
#include "services/Baa00Service.h"
#include "services/Reply.h"

#include <QJsonArray>
#include <QQuickItem>
#include <QSignalSpy>
#include <QtTest>

#include <memory>

namespace {

const QString keepLogin = QStringLiteral("/baa00/keepLogin");

GlobalConfig* config() { return GlobalConfig::getInstance(); }

} // namespace

class tst_shell : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_terminal.reset(); }
    void init();

    void loginByNumber();
    void loginByCard();
    void refusedLogins_data();
    void refusedLogins();
    void cancelledLogin();
    void emptyLines();
    void letterKeys();
    void everyTile_data();
    void everyTile();
    void helperCredentials();
    void lockAndUnlock();
    void leavingALockedModule();
    void keepAliveFollowsTheModule();
    void supervisorByNumber();
    void supervisorByCardAfterARefusal();
    void supervisorCancelled();
    void confirmation();
    void lineDialog();

private:
    void leaveModule();
    Terminal& callRefusedToFrontDesk(Reply<GetAuthInfoByCode>& reply, int refusals);

    std::unique_ptr<Terminal> m_terminal;
};

void tst_shell::initTestCase()
{
    m_terminal.reset(new Terminal);
    QVERIFY(m_terminal->isUp());
}

void tst_shell::init()
{
    m_terminal->house().reset();
    m_terminal->takeMessages();
    config()->setIsCurrentModeLocked(false);
    config()->setCurrentMod({});
}

void tst_shell::leaveModule()
{
    QCOMPARE(m_terminal->tap("returnButton").seeNot("returnButton").run(), QString());
}

/// Logs the front desk in and makes a call that the back end refuses it, so often; the road goes on in the
/// dialog that asks for a supervisor.
Terminal& tst_shell::callRefusedToFrontDesk(Reply<GetAuthInfoByCode>& reply, int refusals)
{
    m_terminal->house().answer(keepLogin, QJsonObject{{"code", "AUTH_ERR_0002"}, {"msg", "需要授权"}},
                               refusals);
    return m_terminal->login("tile_ROOMINFO_CTRL", "1101", "1101")
        .see("Module1")
        .act([&reply] {
            QTimer::singleShot(0, qApp, [&reply] { reply = held(Baa00Service::getInstance()->keepLogin()); });
        })
        .see("authDlg");
}

void tst_shell::loginByNumber()
{
    m_terminal->see("tile_ROOMINFO_CTRL").picture("main");
    m_terminal->tap("tile_ROOMINFO_CTRL")
        .see("loginDlg")
        .picture("login")
        .tap("key_A~Z")
        .picture("login-letters")
        .tap("key_123");
    m_terminal->keys("1101")
        .tap("confirmButton")
        .keys("11")
        .picture("login-password")
        .keys("01")
        .tap("confirmButton");
    QCOMPARE(m_terminal->see("Module1").picture("module").run(), QString());
    QCOMPARE(m_terminal->property("operatorText", "text").toString(), QStringLiteral("陈晓琳[1101]"));
    QCOMPARE(config()->currentMod(), QStringLiteral("ROOMINFO_CTRL"));
    QVERIFY(config()->isHaveAuth(QStringLiteral("0101")));
    QVERIFY(!config()->workAreaList()->isEmpty());
    QVERIFY(!m_terminal->item("closeButton"));
    const QJsonObject sent =
        m_terminal->house().requests("/baa00/loginMod").last().toObject().value("json").toObject();
    QCOMPARE(sent.value("workNo").toString(), QStringLiteral("1101"));
    QCOMPARE(sent.value("pwd").toString(), QStringLiteral("1101"));
    QCOMPARE(sent.value("modCode").toString(), QStringLiteral("ROOMINFO_CTRL"));
    QVERIFY(!sent.contains("cardUid") && !sent.contains("type"));
    leaveModule();
    QVERIFY(m_terminal->item("closeButton"));
}

void tst_shell::loginByCard()
{
    // In the password step, with a number typed before that must not count.
    QCOMPARE(m_terminal->tap("tile_CONSUME_CTRL")
                 .see("loginDlg")
                 .keys("999")
                 .tap("confirmButton")
                 .keys("12")
                 .presentCard("73942863")
                 .see("Module2")
                 .run(),
             QString());
    QCOMPARE(config()->userInfo()->code(), QStringLiteral("1101"));
    const QJsonObject sent = m_terminal->house().lastRequest("/baa00/loginMod").value("json").toObject();
    QCOMPARE(sent.value("cardUid").toString(), QStringLiteral("73942863"));
    QVERIFY(!sent.contains("workNo") && !sent.contains("pwd"));
    leaveModule();

    // With no dialog open nobody listens: the card is gone.
    m_terminal->house().reset();
    QCOMPARE(m_terminal->presentCard("94780011").run(), QString());
    QTest::qWait(200);
    QCOMPARE(m_terminal->house().seen("/baa00/loginMod"), 0);
    QVERIFY(!m_terminal->item("loginDlg"));
}

void tst_shell::refusedLogins_data()
{
    QTest::addColumn<QString>("tile");
    QTest::addColumn<QString>("number");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("message"); // its start
    QTest::newRow("wrong password") << "tile_ROOMINFO_CTRL"
                                    << "1101"
                                    << "0000"
                                    << "error|";
    QTest::newRow("unknown number") << "tile_ROOMINFO_CTRL"
                                    << "7777"
                                    << "7777"
                                    << "error|";
    QTest::newRow("no right") << "tile_ROOMINFO_CTRL"
                              << "901"
                              << "901"
                              << "error|无当前模块权限";
    QTest::newRow("no right to transfer") << "tile_TRANSFER_CTRL"
                                          << "901"
                                          << "901"
                                          << "error|无当前模块权限";
}

void tst_shell::refusedLogins()
{
    QFETCH(QString, tile);
    QFETCH(QString, number);
    QFETCH(QString, password);
    QFETCH(QString, message);
    QCOMPARE(m_terminal->login(tile, number, password).seeNot("loginDlg").run(), QString());
    const QStringList messages = m_terminal->takeMessages();
    QCOMPARE(messages.size(), 1);
    QVERIFY2(messages.first().startsWith(message), qPrintable(messages.first()));
    QVERIFY(messages.first().size() > QStringLiteral("error|").size());
    QVERIFY(m_terminal->item("closeButton"));
    QCOMPARE(config()->currentMod(), QString());
}

void tst_shell::cancelledLogin()
{
    QCOMPARE(m_terminal->tap("tile_SELF_ORDER")
                 .see("loginDlg")
                 .keys("1")
                 .tap("cancelButton")
                 .seeNot("loginDlg")
                 .run(),
             QString());
    QCOMPARE(m_terminal->house().seen("/baa00/loginMod"), 0);
    QCOMPARE(config()->currentMod(), QString());
    QVERIFY(m_terminal->takeMessages().isEmpty());
}

void tst_shell::emptyLines()
{
    const QString empty = QStringLiteral("error|用户名或密码不能为空");
    QCOMPARE(m_terminal->tap("tile_ZZC_CTRL")
                 .see("loginDlg")
                 .tap("confirmButton")
                 .until("the first message", [&] { return m_terminal->takeMessages() == QStringList{empty}; })
                 .keys("12")
                 .tap("key_<")
                 .until("one digit left", [&] { return m_terminal->property("inputLine", "text") == "1"; })
                 .tap("clearMark")
                 .tap("key_<")
                 .keys("1001")
                 .tap("confirmButton")
                 .tap("confirmButton")
                 .until("the second message", [&] { return m_terminal->takeMessages() == QStringList{empty}; })
                 .keys("1001")
                 .tap("confirmButton")
                 .see("Module8")
                 .run(),
             QString());
    leaveModule();
}

void tst_shell::letterKeys()
{
    QString typed;
    QCOMPARE(m_terminal->tap("tile_ZZC_CTRL")
                 .see("loginDlg")
                 .keys("7")
                 .tap("key_A~Z")
                 .keys("ab")
                 .tap("key_^")
                 .keys("cz")
                 .tap("key_<")
                 .tap("key_123")
                 .keys("0")
                 .act([&] { typed = m_terminal->property("inputLine", "text").toString(); })
                 .tap("cancelButton")
                 .seeNot("loginDlg")
                 .run(),
             QString());
    QCOMPARE(typed, QStringLiteral("7ABc0"));
}

void tst_shell::everyTile_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("word");
    QTest::newRow("consume") << "tile_CONSUME_CTRL"
                             << "Module2"
                             << "CONSUME_CTRL";
    QTest::newRow("rooms") << "tile_ROOMINFO_CTRL"
                           << "Module1"
                           << "ROOMINFO_CTRL";
    QTest::newRow("clock") << "tile_STAFF_QTZ_CTRL"
                           << "Module3"
                           << "STAFF_QTZ_CTRL";
    QTest::newRow("helper") << "tile_HELP_BASH_WAIT"
                            << "Module4"
                            << "HELP_BASH_WAIT";
    QTest::newRow("settings") << "bottom_SYS_CTRL"
                              << "Module5"
                              << "SYS_CTRL";
    QTest::newRow("timer") << "tile_NO_ITEM_SERVER"
                           << "Module6"
                           << "NO_ITEM_SERVER";
    QTest::newRow("self") << "tile_SELF_ORDER"
                          << "Module7"
                          << "SELF_ORDER";
    QTest::newRow("meals") << "tile_ZZC_CTRL"
                           << "Module8"
                           << "ZZC_CTRL";
    QTest::newRow("transfer") << "tile_TRANSFER_CTRL"
                              << "Module9"
                              << "PAY_CTRL";
    QTest::newRow("today") << "bottom_JRZB"
                           << ""
                           << "CONSUME_CTRL";
    QTest::newRow("performance") << "bottom_YJ"
                                 << ""
                                 << "CONSUME_CTRL";
}

void tst_shell::everyTile()
{
    QFETCH(QString, button);
    QFETCH(QString, page);
    QFETCH(QString, word);
    Terminal& road = m_terminal->login(button, "1001", "1001").seeNot("loginDlg");
    if (!page.isEmpty())
        road.see(page);
    if (page == QLatin1String("Module2"))
        road.see("numKeyDlg").tap("cancelButton").seeNot("numKeyDlg"); // asks for the guest at once
    const QString report = button == QLatin1String("bottom_YJ") ? "sellSumDlg" : "todaySumDlg";
    if (page.isEmpty())
        road.see(report).tap("backButton").seeNot(report);
    QCOMPARE(road.run(), QString());
    QCOMPARE(config()->currentMod(), word);
    const QJsonObject sent =
        m_terminal->house().requests("/baa00/loginMod").last().toObject().value("json").toObject();
    QCOMPARE(sent.value("modCode").toString(), word);
    if (page.isEmpty())
        QVERIFY(m_terminal->item("closeButton"));
    else
        leaveModule();
}

void tst_shell::helperCredentials()
{
    config()->setLoginUser(QStringLiteral("before"));
    QCOMPARE(m_terminal->login("tile_ROOMINFO_CTRL", "1001", "1001").see("Module1").run(), QString());
    QCOMPARE(config()->loginUser(), QStringLiteral("before"));
    leaveModule();
    QCOMPARE(m_terminal->login("tile_HELP_BASH_WAIT", "601", "601").see("Module4").run(), QString());
    QCOMPARE(config()->loginUser() + config()->loginPwd() + config()->loginRfid(), QStringLiteral("601601"));
    leaveModule();
}

void tst_shell::lockAndUnlock()
{
    QCOMPARE(m_terminal->login("tile_ROOMINFO_CTRL", "1101", "1101").see("Module1").tap("lockButton").run(),
             QString());
    QTRY_VERIFY(config()->isCurrentModeLocked());
    m_terminal->picture("module-locked");
    QCOMPARE(m_terminal->tap("lockButton").see("loginDlg").tap("cancelButton").seeNot("loginDlg").run(),
             QString());
    QVERIFY(config()->isCurrentModeLocked());
    QCOMPARE(m_terminal->tap("lockButton")
                 .see("loginDlg")
                 .presentCard("94780011")
                 .seeNot("loginDlg")
                 .until("unlocked", [] { return !config()->isCurrentModeLocked(); })
                 .run(),
             QString());
    QCOMPARE(config()->userInfo()->code(), QStringLiteral("1001")); // who unlocks is the operator
    QVERIFY(m_terminal->item("Module1"));
    leaveModule();
}

void tst_shell::leavingALockedModule()
{
    QCOMPARE(m_terminal->login("tile_TRANSFER_CTRL", "1001", "1001").see("Module9").tap("lockButton").run(),
             QString());
    QTRY_VERIFY(config()->isCurrentModeLocked());
    QCOMPARE(m_terminal->tap("returnButton").see("loginDlg").tap("cancelButton").seeNot("loginDlg").run(),
             QString());
    QVERIFY(m_terminal->item("Module9"));
    m_terminal->house().reset();
    QCOMPARE(m_terminal->login("returnButton", "1001", "1001").seeNot("Module9").run(), QString());
    const QJsonObject sent =
        m_terminal->house().requests("/baa00/loginMod").last().toObject().value("json").toObject();
    QCOMPARE(sent.value("modCode").toString(), QStringLiteral("PAY_CTRL"));
    QVERIFY(config()->isCurrentModeLocked()); // only the lock's own icon takes it off
}

void tst_shell::keepAliveFollowsTheModule()
{
    auto* timer = MainClass::getInstance()->findChild<QTimer*>(QStringLiteral("keepLogin"));
    QVERIFY(!timer->isActive());
    QCOMPARE(m_terminal->login("tile_ROOMINFO_CTRL", "1001", "1001").see("Module1").run(), QString());
    QVERIFY(timer->isActive());
    QCOMPARE(timer->interval(), 7125000);
    m_terminal->house().reset();
    timer->setInterval(20);
    QTRY_VERIFY(m_terminal->house().executed(keepLogin) >= 2);
    leaveModule();
    QVERIFY(!timer->isActive());
}

void tst_shell::supervisorByNumber()
{
    Reply<GetAuthInfoByCode> reply;
    QCOMPARE(callRefusedToFrontDesk(reply, 1)
                 .picture("supervisor")
                 .keys("1001")
                 .tap("confirmButton")
                 .keys("1001")
                 .tap("confirmButton")
                 .until("the reply", [&] { return reply != nullptr; })
                 .run(),
             QString());
    QCOMPARE(reply->code(), QStringLiteral("200"));
    QCOMPARE(reply->authNo(), QStringLiteral("1001"));
    QCOMPARE(reply->authName(), QStringLiteral("周国栋"));
    QCOMPARE(config()->userInfo()->code(), QStringLiteral("1101"));
    const QJsonObject sent =
        m_terminal->house().requests("/baa00/loginMod").last().toObject().value("json").toObject();
    QCOMPARE(sent.value("type").toInt(), 1);
    QCOMPARE(sent.value("modCode").toString(), QStringLiteral("ROOMINFO_CTRL"));
    leaveModule();
}

void tst_shell::supervisorByCardAfterARefusal()
{
    Reply<GetAuthInfoByCode> reply;
    QCOMPARE(callRefusedToFrontDesk(reply, 1)
                 .keys("1001")
                 .tap("confirmButton")
                 .keys("0")
                 .tap("confirmButton")
                 .until("the refusal", [&] { return m_terminal->takeMessages().size() == 1; })
                 .see("authDlg")
                 .presentCard("76577179")
                 .until("the reply", [&] { return reply != nullptr; })
                 .run(),
             QString());
    QCOMPARE(reply->code(), QStringLiteral("200"));
    QCOMPARE(reply->authNo(), QStringLiteral("1002"));
    leaveModule();
}

void tst_shell::supervisorCancelled()
{
    Reply<GetAuthInfoByCode> reply;
    QCOMPARE(callRefusedToFrontDesk(reply, -1)
                 .tap("cancelButton")
                 .until("the reply", [&] { return reply != nullptr; })
                 .run(),
             QString());
    QCOMPARE(reply->code(), QStringLiteral("AUTH_ERR_0002"));
    QCOMPARE(reply->msg(), QStringLiteral("需要授权"));
    leaveModule();
}

void tst_shell::confirmation()
{
    for (const bool isYes : {true, false}) {
        int answer = -1;
        QCOMPARE(m_terminal
                     ->act([&] {
                         QTimer::singleShot(0, qApp, [&] {
                             answer = MainClass::getInstance()->showMsgConfirm(QStringLiteral("提示"),
                                                                               QStringLiteral("<b>确定</b>吗"));
                         });
                     })
                     .see("msgConfirmDlg")
                     .picture("confirmation")
                     .tap(isYes ? "confirmButton" : "cancelButton")
                     .until("the answer", [&] { return answer != -1; })
                     .run(),
                 QString());
        QCOMPARE(answer, isYes ? 1 : 0);
    }
}

void tst_shell::lineDialog()
{
    // On loopback a line answers in less than a millisecond, which counts as no answer.
    m_terminal->house().fault("/line/check", "delay", 15);
    const QString working = QStringLiteral("line_电信平台_0");
    const QString dead = QStringLiteral("line_电信平台_1");
    const QString other = QStringLiteral("line_联通平台_0");
    QCOMPARE(m_terminal->tap("vendorBlock")
                 .see("cloudDlg")
                 .see(working)
                 .tap("saveButton") // nothing is chosen yet
                 .until("the message",
                        [&] { return m_terminal->takeMessages() == QStringList{"error|请选择切换线路"}; })
                 .tap(dead) // can't be chosen
                 .tap(working)
                 .until("chosen", [&] { return m_terminal->property(working, "isChosen").toBool(); })
                 .tap(other)
                 .until("chosen in its place",
                        [&] {
                            return m_terminal->property(other, "isChosen").toBool() &&
                                   !m_terminal->property(working, "isChosen").toBool();
                        })
                 .picture("lines")
                 .tap("saveButton")
                 .seeNot("cloudDlg")
                 .run(),
             QString());
    const QString chosen = GlobalConfig::getRegValue(QStringLiteral("cloudUrl"));
    QVERIFY(chosen.startsWith(QStringLiteral("http://localhost:")));
    QCOMPARE(config()->apiUrl(), chosen);

    // Opened again and left: the default line is in use, the stored choice stays and was marked.
    const auto result = [&](const char* text) { return m_terminal->property(text, "text").toString(); };
    QCOMPARE(m_terminal->tap("vendorBlock")
                 .see(other)
                 .until("measured", [&] { return m_terminal->house().seen("/line/check") >= 4; })
                 .act([&] { m_terminal->house().fault("/line/check", "delay", 600); })
                 .tap("checkButton")
                 .until("the slow line is red",
                        [&] {
                            return result("result_电信平台_0").size() == 5 &&
                                   result("result_电信平台_0").endsWith("ms") &&
                                   m_terminal->property("mark_电信平台_0", "color").value<QColor>() ==
                                       QColor("#EA332A");
                        })
                 .until("the dead line is offline", [&] { return result("result_电信平台_1") == "离线"; })
                 .until("the other platform is measured too",
                        [&] { return result("result_联通平台_0").size() == 5; })
                 .act([&] { m_terminal->house().reset(); })
                 .tap("backButton")
                 .seeNot("cloudDlg")
                 .run(),
             QString());
    QCOMPARE(config()->apiUrl(), m_terminal->house().url());
    QCOMPARE(GlobalConfig::getRegValue(QStringLiteral("cloudUrl")), chosen);
}

QTEST_MAIN(tst_shell)
#include "tst_shell.moc"
