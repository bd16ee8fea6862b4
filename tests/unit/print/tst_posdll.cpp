#include "Samples.h"
#include "StandInDevices.h"
#include "common/Clock.h"
#include "common/GlobalConfig.h"
#include "platform/LocalText.h"

#include <QDir>
#include <QElapsedTimer>
#include <QImage>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// Bytes of the printers' encoding out of the test's own.
QByteArray gbk(const char* text) { return LocalText::encode(QString::fromUtf8(text)); }

/// What a printer has to get for printSmallSlip().
QByteArray smallSlip()
{
    return QByteArray::fromHex("1b40 1c26"                       // start state, Chinese characters
                               "1d2101 cad6c5c6 2031 0a 0a"      // tall: 手牌 1, and a bare feed
                               "1d2100 706c61696e 0a 1d56410a"); // low: plain, and the cut
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

/// Our own printer library, through its entry points and its printers.
class tst_posdll : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void loads_data();
    void loads();
    void restIsNotSupported();
    void argumentsNotSupported();
    void withoutOpen();
    void refusesWhatIsntThere_data();
    void refusesWhatIsntThere();

    void network_data();
    void network();
    void deviceFile();
    void brokenPrinterIsAskedOnce();
    void systemPrinter();
    void preview();
    void controlCharacters();
    void everySlipOverTheNetwork();

private:
    PosHandle open(const QString& name, unsigned kind = PosPrinterName)
    {
        return m_library.POS_Open(LocalText::encode(name).constData(), 0, 0, 0, 0, kind);
    }
    void printSmallSlip();
    QString file(const char* name) const { return m_folder->filePath(QString::fromLatin1(name)); }

    PosPrintDLL m_library;
    QScopedPointer<QTemporaryDir> m_folder;
};

void tst_posdll::initTestCase()
{
    QVERIFY2(m_library.LoadPosdll(QStringLiteral(POSDLL_FILE)), qPrintable(m_library.errorString()));
}

void tst_posdll::init()
{
    m_folder.reset(new QTemporaryDir);
    qputenv("KV_PANEL_PREVIEW_DIR", QFile::encodeName(file("slips")));
    qunsetenv("KV_PANEL_PRINTERS");
}

void tst_posdll::printSmallSlip()
{
    QCOMPARE(m_library.POS_StartDoc(), 0);
    QCOMPARE(m_library.POS_SetMode(0), 0);
    QCOMPARE(m_library.POS_S_TextOut(gbk("手牌 1").constData(), 0, 1, 2, 0, 0), 0);
    QCOMPARE(m_library.POS_FeedLine(), 0);
    QCOMPARE(m_library.POS_FeedLine(), 0);
    QCOMPARE(m_library.POS_S_TextOut("plain", 0, 1, 1, 0, 0), 0);
    QCOMPARE(m_library.POS_FeedLine(), 0);
    QCOMPARE(m_library.POS_CutPaper(0, 10), 0);
    QCOMPARE(m_library.POS_EndDoc(), 0);
}

void tst_posdll::loads_data()
{
    QTest::addColumn<QString>("library");
    QTest::addColumn<QString>("error"); // empty: loads
    QTest::newRow("complete") << QStringLiteral("pos_complete") << QString();
    QTest::newRow("without the first")
        << QStringLiteral("pos_without_first") << QStringLiteral("no entry point POS_Open");
    QTest::newRow("without the last") << QStringLiteral("pos_without_last")
                                      << QStringLiteral("no entry point POS_GetVersionInfo");
    QTest::newRow("without two, the earlier is told")
        << QStringLiteral("pos_without_two") << QStringLiteral("no entry point POS_Reset");
    QTest::newRow("missing") << QStringLiteral("pos_missing") << QStringLiteral("pos_missing");
}

