// The roads through login, lock, supervisor and lines, as a person takes them.

#include "Terminal.h"

#include "app/MainClass.h"
#include "common/GlobalConfig.h"
#include "services/Baa00Service.h"
#include "services/Reply.h"

#include <QQuickItem>
#include <QQuickWindow>
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
    void cleanup();

    void oneThingAtATime_data();
    void oneThingAtATime();
    void brokerAway();
    void longName();
    void loginByNumber();
    void loginByCard();
    void loginsThatFail_data();
    void loginsThatFail();
    void everyTile_data();
    void everyTile();
    void helperCredentials();
    void lockAndUnlock();
    void leavingALockedModule();
    void keepAliveFollowsTheModule();
    void supervisor_data();
    void supervisor();
    void lineDialog();

private:
    QJsonObject lastLogin()
    {
        return m_terminal->house().requests("/baa00/loginMod").last().toObject().value("json").toObject();
    }
    Terminal& walk(const QString& road) { return m_terminal->walk(road); }
    Terminal& login(const QString& tile, const QString& number = "1001")
    {
        return m_terminal->login(tile, number, number);
    }

    std::unique_ptr<Terminal> m_terminal;
};

void tst_shell::initTestCase()
{
    // A start that fails can be left by touch, by the line dialog and by another try.
    m_terminal.reset(new Terminal([](HouseProcess& house) {
        house.fault(QStringLiteral("/baa00/getSysInitByAuthCode"), "refuse:E", 0, 1);
    }));
    WALKED(walk("+retryButton linesButton +cloudDlg backButton -cloudDlg +startingText retryButton +mainPage"));
    QVERIFY(m_terminal->isUp());
    m_terminal->takeMessages();
}

void tst_shell::oneThingAtATime_data()
{
    addRows(R"(
a tile bounces ; tile_ROOMINFO_CTRL tile_ROOMINFO_CTRL
two hands ; tile_ROOMINFO_CTRL tile_CONSUME_CTRL
tile and line block ; tile_ROOMINFO_CTRL vendorBlock
)");
}

/// One login, one page, and the way back leads out of it.
void tst_shell::oneThingAtATime()
{
    QFETCH(QStringList, row);
    WALKED(m_terminal->tapTogether(row.at(1).split(' '))
               .walk("+loginDlg ~300 #1101 confirmButton #1101 confirmButton +Module1 ~300"));
    QVERIFY(!m_terminal->item("loginDlg") && !m_terminal->item("cloudDlg"));
    QCOMPARE(m_terminal->house().seen("/baa00/loginMod"), 1);
    QCOMPARE(m_terminal->property("stackView", "depth").toInt(), 2);
    WALKED(m_terminal->tapTogether({"returnButton", "returnButton"}).walk("-returnButton +tile_CONSUME_CTRL"));
    QCOMPARE(m_terminal->property("stackView", "depth").toInt(), 1);
}

void tst_shell::brokerAway()
{
    for (const bool isAway : {false, true, false}) {
        MainClass::getInstance()->setIsBrokerAway(isAway);
        WALKED(walk(isAway ? "+awayMark" : "-awayMark"));
    }
}

void tst_shell::init()
{
    m_terminal->house().reset();
    config()->setIsCurrentModeLocked(false);
    config()->setCurrentMod({});
}

void tst_shell::cleanup()
{
    config()->setIsCurrentModeLocked(false);
    if (m_terminal->item("returnButton"))
        WALKED(walk("returnButton -returnButton +closeButton"));
    QCOMPARE(m_terminal->takeMessages(), QStringList());
}

/// What the back end calls the shop leaves room for the rest.
void tst_shell::longName()
{
    const QString before = config()->storeName();
    config()->setStoreName(QString(300, QChar(0x5E97)));
    WALKED(walk("?storeName.truncated=true"));
    const QQuickItem* name = m_terminal->item("storeName");
    QVERIFY(name->width() < name->window()->width() / 2);
    config()->setStoreName(before);
}

void tst_shell::loginByNumber()
{
    WALKED(walk("tile_ROOMINFO_CTRL +loginDlg #1101 confirmButton #11 ?inputLine.echoMode=2")
               .picture("login-password")
               .walk("#01 confirmButton +Module1 -closeButton"));
    QCOMPARE(m_terminal->text("operatorText"), QStringLiteral("陈晓琳[1101]"));
    QCOMPARE(config()->currentMod(), QStringLiteral("ROOMINFO_CTRL"));
    QVERIFY(config()->isHaveAuth(QStringLiteral("0101")));
    QVERIFY(!config()->workAreaList()->isEmpty());
    const QJsonObject sent = lastLogin();
    QCOMPARE(unlike(sent, R"({"workNo": "1101", "pwd": "1101"})"), QString());
    QVERIFY(!sent.contains("cardUid") && !sent.contains("type"));
}

