// Addresses where no broker answers, and brokers that fall silent: only time tells of these, so that this takes
// the better part of a minute.

#include "support/BrokerProcess.h"

#include "net/MqttClient.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest>

#include <arpa/inet.h>
#include <atomic>
#include <dlfcn.h>
#include <memory>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>
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
        m_address.sin_family = AF_INET;
        m_address.sin_port = htons(static_cast<quint16>(port));
        inet_pton(AF_INET, address, &m_address.sin_addr);
        m_sockets.push_back(::socket(AF_INET, SOCK_STREAM, 0));
        socklen_t size = sizeof m_address;
        m_isFull = ::bind(m_sockets[0], raw(), size) == 0 && ::listen(m_sockets[0], 0) == 0 &&
                   ::getsockname(m_sockets[0], raw(), &size) == 0 && fill();
    }
    ~FullListener()
    {
        for (const int socket : m_sockets)
            ::close(socket);
    }
    bool isFull() const { return m_isFull; }
    int port() const { return ntohs(m_address.sin_port); }

private:
    sockaddr* raw() { return reinterpret_cast<sockaddr*>(&m_address); }
    bool fill()
    {
        constexpr size_t most = 20;
        while (m_sockets.size() < most) {
            pollfd attempt{::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0), POLLOUT, 0};
            m_sockets.push_back(attempt.fd);
            ::connect(attempt.fd, raw(), sizeof m_address);
            if (::poll(&attempt, 1, 200) == 0)
                return true;
        }
        return false;
    }

    sockaddr_in m_address{};
    std::vector<int> m_sockets;
    bool m_isFull = false;
};

/// The longest time that the event loop didn't turn.
class LoopWatch
{
public:
    LoopWatch()
    {
        m_sinceTick.start();
        QObject::connect(&m_tick, &QTimer::timeout, &m_tick, [this] {
            ++ticks;
            longestGapMs = qMax(longestGapMs, m_sinceTick.restart());
        });
        m_tick.start(10);
    }
    int ticks = 0;
    qint64 longestGapMs = 0;

private:
    QTimer m_tick;
    QElapsedTimer m_sinceTick;
};

QTimer* waitOf(const MqttClient& client) { return client.findChild<QTimer*>("mqttReconnect"); }

/// Milliseconds that the client waits for its next attempt, 0 when it isn't waiting.
int waited(const MqttClient& client) { return waitOf(client)->isActive() ? waitOf(client)->interval() : 0; }

/// Lets the attempt that is waited for begin now.
void hurry(const MqttClient& client) { waitOf(client)->start(0); }

QTimer* limitOf(const MqttClient& client) { return client.findChild<QTimer*>("mqttAttempt"); }

} // namespace

class tst_mqtt_silence : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_broker.isRunning()); }
    void badAddresses_data();
    void badAddresses();
    void silentAddresses_data();
    void silentAddresses();
    void secondAddress_data();
    void secondAddress();
    void endDuringLookup();
    void silence();

private:
    BrokerProcess m_broker;
};

void tst_mqtt_silence::badAddresses_data()
{
    QTest::addColumn<QString>("host");
    QTest::addColumn<int>("beyondPort");
    QTest::newRow("a name that nobody has") << "no-such-host.invalid" << 0;
    QTest::newRow("no name at all") << "" << 0;
    // Cut to 16 bits they would be the broker's.
    QTest::newRow("a port above all") << "127.0.0.1" << 65536;
    QTest::newRow("a port below all") << "127.0.0.1" << -65536;
}

void tst_mqtt_silence::badAddresses()
{
    QFETCH(QString, host);
    QFETCH(int, beyondPort);
    MqttClient client(host, m_broker.port() + beyondPort, BrokerProcess::user(), BrokerProcess::password(),
                      "c");
    QSignalSpy connected(&client, &MqttClient::connected);
    for (const int delayMs : {1000, 16000}) {
        QTRY_COMPARE(waited(client), delayMs);
        hurry(client);
    }
    QCOMPARE(connected.size(), 0);
}

void tst_mqtt_silence::silentAddresses_data()
{
    QTest::addColumn<QString>("host");
    QTest::newRow("the name server") << "silent.test";
    QTest::newRow("the machine") << "127.0.0.1";
}

