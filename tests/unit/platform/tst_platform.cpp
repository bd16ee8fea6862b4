#include "platform/SingleInstance.h"
#include "platform/UserValues.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>

namespace {

/// Started with this argument, the test program is an instance of the terminal that claims the machine and
/// waits.
const char claimArgument[] = "--claim";

/// Runs the claim in a process of its own, under the same temporary folder and thus the same claim.
class Instance
{
public:
    Instance()
    {
        m_process.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(claimArgument)});
    }
    ~Instance()
    {
        m_process.closeWriteChannel();
        m_process.waitForFinished();
    }
    /// "claimed" or "refused".
    QByteArray answer()
    {
        m_process.waitForReadyRead();
        return m_process.readLine().trimmed();
    }
    void killHard()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    void end()
    {
        m_process.closeWriteChannel();
        m_process.waitForFinished();
    }

private:
    QProcess m_process;
};

} // namespace

class tst_platform : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_folder.isValid());
        qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8());
        qputenv("TMPDIR", m_folder.path().toUtf8()); // where the claim of an instance is found
    }

    void oneInstanceAtATime();
    void killedInstanceLocksNobodyOut();
    void userValues_data();
    void userValues();
    void userValueEditedByHand();
    void userValueThatCannotBeStored();

private:
    QTemporaryDir m_folder;
};

void tst_platform::oneInstanceAtATime()
{
    Instance first;
    QCOMPARE(first.answer(), QByteArray("claimed"));
    for (int i = 0; i < 3; ++i) {
        Instance later;
        QCOMPARE(later.answer(), QByteArray("refused"));
    }
    first.end();
    Instance next;
    QCOMPARE(next.answer(), QByteArray("claimed"));
}

void tst_platform::killedInstanceLocksNobodyOut()
{
    Instance killed;
    QCOMPARE(killed.answer(), QByteArray("claimed"));
    killed.killHard();
    Instance next;
    QCOMPARE(next.answer(), QByteArray("claimed"));
    Instance second;
    QCOMPARE(second.answer(), QByteArray("refused"));
}

void tst_platform::userValues_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("code") << QStringLiteral("KV-DEMO-0001");
    QTest::newRow("address") << QStringLiteral("https://api.example.com:8443/line?a=1;b=2,c=3");
    QTest::newRow("chinese") << QStringLiteral("前台一号机");
    QTest::newRow("quotes and blanks") << QStringLiteral(" \"a\\b\" ");
    QTest::newRow("empty") << QString();
}

void tst_platform::userValues()
{
    QFETCH(QString, value);
    QCOMPARE(UserValues::read(QStringLiteral("never written")), QString());
    QVERIFY(UserValues::write(QStringLiteral("cloudUrl"), value));
    QCOMPARE(UserValues::read(QStringLiteral("cloudUrl")), value);
    QVERIFY(QFile::exists(m_folder.filePath(QStringLiteral("KV_PANEL_V2.ini"))));
}

void tst_platform::userValueEditedByHand()
{
    QFile store(m_folder.filePath(QStringLiteral("KV_PANEL_V2.ini")));
    QVERIFY(store.open(QIODevice::WriteOnly | QIODevice::Truncate));
    store.write("authCode=店-01\nsecretKey=a,b\n");
    store.close();
    QCOMPARE(UserValues::read(QStringLiteral("authCode")), QStringLiteral("店-01"));
    QCOMPARE(UserValues::read(QStringLiteral("secretKey")), QStringLiteral("a,b"));
}

void tst_platform::userValueThatCannotBeStored()
{
    // A folder in the file's place can't be written over, not even by root.
    QTemporaryDir blocked;
    QVERIFY(QDir(blocked.path()).mkpath(QStringLiteral("KV_PANEL_V2.ini/x")));
    qputenv("XDG_CONFIG_HOME", blocked.path().toUtf8());
    QVERIFY(!UserValues::write(QStringLiteral("cloudUrl"), QStringLiteral("https://a.example")));
    QCOMPARE(UserValues::read(QStringLiteral("cloudUrl")), QString());
    qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8());
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (application.arguments().contains(QString::fromLatin1(claimArgument))) {
        std::puts(claimSingleInstance() ? "claimed" : "refused");
        std::fflush(stdout);
        return std::getchar() == EOF ? 0 : 1;
    }
    tst_platform test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_platform.moc"
