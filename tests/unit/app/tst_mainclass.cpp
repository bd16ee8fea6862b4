#include "app/MainClass.h"
#include "common/GlobalConfig.h"

#include <QDir>
#include <QSignalSpy>
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
    void destruct();

private:
    static QTimer* keepAliveTimer()
    {
        return MainClass::getInstance()->findChild<QTimer*>(QStringLiteral("keepLogin"));
    }

    QTemporaryDir m_folder;
};

void tst_mainclass::keepAlive_data()
{
    QTest::addColumn<long>("lifetimeSeconds");
    QTest::addColumn<int>("intervalMs"); // 0: doesn't start
    QTest::newRow("no login yet") << 0L << 0;
    QTest::newRow("too short") << 899L << 0;
    QTest::newRow("just long enough") << 900L << 825000;
    QTest::newRow("two hours") << 7200L << 7125000;
    QTest::newRow("thirty days, longer than a timer can run") << 2592000L << std::numeric_limits<int>::max();
}

void tst_mainclass::keepAlive()
{
    QFETCH(long, lifetimeSeconds);
    QFETCH(int, intervalMs);
    GlobalConfig::getInstance()->setTokenTimeStamp(lifetimeSeconds);
    QTest::ignoreMessage(QtDebugMsg, "定时器打开");
    MainClass::getInstance()->startTimer();
    QCOMPARE(keepAliveTimer()->isActive(), intervalMs > 0);
    if (intervalMs == 0)
        return;
    QCOMPARE(keepAliveTimer()->interval(), intervalMs);
    QVERIFY(!keepAliveTimer()->isSingleShot());
    // A second start changes nothing.
    GlobalConfig::getInstance()->setTokenTimeStamp(3600);
    MainClass::getInstance()->startTimer();
    QCOMPARE(keepAliveTimer()->interval(), intervalMs);
    QTest::ignoreMessage(QtDebugMsg, "定时器关闭");
    MainClass::getInstance()->stopTimer();
    QVERIFY(!keepAliveTimer()->isActive());
}

void tst_mainclass::confirmation()
{
    MainClass* program = MainClass::getInstance();
    int answer = 1;
    const auto dialog =
        connect(program, &MainClass::msgConfirmSignal, this, [&](const QString& title, const QString& msg) {
            QCOMPARE(title + msg, QStringLiteral("提示确定吗"));
            program->msgConfirmResult(answer);
        });
    QCOMPARE(program->showMsgConfirm(QStringLiteral("提示"), QStringLiteral("确定吗")), 1);
    answer = 0;
    QCOMPARE(program->showMsgConfirm(QStringLiteral("提示"), QStringLiteral("确定吗")), 0);
    disconnect(dialog);
    QVERIFY(program->showMsgConfirm(QStringLiteral("提示"), QString()) != 1); // nobody there to answer
}

void tst_mainclass::destruct()
{
    QSignalSpy ended(MainClass::getInstance(), &MainClass::destructSignal);
    MainClass::getInstance()->onDestruct(QStringLiteral("module2"));
    QCOMPARE(ended.takeFirst().first().toString(), QStringLiteral("module2"));
}

QTEST_GUILESS_MAIN(tst_mainclass)
#include "tst_mainclass.moc"
