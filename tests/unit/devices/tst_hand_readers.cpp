#include "Terminal.h"
#include "common/MyMessage.h"
#include "devices/HandCardDevice.h"
#include "support/Rows.h"
#include "support/StoredSetting.h"

#include <QDir>
#include <QSocketNotifier>
#include <QSqlDatabase>
#include <QTemporaryDir>

#include <cstdio>
#include <memory>
#include <unistd.h>

namespace {

void tell(const QString& line)
{
    std::puts(qPrintable(QString(line).replace('\n', "\\n")));
    std::fflush(stdout);
}

int runReader(QCoreApplication& application, int model)
{
    QObject::connect(
        MyMessage::getInstance(), &MyMessage::showMessageSignal,
        [](const QString& message, const QString& type) { tell("message " + type + ' ' + message); });
    std::unique_ptr<HandCardDevice> reader(HandCardDevice::initDevice(model));
    tell(reader->getInitStatus() ? "usable" : "not usable");
    QObject::connect(reader.get(), &HandCardDevice::sendData, &application, [&](const QString& text) {
        if (QThread::currentThread() == application.thread())
            tell("card " + text);
    });
    QObject::connect(reader.get(), &QThread::finished, &application, [] { tell("thread ended"); });
    reader->startDevice(0);

    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &application, [&] {
        char command[16] = {};
        if (::read(STDIN_FILENO, command, sizeof command - 1) <= 0) {
            application.quit();
        } else if (qstrcmp(command, "start\n") == 0) {
            reader->startDevice(0);
        } else {
            QElapsedTimer waited;
            waited.start();
            reader->stopDevice();
            tell(QString("stopped %1").arg(waited.elapsed()));
        }
    });
    const int code = application.exec();
    if (reader->isRunning())
        reader.release(); // stuck in its library; the program's end leaves it behind as well
    return code;
}

int presentCard(const QString& socket, const QString& serial)
{
    return QProcess::execute(KV_CARD, {"hand", socket, serial});
}

QString oddFolder(const QString& name) { return KV_ODD_FOLDER "/" + name; }

using UnusableRows = Rows<int, QString, QString, bool>;
using CardRows = Rows<int, QString, QString, QString, QString, QString>;

} // namespace

