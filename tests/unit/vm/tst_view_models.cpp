// What the view-models share: actions, event marks, readers, the stamp of a slip.

#include "RoomAnswers.h"

#include "common/Clock.h"
#include "dto/room/RoomRecords.h"
#include "print/PrintRecords.h"
#include "services/Bba01Service.h"
#include "vm/shared/ActionVm.h"
#include "vm/shared/EventMarks.h"
#include "vm/shared/ReaderListener.h"
#include "vm/shared/SlipStamp.h"

#include <QLibrary>
#include <QSignalSpy>
#include <QtTest>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

const QString cleanPath = QStringLiteral("/bba01/chgCleanRoom");
const QString overrunsPath = QStringLiteral("/bba01/getOverTime");
const QString refusal = QStringLiteral("error|房间已开");

/// A view-model as the modules derive theirs.
class Page : public ActionVm
{
public:
    using ActionVm::act;
    using ActionVm::change;
    using ActionVm::changeSilently;
    using ActionVm::fetch;
    using ActionVm::require;
    int taken = 0;
};

class Listener : public BaseObject
{
public:
    Listener(const QString& name, QStringList* heard) : m_name(name), m_heard(heard) {}
    void readingExec(QString text) override { m_heard->append(m_name + " staff " + text); }
    void readingHandExec(QString text) override { m_heard->append(m_name + " hand " + text); }

private:
    const QString m_name;
    QStringList* const m_heard;
};

} // namespace

using Ask = std::function<bool(Page&)>;
using Listen = void (ReaderListener::*)();
Q_DECLARE_METATYPE(Ask)
Q_DECLARE_METATYPE(Listen)

class tst_view_models : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init() { m_room->reset(); }
    void cleanup() { Clock::setSource(nullptr); }

    void checks();
    void outcomes_data();
    void outcomes();
    void oneAtATime();
    void pageGone_data() { outcomes_data(); }
    void pageGone();
    void eventMarks();
    void goneInATick();
    void readers_data();
    void readers();
    void slipStamp();
    void businessDay_data();
    void businessDay();

private:
    void present(bool isToStaff) const;

    std::unique_ptr<RoomFixture> m_room;
    int m_staffLine = -1; ///< the other end of the staff reader's line
};

void tst_view_models::initTestCase()
{
    m_room.reset(new RoomFixture);
    QVERIFY(m_room->isUp());
    // Both readers, by the program's own start-up.
    m_staffLine = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    QVERIFY(m_staffLine >= 0 && ::grantpt(m_staffLine) == 0 && ::unlockpt(m_staffLine) == 0);
    qputenv("KV_PANEL_COM1", ::ptsname(m_staffLine));
    qputenv("KV_SIM_HAND_SOCKET", m_room->filePath("hand").toUtf8());
    QVERIFY(QLibrary(QStringLiteral(KV_SIM_FOLDER "/RF003Reader")).load());
    MainClass::getInstance()->setSqlData("staff_device_com", "COM1");
    GlobalConfig::getInstance()->hand_card_device = 1;
    QFile identity(m_room->filePath("KV_PANEL_V2.ini"));
    QVERIFY(identity.open(QIODevice::WriteOnly));
    identity.write("authCode=KV-DEMO-0001\nsecretKey=demo-secret-key-0001\n");
    identity.close();
    MainClass::getInstance()->init();
    QCOMPARE(m_room->takeShown(), QStringList());
}

void tst_view_models::cleanupTestCase()
{
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
    QCoreApplication::exec(); // ends the readers
    ::close(m_staffLine);
    m_room.reset();
}

void tst_view_models::checks()
{
    Page page;
    QSignalSpy enabled(&page, &Page::isEnabledChanged);
    QVERIFY(!page.act([&] { return page.require(true, "nothing") && page.require(false, "请选择"); }));
    QCOMPARE(m_room->takeShown(), QStringList{"error|请选择"});
    QCOMPARE(enabled.size(), 2); // off and on again
}

void tst_view_models::outcomes_data()
{
    QTest::addColumn<Ask>("ask");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QStringList>("told"); // when it is done
    QTest::addColumn<bool>("isFetch");
    const auto row = [](const char* name, const QString& path, bool isFetch, bool isTold, const Ask& ask) {
        QTest::newRow(name) << ask << path << (isTold ? QStringList{done} : QStringList()) << isFetch;
    };
    row("change", cleanPath, false, true, [](Page& page) {
        return page.change(&Bba01Service::chgCleanRoom, {{"id", "R"}});
    });
    row("change that shows by itself", cleanPath, false, false, [](Page& page) {
        return page.changeSilently(&Bba01Service::chgCleanRoom, {{"id", "R"}});
    });
    row("fetch", roomsPath, true, false, [](Page& page) {
        return page.fetch(&Bba01Service::getRoomList, {{"id", "R"}},
                          [&](const GetRoomListDto& reply) { page.taken += reply.data().size(); });
    });
    row("fetch of all", overrunsPath, true, false, [](Page& page) {
        const auto take = [&](const GetOverTimeDto& reply) { page.taken += reply.data().size(); };
        return page.fetch(&Bba01Service::getOverTime, take, Refusal::Shown);
    });
}

