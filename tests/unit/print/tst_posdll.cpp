// Our own printer library, through its entry points and its printers; those that stop taking data give an
// error, and soon.

#include "Printer.h"
#include "platform/LocalText.h"
#include "print/PosPrintDLL.h"
#include "support/Rows.h"

#include <QDir>
#include <QImage>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

/// What a printer has to get for printSmallSlip().
QByteArray smallSlip()
{
    return QByteArray::fromHex("1b40 1c26"                       // start state, Chinese characters
                               "1d2101 cad6c5c6 2031 0a 0a"      // tall: 手牌 1, and a bare feed
                               "1d2100 706c61696e 0a 1d56410a"); // low: plain, and the cut
}

/// Fast, so that a test of a printer that stalls is one of a moment.
constexpr PrinterLimits quick{300, 300, 600};

const QByteArray longSlip(4 << 20, 'x'); // more than any pipe or socket buffer keeps

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// An executable of ours in the place of a command.
void writeScript(const QString& path, const QByteArray& script)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("#!/bin/sh\n" + script);
    QVERIFY(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

/// A named pipe with its reading end, which never waits.
class Pipe
{
public:
    explicit Pipe(const QString& path)
    {
        ::mkfifo(qPrintable(path), 0600);
        m_end = ::open(qPrintable(path), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    }
    ~Pipe() { close(); }
    QByteArray readAll() const
    {
        QByteArray all(1 << 20, '\0');
        all.resize(int(qMax<ssize_t>(0, ::read(m_end, all.data(), size_t(all.size())))));
        return all;
    }
    void close()
    {
        if (m_end >= 0)
            ::close(m_end);
        m_end = -1;
    }

private:
    int m_end;
};

using MissingRows = Rows<QString, unsigned, QString>;

/// What the preview put on the paper within a part of it.
bool isInked(const QImage& picture, int left, int width, int top, int height)
{
    const QImage part = picture.copy(left, top, width, height).convertToFormat(QImage::Format_Grayscale8);
    for (int y = 0; y < part.height(); ++y) {
        if (*std::min_element(part.scanLine(y), part.scanLine(y) + part.width()) < 128)
            return true;
    }
    return false;
}

} // namespace

class tst_posdll : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY2(m_library.LoadPosdll(POSDLL_FILE), qPrintable(m_library.errorString())); }
    void init()
    {
        m_folder.reset(new QTemporaryDir);
        qputenv("KV_PANEL_PREVIEW_DIR", QFile::encodeName(file("slips")));
        qunsetenv("KV_PANEL_PRINTERS");
    }

    void loads()
    {
        const QMap<QString, QString> errors{{"complete", ""},
                                            {"without_first", "no entry point POS_Open"},
                                            {"without_last", "no entry point POS_GetVersionInfo"},
                                            {"without_two", "no entry point POS_Reset"},
                                            {"missing", "pos_missing"}};
        for (auto it = errors.begin(); it != errors.end(); ++it) {
            PosPrintDLL loaded;
            QCOMPARE(loaded.LoadPosdll(STAND_INS "/pos_" + it.key()), it.value().isEmpty());
            QVERIFY2(loaded.errorString().contains(it.value()), qPrintable(loaded.errorString()));
            QCOMPARE(loaded.POS_EndDoc != nullptr, it.value().isEmpty());
            loaded.UnloadPosdll();
            QVERIFY(!loaded.POS_Open && !loaded.POS_EndDoc);
        }
    }
    void argumentsNotSupported()
    {
        QVERIFY(open("预览打印机"));
        QVERIFY(m_library.POS_SetMode(1) != 0);
        QVERIFY(m_library.POS_CutPaper(1, 10) != 0 && m_library.POS_CutPaper(0, 256) != 0);
        QVERIFY(m_library.POS_S_TextOut(nullptr, 0, 1, 1, 0, 0) != 0);
        QVERIFY(m_library.POS_S_TextOut("a", 0, 1, 3, 0, 0) != 0);
        QVERIFY(m_library.POS_S_TextOut("a", 0, 2, 1, 0, 0) != 0);
        QCOMPARE(m_library.POS_Close(), 0);
        QVERIFY(!QFile::exists(file("slips/slip-0001.bin")));                    // nothing of it came out
        QVERIFY(m_library.POS_StartDoc() != 0 && m_library.POS_FeedLine() != 0); // without an opened printer
        QVERIFY(m_library.POS_EndDoc() != 0 && m_library.POS_Close() != 0);
    }

    void refusesWhatIsntThere_data()
    {
        QTcpServer closed;
        QVERIFY(closed.listen(QHostAddress::LocalHost));
        const QString deadPort = QString("127.0.0.1:%1").arg(closed.serverPort());
        MissingRows::add({{"no name", "", PosPrinterName, ""},
                          {"unknown to the system", "no such printer", PosPrinterName, ""},
                          {"an option for a name", "-t", PosPrinterName, ""},
                          {"no such device", "吧台", PosPrinterName, "/dev/no-such-printer"},
                          {"a folder as device", "吧台", PosPrinterName, "/tmp"},
                          {"nobody listens", "吧台", PosPrinterName, "tcp://" + deadPort},
                          {"nobody listens at the address", deadPort, PosNetworkAddress, ""},
                          {"not a numeric address", "printer.invalid", PosNetworkAddress, ""},
                          {"no address", "", PosNetworkAddress, ""},
                          {"preview without a folder", "吧台", PosPrinterName, "preview:/dev/null/slips"},
                          {"no such port kind", "预览打印机", 0x13, ""}});
    }
    void refusesWhatIsntThere()
    {
        const auto& [name, printer, kind, target] = MissingRows::current();
        qputenv("KV_PANEL_PRINTERS", (printer + '=' + target).toUtf8());
        QElapsedTimer time;
        time.start();
        QVERIFY(!open(printer, kind));
        QVERIFY(time.elapsed() < 4000);
        QVERIFY(m_library.POS_StartDoc() != 0);
    }

    void network()
    {
        QTcpServer server;
        QVERIFY(server.listen(QHostAddress::LocalHost));
        const QString address = QString("127.0.0.1:%1").arg(server.serverPort());
        qputenv("KV_PANEL_PRINTERS", "kitchen=tcp://" + address.toLatin1());
        for (const bool byName : {false, true}) {
            QVERIFY(byName ? open("kitchen") : open(address, PosNetworkAddress));
            printSmallSlip();
            printSmallSlip();
            QCOMPARE(m_library.POS_Close(), 0);
            QVERIFY(server.waitForNewConnection(1000));
            QScopedPointer<QTcpSocket> printer(server.nextPendingConnection());
            QTRY_COMPARE(printer->state(), QAbstractSocket::UnconnectedState);
            QCOMPARE(printer->readAll(), smallSlip() + smallSlip());
        }
    }
    void networkThatStopsReading()
    {
        // More than the buffers of both sides keep; then a slip that our side's buffer would keep.
        for (const int bytes : {longSlip.size(), 8000}) {
            QTcpServer server; // whose connection waits unread
            QVERIFY(server.listen(QHostAddress::LocalHost));
            const int window = 1;
            if (bytes == 8000)
                ::setsockopt(int(server.socketDescriptor()), SOL_SOCKET, SO_RCVBUF, &window, sizeof window);
            const auto printer = openNetworkPrinter(QString("localhost:%1").arg(server.serverPort()), quick);
            QVERIFY(isRefusedSoon(printer.get(), longSlip.left(bytes)));
        }
        QTcpServer server; // that goes away
        QVERIFY(server.listen(QHostAddress::LocalHost));
        const auto printer = openNetworkPrinter(QString("127.0.0.1:%1").arg(server.serverPort()), quick);
        QVERIFY(server.waitForNewConnection(1000));
        server.nextPendingConnection()->abort();
        server.close();
        QVERIFY(isRefusedSoon(printer.get(), longSlip));
    }
    /// What fits into the buffers is confirmed in any case; whether it was read shows when the printer hangs
    /// up.
    void networkThatHangsUp()
    {
        for (const bool readsAll : {false, true}) {
            QTcpServer server;
            QVERIFY(server.listen(QHostAddress::LocalHost));
            const int listener = int(server.socketDescriptor());
            const auto printer = openNetworkPrinter(QString("127.0.0.1:%1").arg(server.serverPort()), quick);
            std::thread other([listener, readsAll] {
                const int line = ::accept(listener, nullptr, nullptr);
                char bytes[4096];
                ::recv(line, bytes, readsAll ? sizeof bytes : 10, readsAll ? MSG_WAITALL : 0);
                ::close(line);
            });
            QCOMPARE(printer->send(longSlip.left(4096)), readsAll);
            other.join();
        }
    }
    void deviceFile()
    {
        Pipe pipe(file("lp0"));
        qputenv("KV_PANEL_PRINTERS", "前台=" + QFile::encodeName(file("lp0")));
        QVERIFY(open("前台"));
        printSmallSlip();
        QCOMPARE(pipe.readAll(), smallSlip()); // sent at its end, not at the close
        QCOMPARE(m_library.POS_Close(), 0);
        QCOMPARE(pipe.readAll(), QByteArray());

        // A broken printer is asked once.
        QVERIFY(open("前台"));
        pipe.close();
        QCOMPARE(m_library.POS_StartDoc(), 0);
        QVERIFY(m_library.POS_EndDoc() != 0);
        const Pipe again(file("lp0"));
        QCOMPARE(m_library.POS_StartDoc(), 0);
        QVERIFY(m_library.POS_EndDoc() != 0 && m_library.POS_Close() != 0);
        QCOMPARE(again.readAll(), QByteArray());
        QVERIFY(open("前台"));
        printSmallSlip();
        QCOMPARE(again.readAll(), smallSlip());
        m_library.POS_Close();
    }
    void deviceThatStopsReading()
    {
        Pipe pipe(file("lp0"));
        QVERIFY(isRefusedSoon(openDeviceFile(file("lp0"), quick).get(), longSlip));
        const auto printer = openDeviceFile(file("lp0"), quick);
        pipe.close();
        QVERIFY(isRefusedSoon(printer.get(), "slip")); // and the test is still alive
    }
    void systemPrinter()
    {
        // The print system's two commands: one printer is known, and jobs go to a file.
        writeScript(file("lpstat"), "[ \"$1 $2\" = '-p 前台' ]\n");
        writeScript(file("lp"), "cd \"$(dirname \"$0\")\" && echo \"$@\" >> arguments && cat >> job\n");
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(m_folder->path()) + ':' + path);
        const bool isUnknown = !open("厨房");
        const bool isKnown = open("前台");
        if (isKnown)
            printSmallSlip();
        m_library.POS_Close();
        writeScript(file("lp"), "exec sleep 60\n");
        const bool isGivenUp = isRefusedSoon(openSystemPrinter("前台", quick).get(), "slip");
        qputenv("PATH", path);
        QVERIFY(isUnknown && isKnown && isGivenUp);
        QCOMPARE(contentOf(file("job")), smallSlip());
        QCOMPARE(contentOf(file("arguments")), QByteArray("-s -d 前台 -o raw -t slip\n"));
    }
    void preview()
    {
        for (const QString& name : {file("slips/slip-0001"), file("slips/slip-0002")}) {
            QVERIFY(open("预览打印机"));
            printSmallSlip();
            QCOMPARE(m_library.POS_Close(), 0);
            QCOMPARE(contentOf(name + ".bin"), smallSlip());
            QCOMPARE(contentOf(name + ".txt"), QByteArray("手牌 1\n\nplain\n[cut]\n"));
            const QImage picture(name + ".png");
            // Margins; a tall line, a bare feed, a low line and the cut.
            QCOMPARE(picture.size(), QSize(48 * 12 + 2 * 32, 2 * 32 + (48 + 6) + (24 + 6) + (24 + 6) + 20));
            QVERIFY(isInked(picture, 32, 24, 56, 24)); // its lower half
            QVERIFY(!isInked(picture, 32 + 4 * 12, 12, 32, 54) && isInked(picture, 92, 12, 32, 54)); // " 1"
            QVERIFY(!isInked(picture, 0, 640, 86, 30) && isInked(picture, 32, 12, 116, 24)); // feed, low line
        }
    }
    void controlCharacters()
    {
        QVERIFY(open("预览打印机"));
        m_library.POS_StartDoc();
        m_library.POS_S_TextOut("\x1b@\x1dV\n\t\x7f", 0, 1, 1, 0, 0);
        m_library.POS_EndDoc();
        QCOMPARE(m_library.POS_Close(), 0);
        QCOMPARE(contentOf(file("slips/slip-0001.bin")), QByteArray("\x1b@\x1c& @ V   "));
    }

