// Fingers that bounce, and two hands at once: nothing begins twice, nothing is unloaded under what it opened.

#include "Terminal.h"

#include "support/RoomFloor.h"

#include <QQuickItem>
#include <QtTest>

#include <memory>

class tst_room_taps : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_terminal.reset(); }
    void init() { m_terminal->house().reset(); }

    void oneQuestionOneChange();
    void oneNumberDialog();
    void oneCardTakenOff();
    void anotherPageWhileANumberIsAsked();
    void anotherPageWhileASaveRuns();
    void moduleLeftUnderADialog();

private:
    HouseProcess& house() { return m_terminal->house(); }
    Terminal& dialog(const QString& name, const QString& roomNo)
    {
        m_terminal->takeMessages();
        return m_terminal->open(name, {{"roomId", RoomFloor::roomId(roomNo)}});
    }

    std::unique_ptr<Terminal> m_terminal;
};

void tst_room_taps::initTestCase()
{
    m_terminal.reset(new Terminal);
    QVERIFY(m_terminal->isUp());
    QCOMPARE(m_terminal->login("tile_ROOMINFO_CTRL", "1001", "1001").see("Module1").run(), QString());
}

void tst_room_taps::oneQuestionOneChange()
{
    const QString room = RoomFloor::openRoom(2, 1);
    dialog("roomDetailDlg", room).tapTogether({"menu_CANCEL_ROOM", "menu_CANCEL_ROOM"}).see("msgConfirmDlg");
    QCOMPARE(m_terminal->tap("confirmButton").returned().seeNot("msgConfirmDlg").run(), QString());
    QCOMPARE(house().seen("/bba01/cancelRoom"), 1);
    QCOMPARE(RoomFloor::detail(room)->data()->status(), 1);
}

void tst_room_taps::oneNumberDialog()
{
    const QString room = RoomFloor::openRoom(2, 1);
    dialog("roomDetailDlg", room)
        .tap("menu_ADD_CARD")
        .tapTogether({"cardButton", "cardButton"})
        .see("numKeyDlg");
    QCOMPARE(m_terminal->tap("cancelButton").seeNot("numKeyDlg").tap("closeButton").returned().run(),
             QString());
}

void tst_room_taps::oneCardTakenOff()
{
    const QString room = RoomFloor::openRoom(3, 2);
    const QStringList cards = RoomFloor::cardsInside(room);
    dialog("roomDetailDlg", room).tap("menu_REST_CHG_MASS").see("card_" + cards.at(0));
    QCOMPARE(m_terminal->tapTogether({"remove_" + cards.at(0), "remove_" + cards.at(0)})
                 .seeNot("card_" + cards.at(0))
                 .see("card_" + cards.at(1))
                 .tap("closeButton")
                 .returned()
                 .run(),
             QString());
}

void tst_room_taps::anotherPageWhileANumberIsAsked()
{
    // The dialog of a page that went away under it could never be closed.
    const QString room = RoomFloor::openRoom(2, 1);
    const QString card = RoomFloor::freeCards(1).value(0);
    dialog("roomDetailDlg", room).tap("menu_ADD_CARD").tapTogether({"cardButton", "menu_REMARK_ROOM"});
    QCOMPARE(m_terminal->see("numKeyDlg")
                 .keys(card)
                 .tap("confirmButton")
                 .seeNot("numKeyDlg")
                 .see("remarkArea")
                 .tap("closeButton")
                 .returned()
                 .run(),
             QString());
    QCOMPARE(m_terminal->takeMessages(), QStringList());
    QVERIFY(house().seen("/baa01/getHardCardDetail") > 0);
}

void tst_room_taps::anotherPageWhileASaveRuns()
{
    const QString room = RoomFloor::openRoom(2, 1);
    dialog("roomDetailDlg", room).tap("menu_ROOM_CALLING").tap("plusButton_0");
    QCOMPARE(m_terminal->tapTogether({"saveButton", "saveButton", "menu_REMARK_ROOM"}).returned().run(),
             QString());
    QCOMPARE(m_terminal->takeMessages(), QStringList{QStringLiteral("success|操作成功")});
    QCOMPARE(house().seen("/caa04/callStaff"), 1);
}

void tst_room_taps::moduleLeftUnderADialog()
{
    // As when the tile and the return mark are tapped at once.
    QCOMPARE(m_terminal->tap("roomSearchButton")
                 .see("numKeyDlg")
                 .act([&] { QMetaObject::invokeMethod(m_terminal->item("mainPage"), "leaveModule"); })
                 .see("tile_ROOMINFO_CTRL")
                 .tap("key_1")
                 .tap("cancelButton")
                 .seeNot("numKeyDlg")
                 .run(),
             QString());
    QCOMPARE(m_terminal->login("tile_ROOMINFO_CTRL", "1001", "1001").see("Module1").run(), QString());
}

QTEST_MAIN(tst_room_taps)
#include "tst_room_taps.moc"
