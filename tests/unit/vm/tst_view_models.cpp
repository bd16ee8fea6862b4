// What the view-models share: actions, event marks, readers, the stamp of a slip.

#include "RoomFixture.h"

#include "app/MainClass.h"
#include "common/Clock.h"
#include "common/GlobalConfig.h"
#include "dto/room/RoomRecords.h"
#include "print/PrintRecords.h"
#include "services/Bba01Service.h"
#include "vm/shared/ActionVm.h"
#include "vm/shared/EventMarks.h"
#include "vm/shared/ReaderListener.h"
#include "vm/shared/SlipStamp.h"

#include <QLibrary>
#include <QSettings>
#include <QSignalSpy>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

const QString cleanPath = QStringLiteral("/bba01/chgCleanRoom");
const QString overrunsPath = QStringLiteral("/bba01/getOverTime");

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

QStringList heard;

class Listener : public BaseObject
{
public:
    void readingExec(QString text) override { heard.append(objectName() + " staff " + text); }
    void readingHandExec(QString text) override { heard.append(objectName() + " hand " + text); }
};

} // namespace

using Ask = std::function<bool(Page&)>;
Q_DECLARE_METATYPE(Ask)

class tst_view_models : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init() { m_room->reset(); }
    void cleanup() { Clock::setSource(nullptr); }

    void outcomes_data();
    void outcomes();
    void meanwhile_data() { outcomes_data(); }
    void meanwhile();
    void eventMarks();
    void goneInATick();
    void readers_data();
    void readers();
    void slipStamp();
    void businessDay_data();
    void businessDay();

private:
    void present(bool isToStaff, const QByteArray& number) const;

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
    QSettings identity(m_room->filePath("KV_PANEL_V2.ini"), QSettings::IniFormat);
    identity.setValue("authCode", "KV-DEMO-0001");
    identity.setValue("secretKey", "demo-secret-key-0001");
    MainClass::getInstance()->init();
    QCOMPARE(m_room->takeShown(), QStringList());
}

void tst_view_models::cleanupTestCase()
{
    QTimer::singleShot(0, QCoreApplication::instance(), &QCoreApplication::quit);
    QCoreApplication::exec(); // ends the readers
    ::close(m_staffLine);
}

void tst_view_models::outcomes_data()
{
    QTest::addColumn<Ask>("ask");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QStringList>("told"); // when it is done
    const auto row = [](const char* name, const QString& path, const QStringList& told, const Ask& ask) {
        QTest::newRow(name) << ask << path << told;
    };
    row("change", cleanPath, {done}, [](auto& page) {
        return page.change(&Bba01Service::chgCleanRoom, {{"id", "R"}});
    });
    row("silent change", cleanPath, {}, [](auto& page) {
        return page.changeSilently(&Bba01Service::chgCleanRoom, {{"id", "R"}});
    });
    const auto take = [](Page& page) { return [&](const auto& reply) { page.taken += reply.data().size(); }; };
    row("fetch", roomsPath, {}, [=](auto& page) {
        return page.fetch(&Bba01Service::getRoomList, {{"id", "R"}}, take(page));
    });
    row("fetch of all", overrunsPath, {},
        [=](auto& page) { return page.fetch(&Bba01Service::getOverTime, take(page), Refusal::Shown); });
}

void tst_view_models::outcomes()
{
    QFETCH(Ask, ask);
    QFETCH(QString, path);
    const bool isFetch = path != cleanPath;
    Page page;
    QSignalSpy enabled(&page, &Page::isEnabledChanged);
    QVERIFY(!page.act([&] { return page.require(true, "") && page.require(false, "请选择") && ask(page); }));
    QCOMPARE(m_room->takeShown(), QStringList{"error|请选择"});
    m_room->refuse(path, "房间已开", 1);
    QVERIFY(!page.act([&] { return ask(page); }));
    QCOMPARE(m_room->takeShown(), QStringList{"error|房间已开"});
    QCOMPARE(page.taken, 0);
    m_room->run(QString("f.answer('%1', ids('A B'))").arg(path));
    QVERIFY(page.act([&] { return ask(page); }));
    QTEST(m_room->takeShown(), "told");
    QCOMPARE(page.taken, isFetch ? 2 : 0);
    QCOMPARE(m_room->sent(path), path == overrunsPath ? QJsonObject() : QJsonObject({{"id", "R"}}));
    QCOMPARE(enabled.size(), 3 * 2); // off and on again, whatever became of it
}

