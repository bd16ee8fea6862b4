#include "common/GlobalConfig.h"
#include "services/Baa00Service.h"
#include "support/HouseProcess.h"

#include <QTimer>
#include <QWindow>
#include <QtTest>

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

} // namespace

class tst_input_filter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void inputIsDroppedTimersGoOn();
};

void tst_input_filter::inputIsDroppedTimersGoOn()
{
    TouchWindow window;
    window.resize(200, 200);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    HouseProcess house;
    QVERIFY(house.isReady());
    QVERIFY(GlobalConfig::getInstance()->initLibcurl());
    GlobalConfig::getInstance()->setApiUrl(house.url());
    house.fault(path, QStringLiteral("delay"), 500);

    int ticks = 0;
    bool over = false;
    QTimer ticking;
    connect(&ticking, &QTimer::timeout, this, [&] {
        QVERIFY(!over);
        if (++ticks == 2) {
            QTest::mouseClick(&window, Qt::LeftButton, {}, {10, 10});
            QTest::keyClick(&window, Qt::Key_A);
            QTest::mousePress(&window, Qt::LeftButton, {}, {10, 10}); // still down when the call ends
        }
    });
    ticking.start(20);
    GetSysInitByAuthCode* reply =
        Baa00Service::getInstance()->getSysInitByAuthCode(QStringLiteral("demo-secret-key-0001"));
    QCOMPARE(reply->code(), QStringLiteral("200"));
    reply->deleteLater();
    ticking.stop();
    over = true;
    QVERIFY(ticks >= 4);
    QTest::qWait(50);
    QCOMPARE(window.presses, 0);
    QCOMPARE(window.keys, 0);
    QTest::mouseRelease(&window, Qt::LeftButton, {}, {10, 10});
    QTest::mouseClick(&window, Qt::LeftButton, {}, {10, 10});
    QCOMPARE(window.presses, 1);
}

QTEST_MAIN(tst_input_filter)
#include "tst_input_filter.moc"
