#include "Settings.h"
#include "Terminal.h"
#include "common/MyMessage.h"
#include "devices/HandCardDevice.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QSocketNotifier>
#include <QSqlDatabase>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>
#include <memory>
#include <unistd.h>

namespace {

void tell(const QString& line)
{
    std::puts(qPrintable(QString(line).replace(QLatin1Char('\n'), QStringLiteral("\\n"))));
    std::fflush(stdout);
}

int runReader(QCoreApplication& application, int model)
{
    QObject::connect(MyMessage::getInstance(), &MyMessage::showMessageSignal,
                     [](const QString& message, const QString& type) {
                         tell(QStringLiteral("message %1 %2").arg(type, message));
                     });
    std::unique_ptr<HandCardDevice> reader(HandCardDevice::initDevice(model));
    tell(reader->getInitStatus() ? QStringLiteral("usable") : QStringLiteral("not usable"));
    QObject::connect(reader.get(), &HandCardDevice::sendData, &application, [&](const QString& text) {
        if (QThread::currentThread() == application.thread())
            tell(QStringLiteral("card %1").arg(text));
    });
    QObject::connect(reader.get(), &QThread::finished, &application,
                     [] { tell(QStringLiteral("thread ended")); });
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
            tell(QStringLiteral("stopped %1").arg(waited.elapsed()));
        }
    });
    return application.exec();
}

int presentCard(const QString& socket, const QString& serial)
{
    return QProcess::execute(QStringLiteral(KV_CARD), {QStringLiteral("hand"), socket, serial});
}

QString oddFolder(const QString& name) { return QStringLiteral(KV_ODD_FOLDER "/") + name; }

} // namespace

class tst_hand_readers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder.reset(new QTemporaryDir);
        QVERIFY(QDir::setCurrent(m_folder->path()));
        QVERIFY(storeSetting(QStringLiteral("is_rfid_8"), QString()));
    }
    void cleanup()
    {
        QSqlDatabase::removeDatabase(QStringLiteral("qt_sql_default_connection"));
        QDir::setCurrent(QDir::rootPath());
    }

    void modelsWithoutDriver_data();
    void modelsWithoutDriver();
    void libraryNotUsable_data();
    void libraryNotUsable();
    void texts_data();
    void texts();
    void driversSteps_data();
    void driversSteps();
    void cardThatStays();
    void unclearAnswerIsNoCard();
    void failedPreparationEndsTheThread();
    void stopDuringARead();
    void stopAndStart();
    void presentedToNobody();

