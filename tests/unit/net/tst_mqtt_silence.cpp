// Addresses where no broker answers, and brokers that fall silent: only time tells of these, so that this takes
// the better part of a minute.

#include "MqttChannel.h"
#include "support/Rows.h"

#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>

#include <atomic>
#include <dlfcn.h>
#include <memory>
#include <netdb.h>
#include <thread>
#include <vector>

namespace {

std::atomic<bool> quitsDuringLookup{false};
std::atomic<int> silentLookups{0};

} // namespace

/// The name server: it never answers for one name, and another one has two addresses.
extern "C" int getaddrinfo(const char* name, const char* service, const addrinfo* hints, addrinfo** found)
{
    static const auto real = reinterpret_cast<decltype(&getaddrinfo)>(dlsym(RTLD_NEXT, "getaddrinfo"));
    const QByteArray asked(name);
    if (asked == "silent.test") {
        ++silentLookups;
        if (quitsDuringLookup)
            QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
        for (;;)
            std::this_thread::sleep_for(std::chrono::hours(1));
    }
    if (asked.endsWith(".invalid"))
        return EAI_NONAME;
    if (asked != "two.test")
        return real(name, service, hints, found);
    const int result = real("127.0.0.2", service, hints, found);
    return result == 0 ? real("127.0.0.1", service, hints, &(*found)->ai_next) : result;
}

namespace {

/// A port whose queue is full: what asks for a connection gets no answer at all.
class FullListener
{
public:
    explicit FullListener(const char* address, int port = 0)
    {
        m_server.listen(QHostAddress(address), static_cast<quint16>(port));
        m_server.pauseAccepting();
        do {
            m_attempts.push_back(std::make_unique<QTcpSocket>());
            m_attempts.back()->connectToHost(address, m_server.serverPort());
        } while (m_attempts.back()->waitForConnected(200) && m_attempts.size() < 200);
    }
    bool isFull() const { return m_server.isListening() && m_attempts.size() < 200; }
    int port() const { return m_server.serverPort(); }

private:
    QTcpServer m_server;
    std::vector<std::unique_ptr<QTcpSocket>> m_attempts;
};

QTimer* limitOf(const MqttChannel& channel) { return channel.client.findChild<QTimer*>("mqttAttempt"); }

} // namespace

class tst_mqtt_silence : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_broker.isRunning()); }

    void badAddresses()
    {
        const int port = m_broker.port();
        // Ports that would be the broker's if they were cut to 16 bits; names that nobody has.
        for (const auto& [host, badPort] : Table<QString, int>{{"no-such-host.invalid", port},
                                                               {"", port},
                                                               {"127.0.0.1", port + 65536},
                                                               {"127.0.0.1", port - 65536}}) {
            MqttChannel channel(host, badPort);
            for (const int delayMs : {1000, 16000}) {
                QTRY_COMPARE(channel.waited(), delayMs);
                channel.hurry();
            }
            QCOMPARE(channel.connected.size(), 0);
        }
    }

    /// The attempt is given up after its time, and the screen lives on meanwhile: the event loop turns.
    void silentAddresses()
    {
        const FullListener listener("127.0.0.1");
        QVERIFY(listener.isFull());
        for (const char* host : {"silent.test", "127.0.0.1"}) { // the name server, the machine
            MqttChannel channel(host, listener.port());
            for (const int delayMs : {1000, 16000}) {
                QElapsedTimer sinceTurn;
                sinceTurn.start();
                for (int turn = 0; turn < 30; ++turn) {
                    QTest::qWait(10);
                    QVERIFY2(sinceTurn.restart() < 2000, host);
                }
                QCOMPARE(channel.waited(), 0);
                QVERIFY(limitOf(channel) && limitOf(channel)->isActive());
                QCOMPARE(limitOf(channel)->interval(), 20000);
                limitOf(channel)->start(0);
                QTRY_COMPARE(channel.waited(), delayMs);
                channel.hurry();
            }
        }
        QVERIFY2(silentLookups <= 1, "look-ups pile up");
    }

    void secondAddress_data()
    {
        QTest::addColumn<QString>("first");
        for (const char* first : {"refuses", "hangs up", "is silent"})
            QTest::newRow(first) << first;
    }
    void secondAddress()
    {
        QFETCH(QString, first);
        std::unique_ptr<FullListener> silent;
        QTcpServer rude;
        connect(&rude, &QTcpServer::newConnection, this, [&] { delete rude.nextPendingConnection(); });
        if (first == "is silent") {
            silent = std::make_unique<FullListener>("127.0.0.2", m_broker.port());
            QVERIFY(silent->isFull());
        } else if (first == "hangs up") {
            QVERIFY(rude.listen(QHostAddress("127.0.0.2"), static_cast<quint16>(m_broker.port())));
        }
        MqttChannel channel("two.test", m_broker.port());
        if (silent) {
            QVERIFY(!channel.connected.wait(300));
            limitOf(channel)->start(0);
        }
        QVERIFY(channel.connected.wait());
        QCOMPARE(channel.client.currentDelayMs(), 1000);
        QVERIFY(!limitOf(channel)->isActive());
    }

    /// A program that ends while a name server is silent doesn't wait for it.
    void endDuringLookup()
    {
        QProcess program;
        program.start(QCoreApplication::applicationFilePath(), {"--quit-during-lookup"});
        const bool hasEnded = program.waitForFinished(10000);
        program.kill();
        program.waitForFinished();
        QVERIFY2(hasEnded, "still there after 10 seconds");
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 0);
    }

    void silence()
    {
        QTcpServer mute; // takes the connection, never answers
        QVERIFY(mute.listen(QHostAddress::LocalHost));
        MqttChannel unanswered("127.0.0.1", mute.serverPort());
        QTRY_VERIFY(mute.hasPendingConnections());
        QTest::qWait(100);
        QVERIFY(limitOf(unanswered)->isActive());
        limitOf(unanswered)->start(0);
        QTRY_COMPARE(unanswered.waited(), 1000);

        MqttChannel frozen(m_broker);
        QVERIFY(frozen.connected.wait());
        m_broker.freeze();
        QElapsedTimer timer;
        timer.start();
        QTRY_COMPARE_WITH_TIMEOUT(frozen.waited(), 1000, 60000);
        const qint64 noticedMs = timer.elapsed(); // the keep-alive of 20 s and as much for the answer to it
        QVERIFY2(noticedMs >= 20000 && noticedMs < 45000, qPrintable(QString::number(noticedMs)));
        m_broker.thaw();
        QVERIFY(frozen.connected.wait(25000));
    }

private:
    BrokerProcess m_broker;
};

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (application.arguments().contains("--quit-during-lookup")) {
        quitsDuringLookup = true;
        // The program's own one lives to the end, too.
        static const auto* client = new MqttClient("silent.test", 1883, "u", "p", "c");
        return client ? QCoreApplication::exec() : 1;
    }
    tst_mqtt_silence test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_mqtt_silence.moc"
