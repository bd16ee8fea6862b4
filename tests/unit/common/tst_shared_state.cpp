#include "common/Clock.h"
#include "common/DlgManager.h"
#include "common/GlobalConfig.h"
#include "common/MyMessage.h"
#include "common/QmlEventLoop.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QtConcurrent>
#include <QtTest>

class tst_shared_state : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qputenv("KV_PANEL_API_URLS", "https://one.example, https://two.example"); }

    void defaults();
    void oneInstanceForAllThreads();
    void signalsOnRealChangesOnly();
    void operatorKeepsItsObject();
    void functionMenu();
    void messages_data();
    void messages();
    void authoriser();
    void eventLoopOfDialogs();
};

void tst_shared_state::defaults()
{
    const GlobalConfig& config = *GlobalConfig::getInstance();
    QCOMPARE(config.apiUrls(),
             (QList<QString>{QStringLiteral("https://one.example"), QStringLiteral("https://two.example")}));
    QCOMPARE(config.apiUrl(), QStringLiteral("https://one.example"));
    QCOMPARE(config.iSysStatus(), 0);
    QVERIFY(config.userInfo());
    QCOMPARE(config.userInfo()->staffId(), QString());
    QVERIFY(!config.sysApiReq() && !config.terminalInfo() && !config.funcMenu() && !config.cardConfig());
    QCOMPARE(config.mqttPort(), 61613);
    QCOMPARE(config.MQTT_HARDCARDSCALLDATA(), QStringLiteral("HARDCARDSCALLDATA_"));
    QCOMPARE(config.tcode(), QStringLiteral("5"));
    QCOMPARE(config.js_assign_type, 1);
    QCOMPARE(config.call_count, 1);
    QCOMPARE(config.dlgDeplyTime(), 15);
    QCOMPARE(config.initDelyTime(), 120);
}

void tst_shared_state::oneInstanceForAllThreads()
{
    // A class of its own, so that the first use really happens on many threads at once.
    struct Counted : Singleton<Counted>
    {
        Counted() { ++made(); }
        static std::atomic<int>& made()
        {
            static std::atomic<int> count{0};
            return count;
        }
    };
    QList<QFuture<void*>> first;
    for (int i = 0; i < 16; ++i)
        first.append(QtConcurrent::run([]() -> void* { return Counted::getInstance(); }));
    for (QFuture<void*>& future : first)
        QCOMPARE(future.result(), static_cast<void*>(Counted::getInstance()));
    QCOMPARE(Counted::made().load(), 1);
    delete Counted::getInstance();
}

void tst_shared_state::signalsOnRealChangesOnly()
{
    GlobalConfig* config = GlobalConfig::getInstance();
    QSignalSpy changes(config, &GlobalConfig::currentModChanged);
    config->setCurrentMod(QStringLiteral("PAY_CTRL"));
    config->setCurrentMod(QStringLiteral("PAY_CTRL"));
    QCOMPARE(changes.count(), 1);
    config->setCurrentMod({});
}

void tst_shared_state::operatorKeepsItsObject()
{
    UserDto* shown = GlobalConfig::getInstance()->userInfo();
    QSignalSpy name(shown, &UserDto::nameChanged);
    QSignalSpy code(shown, &UserDto::codeChanged);
    UserDto fresh;
    fresh.set_name(QStringLiteral("李娜"));
    shown->update(&fresh);
    QCOMPARE(shown->name(), QStringLiteral("李娜"));
    QCOMPARE(name.count(), 1);
    QCOMPARE(code.count(), 0);
    UserDto empty;
    shown->update(&empty);
}