private:
    QString file(const char* name) const { return m_folder->filePath(name); }
    bool open(const QString& name, unsigned kind = PosPrinterName)
    {
        return m_library.POS_Open(LocalText::encode(name).constData(), 0, 0, 0, 0, kind) != posOpenFailed();
    }
    void printSmallSlip()
    {
        QCOMPARE(m_library.POS_StartDoc() + m_library.POS_SetMode(0), 0);
        QCOMPARE(m_library.POS_S_TextOut(LocalText::encode("手牌 1").constData(), 0, 1, 2, 0, 0), 0);
        QCOMPARE(m_library.POS_FeedLine() + m_library.POS_FeedLine(), 0);
        QCOMPARE(m_library.POS_S_TextOut("plain", 0, 1, 1, 0, 0) + m_library.POS_FeedLine(), 0);
        QCOMPARE(m_library.POS_CutPaper(0, 10) + m_library.POS_EndDoc(), 0);
    }
    static bool isRefusedSoon(Printer* printer, const QByteArray& slip)
    {
        QElapsedTimer time;
        time.start();
        return printer && !printer->send(slip) && time.elapsed() < 3000;
    }

    PosPrintDLL m_library;
    QScopedPointer<QTemporaryDir> m_folder;
};

QTEST_MAIN(tst_posdll)
#include "tst_posdll.moc"
