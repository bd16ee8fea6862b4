#include "app/MainClass.h"
#include "common/GlobalConfig.h"
#include "common/Modules.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

class tst_mainclass : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(QDir::setCurrent(m_folder.path())); }
    void cleanupTestCase() { QDir::setCurrent(QDir::rootPath()); }
    void cleanup() { MainClass::getInstance()->stopTimer(); }

    void keepAlive_data();
    void keepAlive();
    void confirmation();
    void whatAPageGetsFromTheLogin();

private:
    QTemporaryDir m_folder;
};

void tst_mainclass::keepAlive_data()
{
    QTest::addColumn<long>("lifetimeSeconds");
    QTest::addColumn<int>("intervalMs"); // 0: doesn't start
    QTest::newRow("too short") << 899L << 0;
    QTest::newRow("just long enough") << 900L << 825000;
    QTest::newRow("thirty days, longer than a timer can run") << 2592000L << std::numeric_limits<int>::max();
}

void tst_mainclass::keepAlive()
{
    QFETCH(long, lifetimeSeconds);
    QFETCH(int, intervalMs);
    const auto* timer = MainClass::getInstance()->findChild<QTimer*>("keepLogin");
    GlobalConfig::getInstance()->setTokenTimeStamp(lifetimeSeconds);
    MainClass::getInstance()->startTimer();
    QCOMPARE(timer->isActive(), intervalMs > 0);
    if (intervalMs == 0)
        return;
    QVERIFY(!timer->isSingleShot());
    // A second start changes nothing.
    GlobalConfig::getInstance()->setTokenTimeStamp(3600);
    MainClass::getInstance()->startTimer();
    QCOMPARE(timer->interval(), intervalMs);
    MainClass::getInstance()->stopTimer();
    QVERIFY(!timer->isActive());
}

void tst_mainclass::confirmation()
{
    MainClass* program = MainClass::getInstance();
    int answer = 1;
    const auto dialog =
        connect(program, &MainClass::msgConfirmSignal, this, [&] { program->msgConfirmResult(answer); });
    QCOMPARE(program->showMsgConfirm("提示", "确定吗"), 1);
    disconnect(dialog);
    QVERIFY(program->showMsgConfirm("提示", "") != 1); // nobody there to answer; the last one is forgotten
}

void tst_mainclass::whatAPageGetsFromTheLogin()
{
    const QVariantMap login{{"staffId", "i"}, {"staffNo", "n"}, {"userNo", "u"}, {"pwd", "p"}, {"other", "o"}};
    QCOMPARE(Modules::getInstance()->arguments("HELP_BASH_WAIT", login),
             (QVariantMap{{"staffNo", "u"}, {"staffPwd", "p"}, {"staffUid", ""}, {"staffId", "i"}}));
    QCOMPARE(Modules::getInstance()->arguments("SELF_ORDER", login), QVariantMap());
}

QTEST_GUILESS_MAIN(tst_mainclass)
#include "tst_mainclass.moc"