/// While the house works, a second action does nothing and the page may go.
void tst_view_models::meanwhile()
{
    QFETCH(Ask, ask);
    QFETCH(QString, path);
    QFETCH(QStringList, told);
    const bool isFetch = path != cleanPath;
    for (const bool isRefused : {false, true}) {
        alignas(Page) char memory[sizeof(Page)];
        const QByteArray untouched(sizeof memory, 0x5a);
        auto* page = new (memory) Page;
        if (isRefused)
            m_room->refuse(path, "房间已开", 1);
        else
            m_room->answer(path, QJsonArray(), 1);
        m_room->house().fault(path, "delay", 100, 1);
        bool isSecondIdle = false;
        QTimer::singleShot(30, page, [&] {
            isSecondIdle = !page->isEnabled() && !page->act([] { return true; }) && !page->isEnabled();
            page->~Page();
            std::copy(untouched.begin(), untouched.end(), memory);
        });
        // A change is made all the same; what was to be shown on the page is nobody's concern any more.
        QCOMPARE(page->act([&] { return ask(*page); }), !isFetch && !isRefused);
        QVERIFY(isSecondIdle);
        QCOMPARE(QByteArray(memory, sizeof memory), untouched);
        QCOMPARE(m_room->takeShown(), isFetch     ? QStringList()
                                      : isRefused ? QStringList{"error|房间已开"}
                                                  : told);
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
    QCOMPARE(taken(), all);
    for (const char* other : {"", "CALL_", "ROOM", "ROOM_7", "OTHER_"})
        marks.hear(other);
    QCOMPARE(taken(), QVector<bool>(3, false));
    marks.hear("STAFF_");
    marks.hear("STAFF_");
    QCOMPARE(taken(), (QVector<bool>{false, true, false}));
    Q_EMIT MainClass::getInstance()->mqttConnected(); // what was published meanwhile is lost
    QCOMPARE(taken(), all);
    // A broker that hangs up again and again has the page fetch every ten seconds, not every second.
    for (int i = 0; i < 3; ++i)
        Q_EMIT MainClass::getInstance()->mqttConnected();
    QCOMPARE(taken(), QVector<bool>(3, false));
    auto* pause = marks.findChild<QTimer*>("reconnectMark");
    QVERIFY(pause && pause->isActive());
    QCOMPARE(pause->interval(), 10000);
    pause->start(0);
    QTRY_VERIFY(pause->interval() == 10000); // begun anew
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

// What is listened to; whether there is a hand card reader; which reader's cards come.
void tst_view_models::readers_data()
{
    addRows(R"(
staff | 1 | staff
hand | 1 | hand
cards | 1 | hand
cards | 0 | staff
)");
}

/// Presents a card to a reader.
void tst_view_models::present(bool isToStaff, const QByteArray& number) const
{
    sockaddr_un hand{AF_UNIX, {}};
    qstrcpy(hand.sun_path, qgetenv("KV_SIM_HAND_SOCKET"));
    QTRY_VERIFY(QFile::exists(hand.sun_path)); // its thread has begun
    const int line = isToStaff ? ::dup(m_staffLine) : ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    QVERIFY(isToStaff || ::connect(line, reinterpret_cast<sockaddr*>(&hand), sizeof hand) == 0);
    const QByteArray card = isToStaff ? number + "\r\n" : number;
    QCOMPARE(::write(line, card.data(), size_t(card.size())), ssize_t(card.size()));
    ::close(line);
}

void tst_view_models::readers()
{
    QFETCH(QStringList, cells);
    GlobalConfig::getInstance()->hand_card_device = cells.at(1).toInt();
    const auto listen = cells.at(0) == "staff"  ? &ReaderListener::listenToStaff
                        : cells.at(0) == "hand" ? &ReaderListener::listenToHand
                                                : &ReaderListener::listenToCards;
    heard.clear();
    Listener below;
    Listener top;
    top.setObjectName("top");
    ReaderListener belowReader(&below);
    (belowReader.*listen)();
    {
        ReaderListener topReader(&top);
        (topReader.*listen)();
        present(cells.at(2) == "staff", "0A1B2C3D");
        QTRY_COMPARE(heard, QStringList{"top " + cells.at(2) + " 0A1B2C3D"});
    }
    present(cells.at(2) == "staff", "0A1B2C4E");
    QTRY_COMPARE(heard.mid(1), QStringList{" " + cells.at(2) + " 0A1B2C4E"});
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

// When the store's day begins; a moment; when the moment's day began.
void tst_view_models::businessDay_data()
{
    addRows(R"(
06:00:00 | 2026-03-01T05:00:00 | 2026-02-28T06:00:00
06:00:00 | 2026-03-08T05:59:59 | 2026-03-07T06:00:00
06:00:00 | 2026-03-08T06:00:00 | 2026-03-08T06:00:00
06:00:00 | 2026-03-08T23:00:00 | 2026-03-08T06:00:00
six | 2026-03-08T00:00:00 | 2026-03-08T00:00:00
not configured | 2026-03-08T05:00:00 | 2026-03-08T00:00:00
)");
}

void tst_view_models::businessDay()
{
    QFETCH(QStringList, cells);
    GlobalConfig* config = GlobalConfig::getInstance();
    config->setSysConfig(cells.at(0).startsWith("not") ? nullptr : new SysConfigDto);
    if (config->sysConfig())
        config->sysConfig()->set_startTime(cells.at(0));
    const QDateTime found = businessDayStart(QDateTime::fromString(cells.at(1), Qt::ISODate));
    config->setSysConfig(new SysConfigDto);
    QCOMPARE(found.toString(Qt::ISODate), cells.at(2));
}

QTEST_GUILESS_MAIN(tst_view_models)
#include "tst_view_models.moc"
