#include "Pty.h"
#include "Settings.h"
#include "common/MyMessage.h"
#include "devices/SerialPort.h"
#include "platform/SerialPortName.h"

#include <QDir>
#include <QEventLoop>
#include <QProcess>
#include <QSignalSpy>
#include <QSocketNotifier>
#include <QSqlDatabase>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>
#include <thread>

namespace {

QStringList logLines; // of the test that runs

void keepLine(QtMsgType, const QMessageLogContext&, const QString& line) { logLines.append(line); }

/// How often this process holds the device, open or gone. A test's own end is one.
int holders(const QString& device)
{
    int count = 0;
    for (const QFileInfo& fd : QDir(QStringLiteral("/proc/self/fd")).entryInfoList(QDir::System | QDir::Files))
        count += fd.symLinkTarget().startsWith(device) ? 1 : 0;
    return count;
}

} // namespace

class tst_serial_port : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void names_data();
    void names();
    void numbers_data();
    void numbers();
    void burstInPieces();
    void cardWhileTheLastOneIsStillHandled();
    void destroyedByItsReading();
    void noPortNamed();
    void settingsThatCannotBeOpened();
    void portThatCannotBeOpened();
    void deviceThatVanishes();
    void closedWhenTheProgramQuits();
    void presentedByCommand();

private:
    /// Starts a reader on the device.
    void startOn(const QString& device)
    {
        QVERIFY(storeSetting(QStringLiteral("staff_device_com"), QStringLiteral("COM3")));
        qputenv("KV_PANEL_COM3", device.toLocal8Bit());
        m_reader.reset(StaffDevice::initDevice());
        m_numbers.reset(new QSignalSpy(m_reader.get(), &StaffDevice::sendData));
        m_reader->startDevice();
    }
    QString lastNumber() const { return m_numbers->isEmpty() ? QString() : m_numbers->last().at(0).toString(); }
    QTimer* reopenTimer() const { return m_reader->findChild<QTimer*>(QStringLiteral("reopen")); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QSignalSpy> m_messages;
    std::unique_ptr<StaffDevice> m_reader;
    std::unique_ptr<QSignalSpy> m_numbers;
};

void tst_serial_port::init()
{
    m_folder.reset(new QTemporaryDir);
    QVERIFY(QDir::setCurrent(m_folder->path()));
    m_messages.reset(new QSignalSpy(MyMessage::getInstance(), &MyMessage::showMessageSignal));
    logLines.clear();
    qInstallMessageHandler(keepLine);
}

void tst_serial_port::cleanup()
{
    qInstallMessageHandler(nullptr);
    m_numbers.reset();
    m_reader.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_messages.reset();
    qunsetenv("KV_PANEL_COM3");
    QSqlDatabase::removeDatabase(QStringLiteral("qt_sql_default_connection"));
    QDir::setCurrent(QDir::rootPath());
}

void tst_serial_port::names_data()
{
    struct Row
    {
        const char* row;
        QString name;
        QString named; // KV_PANEL_COM3
        QString path;  // below the device folder when it begins with a dot
    };
    const Row rows[] = {
        {"built-in port", "COM1", "", "./ttyS0"},
        {"the last one offered", "COM8", "", "./ttyS7"},
        {"link", "COM2", "", "./kv-com2"},
        {"named, before the link", "COM3", "/x/line", "/x/line"},
        {"another one is named", "COM4", "/x/line", "./ttyS3"},
        {"no number", "COM", "", "COM"},
        {"number zero", "COM0", "", "COM0"},
        {"a path", "/dev/ttyUSB0", "", "/dev/ttyUSB0"},
    };
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("named");
    QTest::addColumn<QString>("path");
    for (const Row& row : rows)
        QTest::newRow(row.row) << row.name << row.named << row.path;
}

void tst_serial_port::names()
{
    QFETCH(QString, name);
    QFETCH(QString, named);
    QFETCH(QString, path);
    QVERIFY(QFile(m_folder->filePath(QStringLiteral("kv-com2"))).open(QIODevice::WriteOnly));
    QVERIFY(QFile(m_folder->filePath(QStringLiteral("kv-com3"))).open(QIODevice::WriteOnly));
    qputenv("KV_PANEL_COM3", named.toUtf8());
    if (path.startsWith(QLatin1Char('.')))
        path.replace(0, 1, m_folder->path());
    QCOMPARE(serialPortName(name, m_folder->path()), path);
}

