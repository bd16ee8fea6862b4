// What becomes of a call when the system doesn't give what it needs: a name server that never answers, a thread
// that can't be made. The system's functions are replaced by ones of this program that do so on demand.

#include "common/GlobalConfig.h"
#include "dto/system/LineRecords.h"
#include "services/Baa00Service.h"
#include "services/KvsystemService.h"
#include "services/Reply.h"
#include "support/HouseProcess.h"

#include <QtTest>

#include <atomic>
#include <dlfcn.h>
#include <netdb.h>
#include <pthread.h>
#include <unistd.h>

namespace {

constexpr char silentName[] = "silent.example";
constexpr unsigned silenceSeconds = 60;

std::atomic<bool> noMoreThreads{false};
std::atomic<int> lookUps{0};

template <typename Function>
Function* systems(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" int getaddrinfo(const char* name, const char* service, const addrinfo* hints, addrinfo** found)
{
    if (name && qstrcmp(name, silentName) == 0) {
        ++lookUps;
        ::sleep(silenceSeconds);
        return EAI_AGAIN;
    }
    return systems<decltype(getaddrinfo)>("getaddrinfo")(name, service, hints, found);
}

extern "C" int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*run)(void*),
                              void* argument)
{
    if (noMoreThreads)
        return EAGAIN;
    return systems<decltype(pthread_create)>("pthread_create")(thread, attributes, run, argument);
}

class tst_stuck_system : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(m_house.isReady() && config()->initLibcurl()); }
    void cleanup() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    /// Each line has its three seconds, whatever the name server does.
    void silentNameServer()
    {
        config()->setApiUrls({QString("http://%1/").arg(silentName), m_house.url()});
        QElapsedTimer waited;
        waited.start();
        const auto lines = held(
            KvsystemService::getInstance()->getSysApiReqUrls({{"type", 2}, {"tAuthCode", "KV-DEMO-0001"}}));
        QCOMPARE(lookUps.load(), 1);
        QCOMPARE(lines->code(), QString("200"));
        QVERIFY(waited.elapsed() < silenceSeconds * 1000 / 2);
    }
    /// The end of the program waits for no name server.
    void endDuringTheSilence()
    {
        config()->setApiUrl(QString("http://%1").arg(silentName));
        lookUps = 0;
        QElapsedTimer waited;
        waited.start();
        QTimer::singleShot(0, this, [this] {
            QTimer::singleShot(500, qApp, &QCoreApplication::quit);
            QVERIFY(held(Baa00Service::getInstance()->getSysInitByAuthCode("x"))->code() != "200");
        });
        QCoreApplication::exec();
        QCOMPARE(lookUps.load(), 1);
        QVERIFY(waited.elapsed() < silenceSeconds * 1000 / 4);
    }
    /// A failed call, not an endless one; and the next one works.
    void noThread()
    {
        config()->setApiUrl(m_house.url());
        noMoreThreads = true;
        QTest::ignoreMessage(QtCriticalMsg, QRegularExpression("^QThread::start: Thread creation error.*"));
        const auto call = [] {
            return held(Baa00Service::getInstance()->getSysInitByAuthCode("demo-secret-key-0001"));
        };
        const auto failed = call();
        noMoreThreads = false;
        QCOMPARE(failed->code() + failed->msg(), QString("-2请求失败"));
        QCOMPARE(call()->code(), QString("200"));
    }

private:
    static GlobalConfig* config() { return GlobalConfig::getInstance(); }

    HouseProcess m_house;
};

QTEST_GUILESS_MAIN(tst_stuck_system)
#include "tst_stuck_system.moc"