void tst_view_models::outcomes()
{
    QFETCH(Ask, ask);
    QFETCH(QString, path);
    QFETCH(bool, isFetch);
    Page page;
    QSignalSpy enabled(&page, &Page::isEnabledChanged);
    m_room->refuse(path, "房间已开", 1);
    QVERIFY(!page.act([&] { return ask(page); }));
    QCOMPARE(m_room->takeShown(), QStringList{refusal});
    QCOMPARE(page.taken, 0);
    m_room->answer(path, rooms({"A", "B"}));
    QVERIFY(page.act([&] { return ask(page); }));
    QTEST(m_room->takeShown(), "told");
    QCOMPARE(page.taken, isFetch ? 2 : 0);
    QCOMPARE(m_room->sent(path), path == overrunsPath ? QJsonObject() : QJsonObject({{"id", "R"}}));
    QCOMPARE(enabled.size(), 4);
}

void tst_view_models::oneAtATime()
{
    Page page;
    int begun = 0;
    const auto action = [&] {
        ++begun;
        return page.change(&Bba01Service::chgCleanRoom, {});
    };
    m_room->answer(cleanPath, {});
    m_room->house().fault(cleanPath, "delay", 100, 1);
    bool wasEnabled = true;
    bool second = true;
    QTimer::singleShot(30, &page, [&] {
        second = page.act(action);
        wasEnabled = page.isEnabled(); // the second one has no end of its own
    });
    QVERIFY(page.act(action));
    QVERIFY(!wasEnabled && !second && page.isEnabled());
    QCOMPARE(begun, 1);
    QCOMPARE(m_room->takeShown(), QStringList{done});
}

void tst_view_models::pageGone()
{
    QFETCH(Ask, ask);
    QFETCH(QString, path);
    QFETCH(bool, isFetch);
    for (const bool isRefused : {false, true}) {
        alignas(Page) char memory[sizeof(Page)];
        const QByteArray untouched(sizeof memory, 0x5a);
        auto* page = new (memory) Page;
        m_room->answer(path, rooms({"A"}), 1);
        if (isRefused)
            m_room->refuse(path, "房间已开", 1);
        m_room->house().fault(path, "delay", 100, 1);
        QTimer::singleShot(30, page, [&] {
            page->~Page();
            std::copy(untouched.begin(), untouched.end(), memory);
        });
        // A change is made all the same; what was to be shown on the page is nobody's concern any more.
        QCOMPARE(page->act([&] { return ask(*page); }), !isFetch && !isRefused);
        QCOMPARE(QByteArray(memory, sizeof memory), untouched);
        QFETCH(QStringList, told);
        QCOMPARE(m_room->takeShown(), isFetch ? QStringList() : isRefused ? QStringList{refusal} : told);
        m_room->house().reset();
    }
}

void tst_view_models::eventMarks()
{
    QObject page;
    int ticks = 0;
    QTimer* timer = nullptr;
    EventMarks marks(&page, {{"ROOM_", "room"}, {"STAFF_", "staff"}, {"CALL_", {}}}, [&] {
        ++ticks;
        QVERIFY(!timer || !timer->isActive()); // the next one waits until this one is done
    });
    timer = marks.findChild<QTimer*>("eventTick");
    const auto taken = [&] { return QVector<bool>{marks.take("room"), marks.take("staff"), marks.take({})}; };
    const QVector<bool> all{true, true, false};
    const QVector<bool> none{false, false, false};
    QCOMPARE(taken(), all);
    QCOMPARE(taken(), none);
    for (const char* other : {"", "CALL_", "ROOM", "ROOM_7", "OTHER_"})
        marks.hear(QLatin1String(other));
    QCOMPARE(taken(), none);
    marks.hear("STAFF_");
    marks.hear("STAFF_");
    QCOMPARE(taken(), (QVector<bool>{false, true, false}));
    Q_EMIT MainClass::getInstance()->mqttConnected(); // what was published meanwhile is lost
    QCOMPARE(taken(), all);
    QVERIFY(timer->isActive());
    QCOMPARE(timer->interval(), 500);
    QTRY_VERIFY(ticks > 0);
    timer->stop();
    ticks = 0;
    marks.tick();
    QCOMPARE(ticks, 1);
    QVERIFY(timer->isActive());
}

