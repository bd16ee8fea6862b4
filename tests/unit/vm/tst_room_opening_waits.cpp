// What the pages that open a room do while they wait: one action at a time, and a page that goes in the
// meantime.

#include "OpeningRoom.h"

#include "app/MainClass.h"
#include "vm/module1/OpeningVm.h"
#include "vm/module1/OpenOccupyVm.h"
#include "vm/module1/OpenRoomVm.h"

#include <QTimer>
#include <QtTest>

class tst_room_opening_waits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { prepareStore(*m_room); }

    void oneAtATime_data() { saveRows(); }
    void oneAtATime();
    void pageClosedDuringItsCall_data() { saveRows(); }
    void pageClosedDuringItsCall();
    void pageClosedDuringALookUp_data();
    void pageClosedDuringALookUp();

private:
    void saveRows();
    QObject* prepared(const QString& page);
    bool save(QObject* page)
    {
        bool isSaved = false;
        return QMetaObject::invokeMethod(page, page->inherits("OpenRoomVm") ? "cleanRoom" : "save",
                                         Qt::DirectConnection, Q_RETURN_ARG(bool, isSaved)) &&
               isSaved;
    }

    std::unique_ptr<RoomFixture> m_room;
};

void tst_room_opening_waits::initTestCase()
{
    m_room.reset(new RoomFixture);
    QVERIFY(m_room->isUp());
}

void tst_room_opening_waits::saveRows()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("path");
    QTest::newRow("massage") << "massage" << massPath;
    QTest::newRow("rest") << "rest" << restPath;
    QTest::newRow("occupation") << "occupation" << occupyPath;
    QTest::newRow("cleaning") << "cleaning" << cleanPath;
}

/// A page that can save at once.
QObject* tst_room_opening_waits::prepared(const QString& kind)
{
    if (kind == "massage") {
        auto* page = new OpenMassVm;
        page->init("R1", "101");
        enter(*m_room, *page, cardFields("8001", 1, "102"));
        return page;
    }
    if (kind == "rest") {
        auto* page = new OpenRestVm;
        m_room->answer(plansPath, QJsonArray{plan("P1", "钟点", 2, 28)});
        page->init("R1", "101");
        enter(*m_room, *page, cardFields("8001"));
        page->checkPlan(0);
        return page;
    }
    if (kind == "occupation") {
        auto* page = new OpenOccupyVm;
        page->init("R1"); // the house's kinds
        page->checkOccupy(0);
        return page;
    }
    auto* page = new OpenRoomVm;
    m_room->answer(detailPath, QJsonObject{{"id", "R1"}, {"status", 1}}, 1);
    page->init("R1");
    return page;
}

void tst_room_opening_waits::oneAtATime()
{
    QFETCH(QString, kind);
    QFETCH(QString, path);
    const std::unique_ptr<QObject> page(prepared(kind));
    m_room->answer(path, {});
    m_room->house().fault(path, "delay", 300, 1);
    bool wasEnabled = true;
    bool second = true;
    QTimer::singleShot(50, page.get(), [&] {
        wasEnabled = page->property("isEnabled").toBool();
        second = save(page.get());
    });
    QVERIFY(save(page.get()));
    QVERIFY(!wasEnabled && !second);
    QCOMPARE(m_room->house().seen(path), 1);
    QVERIFY(page->property("isEnabled").toBool());
}

void tst_room_opening_waits::pageClosedDuringItsCall()
{
    QFETCH(QString, kind);
    QFETCH(QString, path);
    const QPointer<QObject> page(prepared(kind));
    m_room->answer(path, {});
    m_room->house().fault(path, "delay", 200, 1);
    QTimer::singleShot(50, page, [&] { delete page; });
    QVERIFY(save(page)); // what was asked for is done all the same
    QVERIFY(!page);
    QCOMPARE(m_room->takePrinted().contains(QStringLiteral("主结手牌:8001")),
             kind == "massage" || kind == "rest");
}

void tst_room_opening_waits::pageClosedDuringALookUp_data()
{
    QTest::addColumn<QString>("path");
    for (const QString& path : {cardPath, plansPath, kindsPath, detailPath})
        QTest::newRow(qPrintable(path)) << path;
    QTest::newRow("a question") << QString();
    QTest::newRow("the question at save") << "save";
}

void tst_room_opening_waits::pageClosedDuringALookUp()
{
    QFETCH(QString, path);
    QPointer<QObject> page;
    const auto closeDuring = [&](QObject* opened) {
        page = opened;
        if (path.startsWith('/')) {
            m_room->house().fault(path, "delay", 200, 1);
            QTimer::singleShot(50, opened, [&] { delete page; });
        } else {
            connect(MainClass::getInstance(), &MainClass::msgConfirmSignal, opened, [&] { delete page; });
        }
    };
    if (path == plansPath || path.isEmpty()) {
        store().set_openMulti(false);
        store().set_usedRoomMod(path.isEmpty() ? 1 : 0); // the question stops the start
        m_room->answer(cardPath, cardFields("101", 1, "102"));
        m_room->answer(plansPath, QJsonArray{plan("P1", "钟点", 2, 28)});
        auto* rest = new OpenRestVm;
        closeDuring(rest);
        rest->init("R1", "101");
        QCOMPARE(m_room->house().seen(plansPath), path.isEmpty() ? 0 : 1);
    } else if (path == cardPath) {
        m_room->answer(cardPath, cardFields("8001", 1, "102"));
        auto* massage = new OpenMassVm;
        closeDuring(massage);
        massage->getCardInfo("8001", {});
    } else if (path == kindsPath) {
        auto* occupy = new OpenOccupyVm;
        closeDuring(occupy);
        occupy->init("R1");
    } else if (path == detailPath) {
        m_room->answer(detailPath, QJsonObject{{"id", "R1"}, {"status", 1}});
        auto* dialog = new OpenRoomVm;
        closeDuring(dialog);
        QVERIFY(!dialog->init("R1"));
    } else {
        m_room->answer(massPath, {});
        QObject* massage = prepared("massage");
        closeDuring(massage);
        QVERIFY(save(massage)); // he said yes
        QCOMPARE(m_room->sent(massPath).value("isConn").toInt(), 1);
    }
    QVERIFY(!page);
}

QTEST_GUILESS_MAIN(tst_room_opening_waits)
#include "tst_room_opening_waits.moc"
