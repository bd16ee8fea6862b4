#include "platform/SingleInstance.h"
#include "platform/UserValues.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// Another instance of the terminal, in a process of its own under the same temporary folder and thus the same
/// claim: started with --claim, the test program claims the machine and waits.
class Instance
{
public:
    Instance() { m_process.start(QCoreApplication::applicationFilePath(), {"--claim"}); }
    ~Instance() { end(); }
    /// "claimed" or "refused".
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

} // namespace

class tst_platform : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8());
        qputenv("TMPDIR", m_folder.path().toUtf8()); // where the claim of an instance is found
    }

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
        std::puts(claimSingleInstance() ? "claimed" : "refused");
        std::fflush(stdout);
        return std::getchar() == EOF ? 0 : 1;
    }
    tst_platform test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_platform.moc"
