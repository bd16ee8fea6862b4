// The technician's clock as he uses it: by finger, from the login to the slip.

#include "Terminal.h"

#include "common/GlobalConfig.h"

#include <QJsonArray>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtTest>

#include <memory>

namespace {

const QString addPath = QStringLiteral("/bda02/addServer");
const QString statusPath = QStringLiteral("/bda02/updateStaffWorkStatus");
const QString bookPath = QStringLiteral("/bca01/batchUpdateOrder");

/// So many items or running lines, with long names among them.
QJsonArray many(int count, const QJsonObject& fields)
{
    QJsonArray rows;
    for (int i = 0; i < count; ++i) {
        QJsonObject row = fields;
        row["name"] = row["itemName"] =
            i % 4 == 1 ? "至尊帝王足道草本熏蒸养生套餐" : QString("足疗%1分钟").arg(30 + i);
        row["itemId"] = row["orderId"] = QString::number(i);
        rows.append(row);
    }
    return rows;
}

QRectF place(const QQuickItem* item) { return item->mapRectToScene({0, 0, item->width(), item->height()}); }

} // namespace

class tst_clock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_terminal.reset(new Terminal);
        QVERIFY(m_terminal->isUp());
        GlobalConfig::getInstance()->stop_server_print_count = 1;
    }
    void cleanupTestCase() { m_terminal.reset(); }
    void cleanup();

    void shift();
    void presses_data();
    void presses();
    void timerFirst();
    void looks_data();
    void looks();

private:
    Terminal& login(const QString& module, const QString& staff)
    {
        return m_terminal->login("tile_" + module, staff, staff);
    }
    QJsonObject sent(const QString& path)
    {
        return m_terminal->house().lastRequest(path).value("json").toObject();
    }

    std::unique_ptr<Terminal> m_terminal;
    QTouchDevice* const m_touch = QTest::createTouchDevice();
};

void tst_clock::cleanup()
{
    m_terminal->house().reset();
    if (m_terminal->item("returnButton"))
        WALKED(m_terminal->walk("returnButton -returnButton"));
    m_terminal->takeMessages();
}

/// By his card he starts, then adds and stops; a card that nobody knows shows what was read.
void tst_clock::shift()
{
    WALKED(m_terminal
               ->walk("tile_STAFF_QTZ_CTRL +loginDlg @82413995 +UpServerPage startButton"
                      " =error|请选择起钟项目 server_0 startButton =error|请输入手牌"
                      " cardField +numKeyDlg @00000099 -numKeyDlg =error|手牌不存在"
                      " ?cardFieldFault.text=不能使用：00000099 cardField #8041 confirmButton -numKeyDlg"
                      " ?cardFieldText.text=8041 -cardFieldFault +consumed_1 kind_1 server_1")
               .picture("clock-start")
               .walk("startButton =success|起钟成功 -Module3"));
    const QJsonObject started = sent("/bda02/startServerWithoutOrder");
    QCOMPARE(started["orderType"].toInt(), 1);
    QCOMPARE(started["cardNo"].toString(), QString("8041"));
    QVERIFY(!started.contains("roomNo") && !started.contains("pushNo"));

    WALKED(m_terminal
               ->walk("~1100 tile_STAFF_QTZ_CTRL +loginDlg @82413995 +DownServerPage"
                      " ?surplusText.text=剩余90分 +running_0 -running_1 -change_0"
                      " add_0 =success|加钟成功 ?surplusText.text=剩余150分 +running_1"
                      " running_1 change_5 =success|换钟成功 ?surplusText.text=剩余120分 -change_0"
                      " kind_2 =success|更换成功")
               .picture("clock-running")
               .walk("stopButton +msgConfirmDlg cancelButton -msgConfirmDlg +DownServerPage"
                     " stopButton +msgConfirmDlg confirmButton =success|停钟成功 -Module3"));
    QCOMPARE(sent("/bda02/endServer")["pageType"].toInt(), 1);
    QCOMPARE(m_terminal->house().executed("/bda02/endServer"), 1);
}

void tst_clock::presses_data()
{
    addRows("tap ; 250 ; 0 ; 1 ; mouse\n"
            "held ; 900 ; 0 ; 0 ; mouse\n"
            "slid off ; 250 ; 300 ; 0 ; mouse\n"
            "slid off and held ; 900 ; 300 ; 0 ; mouse\n"
            "finger ; 250 ; 0 ; 1 ; touch\n"
            "finger held ; 900 ; 0 ; 0 ; touch\n"
            "finger slid off ; 250 ; 300 ; 0 ; touch\n");
}

/// A short press adds one clock, a long one asks for how many, one that slides away does nothing.
void tst_clock::presses()
{
    QFETCH(QStringList, row);
    const bool isAsking = row[1] == "900" && row[2] == "0";
    const bool isTouch = row[4] == "touch";
    WALKED(login("STAFF_QTZ_CTRL", "803").walk("+add_0"));
    const QQuickItem* key = m_terminal->item("add_0");
    const QPoint at = place(key).center().toPoint();
    const QPoint end = at + QPoint(row[2].toInt(), 0);
    QQuickWindow* window = key->window();
    QElapsedTimer pressed;
    WALKED(m_terminal
               ->act([&] {
                   if (isTouch)
                       QTest::touchEvent(window, m_touch).press(0, at, window);
                   else
                       QTest::mousePress(window, Qt::LeftButton, {}, at);
                   if (end != at && isTouch)
                       QTest::touchEvent(window, m_touch).move(0, end, window);
                   else if (end != at)
                       QTest::mouseMove(window, end);
                   pressed.start();
               })
               .until("the finger's time", [&] { return pressed.hasExpired(row[1].toInt()); })
               .act([&] {
                   if (isTouch)
                       QTest::touchEvent(window, m_touch).release(0, end, window);
                   else
                       QTest::mouseRelease(window, Qt::LeftButton, {}, end);
               })
               .until("what follows", [&] { return pressed.hasExpired(row[1].toInt() + 150); })
               .walk(isAsking ? "+numDlg" : "-numDlg")
               .walk(isAsking ? "#0 confirmButton -numDlg" : ""));
    QCOMPARE(m_terminal->house().seen(addPath), row[3].toInt());
}

