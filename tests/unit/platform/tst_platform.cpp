#include "platform/PrivateFiles.h"
#include "platform/SingleInstance.h"
#include "platform/UserValues.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <sys/stat.h>

namespace {

/// Started with this argument, the test program is an instance of the terminal that claims the machine and
/// waits.
const char claimArgument[] = "--claim";

/// Runs the claim in a process of its own, with the same per-user values and thus the same claim.
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
    /// "claimed", "refused" or "unguarded".
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

int modeOf(const QString& path)
{
    struct stat status = {};
    return ::stat(path.toLocal8Bit().constData(), &status) == 0 ? static_cast<int>(status.st_mode & 07777) : -1;
}

} // namespace

class tst_platform : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_folder.isValid());
        qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8());
    }

    void oneInstanceAtATime();
    void killedInstanceLocksNobodyOut();
    void lockIsTheUsersOwn();
    void filesAreTheUsersOwn_data();
    void filesAreTheUsersOwn();
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

void tst_platform::lockIsTheUsersOwn()
{
    const QString lock = m_folder.filePath(QStringLiteral("KV_PANEL_V2.lock"));
    QFile::remove(lock);
    {
        Instance first;
        QCOMPARE(first.answer(), QByteArray("claimed"));
    }
    QCOMPARE(modeOf(lock), 0600);
    // What somebody else has put there is neither followed nor waited for.
    const QString elsewhere = m_folder.filePath(QStringLiteral("elsewhere"));
    QVERIFY(QFile::remove(lock));
    QVERIFY(QFile::link(elsewhere, lock));
    {
        Instance second;
        QCOMPARE(second.answer(), QByteArray("unguarded"));
    }
    QVERIFY(!QFile::exists(elsewhere));
    QVERIFY(QFile::remove(lock));
}

void tst_platform::filesAreTheUsersOwn_data()
{
    QTest::addColumn<int>("mask"); // the caller's
    QTest::addColumn<int>("mode"); // of a file that is made, and of one that was readable by everybody
    QTest::newRow("usual") << 022 << 0600;
    QTest::newRow("of one's group") << 002 << 0600;
    QTest::newRow("kiosk") << 007 << 0660;
    QTest::newRow("readable by a group") << 027 << 0640;
}

void tst_platform::filesAreTheUsersOwn()
{
    QFETCH(int, mask);
    QFETCH(int, mode);
    QTemporaryDir folder;
    const mode_t before = ::umask(static_cast<mode_t>(mask));
    keepFilesPrivate();
    QFile made(folder.filePath(QStringLiteral("made")));
    const bool isMade = made.open(QIODevice::WriteOnly);
    QFile old(folder.filePath(QStringLiteral("old")));
    const bool isOld =
        old.open(QIODevice::WriteOnly) && ::chmod(old.fileName().toLocal8Bit().constData(), 0666) == 0;
    makePrivate(old.fileName());
    makePrivate(folder.filePath(QStringLiteral("none")));
    ::umask(before);
    QVERIFY(isMade && isOld);
    QCOMPARE(modeOf(made.fileName()), mode);
    QCOMPARE(modeOf(old.fileName()), mode);
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
        keepFilesPrivate();
        QString cause;
        const Claim claim = claimSingleInstance(cause);
        std::puts(claim == Claim::Ours ? "claimed" : claim == Claim::Taken ? "refused" : "unguarded");
        std::fflush(stdout);
        return std::getchar() == EOF ? 0 : 1;
    }
    tst_platform test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_platform.moc"
