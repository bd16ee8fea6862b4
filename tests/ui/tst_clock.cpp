// The technician's clock as he uses it: by finger, from the login to the slip.

#include "Terminal.h"

#include "common/GlobalConfig.h"
#include "inspect/Legibility.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QQuickItem>
#include <QQuickItemGrabResult>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QtTest>

namespace {

const QString serviceTile = QStringLiteral("tile_STAFF_QTZ_CTRL");
const QString timerTile = QStringLiteral("tile_NO_ITEM_SERVER");
const QSet<QString> rights{"0324", "0303", "0314", "0319", "0316", "0304"}; // all on the clock
const QString bookPath = QStringLiteral("/bca01/batchUpdateOrder");

QJsonObject json(const QString& text) { return QJsonDocument::fromJson(text.toUtf8()).object(); }

/// So many items or running lines, with long names among them.
QString many(int count)
{
    const QString row = R"({"name":"%1","itemName":"%1","itemId":"%2","orderId":"%2","times":60,"price":1288,
        "unit":"钟","statusName":"轮  钟"})";
    QStringList rows;
    for (int i = 0; i < count; ++i)
        rows.append(row.arg(i % 4 == 1 ? "至尊帝王足道草本熏蒸养生套餐" : "足疗90分钟").arg(i));
    return '[' + rows.join(',') + ']';
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
    }
    void cleanup()
    {
        m_terminal->house().reset();
        if (m_terminal->item("returnButton"))
            WALKED(m_terminal->walk("returnButton -returnButton"));
        m_terminal->takeMessages();
    }

    /// By his card he starts, then adds and stops; a card that nobody knows shows what was read.
    void shift()
    {
        WALKED(m_terminal->walk(
            "tile_STAFF_QTZ_CTRL +loginDlg @82413995 +UpServerPage startButton =error|请选择起钟项目 server_0"
            " startButton =error|请输入手牌 cardField +numKeyDlg @00000099 -numKeyDlg =error|手牌不存在"
            " ?cardFieldFault.text=不能使用：00000099 cardField #8041 confirmButton -numKeyDlg"
            " ?cardFieldText.text=8041 -cardFieldFault +consumed_1 kind_1 server_1 startButton"
            " =success|起钟成功 -Module3"));
        const QJsonObject started = sent("/bda02/startServerWithoutOrder");
        QCOMPARE(unlike(started, R"({"orderType":1,"cardNo":"8041"})"), QString());
        WALKED(m_terminal->walk(
            "tile_STAFF_QTZ_CTRL +loginDlg @82413995 +DownServerPage ?surplusText.text=剩余90分"
            " +running_0 -running_1 -change_0 add_0 =success|加钟成功 ?surplusText.text=剩余150分 +running_1"
            " running_1 change_5 =success|换钟成功 ?surplusText.text=剩余120分 -change_0 kind_2 "
            "=success|更换成功"
            " stopButton +msgConfirmDlg cancelButton -msgConfirmDlg +DownServerPage"
            " stopButton +msgConfirmDlg confirmButton =success|停钟成功 -Module3"));
        QCOMPARE(m_terminal->house().executed("/bda02/endServer"), 1);
    }

    void presses_data()
    {
        addRows("tap ; 250 ; 0 ; 1 ; -numDlg\n"
                "held ; 900 ; 0 ; 0 ; +numDlg #0 confirmButton -numDlg\n"
                "slid off ; 250 ; 300 ; 0 ; -numDlg\n"
                "slid off and held ; 900 ; 300 ; 0 ; -numDlg\n");
    }
    /// A short press adds one clock, a long one asks for how many, one that slides away does nothing.
    void presses()
    {
        QFETCH(QStringList, row);
        WALKED(m_terminal->login(serviceTile, "803", "803").walk("+add_0"));
        look("DownServerPage");
        QQuickWindow* window = m_terminal->item("add_0")->window();
        const QPoint at = place(m_terminal->item("add_0")).center().toPoint();
        const QPoint end = at + QPoint(row[2].toInt(), 0);
        const auto press = [&] {
            QTest::touchEvent(window, m_touch).press(0, at, window);
            QTest::touchEvent(window, m_touch).move(0, end, window);
        };
        const auto release = [&] { QTest::touchEvent(window, m_touch).release(0, end, window); };
        WALKED(m_terminal->act(press).walk("~" + row[1]).act(release).walk("~150 " + row[4]));
        QCOMPARE(m_terminal->house().seen("/bda02/addServer"), row[3].toInt());
    }

    /// No item until the end: what is booked there is refused once, and is booked again.
    void timerFirst()
    {
        WALKED(m_terminal->login(timerTile, "811", "811")
                   .walk("+StartServerPage ?stateText.text=待钟..... startButton =success|操作成功 -Module6"));
        QCOMPARE(sent("/bda02/updateStaffWorkStatus")["serverStatus"], QJsonValue(1));
        m_terminal->house().answer(bookPath, QJsonObject{{"code", "E"}, {"msg", "库存不足"}}, 1);
        const QString road =
            "+EndServerPage +item_1 bookButton =error|手牌号不能为空"
            " cardField +numKeyDlg @00000098 -numKeyDlg =error|手牌不存在 +cardFieldFault"
            " cardField +numKeyDlg #8043 confirmButton -numKeyDlg bookButton =error|请选择需要录入的项目"
            " item_0 +newLine_0 item_0 item_1 +newLine_1 newMenu_1 entry_delete -newLine_1"
            " item_1 +newLine_1 plus_1 minus_1 positionField +numKeyDlg #112 confirmButton -numKeyDlg"
            " pushField +staffQueryDlg #802 confirmButton -staffQueryDlg ?pushFieldText.text=802"
            " bookButton =error|库存不足 +EndServerPage ?bookButton.enabled=true"
            " bookButton =success|操作成功 -Module6";
        WALKED(m_terminal->login(timerTile, "811", "811").walk(road));
        const QJsonArray lines = sent(bookPath)["items"].toArray();
        const char first[] = R"({"num":2,"staffNo":"811","pushNo":"802","type":5,"roomNo":"112"})";
        QCOMPARE(unlike(lines[0].toObject(), first) + QString::number(lines.size()), QString("2"));
    }

    /// In a crowd, too, the time is the largest text there is, and the stop lies far from what adds.
    void looks()
    {
        m_terminal->house().answer("/bda02/getStaffItemList", ok(json("{\"itemlist\":" + many(60) + "}")));
        const auto show = [&](int workStatus, const QString& page, const QString& steps) {
            const QString staff = R"({"staffInfo":{"id":"S","staffNo":"803","name":"张桂芳","surplus":-125,
                "cardno":"8020","roomNo":"201","orderId":"0","type":1,"workStatus":%1},"itemList":%2})";
            m_terminal->house().answer("/bda02/getStaffInfo", ok(json(staff.arg(workStatus).arg(many(6)))));
            m_terminal->login(serviceTile, "803", "803").walk("-loginDlg");
            m_terminal->act([] { GlobalConfig::getInstance()->setRights(rights); });
            WALKED(m_terminal->walk("+" + page + " +server_2 " + steps).picture("clock-" + page));
            look(page);
        };
        show(1, "UpServerPage", "server_1");
        WALKED(m_terminal->walk("returnButton -Module3"));
        show(2, "DownServerPage", "+refund_0 running_0 +change_0 ?surplusText.text=已超125分");

        const QQuickItem* page = m_terminal->item("DownServerPage");
        const double gap = 20 * place(page).width() / 345; // mm, on the smallest panel that shops use
        const QRectF stop = place(m_terminal->item("stopButton")).adjusted(-gap, -gap, gap, gap);
        QVERIFY(!stop.intersects(place(m_terminal->item("serverGrid"))));
        const double largest = m_terminal->property("surplusText", "paintedHeight").toDouble();
        for (const QQuickItem* text : page->findChildren<QQuickItem*>())
            QVERIFY2(!text->isVisible() || text->objectName() == "surplusText" ||
                         text->property("lineCount") != 1 ||
                         text->property("paintedHeight").toDouble() < largest,
                     qPrintable(text->property("text").toString()));
    }

private:
    QJsonObject sent(const QString& path) { return m_terminal->house().lastRequest(path)["json"].toObject(); }

    /// All of the page can be read and hit.
    void look(const QString& page)
    {
        const QQuickItem* item = m_terminal->item(page);
        const auto grab = item->window()->contentItem()->grabToImage();
        QVERIFY(grab && QSignalSpy(grab.data(), &QQuickItemGrabResult::ready).wait());
        QCOMPARE(Legibility::faults(Legibility::wholeItems(item), grab->image()).join("; "), QString());
    }

    std::unique_ptr<Terminal> m_terminal;
    QTouchDevice* const m_touch = QTest::createTouchDevice();
};

QTEST_MAIN(tst_clock)
#include "tst_clock.moc"
