#include "common/GlobalConfig.h"
#include "common/QmlEventLoop.h"
#include "services/Baa00Service.h"
#include "services/Reply.h"
#include "support/HouseProcess.h"

#include <QTimer>
#include <QWindow>
#include <QtTest>

#include <memory>

namespace {

const QString path = QStringLiteral("/baa00/getSysInitByAuthCode");

/// Counts what a touch would do.
class TouchWindow : public QWindow
{
public:
    int presses = 0;
    int releases = 0;
    int keys = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++presses; }
    void mouseReleaseEvent(QMouseEvent*) override { ++releases; }
    void keyPressEvent(QKeyEvent*) override { ++keys; }
};

/// Notes whether the event got to it.
class Receiver : public QObject
{
public:
    bool arrived = false;
    bool event(QEvent*) override
    {
        arrived = true;
        return true;
    }
};

bool arrives(QEvent::Type type)
{
    Receiver receiver;
    QEvent event(type);
    QCoreApplication::sendEvent(&receiver, &event);
    return receiver.arrived;
}

QString callCode()
{
    return held(Baa00Service::getInstance()->getSysInitByAuthCode(QStringLiteral("demo-secret-key-0001")))
        ->code();
}

} // namespace

class tst_input_filter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_house.reset(new HouseProcess);
        QVERIFY(m_house->isReady());
        QVERIFY(GlobalConfig::getInstance()->initLibcurl());
        GlobalConfig::getInstance()->setApiUrl(m_house->url());
    }
    void init()
    {
        m_house->reset();
        m_house->fault(path, QStringLiteral("delay"), 300);
    }

    void events();
    void tapIsLostTimersGoOn();
    void dialogDuringACallStaysUsable();

private:
    std::unique_ptr<HouseProcess> m_house;
};

void tst_input_filter::events()
{
    const QList<QEvent::Type> dropped{QEvent::MouseButtonPress,
                                      QEvent::MouseButtonRelease,
                                      QEvent::MouseButtonDblClick,
                                      QEvent::Wheel,
                                      QEvent::Enter,
                                      QEvent::Leave,
                                      QEvent::KeyPress,
                                      QEvent::KeyRelease,
                                      QEvent::HoverEnter,
                                      QEvent::HoverLeave,
                                      QEvent::HoverMove,
                                      QEvent::TouchBegin,
                                      QEvent::TouchUpdate,
                                      QEvent::TouchEnd,
                                      QEvent::TouchCancel};
    const QList<QEvent::Type> passed{QEvent::MouseMove, QEvent::Timer, QEvent::UpdateRequest, QEvent::MetaCall};
    QList<QEvent::Type> arrived;
    QTimer::singleShot(50, this, [&] {
        for (const QEvent::Type type : dropped + passed) {
            if (arrives(type))
                arrived.append(type);
        }
    });
    QCOMPARE(callCode(), QStringLiteral("200"));
    QCOMPARE(arrived, passed);
    for (const QEvent::Type type : dropped)
        QVERIFY(arrives(type)); // the call is over
}

void tst_input_filter::tapIsLostTimersGoOn()
{
    TouchWindow window;
    window.resize(200, 200);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    int ticks = 0;
    QTimer ticking;
    connect(&ticking, &QTimer::timeout, this, [&] {
        if (++ticks == 2) {
            QTest::mouseClick(&window, Qt::LeftButton, {}, {10, 10});
            QTest::keyClick(&window, Qt::Key_A);
            QTest::mousePress(&window, Qt::LeftButton, {}, {10, 10}); // still down when the call ends
        }
    });
    ticking.start(20);
    QCOMPARE(callCode(), QStringLiteral("200"));
    ticking.stop();
    QVERIFY(ticks >= 4);
    QTest::qWait(50);
    QCOMPARE(window.presses + window.releases + window.keys, 0);
    QTest::mouseRelease(&window, Qt::LeftButton, {}, {10, 10});
    QTest::mouseClick(&window, Qt::LeftButton, {}, {10, 10});
    QCOMPARE(window.presses, 1);
    QCOMPARE(window.releases, 2);
}

void tst_input_filter::dialogDuringACallStaysUsable()
{
    bool inDialog = false;
    bool inCallOfDialog = true;
    bool inDialogAgain = false;
    bool afterDialog = true;
    QTimer::singleShot(20, this, [&] {
        QmlEventLoop dialog;
        // Outlives the outer exchange, so that only the dialog itself can let the tap in.
        QTimer::singleShot(100, &dialog, [&] {
            inDialog = arrives(QEvent::MouseButtonPress);
            QTimer::singleShot(50, &dialog, [&] { inCallOfDialog = arrives(QEvent::MouseButtonPress); });
            callCode();
            inDialogAgain = arrives(QEvent::MouseButtonPress);
            dialog.finish();
        });
        dialog.execLoop();
        afterDialog = false;
    });
    QCOMPARE(callCode(), QStringLiteral("200"));
    QVERIFY(inDialog);
    QVERIFY(!inCallOfDialog);
    QVERIFY(inDialogAgain);
    QVERIFY(!afterDialog);
}

QTEST_MAIN(tst_input_filter)
#include "tst_input_filter.moc"
