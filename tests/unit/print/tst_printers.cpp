#include "Printer.h"
#include "StandInDevices.h"

#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>

#include <sys/socket.h>

namespace {

/// Fast, so that a test of a printer that stalls is one of a moment.
PrinterLimits quick()
{
    PrinterLimits limits;
    limits.connectMs = 300;
    limits.stallMs = 300;
    limits.jobMs = 600;
    return limits;
}

const QByteArray longSlip(4 << 20, 'x'); // more than any pipe or socket buffer keeps

} // namespace

/// Printers that stop taking data: an error, and soon.
class tst_printers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_folder.reset(new QTemporaryDir); }

    void networkThatStopsReading_data();
    void networkThatStopsReading();
    void networkThatGoesAway();
    void deviceThatStopsReading();
    void deviceWithoutReader();
    void systemPrinterThatHangs();

private:
    QString file(const char* name) const { return m_folder->filePath(QString::fromLatin1(name)); }

    QScopedPointer<QTemporaryDir> m_folder;
};

void tst_printers::networkThatStopsReading_data()
{
    QTest::addColumn<int>("bytes");
    QTest::addColumn<int>("window"); // 0: the system's
    QTest::newRow("more than the buffers of both sides keep") << longSlip.size() << 0;
    QTest::newRow("a slip that our side's buffer would keep") << 8000 << 1;
}

void tst_printers::networkThatStopsReading()
{
    QFETCH(int, bytes);
    QFETCH(int, window);
    QTcpServer server; // whose connection waits unread
    QVERIFY(server.listen(QHostAddress::LocalHost));
    if (window > 0)
        QCOMPARE(::setsockopt(int(server.socketDescriptor()), SOL_SOCKET, SO_RCVBUF, &window, sizeof window),
                 0);
    const auto printer = openNetworkPrinter(QStringLiteral("localhost:%1").arg(server.serverPort()), quick());
    QVERIFY(printer != nullptr);
    QElapsedTimer time;
    time.start();
    QVERIFY(!printer->send(longSlip.left(bytes)));
    QVERIFY2(time.elapsed() < 2000, qPrintable(QString::number(time.elapsed())));
}

void tst_printers::networkThatGoesAway()
{
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    const auto printer = openNetworkPrinter(QStringLiteral("127.0.0.1:%1").arg(server.serverPort()), quick());
    QVERIFY(printer != nullptr);
    QVERIFY(server.waitForNewConnection(1000));
    server.nextPendingConnection()->abort();
    server.close();
    QVERIFY(!printer->send(longSlip));
}

void tst_printers::deviceThatStopsReading()
{
    Pipe pipe(file("lp0"));
    QVERIFY(pipe.isOpen());
    const auto printer = openDeviceFile(file("lp0"), quick());
    QVERIFY(printer != nullptr);
    QElapsedTimer time;
    time.start();
    QVERIFY(!printer->send(longSlip));
    QVERIFY2(time.elapsed() < 2000, qPrintable(QString::number(time.elapsed())));
}

void tst_printers::deviceWithoutReader()
{
    Pipe pipe(file("lp0"));
    QVERIFY(pipe.isOpen());
    const auto printer = openDeviceFile(file("lp0"), quick());
    QVERIFY(printer != nullptr);
    pipe.close();
    QVERIFY(!printer->send(QByteArray("slip"))); // and the test is still alive
}

void tst_printers::systemPrinterThatHangs()
{
    writeScript(file("lpstat"), "exit 0\n");
    writeScript(file("lp"), "exec sleep 60\n");
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(m_folder->path()) + ':' + path);
    const auto printer = openSystemPrinter(QStringLiteral("前台"), quick());
    QElapsedTimer time;
    time.start();
    const bool isSent = printer && printer->send(QByteArray("slip"));
    qputenv("PATH", path);
    QVERIFY(printer && !isSent);
    QVERIFY2(time.elapsed() < 3000, qPrintable(QString::number(time.elapsed())));
}

QTEST_GUILESS_MAIN(tst_printers)
#include "tst_printers.moc"