/// No item until the end: what is booked there is refused once, and is booked again without a second stop.
void tst_clock::timerFirst()
{
    WALKED(login("NO_ITEM_SERVER", "811")
               .walk("+StartServerPage ?stateText.text=待钟.....")
               .picture("timer-start")
               .walk("startButton =success|操作成功 -Module6"));
    QCOMPARE(sent(statusPath)["serverStatus"], QJsonValue(1));
    m_terminal->house().reset();
    m_terminal->house().answer(bookPath, QJsonObject{{"code", "E"}, {"msg", "库存不足"}}, 1);
    WALKED(
        login("NO_ITEM_SERVER", "811")
            .walk("+EndServerPage +item_1 bookButton =error|手牌号不能为空"
                  " cardField +numKeyDlg #8043 confirmButton -numKeyDlg bookButton =error|请选择需要录入的项目"
                  " item_0 +newLine_0 item_0 item_1 +newLine_1 newMenu_1 entry_delete -newLine_1"
                  " item_1 +newLine_1 plus_1 minus_1"
                  " positionField +numKeyDlg #112 confirmButton -numKeyDlg"
                  " pushField +staffQueryDlg #802 confirmButton -staffQueryDlg ?pushFieldText.text=802")
            .picture("timer-end")
            .walk("bookButton =error|库存不足 +EndServerPage ?bookButton.enabled=true"
                  " bookButton =success|操作成功 -Module6"));
    QCOMPARE(m_terminal->house().seen(statusPath), 1);
    QCOMPARE(m_terminal->house().seen(bookPath), 2);
    const QJsonArray lines = sent(bookPath)["items"].toArray();
    QCOMPARE(lines.size(), 2);
    QCOMPARE(unlike(lines[0].toObject(), R"({"num":2,"staffNo":"811","pushNo":"802","type":5,"roomNo":"112"})"),
             QString());
}

void tst_clock::looks_data()
{
    addRows("few ; 3 ; 1 ; 32 ; 剩余32分\n"
            "many ; 60 ; 6 ; -125 ; 已超125分\n");
}

/// The time is the largest text there is, and the stop lies far from what adds.
void tst_clock::looks()
{
    QFETCH(QStringList, row);
    const QJsonObject staff{
        {"id", "S"},        {"staffNo", "803"}, {"name", "张桂芳"}, {"surplus", row[3].toInt()},
        {"cardno", "8020"}, {"roomNo", "201"},  {"orderId", "0"},   {"type", 1}};
    const QJsonArray items = many(row[1].toInt(), {{"times", 60}, {"price", 1288}});
    const QJsonArray lines =
        many(row[2].toInt(), {{"times", 60}, {"price", 128}, {"unit", "钟"}, {"statusName", "轮  钟"}});
    const auto show = [&](int workStatus, const QString& page) {
        QJsonObject record = staff;
        record["workStatus"] = workStatus;
        m_terminal->house().answer("/bda02/getStaffInfo",
                                   ok(QJsonObject{{"staffInfo", record}, {"itemList", lines}}));
        m_terminal->house().answer("/bda02/getStaffItemList", ok(QJsonObject{{"itemlist", items}}));
        // Who may do everything.
        const auto rights = [] {
            GlobalConfig::getInstance()->setRights({"0324", "0303", "0314", "0319", "0316", "0304"});
        };
        login("STAFF_QTZ_CTRL", "803").walk("-loginDlg").act(rights).walk("+" + page + " +server_2");
    };
    show(1, "UpServerPage");
    WALKED(m_terminal->walk("server_1").picture("clock-start-" + row[0]).walk("returnButton -Module3"));
    show(2, "DownServerPage");
    WALKED(m_terminal->walk("+refund_0 running_0 +change_0 ?surplusText.text=" + row[4])
               .picture("clock-end-" + row[0]));

    const QQuickItem* page = m_terminal->item("DownServerPage");
    const double millimetre = place(page).width() / 345; // the smallest panel that shops use
    QRectF stop = place(m_terminal->item("stopButton"));
    const double clearance = 20 * millimetre;
    stop.adjust(-clearance, -clearance, clearance, clearance);
    const QRectF grid = place(m_terminal->item("serverGrid"));
    QVERIFY2(!stop.intersects(grid), qPrintable(QString("%1 below %2").arg(stop.top()).arg(grid.bottom())));
    const double largest = m_terminal->item("surplusText")->property("paintedHeight").toDouble();
    for (const QQuickItem* text : page->findChildren<QQuickItem*>()) {
        if (text->isVisible() && text->objectName() != "surplusText" &&
            text->property("lineCount").toInt() == 1)
            QVERIFY2(text->property("paintedHeight").toDouble() < largest,
                     qPrintable(text->property("text").toString()));
    }
}

QTEST_MAIN(tst_clock)
#include "tst_clock.moc"
