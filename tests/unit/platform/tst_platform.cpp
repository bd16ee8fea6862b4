#include "platform/PrivateFiles.h"
#include "platform/SingleInstance.h"
#include "platform/UserValues.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

namespace {

/// Another instance of the terminal, in a process of its own with the same per-user values and thus the same
/// claim: started with --claim, the test program claims the machine and waits.
class Instance
{
public:
    Instance() { m_process.start(QCoreApplication::applicationFilePath(), {"--claim"}); }
    ~Instance() { end(); }
    /// "claimed", "refused" or "unguarded".
    QByteArray answer()
    {
        m_process.waitForReadyRead();
        return m_process.readLine().trimmed();
    }
    void end(bool isKilled = false)
    {
        isKilled ? m_process.kill() : m_process.closeWriteChannel();
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
    void initTestCase() { qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8()); }

    void oneInstanceAtATime()
    {
        for (const bool isKilled : {false, true, false}) {
            Instance first;
            QCOMPARE(first.answer(), QByteArray("claimed"));
            for (int i = 0; i < 3; ++i)
                QCOMPARE(Instance().answer(), QByteArray("refused"));
            first.end(isKilled);
        }
    }

    void lockIsTheUsersOwn()
    {
        const QString lock = m_folder.filePath("KV_PANEL_V2.lock");
        QFile::remove(lock);
        QCOMPARE(Instance().answer(), QByteArray("claimed"));
        QCOMPARE(modeOf(lock), 0600);
        // What somebody else has put there is neither followed nor waited for.
        const QString elsewhere = m_folder.filePath("elsewhere");
        QVERIFY(QFile::remove(lock) && QFile::link(elsewhere, lock));
        QCOMPARE(Instance().answer(), QByteArray("unguarded"));
        QVERIFY(!QFile::exists(elsewhere) && QFile::remove(lock));
    }

    void filesAreTheUsersOwn()
    {
        // By the caller's mask: the mode of a file that is made, and of one that was readable by everybody.
        for (const auto& [mask, mode] : {std::pair{022, 0600}, {002, 0600}, {007, 0660}, {027, 0640}}) {
            const QTemporaryDir folder;
            const mode_t before = ::umask(static_cast<mode_t>(mask));
            keepFilesPrivate();
            QFile made(folder.filePath("made"));
            QFile old(folder.filePath("old"));
            const bool areThere = made.open(QIODevice::WriteOnly) && old.open(QIODevice::WriteOnly) &&
                                  ::chmod(old.fileName().toLocal8Bit().constData(), 0666) == 0;
            makePrivate(old.fileName());
            makePrivate(folder.filePath("none"));
            ::umask(before);
            QVERIFY(areThere);
            QCOMPARE(modeOf(made.fileName()), mode);
            QCOMPARE(modeOf(old.fileName()), mode);
        }
    }

    void userValues()
    {
        for (const QString value : {"KV-DEMO-0001", "https://api.example.com:8443/line?a=1;b=2,c=3",
                                    "前台一号机", " \"a\\b\" ", ""}) {
            QVERIFY(UserValues::write("cloudUrl", value));
            QCOMPARE(UserValues::read("cloudUrl"), value);
        }
        QCOMPARE(UserValues::read("never written"), QString());
        QFile store(m_folder.filePath("KV_PANEL_V2.ini"));
        QVERIFY(store.open(QIODevice::ReadWrite | QIODevice::Truncate)); // edited by hand
        store.write("authCode=店-01\nsecretKey=a,b\n");
        store.close();
        QCOMPARE(UserValues::read("authCode") + UserValues::read("secretKey"), QString("店-01a,b"));

        // A folder in the file's place can't be written over, not even by root.
        const QTemporaryDir blocked;
        QVERIFY(QDir(blocked.path()).mkpath("KV_PANEL_V2.ini/x"));
        qputenv("XDG_CONFIG_HOME", blocked.path().toUtf8());
        QVERIFY(!UserValues::write("cloudUrl", "https://a.example"));
        QCOMPARE(UserValues::read("cloudUrl"), QString());
    }

private:
    QTemporaryDir m_folder;
};

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (application.arguments().contains("--claim")) {
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
