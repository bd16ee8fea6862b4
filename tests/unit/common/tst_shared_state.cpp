#include "common/DlgManager.h"
#include "common/GlobalConfig.h"
#include "common/MyMessage.h"
#include "common/QmlEventLoop.h"

#include <QSignalSpy>
#include <QtConcurrent>
#include <QtTest>

class tst_shared_state : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qputenv("KV_PANEL_API_URLS", "https://one.example, https://two.example"); }

    void stateOfTheTerminal()
    {
        GlobalConfig* config = GlobalConfig::getInstance();
        QCOMPARE(config->apiUrls(), (QStringList{"https://one.example", "https://two.example"}));
        QCOMPARE(config->apiUrl(), QString("https://one.example"));
        QVERIFY(!config->sysApiReq() && !config->terminalInfo() && !config->funcMenu() &&
                !config->cardConfig());

        // What isn't of the web is no line.
        for (const char* url : {"file:///etc/passwd", "", "one.example", "httpx://one.example"})
            config->setApiUrl(url);
        QCOMPARE(config->apiUrl(), QString("https://one.example"));

        // Only a real change is told.
        QSignalSpy changes(config, &GlobalConfig::currentModChanged);
        config->setCurrentMod("PAY_CTRL");
        config->setCurrentMod("PAY_CTRL");
        QCOMPARE(changes.count(), 1);
    }

    void oneInstanceForAllThreads()
    {
        // A class of its own, so that the first use really happens on many threads at once.
        struct Counted : Singleton<Counted>
        {
            Counted()
            {
                QThread::msleep(20); // long enough for all of them to come in
                ++made();
            }
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

    void functionMenu()
    {
        ModAuthDto rooms;
        rooms.set_funcVal("ROOMINFO_CTRL");
        rooms.set_authName("房间管理");
        ModAuthDto unknown;
        unknown.set_funcVal("NEW_CTRL");
        FuncMenuModel model({&rooms, &unknown});
        const auto shown = [&model](int row, const char* role) {
            return model.data(model.index(row), model.roleNames().key(role)).toString();
        };
        QCOMPARE(shown(0, "name") + shown(0, "funcVal") + shown(1, "funcVal"),
                 QString("房间管理ROOMINFO_CTRLNEW_CTRL"));
        QCOMPARE(shown(0, "icon") + shown(1, "icon"), QString(QChar(0xE617)) + QChar(0xE6A2));
        QVERIFY(shown(0, "fromColor") != shown(1, "fromColor"));
    }

    void messages()
    {
        MyMessage* relay = MyMessage::getInstance();
        QStringList shown;
        const auto listening =
            connect(relay, &MyMessage::showMessageSignal, this,
                    [&](const QString& text, const QString& kind) { shown << text + ' ' + kind; });
        relay->showMessage("a", 1);
        relay->showMessage("b", 2);
        relay->showMessage("c", 0);
        relay->showMessage("d", -7);
        static QString logged; // only one of the two that report errors also writes the log
        const auto before = qInstallMessageHandler(
            [](QtMsgType, const QMessageLogContext&, const QString& line) { logged += line; });
        relay->showError("e");
        relay->ShowError("f");
        relay->showOk("g");
        qInstallMessageHandler(before);
        disconnect(listening);
        QCOMPARE(logged, QString("e"));
        QCOMPARE(shown,
                 (QStringList{"a success", "b error", "c info", "d info", "e error", "f error", "g success"}));
    }

    void authoriser()
    {
        DlgManager* dialogs = DlgManager::getInstance();
        // One that is answered inside another one that is cancelled vouches for its own call alone.
        int depth = 0;
        const auto nesting = connect(dialogs, &DlgManager::authSignal, dialogs, [&] {
            if (++depth == 1)
                QCOMPARE(dialogs->showAuthDlg().no, QString("88"));
            else
                dialogs->authResult("inner", "88", "经理");
        });
        QVERIFY(dialogs->showAuthDlg().id.isEmpty());
        disconnect(nesting);
        QCOMPARE(depth, 2);
        QVERIFY(dialogs->showAuthDlg().id.isEmpty()); // nobody answered: nothing of the last one is left
    }

    void eventLoopOfDialogs()
    {
        // Two nested waits end in reverse order, and each only by its own dialog.
        QmlEventLoop outer;
        QmlEventLoop inner;
        QStringList ends;
        QTimer::singleShot(0, this, [&] {
            QTimer::singleShot(0, this, [&] { outer.finishedSlot(); });
            QTimer::singleShot(20, this, [&] { inner.finish(); });
            inner.execLoop();
            ends.append("inner");
        });
        outer.execLoop();
        ends.append("outer");
        QCOMPARE(ends, (QStringList{"inner", "outer"}));

        auto* forgotten = new QmlEventLoop;
        QTimer::singleShot(0, forgotten, [forgotten] { delete forgotten; });
        forgotten->execLoop();
    }
};

QTEST_GUILESS_MAIN(tst_shared_state)
#include "tst_shared_state.moc"
