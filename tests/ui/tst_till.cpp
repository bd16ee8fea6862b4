// The till under quick, doubled and sliding fingers, in the modes that a house may work in, and when something
// fails.

#include "Terminal.h"

#include "app/MainClass.h"
#include "common/GlobalConfig.h"
#include "inspect/ScreenItems.h"

#include <QQmlContext>
#include <QQmlExpression>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QtTest>

namespace {

const QString hall = QStringLiteral("area_405800110000006035 +item_0 ");
const QString card = QStringLiteral("addGuestButton +numKeyDlg #8001 confirmButton -numKeyDlg +guestText ");
const QString save = QStringLiteral("/bca01/batchUpdateOrder");
const QString roomSave = QStringLiteral("/bca01/batchUpdateRoomOrder");
const QString saved = QStringLiteral(" +numKeyDlg cancelButton =success|操作成功");
// Categories of the hall: 0 tea with tastes, 1 drinks, 4 meals that need a desk.

} // namespace

class tst_till : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_terminal.reset(new Terminal);
        QVERIFY(m_terminal->isUp());
        WALKED(
            m_terminal->login("tile_CONSUME_CTRL", "1001", "1001").walk("-loginDlg +numKeyDlg cancelButton"));
    }
    void init()
    {
        m_terminal->house().reset();
        m_terminal->takeMessages();
    }
    void cleanupTestCase() { m_terminal.reset(); }

    /// A swipe to the left opens the line's menu, from whatever key it begins on, and taps nothing; one to the
    /// right closes it, one up or down is the list's.
    void swipe()
    {
        walk(hall + card + "type_1 item_0 item_1 +newLine_1");
        drag("newName_0", {-60, 6}).walk("+entry_gift");
        drag("entry_gift", {60, 0}).walk("-entry_gift");
        drag("plus_0", {-60, -6}).walk("+entry_gift ?num_0.shown=1 newMenu_0 -entry_gift");
        drag("newName_1", {-14, -50}).walk("~50 -entry_gift");
        drag("newName_1", {-6, 0}).walk("~50 -entry_gift");
        drag("oldLine_0", {-60, 6}).walk("+entry_reprint");
        drag("oldLine_0", {0, -90}).walk("-entry_reprint");
        WALKED(walk("cancelSaleButton +msgConfirmDlg confirmButton -newLine_0"));
    }

    /// Every tap counts once, and only for what the finger aimed at.
    void twice()
    {
        walk(hall + card + "type_1 item_0 ~80 item_0 +newLine_0 ?num_0.shown=2");
        m_terminal->act([this] { m_terminal->house().fault(save, "delay", 400, 1); });
        m_terminal->tapTogether({"saveSaleButton", "saveSaleButton"});
        WALKED(walk(saved));
        QCOMPARE(m_terminal->house().seen(save), 1);

        walk(hall + "type_0 ~50").until("the tea", takesInput).act([this] {
            press("item_0", 1000000);
            press("item_0", 1000150); // before the dialog is there
        });
        bool isChosen = false;
        walk("+tasteDlg +taste_0_0").act([&] {
            press("taste_0_0", 1000400); // still meant for the tile
            isChosen = m_terminal->property("taste_0_0", "isChosen").toBool();
            press("taste_0_0", 1000500);
        });
        WALKED(
            walk("?taste_0_0.isChosen=true confirmButton -tasteDlg +newLine_0 ~300 -tasteDlg ?num_0.shown=1"));
        QVERIFY(!isChosen && !m_terminal->item("newLine_1"));
        WALKED(walk("cancelSaleButton confirmButton -newLine_0 cancelSaleButton ~200 -msgConfirmDlg"));
    }

    /// A merging tap brings its line into sight and marks it for a moment; plus and minus move nothing.
    void merged()
    {
        walk(hall + "type_1");
        for (int i = 0; i < 9; ++i)
            walk(QString("item_%1 ~20").arg(i));
        WALKED(walk("+newLine_0 item_0 ?newLine_8.color=#ffefb0"));
        const QQuickItem* list = m_terminal->item("newLine_8")->parentItem()->parentItem();
        const QQuickItem* line = m_terminal->item("newLine_8");
        const QRectF place = line->mapRectToItem(list, line->boundingRect());
        QVERIFY(place.top() >= 0 && place.bottom() <= list->height() + 1);
        WALKED(walk("?newLine_8.color=#00000000 plus_8 plus_8 minus_8 ?num_8.shown=3"));
        QCOMPARE(line->mapRectToItem(list, line->boundingRect()), place);
        WALKED(walk("cancelSaleButton confirmButton -newLine_0"));
    }

    /// The reader ends the question for the guest, and changes no figure elsewhere; figures have one point and
    /// at most four digits.
    void numbers()
    {
        walk(hall + "addGuestButton +numKeyDlg @49748974 -numKeyDlg +guestText");
        walk("type_1 item_0 num_0 +numDlg #12 @49748974 ~100 ?inputLine.text=12 #.3.45 ?inputLine.text=12.34");
        WALKED(walk("confirmButton -numDlg ?num_0.shown=12 cancelSaleButton confirmButton -newLine_0"));
    }

    /// Letters that are typed during a query aren't lost, and the last text is what is found; a booked item
    /// empties the field again.
    void typedDuringAQuery()
    {
        m_terminal->house().fault("/bca01/getItemList", "delay", 500);
        walk(hall + "searchKey initial_K ~450 initial_Q initial_S ?initialsLine.text=KQS");
        m_terminal->until("one item",
                          [this] { return m_terminal->item("item_0") && !m_terminal->item("item_1"); });
        m_terminal->picture("till-search").walk("item_0 +newLine_0 -item_0 ?initialsLine.text= searchClose");
        WALKED(walk("cancelSaleButton confirmButton -newLine_0"));
        QCOMPARE(m_terminal->house().seen("/bca01/getItemList"), 3); // the category, K, KQS
    }

    void desk()
    {
        walk(hall + card + "type_4 item_3 +newLine_0 saveSaleButton +numKeyDlg ?inputLine.prompt=请输入桌号");
        WALKED(walk("cancelButton -numKeyDlg +newLine_0"));
        QCOMPARE(m_terminal->house().seen(save), 0);
        WALKED(walk("saveSaleButton #7 confirmButton -newLine_0" + saved));
        QCOMPARE(m_terminal->house().books("8001").last().toObject()["desk"], QJsonValue("7"));
    }

    /// A save that wasn't answered is asked about until the guest was read again.
    void unanswered()
    {
        m_terminal->house().fault(save, "drop-after", 0, 1);
        walk(hall + card +
             "type_1 item_0 +newLine_0 saveSaleButton =error|请求失败 saveSaleButton +msgConfirmDlg");
        WALKED(m_terminal->picture("till-unsure").walk("cancelButton -msgConfirmDlg +newLine_0 ~400"));
        QCOMPARE(m_terminal->house().seen(save), 1);
        WALKED(walk("refreshButton ~100 saveSaleButton ~200 -msgConfirmDlg" + saved));
        QCOMPARE(m_terminal->house().executed(save), 2);
    }

    /// In a house that books on rooms the room is the guest; else its first card; in one without cards its
    /// number is one.
    void rooms_data()
    {
        QTest::addColumn<bool>("isCustRoom");
        QTest::addColumn<bool>("usedRoomMod");
        QTest::addColumn<QString>("guest");
        QTest::newRow("room") << true << false << "房间号: 101";
        QTest::newRow("its card") << false << false << "手牌号: 8001";
        QTest::newRow("no cards") << false << true << "手牌号: 101";
    }
    void rooms()
    {
        QFETCH(bool, isCustRoom);
        QFETCH(bool, usedRoomMod);
        SysConfigDto* store = GlobalConfig::getInstance()->sysConfig();
        store->set_isCustRoom(isCustRoom);
        store->set_usedRoomMod(usedRoomMod);
        if (usedRoomMod)
            m_terminal->house().config({{"usedRoomMod", 1}});
        walk("returnButton tile_CONSUME_CTRL +loginDlg @94780011 -loginDlg +numKeyDlg");
        walk(usedRoomMod ? "?inputLine.prompt=请输入房号 #101 confirmButton -numKeyDlg -addRoomButton " + hall
                         : "?inputLine.prompt=请输入手牌 cancelButton " + hall +
                               "addRoomButton +numKeyDlg #101 confirmButton");
        QFETCH(QString, guest);
        walk("-numKeyDlg +guestText").until(guest, [=] { return m_terminal->text("guestText") == guest; });
        walk("type_1 item_0 +newLine_0");
        m_terminal->picture(QString("till-room-%1%2").arg(isCustRoom).arg(usedRoomMod));
        WALKED(walk("saveSaleButton" + saved));
        QCOMPARE(m_terminal->house().executed(isCustRoom ? roomSave : save), 1);
        m_terminal->house().config({{"usedRoomMod", 0}});
        store->set_usedRoomMod(0);
        store->set_isCustRoom(1);
    }

    /// Where a chargeback needs a supervisor, he is asked for, and the line is taken back.
    void supervisor()
    {
        walk("returnButton tile_CONSUME_CTRL +loginDlg #1101 confirmButton #1101 confirmButton +numKeyDlg "
             "cancelButton");
        walk(hall + card + "type_1 item_0 +newLine_0 saveSaleButton" + saved + " " + hall + card);
        WALKED(walk("+oldLine_0"));
        const QJsonArray before = m_terminal->house().books("8001");
        const int last = before.size() - 1;
        m_terminal->act([this] {
            QMetaObject::invokeMethod(m_terminal->item("oldLine_0")->parentItem()->parentItem(),
                                      "positionViewAtEnd");
        });
        walk(QString("oldMenu_%1 entry_refund +newLine_0 saveSaleButton +authDlg").arg(last));
        WALKED(m_terminal->picture("till-supervisor")
                   .walk("#1001 confirmButton #1001 confirmButton -authDlg" + saved));
        QCOMPARE(m_terminal->house().books("8001").size(), last);
    }

    /// A page opened for a guest asks for none; with its flag it is left after the save, and tells.
    void openedForAGuest()
    {
        TerminalDto* terminal = GlobalConfig::getInstance()->terminalInfo();
        terminal->set_closeFlg(true);
        QSignalSpy gone(MainClass::getInstance(), &MainClass::destructSignal);
        WALKED(walk("returnButton -Module2"));
        QTRY_COMPARE(gone.size(), 1);
        QCOMPARE(gone.first(), QVariantList{"module2"});
        QQuickItem* stack = m_terminal->item("stackView");
        QQmlExpression push(qmlContext(stack), stack, "push('qrc:/qml/Module2/Module2.qml', {cardNo: '8001'})");
        push.evaluate();
        walk("+guestText ~700 -numKeyDlg " + hall +
             "type_1 item_0 +newLine_0 saveSaleButton -Module2 =success|操作成功");
        m_terminal->act([=] { terminal->set_closeFlg(false); });
        WALKED(walk("tile_CONSUME_CTRL +loginDlg @94780011 -loginDlg +numKeyDlg cancelButton"));
    }

    /// Pictures come when they come; tiles don't wait for them, and a broken one is replaced.
    void pictures()
    {
        m_terminal->house().fault("/kvupload/", "delay", 1500);
        WALKED(walk(hall + "type_1 item_0 +newLine_0 ?picture_0.status=2"));
        m_terminal->house().fault("/kvupload/", "http500");
        WALKED(walk("type_2 ?picture_0.source=qrc:/images/empty.png type_1"));
        m_terminal->house().reset();
        WALKED(walk("type_3 ?picture_0.status=1 cancelSaleButton confirmButton -newLine_0"));
    }

    void smallPictures()
    {
        MainClass::getInstance()->setSqlData("is_small_img_mode", "1");
        walk("returnButton tile_CONSUME_CTRL +loginDlg @94780011 -loginDlg +numKeyDlg cancelButton " + hall);
        WALKED(m_terminal->walk("type_3 ?picture_0.status=1").picture("till-small"));
        const QQuickItem* tile = m_terminal->item("item_0");
        QVERIFY2(tile->width() >= 140 && tile->height() >= 48,
                 qPrintable(QString("%1 x %2").arg(tile->width()).arg(tile->height())));
        MainClass::getInstance()->setSqlData("is_small_img_mode", "0");
    }

private:
    Terminal& walk(const QString& road) { return m_terminal->walk(road); }
    Terminal& drag(const QString& name, const QPoint& by) { return m_terminal->drag(name, by); }
    /// A tap at this time of the events' clock, ms.
    void press(const QString& name, ulong at)
    {
        const QQuickItem* item = m_terminal->item(name);
        const QPointF place = item->mapToScene(QPointF(item->width() / 2, item->height() / 2));
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, place, Qt::LeftButton,
                              type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
            event.setTimestamp(at);
            QCoreApplication::sendEvent(item->window(), &event);
        }
    }

    std::unique_ptr<Terminal> m_terminal;
};

QTEST_MAIN(tst_till)
#include "tst_till.moc"