void tst_shell::loginByCard()
{
    // In the password step, with a number typed before that must not count.
    WALKED(walk("tile_CONSUME_CTRL +loginDlg #999 confirmButton #12 @73942863 +Module2"));
    QCOMPARE(config()->userInfo()->code(), QStringLiteral("1101"));
    QCOMPARE(lastLogin().value("cardUid").toString(), QStringLiteral("73942863"));
    QVERIFY(!lastLogin().contains("workNo") && !lastLogin().contains("pwd"));
    cleanup();

    // With no dialog open nobody listens: the card is gone.
    m_terminal->house().reset();
    WALKED(walk("@94780011"));
    QTest::qWait(200);
    QCOMPARE(m_terminal->house().seen("/baa00/loginMod"), 0);
    QVERIFY(!m_terminal->item("loginDlg"));
}

void tst_shell::loginsThatFail_data()
{
    addRows(R"(
wrong password ; 1 ; tile_ROOMINFO_CTRL #1101 confirmButton #0000 confirmButton =error|工号或密码错误
no right ; 1 ; tile_TRANSFER_CTRL #901 confirmButton #901 confirmButton =error|无当前模块权限
called off ; 0 ; tile_SELF_ORDER #1 cancelButton
nothing typed ; 0 ; tile_ZZC_CTRL confirmButton =error|用户名或密码不能为空 #1001 confirmButton confirmButton
    =error|用户名或密码不能为空 cancelButton
)");
}

void tst_shell::loginsThatFail()
{
    QFETCH(QStringList, row);
    WALKED(walk(row.at(2) + " -loginDlg +closeButton"));
    QCOMPARE(QString::number(m_terminal->house().seen("/baa00/loginMod")), row.at(1));
    QCOMPARE(config()->currentMod(), QString());
}

void tst_shell::everyTile_data()
{
    // The last two open a dialog and no page; the clock is for technicians; till and transfer ask at once.
    addRows(R"(
tile_CONSUME_CTRL ; Module2 +numKeyDlg cancelButton -numKeyDlg ; CONSUME_CTRL
tile_ROOMINFO_CTRL ; Module1 ; ROOMINFO_CTRL
tile_STAFF_QTZ_CTRL ; Module3 =error|工号【1001】非[待钟/上钟]状态不允许操作 -Module3 ; STAFF_QTZ_CTRL
tile_HELP_BASH_WAIT ; Module4 ; HELP_BASH_WAIT
bottom_SYS_CTRL ; Module5 ; SYS_CTRL
tile_NO_ITEM_SERVER ; Module6 ; NO_ITEM_SERVER
tile_SELF_ORDER ; Module7 ; SELF_ORDER
tile_ZZC_CTRL ; Module8 ; ZZC_CTRL
tile_TRANSFER_CTRL ; Module9 +transferCardsDlg backButton -transferCardsDlg ; PAY_CTRL
bottom_JRZB ; todaySumDlg backButton -todaySumDlg +closeButton ; CONSUME_CTRL
bottom_YJ ; sellSumDlg backButton -sellSumDlg +closeButton ; CONSUME_CTRL
)");
}

void tst_shell::everyTile()
{
    QFETCH(QStringList, row);
    WALKED(login(row.at(0)).walk("-loginDlg +" + row.at(1)));
    QCOMPARE(config()->currentMod(), row.at(2));
    QCOMPARE(lastLogin().value("modCode").toString(), row.at(2));
}

void tst_shell::helperCredentials()
{
    config()->setLoginUser(QStringLiteral("before"));
    WALKED(login("tile_ROOMINFO_CTRL").walk("+Module1"));
    QCOMPARE(config()->loginUser(), QStringLiteral("before"));
    cleanup();
    WALKED(login("tile_HELP_BASH_WAIT", "601").walk("+Module4"));
    QCOMPARE(config()->loginUser() + config()->loginPwd() + config()->loginRfid(), QStringLiteral("601601"));
}

void tst_shell::lockAndUnlock()
{
    WALKED(login("tile_ROOMINFO_CTRL", "1101").walk("+Module1 lockButton"));
    QTRY_VERIFY(config()->isCurrentModeLocked());
    WALKED(walk("lockButton +loginDlg cancelButton -loginDlg"));
    QVERIFY(config()->isCurrentModeLocked());
    WALKED(walk("lockButton +loginDlg @94780011 -loginDlg +Module1").until("unlocked", [] {
        return !config()->isCurrentModeLocked();
    }));
    QCOMPARE(config()->userInfo()->code(), QStringLiteral("1001")); // who unlocks is the operator
}