private:
    QString socket() const { return m_folder->filePath(QStringLiteral("reader")); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_hand_readers::modelsWithoutDriver_data()
{
    QTest::addColumn<int>("model");
    for (const int model : {-1, 0, 3, 6, 9, 10, 18, 21})
        QTest::addRow("%d", model) << model;
}

void tst_hand_readers::modelsWithoutDriver()
{
    QFETCH(int, model);
    const std::unique_ptr<HandCardDevice> reader(HandCardDevice::initDevice(model));
    QVERIFY(!reader);
}

void tst_hand_readers::libraryNotUsable_data()
{
    QTest::addColumn<int>("model");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("message");
    QTest::addColumn<bool>("isLogged");

    struct Driver
    {
        QVector<int> models;
        QString libraryName;
        QString shownName;
        QStringList entryPoints;
        QString missing;
        bool isLogged;
    };
    const Driver drivers[] = {
        {{1, 2}, "RF003Reader", "RF003Reader.dll", {"ReadRFID", "RDSound"}, "加载%1!\\n", false},
        {{4, 5},
         "port_dll",
         "port_dll.dll",
         {"FindCk", "CloseCK", "ReadOnLine", "SetReaderVoice", "EndforRecv"},
         "加载%1失败!\\n",
         false},
        {{7, 8},
         "SnMakeCard",
         "SnMakeCard.dll",
         {"TP_Configration", "TP_BeepOk", "TP_ReadCardSnr"},
         "加载%1!\\n",
         true},
        {{19, 20}, "RF008Reader_Pub", "RF008Reader_Pub.DLL", {"ReadRFID", "RDSound"}, "加载%1!\\n", true},
    };
    for (const Driver& driver : drivers) {
        for (const int model : driver.models)
            QTest::addRow("%d without library", model)
                << model << QString() << QStringLiteral("加载动态链接库%1失败").arg(driver.shownName)
                << driver.isLogged;
        for (const QString& entryPoint : driver.entryPoints)
            QTest::addRow("%d without %s", driver.models.first(), qPrintable(entryPoint))
                << driver.models.first() << QStringLiteral("%1_without_%2").arg(driver.libraryName, entryPoint)
                << driver.missing.arg(entryPoint) << driver.isLogged;
    }
    QTest::addRow("4 without reader") << 4 << "no_reader"
                                      << "【泰格】初始化读卡器失败,将不能正确读卡" << false;
}

void tst_hand_readers::libraryNotUsable()
{
    QFETCH(int, model);
    QFETCH(QString, folder);
    QFETCH(QString, message);
    QFETCH(bool, isLogged);
    Terminal terminal(model, oddFolder(folder));
    QTRY_VERIFY(terminal.lines().contains(QStringLiteral("not usable")));
    terminal.command("stop\n");
    QTRY_COMPARE(terminal.linesWith(QStringLiteral("stopped ")).size(), 1);
    QCOMPARE(terminal.end(), 0);

    QCOMPARE(terminal.linesWith(QStringLiteral("message ")), QStringList{QStringLiteral("error ") + message});
    QCOMPARE(terminal.lines().contains(QString(message).remove(QStringLiteral("\\n"))), isLogged);
    // Neither polled nor closed.
    QVERIFY(!terminal.lines().contains(QStringLiteral("thread ended")));
    QStringList calls = terminal.linesWith(QStringLiteral("called "));
    calls.removeAll(QStringLiteral("FindCk"));
    QCOMPARE(calls, QStringList());
}

void tst_hand_readers::texts_data()
{
    QTest::addColumn<int>("model");
    QTest::addColumn<QString>("eightDigits"); // the setting
    QTest::addColumn<QStringList>("cards");
    QTest::addColumn<QStringList>("texts");
    const QStringList bytes{"0a1b2c7f", "FF80f00d", "00000000"};
    const QStringList byteTexts{"0A1B2C7F", "FF80F00D", "00000000"};
    QTest::newRow("1: four bytes") << 1 << "" << bytes << byteTexts;
    QTest::newRow("20: four bytes, whatever the setting") << 20 << "1" << bytes << byteTexts;
    QTest::newRow("4: twelve digits, never fewer")
        << 4 << "" << QStringList{"12345678901", "123456789012", "1234567890123456", ""}
        << QStringList{"123456789012", "123456789012"};
    QTest::newRow("5: eight digits, bytes turned round")
        << 5 << "1" << QStringList{"123456789012", "ABCDE1F2A3B4", "00000000001", "0000E1F2A3B499"}
        << QStringList{"12907856", "B4A3F2E1", "B4A3F2E1"};
    QTest::newRow("5: another setting")
        << 5 << "2" << QStringList{"123456789012"} << QStringList{"123456789012"};
    QTest::newRow("7: unchanged") << 7 << "1" << QStringList{"04:a1 b2", "号42", "0"}
                                  << QStringList{"04:a1 b2", "号42", "0"};
}

void tst_hand_readers::texts()
{
    QFETCH(int, model);
    QFETCH(QString, eightDigits);
    QFETCH(QStringList, cards);
    QFETCH(QStringList, texts);
    QVERIFY(storeSetting(QStringLiteral("is_rfid_8"), eightDigits));
    Terminal terminal(model, QStringLiteral(KV_SIM_FOLDER), socket());
    QTRY_VERIFY(QFile::exists(socket()));
    for (const QString& card : cards)
        QCOMPARE(presentCard(socket(), card), 0);
    QTRY_COMPARE(terminal.cards(), texts);
    QCOMPARE(terminal.linesWith(QStringLiteral("reader: beep")).size(), texts.size());
    QCOMPARE(terminal.end(), 0);
    QCOMPARE(terminal.cards(), texts);
    QVERIFY(!QFile::exists(socket()));
}

void tst_hand_readers::driversSteps_data()
{
    QTest::addColumn<int>("model");
    QTest::addColumn<QString>("card");
    QTest::addColumn<QStringList>("lines");
    // A log line stands where it is written; the text itself reaches the main thread whenever that has time.
    QTest::newRow("1") << 1 << "0000000a"
                       << QStringList{"usable", "reader: beep", "0000000A", "end", "thread ended"};
    QTest::newRow("19") << 19 << "0000000a" << QStringList{"RF008Reader_Pub初始化成功",
                                                           "usable",
                                                           "reader: beep",
                                                           "0000000A",
                                                           "end",
                                                           "thread ended"};
    QTest::newRow("4") << 4 << "000000000001"
                       << QStringList{"usable", "reader: beep", "reader: reception ended",
                                      "end",    "thread ended", "reader: closed"};
    QTest::newRow("7") << 7 << "x" << QStringList{"加载动态链接库SnMakeCard.dll 成功",
                                                  "usable",
                                                  "reader: beep",
                                                  "x",
                                                  "end",
                                                  "thread ended"};
}

void tst_hand_readers::driversSteps()
{
    QFETCH(int, model);
    QFETCH(QString, card);
    QFETCH(QStringList, lines);
    Terminal terminal(model, QStringLiteral(KV_SIM_FOLDER), socket());
    QTRY_VERIFY(QFile::exists(socket()));
    QCOMPARE(presentCard(socket(), card), 0);
    QTRY_COMPARE(terminal.cards().size(), 1);
    terminal.command("stop\n");
    QTRY_VERIFY(terminal.lines().contains(QStringLiteral("thread ended")));
    QCOMPARE(terminal.end(), 0);
    QStringList seen;
    for (const QString& line : terminal.lines()) {
        if (line.startsWith(QLatin1String("stopped ")))
            seen.append(QStringLiteral("end"));
        else if (!line.startsWith(QLatin1String("card ")))
            seen.append(line);
    }
    QCOMPARE(seen, lines);
}

void tst_hand_readers::cardThatStays()
{
    Terminal terminal(2, oddFolder(QStringLiteral("card_stays")));
    QTRY_VERIFY(!terminal.cards().isEmpty());
    QElapsedTimer elapsed;
    elapsed.start();
    const int first = terminal.cards().size();
    QTRY_VERIFY(terminal.cards().size() >= first + 3);
    QVERIFY2(elapsed.elapsed() > 3 * 250, qPrintable(QString::number(elapsed.elapsed())));
    QCOMPARE(terminal.cards().count(QStringLiteral("00000000")), terminal.cards().size());
    // The pause behind a card doesn't hold up the stop.
    terminal.command("stop\n");
    QTRY_COMPARE(terminal.linesWith(QStringLiteral("stopped ")).size(), 1);
    QVERIFY(terminal.linesWith(QStringLiteral("stopped ")).first().toInt() < 250);
    QCOMPARE(terminal.end(), 0);
}

void tst_hand_readers::unclearAnswerIsNoCard()
{
    Terminal terminal(7, oddFolder(QStringLiteral("unclear_answer")));
    const QString read = QStringLiteral("called TP_ReadCardSnr");
    QTRY_VERIFY(terminal.lines().contains(read));
    QElapsedTimer elapsed;
    elapsed.start();
    const int first = terminal.lines().count(read);
    QTRY_VERIFY(terminal.lines().count(read) >= first + 5);
    QVERIFY2(elapsed.elapsed() > 5 * 50, qPrintable(QString::number(elapsed.elapsed())));
    QCOMPARE(terminal.end(), 0);
    QVERIFY(terminal.cards().isEmpty());
    QVERIFY(!terminal.lines().contains(QStringLiteral("called TP_BeepOk")));
    QCOMPARE(terminal.lines().count(QStringLiteral("called TP_Configration")), 1);
}

void tst_hand_readers::failedPreparationEndsTheThread()
{
    Terminal terminal(8, oddFolder(QStringLiteral("not_prepared")));
    QTRY_VERIFY(terminal.lines().contains(QStringLiteral("thread ended")));
    QVERIFY(terminal.lines().contains(QStringLiteral("usable")));
    QCOMPARE(terminal.end(), 0);
    QVERIFY(terminal.linesWith(QStringLiteral("message ")).isEmpty());
    QVERIFY(!terminal.lines().contains(QStringLiteral("called TP_ReadCardSnr")));
}

void tst_hand_readers::stopDuringARead()
{
    Terminal terminal(1, oddFolder(QStringLiteral("slow")));
    QTRY_VERIFY(terminal.lines().contains(QStringLiteral("read begins")));
    terminal.command("stop\n");
    QTRY_COMPARE(terminal.linesWith(QStringLiteral("stopped ")).size(), 1);
    QCOMPARE(terminal.end(), 0);
    // The read under way was finished first, and none began behind the stop.
    const QStringList beforeStop =
        terminal.lines().mid(0, terminal.lines().indexOf(QRegularExpression("^stopped .*")));
    QCOMPARE(beforeStop.count(QStringLiteral("read ends")), beforeStop.count(QStringLiteral("read begins")));
    QCOMPARE(terminal.lines().count(QStringLiteral("read begins")),
             beforeStop.count(QStringLiteral("read begins")));
}

void tst_hand_readers::stopAndStart()
{
    Terminal terminal(8, QStringLiteral(KV_SIM_FOLDER), socket());
    QTRY_VERIFY(QFile::exists(socket()));
    terminal.command("stop\n");
    QTRY_VERIFY(terminal.lines().contains(QStringLiteral("thread ended")));
    QCOMPARE(presentCard(socket(), QStringLiteral("while stopped")), 0);
    terminal.command("stop\n");
    QTRY_COMPARE(terminal.linesWith(QStringLiteral("stopped ")).size(), 2);
    QVERIFY(terminal.cards().isEmpty());
    terminal.command("start\n");
    QTRY_COMPARE(terminal.cards(), QStringList{QStringLiteral("while stopped")});
    QCOMPARE(terminal.end(), 0);
}

void tst_hand_readers::presentedToNobody()
{
    QVERIFY(presentCard(socket(), QStringLiteral("1")) != 0);
    QVERIFY(presentCard(QString(), QStringLiteral("1")) != 0);
    QCOMPARE(QProcess::execute(QStringLiteral(KV_CARD), {QStringLiteral("hand"), socket()}), 2);
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (application.arguments().value(1) == QLatin1String(readerArgument))
        return runReader(application, application.arguments().value(2).toInt());
    tst_hand_readers test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_hand_readers.moc"
