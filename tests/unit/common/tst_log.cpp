#include "common/Clock.h"
#include "common/LogFolder.h"
#include "common/LoggerThread.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <atomic>

namespace {

std::atomic<qint64> fakeNowMs{0};

void setDay(int day) { fakeNowMs = QDateTime(QDate(2026, 3, day), QTime(12, 0)).toMSecsSinceEpoch(); }

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Short pauses, so that a test waits for rounds of milliseconds.
LoggerThread::Limits quick()
{
    LoggerThread::Limits limits;
    limits.pauseMs = 5;
    limits.failedOpenPauseMs = 5;
    return limits;
}

} // namespace

class tst_log : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_temporary.reset(new QTemporaryDir);
        m_folder = m_temporary->filePath(QStringLiteral("log"));
        setDay(1);
        Clock::setSource([] { return fakeNowMs.load(); });
    }
    void cleanup() { Clock::setSource(nullptr); }

    void linesInOrder();
    void appendsToTodaysFile();
    void fullFileWaitsForTheNextDay();
    void passingMidnightKeepsTheFile();
    void boundedByLines();
    void boundedByCharacters();
    void unwritableFolder();
    void removesOldFilesOnly();
    void endsPromptly();

private:
    QString fileOf(int day) const
    {
        return QStringLiteral("%1/2026-03-%2.log").arg(m_folder).arg(day, 2, 10, QLatin1Char('0'));
    }

    QScopedPointer<QTemporaryDir> m_temporary;
    QString m_folder;
};

void tst_log::linesInOrder()
{
    LoggerThread logger(m_folder, quick());
    logger.log(QStringLiteral("first"));
    logger.log(QStringLiteral("第二行"));
    logger.log(QStringLiteral("a\r\nb"));
    logger.log(QString());
    QTRY_COMPARE(contentOf(fileOf(1)), QByteArray("first\n第二行\na\r\nb\n\n"));
}

void tst_log::appendsToTodaysFile()
{
    for (const char* line : {"one", "two"}) {
        LoggerThread logger(m_folder, quick());
        logger.log(QString::fromLatin1(line));
        QTRY_VERIFY(contentOf(fileOf(1)).endsWith(QByteArray(line) + '\n'));
    }
    QCOMPARE(contentOf(fileOf(1)), QByteArray("one\ntwo\n"));
}

void tst_log::fullFileWaitsForTheNextDay()
{
    LoggerThread::Limits limits = quick();
    limits.fileBytes = 20;
    limits.queuedLines = 3;
    {
        LoggerThread logger(m_folder, limits);
        logger.log(QStringLiteral("0123456789"));
        logger.log(QStringLiteral("0123456789"));
        QTRY_COMPARE(contentOf(fileOf(1)).size(), 22);
        for (int i = 0; i < 5; ++i)
            logger.log(QString::number(i));
        QTest::qWait(50);
        QCOMPARE(contentOf(fileOf(1)).size(), 22);

        setDay(2);
        QTRY_COMPARE(contentOf(fileOf(2)), QByteArray("#LogerThread# 2 lines dropped\n"));
        setDay(3); // the count alone has filled this small file
        QTRY_COMPARE(contentOf(fileOf(3)), QByteArray("2\n3\n4\n"));
        QCOMPARE(contentOf(fileOf(1)).size(), 22);
    }
    // A file that is full when the program starts gets nothing either.
    setDay(1);
    LoggerThread logger(m_folder, limits);
    logger.log(QStringLiteral("late"));
    QTest::qWait(50);
    QCOMPARE(contentOf(fileOf(1)).size(), 22);
}

void tst_log::passingMidnightKeepsTheFile()
{
    LoggerThread logger(m_folder, quick());
    logger.log(QStringLiteral("before"));
    QTRY_COMPARE(contentOf(fileOf(1)), QByteArray("before\n"));
    setDay(2);
    logger.log(QStringLiteral("after"));
    QTRY_COMPARE(contentOf(fileOf(1)), QByteArray("before\nafter\n"));
    QVERIFY(!QFile::exists(fileOf(2)));
}

void tst_log::boundedByLines()
{
    QVERIFY(QDir().mkpath(fileOf(1))); // a folder in its place: today's file can't be opened
    LoggerThread::Limits limits = quick();
    limits.queuedLines = 100;
    LoggerThread logger(m_folder, limits);
    for (int i = 0; i < 1000; ++i)
        logger.log(QString::number(i));
    QVERIFY(QDir().rmdir(fileOf(1)));
    QTRY_VERIFY(contentOf(fileOf(1)).endsWith("\n999\n"));
    const QList<QByteArray> lines = contentOf(fileOf(1)).split('\n');
    QCOMPARE(lines.at(0), QByteArray("#LogerThread# 900 lines dropped"));
    QCOMPARE(lines.at(1), QByteArray("900"));
    QCOMPARE(lines.size(), 102);
}

void tst_log::boundedByCharacters()
{
    QVERIFY(QDir().mkpath(fileOf(1)));
    LoggerThread::Limits limits = quick();
    limits.queuedChars = 25;
    LoggerThread logger(m_folder, limits);
    for (int i = 0; i < 4; ++i)
        logger.log(QString(10, QLatin1Char(static_cast<char>('a' + i))));
    logger.log(QString(100, QLatin1Char('z'))); // too long alone, kept as the newest
    QVERIFY(QDir().rmdir(fileOf(1)));
    QTRY_COMPARE(contentOf(fileOf(1)), "#LogerThread# 4 lines dropped\n" + QByteArray(100, 'z') + '\n');
}

void tst_log::unwritableFolder()
{
    QFile inTheWay(m_folder);
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    inTheWay.close();
    LoggerThread logger(m_folder, quick());
    logger.log(QStringLiteral("kept"));
    QTest::qWait(30);
    QVERIFY(inTheWay.remove());
    QVERIFY(QDir().mkpath(m_folder));
    QTRY_COMPARE(contentOf(fileOf(1)), QByteArray("kept\n"));
}

void tst_log::removesOldFilesOnly()
{
    removeOldLogs(m_folder); // nothing there yet
    QVERIFY(QDir().mkpath(m_folder + QStringLiteral("/2020-01-01.log")));
    const qint64 now = fakeNowMs / 1000;
    const auto makeFile = [&](const QString& name, qint64 ageSeconds) {
        QFile file(m_folder + QLatin1Char('/') + name);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(file.setFileTime(QDateTime::fromSecsSinceEpoch(now - ageSeconds),
                                 QFileDevice::FileModificationTime));
    };
    makeFile(QStringLiteral("exactly.log"), 604800);
    makeFile(QStringLiteral("older.log"), 604801);
    makeFile(QStringLiteral(".hidden"), 700000);
    makeFile(QStringLiteral("future.log"), -1000);
    removeOldLogs(m_folder);
    QCOMPARE(QDir(m_folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name),
             (QStringList{QStringLiteral("2020-01-01.log"), QStringLiteral("exactly.log"),
                          QStringLiteral("future.log")}));
}

void tst_log::endsPromptly()
{
    LoggerThread::Limits limits;
    limits.pauseMs = 60000;
    QElapsedTimer timer;
    timer.start();
    {
        LoggerThread logger(m_folder, limits);
        logger.log(QStringLiteral("x"));
        QTRY_VERIFY(!contentOf(fileOf(1)).isEmpty() || timer.elapsed() > 100);
    }
    QVERIFY(timer.elapsed() < 30000);
}

QTEST_GUILESS_MAIN(tst_log)
#include "tst_log.moc"