/// The attempt is given up after its time, and the screen lives on meanwhile: the event loop turns.
void tst_mqtt_silence::silentAddresses()
{
    QFETCH(QString, host);
    const FullListener listener("127.0.0.1");
    QVERIFY(listener.isFull());
    MqttClient client(host, listener.port(), "u", "p", "c");
    for (const int delayMs : {1000, 16000}) {
        LoopWatch loop;
        QTRY_VERIFY(loop.ticks >= 30);
        QVERIFY2(loop.longestGapMs < 2000, qPrintable(QString::number(loop.longestGapMs)));
        QCOMPARE(waited(client), 0);
        QVERIFY(limitOf(client) && limitOf(client)->isActive());
        QCOMPARE(limitOf(client)->interval(), 20000);
        limitOf(client)->start(0);
        QTRY_COMPARE(waited(client), delayMs);
        hurry(client);
    }
    QVERIFY2(silentLookups <= 1, "look-ups pile up");
}

void tst_mqtt_silence::secondAddress_data()
{
    QTest::addColumn<QString>("first");
    for (const char* first : {"refuses", "hangs up", "is silent"})
        QTest::newRow(first) << first;
}

void tst_mqtt_silence::secondAddress()
{
    QFETCH(QString, first);
    std::unique_ptr<FullListener> silent;
    QTcpServer rude;
    connect(&rude, &QTcpServer::newConnection, this, [&] { delete rude.nextPendingConnection(); });
    const auto port = static_cast<quint16>(m_broker.port());
    if (first == "is silent") {
        silent = std::make_unique<FullListener>("127.0.0.2", port);
        QVERIFY(silent->isFull());
    } else if (first == "hangs up") {
        QVERIFY(rude.listen(QHostAddress("127.0.0.2"), port));
    }
    MqttClient client("two.test", port, BrokerProcess::user(), BrokerProcess::password(), "c");
    QSignalSpy connected(&client, &MqttClient::connected);
    if (silent) {
        QVERIFY(!connected.wait(300));
        limitOf(client)->start(0);
    }
    QVERIFY(connected.wait());
    QCOMPARE(client.currentDelayMs(), 1000);
    QVERIFY(!limitOf(client)->isActive());
}

/// A program that ends while a name server is silent doesn't wait for it.
void tst_mqtt_silence::endDuringLookup()
{
    QProcess program;
    program.start(QCoreApplication::applicationFilePath(), {"--quit-during-lookup"});
    const bool hasEnded = program.waitForFinished(10000);
    if (!hasEnded) {
        program.kill();
        program.waitForFinished();
    }
    QVERIFY2(hasEnded, "still there after 10 seconds");
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);
}

void tst_mqtt_silence::silence()
{
    BrokerProcess broker;
    MqttClient frozen("127.0.0.1", broker.port(), BrokerProcess::user(), BrokerProcess::password(), "frozen");
    QSignalSpy connected(&frozen, &MqttClient::connected);
    QVERIFY(connected.wait());
    broker.freeze();
    QElapsedTimer sinceFrozen;
    sinceFrozen.start();
    QVERIFY(!broker.publish("any", {"1"}));
    QVERIFY2(sinceFrozen.elapsed() < 7000, "publishing waits for ever");

    QTcpServer mute; // takes the connection, never answers
    QVERIFY(mute.listen(QHostAddress::LocalHost));
    MqttClient unanswered("127.0.0.1", mute.serverPort(), "u", "p", "unanswered");
    QElapsedTimer sinceAsked;
    sinceAsked.start();

    qint64 frozenMs = 0;
    qint64 unansweredMs = 0;
    const auto note = [](const MqttClient& client, const QElapsedTimer& since, qint64& noticedMs) {
        if (noticedMs == 0 && waited(client) == 1000)
            noticedMs = since.elapsed();
        return noticedMs > 0;
    };
    QTRY_VERIFY_WITH_TIMEOUT(note(frozen, sinceFrozen, frozenMs) & note(unanswered, sinceAsked, unansweredMs),
                             60000);
    // The attempt's time; the keep-alive of 20 s and as much for the answer to it.
    QVERIFY2(unansweredMs >= 19000 && unansweredMs < 23000, qPrintable(QString::number(unansweredMs)));
    QVERIFY2(frozenMs >= 20000 && frozenMs < 45000, qPrintable(QString::number(frozenMs)));
    broker.thaw();
    QVERIFY(connected.wait(25000));
}

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
