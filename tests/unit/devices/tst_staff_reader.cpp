// The staff card reader on its serial line, and who of those that listen hears a card.

#include "Pty.h"
#include "common/BaseObject.h"
#include "common/Clock.h"
#include "common/MyMessage.h"
#include "devices/ReaderStacks.h"
#include "devices/SerialPort.h"
#include "platform/SerialPortName.h"
#include "support/Rows.h"
#include "support/StoredSetting.h"

#include <QDir>
#include <QProcess>
#include <QSignalSpy>
#include <QSqlDatabase>
#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <thread>

namespace {

QStringList logLines; // of the test that runs

/// How often this process holds the device, open or gone; a test's own end is one.
int holders(const QString& device)
{
    int count = 0;
    for (const QFileInfo& fd : QDir("/proc/self/fd").entryInfoList(QDir::System | QDir::Files))
        count += fd.symLinkTarget().startsWith(device) ? 1 : 0;
    return count;
}

/// Passes on what it is told.
struct Listener : BaseObject
{
    explicit Listener(std::function<void(const QString&)> hearing) : hear(std::move(hearing)) {}
    void readingExec(QString text) override { hear(" staff " + text); }
    void readingHandExec(QString text) override { hear(" hand " + text); }

    const std::function<void(const QString&)> hear;
};

using BurstRows = Rows<QByteArray, QString>;
using StackRows = Rows<QString, QString>;

} // namespace