void tst_view_models::goneInATick()
{
    struct LivePage : QObject
    {
        EventMarks marks{this, {{"ROOM_", "room"}}, [this] { delete this; }};
    };
    const QPointer<LivePage> page(new LivePage);
    page->marks.tick();
    QVERIFY(!page);
}

void tst_view_models::readers_data()
{
    QTest::addColumn<Listen>("listen");
    QTest::addColumn<int>("handCardDevice");
    QTest::addColumn<bool>("isStaff");
    QTest::newRow("staff") << &ReaderListener::listenToStaff << 1 << true;
    QTest::newRow("hand") << &ReaderListener::listenToHand << 1 << false;
    QTest::newRow("cards, with a hand card reader") << &ReaderListener::listenToCards << 1 << false;
    QTest::newRow("cards, without") << &ReaderListener::listenToCards << 0 << true;
}

/// Presents a card to a reader.
void tst_view_models::present(bool isToStaff) const
{
    const char serial[] = "0A1B2C3D\r\n"; // the hand card reader takes the digits alone
    if (isToStaff) {
        QCOMPARE(::write(m_staffLine, serial, 10), ssize_t(10));
        return;
    }
    sockaddr_un address{AF_UNIX, {}};
    qstrcpy(address.sun_path, qgetenv("KV_SIM_HAND_SOCKET"));
    QTRY_VERIFY(QFile::exists(address.sun_path)); // its thread has begun
    const int socket = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    const auto* place = reinterpret_cast<sockaddr*>(&address);
    QCOMPARE(::sendto(socket, serial, 8, 0, place, sizeof address), ssize_t(8));
    ::close(socket);
}

void tst_view_models::readers()
{
    QFETCH(Listen, listen);
    QFETCH(int, handCardDevice);
    QFETCH(bool, isStaff);
    GlobalConfig::getInstance()->hand_card_device = handCardDevice;
    QStringList heard;
    Listener below("below", &heard);
    Listener top("top", &heard);
    ReaderListener belowReader(&below);
    (belowReader.*listen)();
    {
        ReaderListener topReader(&top);
        (topReader.*listen)();
        present(isStaff);
        QTRY_COMPARE(heard, QStringList{isStaff ? "top staff 0A1B2C3D" : "top hand 0A1B2C3D"});
    }
    present(isStaff);
    QTRY_COMPARE(heard.size(), 2);
    QVERIFY2(heard.at(1).startsWith(isStaff ? "below staff" : "below hand"), qPrintable(heard.at(1)));
}

void tst_view_models::slipStamp()
{
    static const qint64 moment = QDateTime({2026, 3, 8}, {4, 5, 6}).toMSecsSinceEpoch();
    Clock::setSource([] { return moment; });
    const UserDto& user = *GlobalConfig::getInstance()->userInfo();
    QCOMPARE(user.code(), QStringLiteral("1001"));
    leave_room_print_struct slip;
    SlipStamp::now().putOn(slip, &leave_room_print_struct::leaveTime);
    QCOMPARE((QStringList{slip.staffCode, slip.staffName, slip.leaveTime, slip.startTime}),
             (QStringList{"1001", user.name(), "2026-03-08 04:05:06", ""}));
}

void tst_view_models::businessDay_data()
{
    QTest::addColumn<QString>("startTime");
    QTest::addColumn<QString>("moment");
    QTest::addColumn<QString>("start");
    const auto row = [](const char* name, const char* startTime, const char* moment, const char* start) {
        QTest::newRow(name) << startTime << QStringLiteral("2026-03-") + moment
                            << QStringLiteral("2026-03-") + start;
    };
    row("before it begins", "06:00:00", "08T05:00:00", "07T06:00:00");
    row("the last second", "06:00:00", "08T05:59:59", "07T06:00:00");
    row("as it begins", "06:00:00", "08T06:00:00", "08T06:00:00");
    row("in the evening", "06:00:00", "08T23:00:00", "08T06:00:00");
    row("unreadable", "six", "08T00:00:00", "08T00:00:00");
    row("not told", "", "08T05:00:00", "08T00:00:00");
    row("no configuration", nullptr, "08T05:00:00", "08T00:00:00");
}

void tst_view_models::businessDay()
{
    QFETCH(QString, startTime);
    QFETCH(QString, moment);
    QFETCH(QString, start);
    GlobalConfig* config = GlobalConfig::getInstance();
    config->setSysConfig(startTime.isNull() ? nullptr : new SysConfigDto);
    if (!startTime.isNull())
        store().set_startTime(startTime);
    const QDateTime found = businessDayStart(QDateTime::fromString(moment, Qt::ISODate));
    config->setSysConfig(new SysConfigDto);
    QCOMPARE(found.toString(Qt::ISODate), start);
}

QTEST_GUILESS_MAIN(tst_view_models)
#include "tst_view_models.moc"
