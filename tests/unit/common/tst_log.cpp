#include "common/Clock.h"
#include "common/LogFolder.h"
#include "common/LoggerThread.h"
#include "platform/PrivateFiles.h"

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
    void initTestCase() { keepFilesPrivate(); }
    void init()
    {
        m_temporary.reset(new QTemporaryDir);
        m_folder = m_temporary->filePath("log");
        setDay(1);
        Clock::setSource([] { return fakeNowMs.load(); });
    }
    void cleanup() { Clock::setSource(nullptr); }

    void linesInOrder();
    void fullFileIsPutAside();
    void repetitionsAreCounted();
    void bounds_data();
    void bounds();
    void removesOldFilesOnly();
    void endsPromptly();

private:
    QString fileOf(int day) const { return m_folder + "/2026-03-0" + QString::number(day) + ".log"; }

    QScopedPointer<QTemporaryDir> m_temporary;
    QString m_folder;
};

void tst_log::linesInOrder()
{
    QByteArray written;
    for (int run = 0; run < 2; ++run) {
        LoggerThread logger(m_folder, quick());
        for (const char* line : {"first", "第二行", "a\r\nb", ""})
            logger.log(line);
        written += "first\n第二行\na\r\nb\n\n";
        QTRY_COMPARE(contentOf(fileOf(1)), written);
        setDay(2); // passing midnight keeps the file
        logger.log("after");
        written += "after\n";
        QTRY_COMPARE(contentOf(fileOf(1)), written);
        setDay(1);
    }
    QVERIFY(!QFile::exists(fileOf(2)));
}

void tst_log::fullFileIsPutAside()
{
    LoggerThread::Limits limits = quick();
    limits.fileBytes = 20;
    LoggerThread logger(m_folder, limits);
    for (int i = 0; i < 23; ++i)
        logger.log(QString::number(1000000 + i)); // three fill a file
    const auto aside = [&](int number) { return contentOf(fileOf(1) + '.' + QByteArray::number(number)); };
    QTRY_COMPARE(contentOf(fileOf(1)), QByteArray("1000021\n1000022\n"));
    QCOMPARE(aside(1), QByteArray("1000018\n1000019\n1000020\n"));
    QCOMPARE(aside(7), QByteArray("1000000\n1000001\n1000002\n"));
    for (int i = 23; i < 32; ++i)
        logger.log(QString::number(1000000 + i));
    QTRY_COMPARE(contentOf(fileOf(1)), QByteArray("1000030\n1000031\n"));
    QCOMPARE(aside(9), QByteArray("1000003\n1000004\n1000005\n")); // the oldest has gone
    QVERIFY(!QFile::exists(fileOf(1) + ".10"));
    QCOMPARE(QFile::permissions(fileOf(1)) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
}

void tst_log::repetitionsAreCounted()
{
    LoggerThread::Limits limits = quick();
    limits.countedMs = 1000;
    LoggerThread logger(m_folder, limits);
    logger.log(QString(300000, 'x'));
    QByteArray written = QByteArray(262144, 'x') + "… (300000 characters)\n";
    for (const char* line : {"a", "b", "a", "a"})
        logger.logCounted(line);
    logger.log("a");
    written += "a\nb\na\na: 2 times more\n";
    QTRY_COMPARE(contentOf(fileOf(1)), written);
    // The next ones; not more different ones than there are topics, and none of any length. An end waits for
    // none.
    for (int i = 0; i < 60; ++i)
        logger.logCounted(QString::number(i % 20) + QString(5000, 'x'));
    logger.drain(5000);
    for (int i = 0; i < 16; ++i)
        written += (QByteArray::number(i) + QByteArray(5000, 'x')).left(1000) + '\n';
    for (int i = 0; i < 16; ++i)
        written += (QByteArray::number(i) + QByteArray(5000, 'x')).left(1000) + ": 2 times more\n";
    QCOMPARE(contentOf(fileOf(1)), written + "#LogerThread# 12 other lines like these\n");
}

void tst_log::bounds_data()
{
    QTest::addColumn<int>("mostLines");
    QTest::addColumn<int>("mostChars");
    QTest::addColumn<QByteArray>("written");
    const QByteArray two = "ddddddddd\nthe last is long\n", one = "the last is long\n";
    QTest::newRow("lines") << 2 << 1000 << "#LogerThread# 3 lines dropped\n" + two;
    QTest::newRow("characters") << 100 << 25 << "#LogerThread# 3 lines dropped\n" + two;
    QTest::newRow("too long alone") << 100 << 5 << "#LogerThread# 4 lines dropped\n" + one;
    QTest::newRow("within") << 5 << 1000 << "aaaaaaaaa\nbbbbbbbbb\nccccccccc\n" + two;
}

void tst_log::bounds()
{
    QFETCH(int, mostLines);
    QFETCH(int, mostChars);
    QFETCH(QByteArray, written);
    QFile inTheWay(m_folder); // of the folder
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    inTheWay.close();
    LoggerThread::Limits limits = quick();
    limits.queuedLines = mostLines;
    limits.queuedChars = mostChars;
    LoggerThread logger(m_folder, limits);
    for (const char letter : {'a', 'b', 'c', 'd'})
        logger.log(QString(9, letter));
    logger.log("the last is long");
    QVERIFY(inTheWay.remove() && QDir().mkpath(m_folder));
    QTRY_COMPARE(contentOf(fileOf(1)), written);
}

void tst_log::removesOldFilesOnly()
{
    removeOldLogs(m_folder); // nothing there yet
    QVERIFY(QDir().mkpath(m_folder + "/2020-01-01.log"));
    const QMap<QString, int> agesInSeconds{
        {"exactly.log", 604800}, {"older.log", 604801}, {".hidden", 700000}, {"future.log", -1000}};
    for (auto it = agesInSeconds.begin(); it != agesInSeconds.end(); ++it) {
        QFile file(m_folder + "/" + it.key());
        const QDateTime written = QDateTime::fromMSecsSinceEpoch(fakeNowMs).addSecs(-it.value());
        QVERIFY(file.open(QIODevice::WriteOnly) &&
                file.setFileTime(written, QFileDevice::FileModificationTime));
    }
    removeOldLogs(m_folder);
    QCOMPARE(QDir(m_folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name),
             (QStringList{"2020-01-01.log", "exactly.log", "future.log"}));
}

/// A pause of hours doesn't hold its end up: the test would.
void tst_log::endsPromptly()
{
    LoggerThread::Limits limits;
    limits.pauseMs = 10000000;
    LoggerThread logger(m_folder, limits);
    logger.log("x");
    QTRY_VERIFY(QFile::exists(fileOf(1)));
}

QTEST_GUILESS_MAIN(tst_log)
#include "tst_log.moc"