class tst_hand_readers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder.reset(new QTemporaryDir);
        QVERIFY(QDir::setCurrent(m_folder->path()));
        QVERIFY(storeSetting("is_rfid_8", ""));
    }
    void cleanup()
    {
        QSqlDatabase::removeDatabase("qt_sql_default_connection");
        QDir::setCurrent(QDir::rootPath());
    }

    void modelsWithoutDriver()
    {
        for (const int model : {-1, 0, 3, 6, 9, 18, 21})
            QVERIFY(!std::unique_ptr<HandCardDevice>(HandCardDevice::initDevice(model)));
    }

    void libraryNotUsable_data()
    {
        // Model, and the next one; library, its ending, its entry points, what is said of a missing one.
        const Table<int, QString, QString, QString, QString, bool> drivers = {
            {1, "RF003Reader", ".dll", "ReadRFID RDSound", "加载%1!\\n", false},
            {4, "port_dll", ".dll", "FindCk CloseCK ReadOnLine SetReaderVoice EndforRecv", "加载%1失败!\\n",
             false},
            {7, "SnMakeCard", ".dll", "TP_Configration TP_BeepOk TP_ReadCardSnr", "加载%1!\\n", true},
            {19, "RF008Reader_Pub", ".DLL", "ReadRFID RDSound", "加载%1!\\n", true}};
        std::vector<UnusableRows::Row> rows = {
            {"4 without reader", 4, "no_reader", "【泰格】初始化读卡器失败,将不能正确读卡", false}};
        for (const auto& [first, library, suffix, entryPoints, missing, isLogged] : drivers) {
            const QString failed = "加载动态链接库" + library + suffix + "失败";
            for (const int model : {first, first + 1})
                rows.push_back({QString("%1 without library").arg(model), model, "", failed, isLogged});
            for (const QString& entry : entryPoints.split(' '))
                rows.push_back({library + " without " + entry, first, library + "_without_" + entry,
                                missing.arg(entry), isLogged});
        }
        UnusableRows::add(rows);
    }
    void libraryNotUsable()
    {
        const auto& [name, model, folder, message, isLogged] = UnusableRows::current();
        Terminal terminal(model, oddFolder(folder));
        QTRY_VERIFY(terminal.lines().contains("not usable"));
        terminal.stop();
        QTRY_VERIFY(terminal.hasStopped());
        QCOMPARE(terminal.end(), 0);
        QCOMPARE(terminal.told("message"), QStringList{"error " + message});
        QCOMPARE(terminal.lines().contains(QString(message).remove("\\n")), isLogged);
        QVERIFY(!terminal.hasEnded()); // neither polled nor closed
        QStringList calls = terminal.told("called");
        calls.removeAll("FindCk");
        QCOMPARE(calls, QStringList());
    }

    void cards_data()
    {
        const QString bytes = "0a1b2c7f FF80f00d 00000000";
        const QString byteTexts = "0A1B2C7F FF80F00D 00000000";
        const QString end = "end thread_ended";
        const QString closed = "reader:_reception_ended end thread_ended reader:_closed";
        CardRows::add(
            {{"1: four bytes", 1, "", bytes, byteTexts, "", end},
             {"20: whatever the setting", 20, "1", bytes, byteTexts, "RF008Reader_Pub初始化成功", end},
             {"4: twelve digits, never fewer", 4, "", "12345678901 123456789012 1234567890123456",
              "123456789012 123456789012", "", closed},
             {"5: eight digits, bytes turned round", 5, "1", "123456789012 00000000001 0000E1F2A3B499",
              "12907856 B4A3F2E1", "", closed},
             {"5: another setting", 5, "2", "123456789012", "123456789012", "", closed},
             {"7: unchanged", 7, "1", "04:a1 号42 0", "04:a1 号42 0", "加载动态链接库SnMakeCard.dll_成功",
              end}});
    }
    /// What a driver does, in its order, from its loading to its end. Head and tail are the lines around the
    /// cards, with blanks between them, as between cards and texts.
    void cards()
    {
        const auto& [name, model, eightDigits, cards, texts, head, tail] = CardRows::current();
        QVERIFY(storeSetting("is_rfid_8", eightDigits));
        Terminal terminal(model, KV_SIM_FOLDER, socket());
        QTRY_VERIFY(QFile::exists(socket()));
        for (const QString& card : cards.split(' '))
            QCOMPARE(presentCard(socket(), card), 0);
        QTRY_COMPARE(terminal.told("card").join(' '), texts);
        terminal.stop();
        QTRY_VERIFY(terminal.hasEnded());
        QCOMPARE(terminal.end(), 0);
        QCOMPARE(terminal.told("card").join(' '), texts);
        QVERIFY(!QFile::exists(socket()));

        QStringList expected = head.isEmpty() ? QStringList{} : QStringList{head};
        expected.append("usable");
        for (const QString& text : texts.split(' ')) {
            expected.append("reader:_beep");
            if (model != 4 && model != 5)
                expected.append(text);
        }
        expected += tail.split(' ');
        // A text reaches the main thread whenever that has time; its log line stands where it is written.
        QStringList seen;
        for (const QString& line : terminal.lines()) {
            if (!line.startsWith("card "))
                seen.append(line.startsWith("stopped ") ? "end" : QString(line).replace(' ', '_'));
        }
        QCOMPARE(seen, expected);
    }

    void cardThatStays()
    {
        Terminal terminal(2, oddFolder("card_stays"));
        QTRY_VERIFY(!terminal.told("card").isEmpty());
        QElapsedTimer elapsed;
        elapsed.start();
        const int first = terminal.told("card").size();
        QTRY_VERIFY(terminal.told("card").size() >= first + 3);
        QVERIFY2(elapsed.elapsed() > 3 * 250, qPrintable(QString::number(elapsed.elapsed())));
        // The pause behind a card doesn't hold up the stop.
        terminal.stop();
        QTRY_VERIFY(terminal.hasStopped());
        QVERIFY(terminal.told("stopped").first().toInt() < 250);
        QCOMPARE(terminal.end(), 0);
        QCOMPARE(terminal.told("card").count("00000000"), terminal.told("card").size());
    }
    void unclearAnswerIsNoCard()
    {
        Terminal terminal(7, oddFolder("unclear_answer"));
        const auto reads = [&terminal] { return terminal.told("called").count("TP_ReadCardSnr"); };
        QTRY_VERIFY(reads() > 0);
        QElapsedTimer elapsed;
        elapsed.start();
        const int first = reads();
        QTRY_VERIFY(reads() >= first + 5);
        QVERIFY2(elapsed.elapsed() > 5 * 50, qPrintable(QString::number(elapsed.elapsed())));
        QCOMPARE(terminal.end(), 0);
        QVERIFY(terminal.told("card").isEmpty() && !terminal.told("called").contains("TP_BeepOk"));
        QCOMPARE(terminal.told("called").count("TP_Configration"), 1);
    }
    void failedPreparationEndsTheThread()
    {
        Terminal terminal(8, oddFolder("not_prepared"));
        QTRY_VERIFY(terminal.hasEnded());
        QCOMPARE(terminal.end(), 0);
        QVERIFY(terminal.lines().contains("usable") && terminal.told("message").isEmpty());
        QVERIFY(!terminal.told("called").contains("TP_ReadCardSnr"));
    }
    void stopDuringARead()
    {
        Terminal terminal(1, oddFolder("slow"));
        QTRY_VERIFY(terminal.lines().contains("read begins"));
        terminal.stop();
        QTRY_VERIFY(terminal.hasStopped());
        QCOMPARE(terminal.end(), 0);
        // The read under way was finished first, and none began behind the stop.
        const int stop = terminal.lines().indexOf(QRegularExpression("^stopped .*"));
        const QStringList before = terminal.lines().mid(0, stop);
        QCOMPARE(before.count("read ends"), before.count("read begins"));
        QCOMPARE(terminal.lines().count("read begins"), before.count("read begins"));
    }
    /// Whoever ends the program doesn't wait for a library that never comes back.
    void stopDuringAReadWithoutEnd()
    {
        Terminal terminal(1, oddFolder("hanging"));
        QTRY_VERIFY(terminal.lines().contains("read begins"));
        terminal.stop();
        QTRY_VERIFY_WITH_TIMEOUT(terminal.hasStopped(), 20000);
        QVERIFY(!terminal.lines().contains("read ends"));
        QCOMPARE(terminal.end(), 0);
    }
    void stopAndStart()
    {
        Terminal terminal(8, KV_SIM_FOLDER, socket());
        QTRY_VERIFY(QFile::exists(socket()));
        terminal.stop();
        QTRY_VERIFY(terminal.hasEnded());
        QCOMPARE(presentCard(socket(), "while stopped"), 0);
        terminal.stop();
        QTRY_VERIFY(terminal.hasStopped(2));
        QVERIFY(terminal.told("card").isEmpty());
        terminal.start();
        QTRY_COMPARE(terminal.told("card"), QStringList{"while stopped"});
        QCOMPARE(terminal.end(), 0);
    }

private:
    QString socket() const { return m_folder->filePath("reader"); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (application.arguments().value(1) == "--reader")
        return runReader(application, application.arguments().value(2).toInt());
    tst_hand_readers test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_hand_readers.moc"