void tst_shell::leavingALockedModule()
{
    WALKED(
        login("tile_TRANSFER_CTRL").walk("+transferCardsDlg backButton -transferCardsDlg +Module9 lockButton"));
    QTRY_VERIFY(config()->isCurrentModeLocked());
    WALKED(walk("returnButton +loginDlg cancelButton -loginDlg +Module9"));
    WALKED(login("returnButton").walk("-Module9"));
    QCOMPARE(lastLogin().value("modCode").toString(), QStringLiteral("PAY_CTRL"));
    QVERIFY(config()->isCurrentModeLocked()); // only the lock's own icon takes it off
}

void tst_shell::keepAliveFollowsTheModule()
{
    auto* timer = MainClass::getInstance()->findChild<QTimer*>(QStringLiteral("keepLogin"));
    QVERIFY(!timer->isActive());
    WALKED(login("tile_ROOMINFO_CTRL").walk("+Module1"));
    QVERIFY(timer->isActive());
    WALKED(walk("returnButton -returnButton"));
    QVERIFY(!timer->isActive());
}

void tst_shell::supervisor_data()
{
    addRows(R"(
by number ; 200 ; 1001 ; #1001 confirmButton ?inputLine.echoMode=2 #1001 confirmButton
by card after a refusal ; 200 ; 1002 ; #1001 confirmButton #0 confirmButton =error|工号或密码错误 +authDlg @76577179
called off ; AUTH_ERR_0002 ; ; #1001 confirmButton cancelButton
)");
}

/// The back end refuses the front desk a call, once; a supervisor vouches for it, or not.
void tst_shell::supervisor()
{
    QFETCH(QStringList, row);
    Reply<GetAuthInfoByCode> reply;
    m_terminal->house().answer(keepLogin, QJsonObject{{"code", "AUTH_ERR_0002"}, {"msg", "需要授权"}}, 1);
    WALKED(login("tile_ROOMINFO_CTRL", "1101")
               .walk("+Module1")
               .act([&reply] {
                   QTimer::singleShot(0, qApp,
                                      [&reply] { reply = held(Baa00Service::getInstance()->keepLogin()); });
               })
               .walk("+authDlg " + row.at(3))
               .until("the reply", [&] { return reply != nullptr; }));
    QCOMPARE(reply->code(), row.at(1));
    QCOMPARE(reply->authNo(), row.at(2));
    QCOMPARE(config()->userInfo()->code(), QStringLiteral("1101"));
    if (reply->code() == QLatin1String("200"))
        QCOMPARE(unlike(lastLogin(), R"({"type": 1, "modCode": "ROOMINFO_CTRL"})"), QString());
}

void tst_shell::lineDialog()
{
    // On loopback a line answers in less than a millisecond, which counts as no answer.
    m_terminal->house().fault("/line/check", "delay", 15);
    // Nothing is chosen yet; a dead line can't be.
    WALKED(walk("vendorBlock +cloudDlg +line_电信平台_0 saveButton =error|请选择切换线路 line_电信平台_1 "
                "line_电信平台_0 ?line_电信平台_0.isChosen=true line_联通平台_0 ?line_联通平台_0.isChosen=true "
                "?line_电信平台_0.isChosen=false")
               .picture("lines")
               .walk("saveButton -cloudDlg"));
    const QString chosen = GlobalConfig::getRegValue(QStringLiteral("cloudUrl"));
    QVERIFY(chosen.startsWith(QStringLiteral("http://localhost:")));
    QCOMPARE(config()->apiUrl(), chosen);

    // Opened again and left: the default line is in use, the stored choice stays and was marked.
    WALKED(walk("vendorBlock +line_联通平台_0")
               .until("measured", [&] { return m_terminal->house().seen("/line/check") >= 4; })
               .act([&] { m_terminal->house().fault("/line/check", "delay", 600); })
               .walk("checkButton ?mark_电信平台_0.color=#ea332a ?result_电信平台_1.text=离线")
               .until("both platforms are measured",
                      [&] {
                          return m_terminal->text("result_电信平台_0").endsWith("ms") &&
                                 m_terminal->text("result_联通平台_0").size() == 5;
                      })
               .act([&] { m_terminal->house().reset(); })
               .walk("backButton -cloudDlg"));
    QCOMPARE(config()->apiUrl(), m_terminal->house().url());
    QCOMPARE(GlobalConfig::getRegValue(QStringLiteral("cloudUrl")), chosen);
}

QTEST_MAIN(tst_shell)
#include "tst_shell.moc"