void tst_serial_port::numbers_data()
{
    struct Row
    {
        const char* row;
        QByteArray burst;
        QString number; // empty: nothing is delivered
    };
    const Row rows[] = {
        {"short", "12345\r\n", "00012345"},
        {"one digit, no end", "7", "00000007"},
        {"eight", "12345678\r\n", "12345678"},
        {"long", "1234567890\r\n", "34567890"},
        {"lone CR stays", "123\r", "0000123\r"},
        {"lone LF stays", "123\n", "0000123\n"},
        {"LF CR stays", "123\n\r", "000123\n\r"},
        {"control characters", "\003123\004\004", "00000123"},
        {"written-out CR LF", "12\\r\\n3", "00000123"},
        {"written-out controls", "\\u0003123\\u0004", "00000123"},
        {"written-out in capitals stays", "1\\R\\N", "0001\\R\\N"},
        {"CR LF goes before the controls", "12\r\003\n", "000012\r\n"},
        {"written-out goes before the controls", "1\\u00\00303", "01\\u0003"},
        {"padding comes after the removing", "\003\003\003\0031234567", "01234567"},
        {"up to NUL", QByteArray("123\000456", 7), "00000123"},
        {"UTF-8", "号1\r\n", "000000号1"},
        {"NUL first", QByteArray("\000123", 4), ""},
        {"controls alone", "\003\r\n\004\\r\\n\\u0003\\u0004", ""},
    };
    QTest::addColumn<QByteArray>("burst");
    QTest::addColumn<QString>("number");
    for (const Row& row : rows)
        QTest::newRow(row.row) << row.burst << row.number;
}

void tst_serial_port::numbers()
{
    QFETCH(QByteArray, burst);
    QFETCH(QString, number);
    Pty pty;
    startOn(pty.line());
    QCOMPARE(logLines, QStringList{QStringLiteral("串口打开成功")});

    QVERIFY(pty.write(burst));
    // What was read is logged as it came, then what it became.
    QTRY_COMPARE(logLines.size(), number.isEmpty() ? 2 : 3);
    QCOMPARE(logLines.at(1), QString::fromUtf8(burst.constData()));
    if (!number.isEmpty()) {
        QCOMPARE(logLines.at(2), number);
        QCOMPARE(m_numbers->size(), 1);
        QCOMPARE(lastNumber(), number);
    }
    // Nothing of it is left over for the next card.
    QVERIFY(pty.write("99\r\n"));
    QTRY_COMPARE(lastNumber(), QStringLiteral("00000099"));
    QCOMPARE(m_numbers->size(), number.isEmpty() ? 1 : 2);
    QVERIFY(m_messages->isEmpty());
}

