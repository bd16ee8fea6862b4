// What becomes of a finger that is down when the terminal begins to wait for the back end, and of dialogs that
// end without their buttons.

#include "Terminal.h"

#include "app/MainClass.h"
#include "common/GlobalConfig.h"
#include "common/MyMessage.h"
#include "services/Bba01Service.h"
#include "services/Reply.h"

#include <QQuickItem>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QtTest>

class tst_hands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_terminal.reset(new Terminal);
        QVERIFY(m_terminal->isUp());
        WALKED(m_terminal->login("tile_ROOMINFO_CTRL", "1001", "1001").walk("+Module1 +room_101"));
        m_board = m_terminal->item("room_101")->window();
        QTest::qWait(1100); // a tick behind the login's taps has been and gone
    }
    void init() { m_terminal->house().reset(); }

    void pressUnderACall_data()
    {
        QTest::addColumn<bool>("isTouch");
        QTest::newRow("mouse") << false;
        QTest::newRow("touch") << true;
    }
    /// The press is taken back: its release, which is swallowed, opens nothing, and neither does the next tap,
    /// which is for something else.
    void pressUnderACall()
    {
        QFETCH(bool, isTouch);
        QQuickItem* pressed = m_terminal->item("room_101");
        const QPoint first = centre(pressed), second = centre(m_terminal->item("status_1"));
        press(isTouch, first);
        QVERIFY(pressed->property("isPressed").toBool());
        m_terminal->house().fault("/bba01/getOverTime", "delay", 150, 1);
        QTimer::singleShot(60, this, [&] { release(isTouch, first); });
        call(&Bba01Service::getOverTime); // as a tick asks
        QVERIFY(!pressed->property("isPressed").toBool());
        QTest::qWait(50);
        QVERIFY(!m_terminal->item("openRoomDlg") && !m_terminal->item("roomDetailDlg"));

        press(isTouch, second);
        QTest::qWait(100);
        release(isTouch, second);
        QTRY_COMPARE(m_terminal->house().seen("/bba01/getRoomList"), 1);
        QVERIFY(!m_terminal->item("openRoomDlg") && !m_terminal->item("roomDetailDlg"));
        // Nothing stays pressed or dead: the tile can be tapped.
        WALKED(m_terminal->walk("status_ room_101 +roomDetailDlg closeButton -roomDetailDlg"));
    }

    /// While a finger is down, and for a second behind it, the board asks for nothing.
    void tickWaitsForTheFinger()
    {
        const QPoint place = centre(m_terminal->item("room_101"));
        press(false, place);
        Q_EMIT MainClass::getInstance()->mqttSignal(GlobalConfig::getInstance()->MQTT_ROOM_STATUS(), {});
        QTest::qWait(700);
        QCOMPARE(m_terminal->house().seen("/bba01/getRoomList"), 0);
        QTest::mouseRelease(m_board, Qt::LeftButton, {}, QPoint(2, 2)); // slid off: no tap
        QTest::qWait(600);
        QCOMPARE(m_terminal->house().seen("/bba01/getRoomList"), 0);
        QTRY_COMPARE(m_terminal->house().seen("/bba01/getRoomList"), 1);
    }

    /// Keys of a keyboard arrive without a tap on the field; a dialog that goes with its window confirms
    /// nothing and hears no card any more.
    void keyboardAndEnd()
    {
        QString typed;
        const auto type = [&] {
            for (const char key : {'1', '2', 'a'})
                QTest::keyClick(m_board, key);
            typed = m_terminal->text("inputLine");
        };
        WALKED(m_terminal->ask("number", "请输入房间号")
                   .walk("+numKeyDlg")
                   .act(type)
                   .walk("cancelButton -numKeyDlg")
                   .returned());
        QCOMPARE(typed, QString("12a"));
        const auto hide = [this] {
            for (QObject* dialog : m_board->findChildren<QObject*>("numKeyDlg"))
                dialog->setProperty("visible", false);
        };
        WALKED(m_terminal->open("numKeyDlg", {{"isReadOk", true}}).walk("+numKeyDlg #77").act(hide).returned());
        QCOMPARE(m_terminal->result().toMap().value("dlgResult").toBool(), false);
    }

    /// A message is tapped away above a dialog that is a window, which stays; the offer of a lost slip is
    /// taken by a tap, once.
    void messagesAreTapped()
    {
        int printed = 0;
        const auto print = [&] { ++printed; };
        WALKED(m_terminal->ask("number", "请输入房间号")
                   .walk("+numKeyDlg")
                   .act([] { MyMessage::getInstance()->showError("请求失败"); })
                   .walk("messageText -messageText +numKeyDlg #7")
                   .act([&] { MyMessage::getInstance()->showErrorWithReprint("打印失败", print); })
                   .tapTogether({"reprintButton", "reprintButton"})
                   .walk("-messageText ?inputLine.text=7 cancelButton -numKeyDlg")
                   .returned());
        QCOMPARE(printed, 1);
    }

private:
    static QPoint centre(const QQuickItem* item)
    {
        return item->mapRectToScene(QRectF(0, 0, item->width(), item->height())).center().toPoint();
    }
    void press(bool isTouch, const QPoint& place)
    {
        if (isTouch)
            QTest::touchEvent(m_board, m_touch).press(0, place, m_board);
        else
            QTest::mousePress(m_board, Qt::LeftButton, {}, place);
    }
    void release(bool isTouch, const QPoint& place)
    {
        if (isTouch)
            QTest::touchEvent(m_board, m_touch).release(0, place, m_board);
        else
            QTest::mouseRelease(m_board, Qt::LeftButton, {}, place);
    }

    std::unique_ptr<Terminal> m_terminal;
    QQuickWindow* m_board = nullptr;
    QTouchDevice* m_touch = QTest::createTouchDevice();
};

QTEST_MAIN(tst_hands)
#include "tst_hands.moc"