void tst_posdll::loads()
{
    QFETCH(QString, library);
    QFETCH(QString, error);
    PosPrintDLL loaded;
    QCOMPARE(loaded.LoadPosdll(QStringLiteral(STAND_INS "/") + library), error.isEmpty());
    QVERIFY2(loaded.errorString().contains(error), qPrintable(loaded.errorString()));
    QCOMPARE(loaded.POS_EndDoc != nullptr, error.isEmpty());
    loaded.UnloadPosdll();
    QVERIFY(!loaded.POS_Open && !loaded.POS_EndDoc);
}

void tst_posdll::restIsNotSupported()
{
    QLibrary library(QStringLiteral(POSDLL_FILE));
    int unused = 0;
    int called = 0;
#define CALLED(name, Type) ++called;
#define UNUSED(name)                                                                                           \
    ++unused;                                                                                                  \
    const auto name = reinterpret_cast<PosPlain>(library.resolve(#name));                                      \
    QVERIFY(name&& name() != 0);
    POS_ENTRY_POINTS(CALLED, UNUSED)
#undef CALLED
#undef UNUSED
    QCOMPARE(called, 9);
    QCOMPARE(unused, 32);
}

void tst_posdll::argumentsNotSupported()
{
    QVERIFY(open(QStringLiteral("预览打印机")) != posOpenFailed());
    QVERIFY(m_library.POS_SetMode(1) != 0);
    QVERIFY(m_library.POS_CutPaper(1, 10) != 0);
    QVERIFY(m_library.POS_CutPaper(0, 256) != 0);
    QVERIFY(m_library.POS_S_TextOut(nullptr, 0, 1, 1, 0, 0) != 0);
    QVERIFY(m_library.POS_S_TextOut("a", 0, 1, 3, 0, 0) != 0);
    QVERIFY(m_library.POS_S_TextOut("a", 0, 2, 1, 0, 0) != 0);
    QCOMPARE(m_library.POS_Close(), 0);
    QVERIFY(!QFile::exists(file("slips/slip-0001.bin"))); // nothing of it came out
}

void tst_posdll::withoutOpen()
{
    QVERIFY(m_library.POS_StartDoc() != 0);
    QVERIFY(m_library.POS_FeedLine() != 0);
    QVERIFY(m_library.POS_EndDoc() != 0);
    QVERIFY(m_library.POS_Close() != 0);
}

void tst_posdll::refusesWhatIsntThere_data()
{
    QTcpServer closed;
    QVERIFY(closed.listen(QHostAddress::LocalHost));
    const QString deadPort = QStringLiteral("127.0.0.1:%1").arg(closed.serverPort());

    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("target");
    const QString own = QStringLiteral("吧台");
    const auto row = [&](const char* test, const QString& name, const QString& target,
                         int kind = PosPrinterName) { QTest::newRow(test) << name << kind << target; };
    row("no name", QString(), QString());
    row("unknown to the system", QStringLiteral("no such printer"), QString());
    row("an option for a name", QStringLiteral("-t"), QString());
    row("no such device", own, QStringLiteral("/dev/no-such-printer"));
    row("a folder as device", own, QStringLiteral("/tmp"));
    row("nobody listens", own, QStringLiteral("tcp://") + deadPort);
    row("nobody listens at the address", deadPort, QString(), PosNetworkAddress);
    row("not a numeric address", QStringLiteral("printer.invalid"), QString(), PosNetworkAddress);
    row("no address", QString(), QString(), PosNetworkAddress);
    row("preview without a folder", own, QStringLiteral("preview:/dev/null/slips"));
    row("no such port kind", QStringLiteral("预览打印机"), QString(), 0x13);
}

void tst_posdll::refusesWhatIsntThere()
{
    QFETCH(QString, name);
    QFETCH(int, kind);
    QFETCH(QString, target);
    qputenv("KV_PANEL_PRINTERS", (name + QLatin1Char('=') + target).toUtf8());
    QElapsedTimer time;
    time.start();
    QVERIFY(open(name, unsigned(kind)) == posOpenFailed());
    QVERIFY(time.elapsed() < 4000);
    QVERIFY(m_library.POS_StartDoc() != 0);
}

void tst_posdll::network_data()
{
    QTest::addColumn<bool>("byName");
    QTest::newRow("by address") << false;
    QTest::newRow("by name") << true;
}

void tst_posdll::network()
{
    QFETCH(bool, byName);
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    const QString address = QStringLiteral("127.0.0.1:%1").arg(server.serverPort());
    qputenv("KV_PANEL_PRINTERS", "kitchen=tcp://" + address.toLatin1());

    QVERIFY(open(byName ? QStringLiteral("kitchen") : address, byName ? PosPrinterName : PosNetworkAddress) !=
            posOpenFailed());
    printSmallSlip();
    printSmallSlip();
    QCOMPARE(m_library.POS_Close(), 0);

    QVERIFY(server.waitForNewConnection(1000));
    QScopedPointer<QTcpSocket> printer(server.nextPendingConnection());
    QTRY_COMPARE(printer->state(), QAbstractSocket::UnconnectedState);
    QCOMPARE(printer->readAll(), smallSlip() + smallSlip());
}

void tst_posdll::deviceFile()
{
    Pipe pipe(file("lp0"));
    QVERIFY(pipe.isOpen());
    qputenv("KV_PANEL_PRINTERS", "前台=" + QFile::encodeName(file("lp0")));
    QVERIFY(open(QStringLiteral("前台")) != posOpenFailed());
    printSmallSlip();
    QCOMPARE(pipe.readAll(), smallSlip()); // sent at its end, not at the close
    QCOMPARE(m_library.POS_Close(), 0);
    QCOMPARE(pipe.readAll(), QByteArray());
}

void tst_posdll::brokenPrinterIsAskedOnce()
{
    Pipe pipe(file("lp0"));
    QVERIFY(pipe.isOpen());
    qputenv("KV_PANEL_PRINTERS", "前台=" + QFile::encodeName(file("lp0")));
    QVERIFY(open(QStringLiteral("前台")) != posOpenFailed());
    pipe.close();
    QCOMPARE(m_library.POS_StartDoc(), 0);
    QVERIFY(m_library.POS_EndDoc() != 0);

    Pipe again(file("lp0"));
    QCOMPARE(m_library.POS_StartDoc(), 0);
    QVERIFY(m_library.POS_EndDoc() != 0);
    QVERIFY(m_library.POS_Close() != 0);
    QCOMPARE(again.readAll(), QByteArray());
    QVERIFY(open(QStringLiteral("前台")) != posOpenFailed());
    printSmallSlip();
    QCOMPARE(again.readAll(), smallSlip());
    m_library.POS_Close();
}

void tst_posdll::systemPrinter()
{
    // The print system's two commands: one printer is known, and jobs go to a file.
    writeScript(file("lpstat"), "[ \"$1 $2\" = '-p 前台' ]\n");
    writeScript(file("lp"), "cd \"$(dirname \"$0\")\" && echo \"$@\" >> arguments && cat >> job\n");
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(m_folder->path()) + ':' + path);
    const bool isUnknown = open(QStringLiteral("厨房")) == posOpenFailed();
    const bool isKnown = open(QStringLiteral("前台")) != posOpenFailed();
    if (isKnown)
        printSmallSlip();
    m_library.POS_Close();
    qputenv("PATH", path);
    QVERIFY(isUnknown && isKnown);
    QCOMPARE(contentOf(file("job")), smallSlip());
    QCOMPARE(contentOf(file("arguments")), QByteArray("-s -d 前台 -o raw -t slip\n"));
}

void tst_posdll::preview()
{
    for (int slip = 0; slip < 2; ++slip) {
        QVERIFY(open(QStringLiteral("预览打印机")) != posOpenFailed());
        printSmallSlip();
        QCOMPARE(m_library.POS_Close(), 0);
    }
    for (const char* name : {"slips/slip-0001", "slips/slip-0002"}) {
        const QString base = file(name);
        QCOMPARE(contentOf(base + QStringLiteral(".bin")), smallSlip());
        QCOMPARE(contentOf(base + QStringLiteral(".txt")), QByteArray("手牌 1\n\nplain\n[cut]\n"));
        const QImage picture(base + QStringLiteral(".png"));
        QCOMPARE(picture.width(), 48 * 12 + 2 * 32);
        // Margins, a tall line, a bare feed, a low line and the cut.
        QCOMPARE(picture.height(), 2 * 32 + (48 + 6) + (24 + 6) + (24 + 6) + 20);
        const auto isInked = [&](int left, int width, int top, int height) {
            const QImage part =
                picture.copy(left, top, width, height).convertToFormat(QImage::Format_Grayscale8);
            int darkest = 255;
            for (int y = 0; y < part.height(); ++y)
                darkest = std::min(darkest,
                                   int(*std::min_element(part.scanLine(y), part.scanLine(y) + part.width())));
            return darkest < 128;
        };
        QVERIFY(isInked(32, 24, 32, 24) && isInked(32, 24, 56, 24)); // a character, upper and lower half
        QVERIFY(!isInked(32 + 4 * 12, 12, 32, 54));                  // the blank behind both
        QVERIFY(isInked(32 + 5 * 12, 12, 32, 54));                   // the digit, in its column
        QVERIFY(!isInked(0, picture.width(), 32 + 54, 30));          // the feed
        QVERIFY(isInked(32, 12, 32 + 84, 24));                       // the low line
    }
}

void tst_posdll::controlCharacters()
{
    QVERIFY(open(QStringLiteral("预览打印机")) != posOpenFailed());
    m_library.POS_StartDoc();
    m_library.POS_S_TextOut("a\x1b@\x1dV\n\t\x7f"
                            "b",
                            0, 1, 1, 0, 0);
    m_library.POS_FeedLine();
    m_library.POS_EndDoc();
    QCOMPARE(m_library.POS_Close(), 0);
    QCOMPARE(contentOf(file("slips/slip-0001.bin")), QByteArray("\x1b@\x1c&a @ V   b\n"));
}

/// Two ways to the paper, the same bytes: all nine slips to a listener, and to the preview printer.
void tst_posdll::everySlipOverTheNetwork()
{
    GlobalConfig::getInstance()->leave_room_print_count = 1;
    GlobalConfig::getInstance()->stop_server_print_count = 1;
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    qputenv("KV_PANEL_PRINTERS", "前台=tcp://127.0.0.1:" + QByteArray::number(server.serverPort()));
    PrintSettings settings;
    settings.orderPrintNum = 1;
    settings.isOpenRoomPrint = true;
    const auto printAll = [&](const char* printer) {
        settings.printerName = QString::fromUtf8(printer);
        for (const Samples::Slip& slip : Samples::all())
            PosPrint(m_library, true, settings).print(slip.kind, slip.record, {}, {});
    };
    Clock::setSource(&Samples::printedAtMs);
    printAll("前台");
    printAll("预览打印机");
    Clock::setSource(nullptr);

    for (int slip = 1; slip <= Samples::all().size(); ++slip) {
        QTRY_VERIFY(server.hasPendingConnections());
        QScopedPointer<QTcpSocket> printer(server.nextPendingConnection());
        QTRY_COMPARE(printer->state(), QAbstractSocket::UnconnectedState);
        const QByteArray arrived = printer->readAll();
        QVERIFY(arrived.size() > 500);
        QCOMPARE(arrived, contentOf(m_folder->filePath(QStringLiteral("slips/slip-000%1.bin").arg(slip))));
    }
}

QTEST_MAIN(tst_posdll)
#include "tst_posdll.moc"