void tst_serial_port::burstInPieces()
{
    Pty pty;
    startOn(pty.line());
    // Reading blocks this thread, so the line is fed from another one.
    std::thread line([&pty] {
        for (const char* piece : {"1", "23", "4", "5\r", "\n"}) {
            pty.write(piece);
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
    });
    QTRY_COMPARE(m_numbers->size(), 1);
    line.join();
    QCOMPARE(lastNumber(), QStringLiteral("00012345"));
    QVERIFY(pty.write("6\r\n"));
    QTRY_COMPARE(lastNumber(), QStringLiteral("00000006"));
    QCOMPARE(m_numbers->size(), 2);
}

void tst_serial_port::cardWhileTheLastOneIsStillHandled()
{
    Pty pty;
    startOn(pty.line());
    // The first card opens a dialog that stands until the second one is read.
    connect(m_reader.get(), &StaffDevice::sendData, this, [&](const QString& number) {
        if (number != QLatin1String("00000001"))
            return;
        QEventLoop dialog;
        connect(m_reader.get(), &StaffDevice::sendData, &dialog, &QEventLoop::quit);
        QTimer::singleShot(5000, &dialog, [&dialog] { dialog.exit(1); });
        QVERIFY(pty.write("2\r\n"));
        QCOMPARE(dialog.exec(), 0);
    });
    QVERIFY(pty.write("1\r\n"));
    QTRY_COMPARE(m_numbers->size(), 2);
    QCOMPARE(lastNumber(), QStringLiteral("00000002"));
}

void tst_serial_port::destroyedByItsReading()
{
    Pty pty;
    startOn(pty.line());
    m_numbers.reset();
    QString heard;
    connect(m_reader.get(), &StaffDevice::sendData, this, [&](const QString& number) {
        heard = number;
        m_reader.reset();
    });
    QCOMPARE(holders(pty.line()), 2);
    QVERIFY(pty.write("1\r\n"));
    QTRY_VERIFY(!m_reader);
    QCOMPARE(heard, QStringLiteral("00000001"));
}

void tst_serial_port::noPortNamed()
{
    QVERIFY(storeSetting(QStringLiteral("staff_device_com"), QString()));
    m_reader.reset(StaffDevice::initDevice());
    m_reader->startDevice();
    QVERIFY(logLines.isEmpty());
    QVERIFY(m_messages->isEmpty());
    QVERIFY(!reopenTimer()->isActive());
}

void tst_serial_port::settingsThatCannotBeOpened()
{
    QVERIFY(QDir().mkdir(QStringLiteral("kv_panel_v2.db")));
    m_reader.reset(StaffDevice::initDevice());
    m_reader->startDevice();
    QVERIFY(!logLines.contains(QStringLiteral("串口打开失败")));
    QCOMPARE(m_messages->size(), 1); // of the settings themselves
    QCOMPARE(m_messages->at(0).at(0).toString(), QStringLiteral("初始化数据库失败"));
}

void tst_serial_port::portThatCannotBeOpened()
{
    startOn(m_folder->filePath(QStringLiteral("none")));
    QCOMPARE(m_messages->size(), 1);
    QCOMPARE(m_messages->at(0), (QVariantList{QStringLiteral("串口打开失败"), QStringLiteral("error")}));
    QCOMPARE(logLines, QStringList{QStringLiteral("串口打开失败")});
    QVERIFY(!reopenTimer()->isActive());
}

void tst_serial_port::deviceThatVanishes()
{
    // The device keeps its name and is another one each time it comes back, as a plug does.
    const QString name = m_folder->filePath(QStringLiteral("line"));
    auto pty = std::make_unique<Pty>();
    QVERIFY(QFile::link(pty->line(), name));
    startOn(name);
    QVERIFY(pty->write("1\r\n"));
    QTRY_COMPARE(lastNumber(), QStringLiteral("00000001"));
    QCOMPARE(reopenTimer()->interval(), 5000);
    QVERIFY(!reopenTimer()->isActive());

    for (int round = 2; round < 4; ++round) {
        const QString device = pty->line();
        QCOMPARE(holders(device), 2);
        logLines.clear();
        pty.reset();
        QVERIFY(QFile::remove(name));
        QTRY_VERIFY(reopenTimer()->isActive());
        QCOMPARE(holders(device), 0);

        reopenTimer()->setInterval(1);
        QSignalSpy tries(reopenTimer(), &QTimer::timeout);
        QTRY_VERIFY(tries.size() > 50);
        QCOMPARE(logLines, QStringList{QStringLiteral("串口已断开")});
        QVERIFY(m_messages->isEmpty());

        pty = std::make_unique<Pty>();
        QVERIFY(QFile::link(pty->line(), name));
        QTRY_VERIFY(!reopenTimer()->isActive());
        QVERIFY(pty->write(QByteArray::number(round) + "\r\n"));
        QTRY_COMPARE(lastNumber(), QStringLiteral("0000000%1").arg(round));
    }
    // One that comes and goes without a card is told of once.
    logLines.clear();
    for (int round = 0; round < 3; ++round) {
        pty.reset();
        QVERIFY(QFile::remove(name));
        QTRY_VERIFY(reopenTimer()->isActive());
        pty = std::make_unique<Pty>();
        QVERIFY(QFile::link(pty->line(), name));
        QTRY_VERIFY(!reopenTimer()->isActive());
    }
    QCOMPARE(logLines, QStringList{QStringLiteral("串口已断开")});
    QVERIFY(m_messages->isEmpty());
}

void tst_serial_port::closedWhenTheProgramQuits()
{
    const auto quit = [] {
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        QCoreApplication::exec();
    };
    const QDir locks(QStringLiteral("/var/lock"));
    auto pty = std::make_unique<Pty>();
    startOn(pty->line());
    const QString own =
        QStringLiteral("LCK..") + pty->line().mid(5).replace(QLatin1Char('/'), QLatin1Char('_'));
    QCOMPARE(holders(pty->line()), 2);
    QVERIFY(!locks.exists() || locks.exists(own));
    quit();
    QCOMPARE(holders(pty->line()), 1);
    QVERIFY(!locks.exists(own));
    // One that is away isn't tried any more.
    m_reader->startDevice();
    pty.reset();
    QTRY_VERIFY(reopenTimer()->isActive());
    quit();
    QVERIFY(!reopenTimer()->isActive());
}

void tst_serial_port::presentedByCommand()
{
    Pty readerLine;
    Pty cardLine; // what is written to it comes out of the reader's line
    QSocketNotifier relay(cardLine.master(), QSocketNotifier::Read);
    connect(&relay, &QSocketNotifier::activated, this, [&] {
        char bytes[256];
        const ssize_t size = ::read(cardLine.master(), bytes, sizeof bytes);
        QVERIFY(size > 0);
        QVERIFY(readerLine.write(QByteArray(bytes, static_cast<int>(size))));
    });
    startOn(readerLine.line());
    for (const QString& number : {QStringLiteral("80011"), QStringLiteral("0012345678")}) {
        QProcess command;
        command.start(QStringLiteral(KV_CARD), {QStringLiteral("staff"), cardLine.line(), number});
        QVERIFY(command.waitForFinished());
        QCOMPARE(command.exitCode(), 0);
        QTRY_COMPARE(lastNumber(), (QStringLiteral("000") + number).right(8));
    }
    QProcess missing;
    missing.start(QStringLiteral(KV_CARD),
                  {QStringLiteral("staff"), m_folder->filePath(QStringLiteral("none")), QStringLiteral("1")});
    QVERIFY(missing.waitForFinished());
    QCOMPARE(missing.exitCode(), 1);
    QVERIFY(!missing.readAllStandardError().isEmpty());
}

QTEST_GUILESS_MAIN(tst_serial_port)
#include "tst_serial_port.moc"