class tst_staff_reader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder.reset(new QTemporaryDir);
        QVERIFY(QDir::setCurrent(m_folder->path()));
        m_messages.reset(new QSignalSpy(MyMessage::getInstance(), &MyMessage::showMessageSignal));
        logLines.clear();
        qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext&, const QString& line) { logLines.append(line); });
    }
    void cleanup()
    {
        qInstallMessageHandler(nullptr);
        m_numbers.reset();
        m_reader.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        m_messages.reset();
        qunsetenv("KV_PANEL_COM3");
        QSqlDatabase::removeDatabase("qt_sql_default_connection");
        QDir::setCurrent(QDir::rootPath());
    }

    void names()
    {
        for (const char* link : {"kv-com2", "kv-com3"})
            QVERIFY(QFile(m_folder->filePath(link)).open(QIODevice::WriteOnly));
        // What KV_PANEL_COM3 names; a path below the device folder begins with a dot.
        for (const auto& [port, named, path] :
             Table<QString, QByteArray, QString>{{"COM1", "", "./ttyS0"},
                                                 {"COM8", "", "./ttyS7"},
                                                 {"COM2", "", "./kv-com2"},
                                                 {"COM3", "/x/line", "/x/line"}, // before the link
                                                 {"COM4", "/x/line", "./ttyS3"},
                                                 {"COM", "", "COM"},
                                                 {"COM0", "", "COM0"},
                                                 {"/dev/ttyUSB0", "", "/dev/ttyUSB0"}}) {
            qputenv("KV_PANEL_COM3", named);
            QCOMPARE(serialPortName(port, m_folder->path()).replace(m_folder->path(), "."), path);
        }
    }

    /// Without a number nothing is delivered.
    void numbers_data()
    {
        BurstRows::add({{"short", "12345\r\n", "00012345"},
                        {"one digit, no end", "7", "00000007"},
                        {"eight", "12345678\r\n", "12345678"},
                        {"long", "1234567890\r\n", "34567890"},
                        {"lone CR and LF stay", "12\n3\r", "00012\n3\r"},
                        {"control characters", "\003123\004\004", "00000123"},
                        {"written-out ones", "\\u000312\\r\\n3\\u0004", "00000123"},
                        {"written-out in capitals stays", "1\\R\\N", "0001\\R\\N"},
                        {"CR LF goes before the controls", "12\r\003\n", "000012\r\n"},
                        {"written-out goes before the controls", "1\\u00\00303", "01\\u0003"},
                        {"padding comes after the removing", "\003\003\003\0031234567", "01234567"},
                        {"up to NUL", QByteArray("123\000456", 7), "00000123"},
                        {"UTF-8", "号1\r\n", "000000号1"},
                        {"NUL first", QByteArray("\000123", 4), ""},
                        {"controls alone", "\003\r\n\004\\r\\n\\u0003\\u0004", ""}});
    }
    void numbers()
    {
        const auto& [name, burst, number] = BurstRows::current();
        Pty pty;
        startOn(pty.line());
        QVERIFY(pty.write(burst));
        // What was read is logged as it came, then what it became.
        QStringList expected{"串口打开成功", QString::fromUtf8(burst.constData())};
        if (!number.isEmpty())
            expected.append(number);
        QTRY_COMPARE(logLines, expected);
        // Nothing of it is left over for the next card.
        QVERIFY(pty.write("99\r\n"));
        QTRY_COMPARE(read(), expected.mid(2) + QStringList{"00000099"});
        QVERIFY(m_messages->isEmpty());
    }
    void burstInPieces()
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
        QTRY_COMPARE(read(), QStringList{"00012345"});
        line.join();
    }
    void cardWhileTheLastOneIsStillHandled()
    {
        Pty pty;
        startOn(pty.line());
        // The first card opens a dialog that stands until the second one is read.
        connect(m_reader.get(), &StaffDevice::sendData, this, [&](const QString& number) {
            if (number != "00000001")
                return;
            QEventLoop dialog;
            connect(m_reader.get(), &StaffDevice::sendData, &dialog, &QEventLoop::quit);
            QTimer::singleShot(5000, &dialog, [&dialog] { dialog.exit(1); });
            QVERIFY(pty.write("2\r\n"));
            QCOMPARE(dialog.exec(), 0);
        });
        QVERIFY(pty.write("1\r\n"));
        QTRY_COMPARE(read(), (QStringList{"00000001", "00000002"}));
    }
    void destroyedByItsReading()
    {
        auto pty = std::make_unique<Pty>();
        const QString line = pty->line();
        startOn(line);
        m_numbers.reset();
        connect(m_reader.get(), &StaffDevice::sendData, this, [&] { m_reader.reset(); });
        QVERIFY(pty->write("1\r\n"));
        QTRY_VERIFY(!m_reader);
        pty.reset();
        QTRY_COMPARE(holders(line), 0);
    }
    void closedWhenTheProgramQuits()
    {
        const auto quit = [] {
            QTimer::singleShot(0, QCoreApplication::instance(), &QCoreApplication::quit);
            QCoreApplication::exec();
        };
        auto pty = std::make_unique<Pty>();
        startOn(pty->line());
        const QString lock = "/var/lock/LCK.." + pty->line().mid(5).replace('/', '_');
        QCOMPARE(holders(pty->line()), 2);
        QVERIFY(!QDir("/var/lock").exists() || QFile::exists(lock));
        quit();
        QCOMPARE(holders(pty->line()), 1);
        QVERIFY(!QFile::exists(lock));
        // One that is away isn't tried any more.
        m_reader->startDevice();
        pty.reset();
        QTRY_VERIFY(reopenTimer()->isActive());
        quit();
        QVERIFY(!reopenTimer()->isActive());
    }
    void portThatCannotBeOpened()
    {
        startOn(QString());
        QVERIFY(logLines.isEmpty() && m_messages->isEmpty() && !reopenTimer()->isActive());
        startOn(m_folder->filePath("none"));
        QCOMPARE(logLines, QStringList{"串口打开失败"});
        QCOMPARE(m_messages->takeFirst(), (QVariantList{"串口打开失败", "error"}));
        QVERIFY(!reopenTimer()->isActive());
    }
    void deviceThatVanishes()
    {
        // The device keeps its name and is another one each time it comes back, as a plug does.
        const QString name = m_folder->filePath("line");
        std::unique_ptr<Pty> pty;
        const auto plugIn = [&] {
            pty = std::make_unique<Pty>();
            QVERIFY(QFile::link(pty->line(), name));
        };
        const auto pull = [&] {
            const QString device = pty->line();
            QCOMPARE(holders(device), 2);
            pty.reset();
            QVERIFY(QFile::remove(name));
            QTRY_VERIFY(reopenTimer()->isActive());
            QCOMPARE(holders(device), 0);
        };
        plugIn();
        startOn(name);
        QCOMPARE(reopenTimer()->interval(), 5000);
        reopenTimer()->setInterval(1);
        QSignalSpy tries(reopenTimer(), &QTimer::timeout);
        for (int round = 1; round < 4; ++round) {
            QVERIFY(!reopenTimer()->isActive());
            QVERIFY(pty->write(QByteArray::number(round) + "\r\n"));
            QTRY_COMPARE(read().size(), round);
            QCOMPARE(read().last(), QString("0000000%1").arg(round));

            // One that comes and goes without a card is told of once.
            logLines.clear();
            pull();
            plugIn();
            QTRY_VERIFY(!reopenTimer()->isActive());
            pull();
            tries.clear();
            QTRY_VERIFY(tries.size() > 50);
            QCOMPARE(logLines, QStringList{"串口已断开"});
            plugIn();
            QTRY_VERIFY(!reopenTimer()->isActive());
        }
        QVERIFY(m_messages->isEmpty());
    }
    void presentedByCommand()
    {
        const auto present = [](const QString& line) {
            return QProcess::execute(KV_CARD, {"staff", line, "80011"});
        };
        QCOMPARE(present(m_folder->filePath("line")), 1);
        QFile line(m_folder->filePath("line"));
        QVERIFY(line.open(QIODevice::ReadWrite));
        QCOMPARE(present(line.fileName()), 0);
        QCOMPARE(line.readAll(), QByteArray("80011\r\n"));
    }

    /// A step is a letter and a listener's name: + registers, - takes off, x destroys without a word, ! reads
    /// another card, = the same one again, which has stayed on the reader unless ~ was before.
    void stacks_data()
    {
        StackRows::add({{"nobody", "!", ""},
                        {"last registered", "+a ! +b ! +c !", "abc"},
                        {"older one again", "+a +b ! -b !", "ba"},
                        {"out of the middle", "+a +b +c -b ! -c !", "ca"},
                        {"from the bottom", "+a +b -a ! -b !", "b"},
                        {"twice stands once, on top", "+a +b +a ! -a ! -a -b !", "ab"},
                        {"taking off a stranger", "+a -b ! -a -a !", "a"},
                        {"destroyed on top", "+a +b xb !", "a"},
                        {"destroyed in the middle", "+a +b +c xb -c !", "a"},
                        {"destroyed alone", "+a xa ! +b !", "b"},
                        {"one that takes no interest", "+a +0 ! -0 !", "a"},
                        {"stays, for him who has it", "+a ! =", "aa"},
                        {"stays, not for another", "+a ! +b = -a = !", "ab"},
                        {"stays, not for one behind who has gone", "+a +b ! xb = !", "ba"},
                        {"stays, nobody there for a while", "+a ! xa = +b = !", "ab"},
                        {"stays, there before anybody", "! = +a = +b =", "a"},
                        {"lifted and presented again", "+a ! +b = ~ =", "ab"}});
    }
    void stacks()
    {
        const auto& [row, steps, heard] = StackRows::current();
        for (const ReaderStacks::Reader reader : {ReaderStacks::Staff, ReaderStacks::Hand}) {
            const bool isStaff = reader == ReaderStacks::Staff;
            QStringList log;
            Listener stranger(
                [&log](const QString& text) { log.append('?' + text); }); // listens to the other reader
            ReaderStacks stacks;
            stacks.push(isStaff ? ReaderStacks::Hand : ReaderStacks::Staff, &stranger);
            QHash<QChar, std::shared_ptr<BaseObject>> listeners{{'0', std::make_shared<BaseObject>()}};
            for (const QChar name : QString("abc"))
                listeners.insert(name, std::make_shared<Listener>(
                                           [&log, name](const QString& text) { log.append(name + text); }));
            static qint64 nowMs;
            nowMs += 60000;
            Clock::setSource([] { return nowMs; });
            int card = 0;
            for (const QString& step : steps.split(' ')) {
                const QChar name = step.size() > 1 ? step.at(1) : QChar();
                if (step.startsWith('+'))
                    stacks.push(reader, listeners.value(name).get());
                else if (step.startsWith('-'))
                    stacks.remove(reader, listeners.value(name).get());
                else if (step.startsWith('x'))
                    listeners.remove(name);
                else if (step == "~")
                    nowMs += 1000;
                else
                    stacks.deliver(reader, QString::number(step == "!" ? ++card : card));
                nowMs += 400;
            }
            Clock::setSource(nullptr);
            log.replaceInStrings(QRegularExpression(" [0-9]+$"), {});
            QStringList expected;
            for (const QChar name : heard)
                expected.append(name + QString(isStaff ? " staff" : " hand"));
            QCOMPARE(log, expected);
        }
    }
    void listenersChangedWhileReading()
    {
        ReaderStacks stacks;
        QStringList heard;
        Listener page([&heard](const QString& text) { heard.append('p' + text); });
        std::unique_ptr<Listener> dialog;
        // A dialog that a card closes takes itself off and goes, and its page may read on at once.
        dialog = std::make_unique<Listener>([&](const QString& text) {
            heard.append('d' + text);
            stacks.remove(ReaderStacks::Staff, dialog.get());
            stacks.deliver(ReaderStacks::Staff, "nested");
            dialog.release()->deleteLater();
        });
        stacks.push(ReaderStacks::Staff, &page);
        stacks.push(ReaderStacks::Staff, dialog.get());
        stacks.deliver(ReaderStacks::Staff, "1");
        stacks.deliver(ReaderStacks::Staff, "2");
        QCOMPARE(heard, (QStringList{"d staff 1", "p staff nested", "p staff 2"}));
    }

private:
    /// Starts a reader on the device, or on none.
    void startOn(const QString& device)
    {
        QVERIFY(storeSetting("staff_device_com", device.isEmpty() ? "" : "COM3"));
        qputenv("KV_PANEL_COM3", device.toLocal8Bit());
        m_reader.reset(StaffDevice::initDevice());
        m_numbers.reset(new QSignalSpy(m_reader.get(), &StaffDevice::sendData));
        m_reader->startDevice();
    }
    QStringList read() const
    {
        QStringList numbers;
        for (const QVariantList& signal : *m_numbers)
            numbers.append(signal.first().toString());
        return numbers;
    }
    QTimer* reopenTimer() const { return m_reader->findChild<QTimer*>("reopen"); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QSignalSpy> m_messages;
    std::unique_ptr<StaffDevice> m_reader;
    std::unique_ptr<QSignalSpy> m_numbers;
};

QTEST_GUILESS_MAIN(tst_staff_reader)
#include "tst_staff_reader.moc"