void tst_shared_state::functionMenu()
{
    ModAuthDto rooms;
    rooms.set_funcVal(QStringLiteral("ROOMINFO_CTRL"));
    rooms.set_authName(QStringLiteral("房间管理"));
    ModAuthDto unknown;
    unknown.set_funcVal(QStringLiteral("NEW_CTRL"));
    FuncMenuModel model({&rooms, &unknown});
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(model.roleNames().value(1), QByteArray("name"));
    QCOMPARE(model.data(model.index(0), 1).toString(), QStringLiteral("房间管理"));
    QCOMPARE(model.data(model.index(0), 2).toString(), QStringLiteral("ROOMINFO_CTRL"));
    QCOMPARE(model.data(model.index(0), 3).toString(), QString(QChar(0xE617)));
    QCOMPARE(model.data(model.index(1), 3).toString(), QString(QChar(0xE6A2)));
    QVERIFY(model.data(model.index(0), 4) != model.data(model.index(1), 4));
    QCOMPARE(model.data(model.index(0), 6).toString(), QStringLiteral("white"));
    QCOMPARE(model.getAll().at(1).funcVal, QStringLiteral("NEW_CTRL"));
    QVERIFY(!model.data(model.index(5), 1).isValid());
}

void tst_shared_state::messages_data()
{
    QTest::addColumn<int>("infoType");
    QTest::addColumn<QString>("name");
    QTest::newRow("success") << 1 << QStringLiteral("success");
    QTest::newRow("error") << 2 << QStringLiteral("error");
    QTest::newRow("info") << 0 << QStringLiteral("info");
    QTest::newRow("anything else") << -7 << QStringLiteral("info");
}

void tst_shared_state::messages()
{
    QFETCH(int, infoType);
    QFETCH(QString, name);
    QSignalSpy shown(MyMessage::getInstance(), &MyMessage::showMessageSignal);
    MyMessage::getInstance()->showMessage(QStringLiteral("文"), infoType);
    QCOMPARE(shown.takeFirst(), (QVariantList{QStringLiteral("文"), name}));

    // Only one of the two that report errors also writes the log.
    QTest::ignoreMessage(QtDebugMsg, "logged");
    MyMessage::getInstance()->showError(QStringLiteral("logged"));
    MyMessage::getInstance()->ShowError(QStringLiteral("shown"));
    MyMessage::getInstance()->showOk(QStringLiteral("done"));
    QCOMPARE(shown.at(0), (QVariantList{QStringLiteral("logged"), QStringLiteral("error")}));
    QCOMPARE(shown.at(1), (QVariantList{QStringLiteral("shown"), QStringLiteral("error")}));
    QCOMPARE(shown.at(2), (QVariantList{QStringLiteral("done"), QStringLiteral("success")}));
}

void tst_shared_state::authoriser()
{
    DlgManager* dialogs = DlgManager::getInstance();
    const auto answering = connect(dialogs, &DlgManager::authSignal, dialogs, [dialogs] {
        dialogs->authResult(QStringLiteral("id"), QStringLiteral("88"), QStringLiteral("经理"));
    });
    QCOMPARE(dialogs->showAuthDlg().no, QStringLiteral("88"));
    disconnect(answering);
    // One that is answered inside another one that is cancelled vouches for its own call alone.
    int depth = 0;
    const auto nesting = connect(dialogs, &DlgManager::authSignal, dialogs, [&] {
        if (++depth == 1)
            QCOMPARE(dialogs->showAuthDlg().id, QStringLiteral("inner"));
        else
            dialogs->authResult(QStringLiteral("inner"), QString(), QString());
    });
    QVERIFY(dialogs->showAuthDlg().id.isEmpty());
    disconnect(nesting);
    QVERIFY(dialogs->showAuthDlg().id.isEmpty()); // nobody answered: nothing of the last one is left
}

void tst_shared_state::eventLoopOfDialogs()
{
    // Two nested waits end in reverse order, and each only by its own dialog.
    QmlEventLoop outer;
    QmlEventLoop inner;
    QStringList ends;
    QTimer::singleShot(0, this, [&] {
        QTimer::singleShot(0, this, [&] { outer.finishedSlot(); });
        QTimer::singleShot(20, this, [&] { inner.finish(); });
        inner.execLoop();
        ends.append(QStringLiteral("inner"));
    });
    outer.execLoop();
    ends.append(QStringLiteral("outer"));
    QCOMPARE(ends, (QStringList{QStringLiteral("inner"), QStringLiteral("outer")}));

    auto* forgotten = new QmlEventLoop;
    QTimer::singleShot(0, forgotten, [forgotten] { delete forgotten; });
    forgotten->execLoop();
}

QTEST_GUILESS_MAIN(tst_shared_state)
#include "tst_shared_state.moc"
