// The dialogs that ask, driven by taps: what they give back, and who hears a card while they are open.

#include "Terminal.h"

#include "app/MainClass.h"
#include "common/BaseObject.h"
#include "common/MyMessage.h"

#include <QJsonDocument>
#include <QQuickItem>
#include <QStandardItemModel>
#include <QTcpServer>
#include <QtTest>

#include <memory>

namespace {

/// A page's view-model that listens below whatever dialog is open.
class Listener : public BaseObject
{
public:
    QStringList cards;

    Listener() { MainClass::getInstance()->startReadStaff(this); }
    ~Listener() override { MainClass::getInstance()->stopReadStaff(this); }
    void readingExec(QString cardId) override { cards.append(cardId); }
};

/// A question: its name, a function of Ask.js or a dialog, what it is given, the road through it, and what
/// comes back; of an object the fields that count.
const char questionTable[] = R"(
unknown ; noSuchDlg ; {} ; ; null
without a page ; testDialog ; {} ; ; null
number ; number ; "请输入" ; confirmButton =error|输入内容不能为空 #1023 confirmButton ; "1023"
number called off ; number ; "请输入" ; #1023 cancelButton ; null
taken back ; number ; "请输入" ; #12 key_< #3 confirmButton ; "13"
emptied ; number ; "请输入" ; #12 clearMark #3 confirmButton ; "3"
letters ; number ; "请输入" ; #7 key_A~Z #ab key_^ #cz key_< key_123 #0 confirmButton ; "7ABc0"
card typed ; card ; "请输入" ; #12 confirmButton ; {"cardNo": "12", "rfid": ""}
card read ; card ; "请输入" ; #12 @123 ; {"cardNo": "", "rfid": "00000123"}
card called off ; card ; "请输入" ; #12 cancelButton ; null
quantity ; quantity ; null ; confirmButton =error|不能为空 #0.5 confirmButton ; "0.5"
second point ; quantity ; "几份" ; ?inputLine.placeholderText=几份 #1.2.3 confirmButton ; "1.23"
first point ; quantity ; null ; #.7 confirmButton ; "7"
quantity called off ; quantity ; null ; #7 cancelButton ; null
yes ; isConfirmed ; "还有一件" ; +msgConfirmDlg confirmButton ; true
no ; isConfirmed ; "还有一件" ; +msgConfirmDlg cancelButton ; false
two lines ; isConfirmed ; "一件\n两件" ; ?contentText.lineCount=2 confirmButton ; true
yes on the page ; isConfirmedOnPage ; "退单" ; +confirmDlg confirmButton ; true
no on the page ; isConfirmedOnPage ; "退单" ; +confirmDlg cancelButton ; false
identity ; inputOrReadDlg ; {}
    ; confirmButton =error|用户名或密码不能为空 ?inputLine.placeholderText=请刷入或输入员工卡 ?inputLine.echoMode=0
    #601 confirmButton ?inputLine.placeholderText=请输入密码 ?inputLine.echoMode=2
    confirmButton =error|用户名或密码不能为空 key_A~Z #a confirmButton
    ; {"dlgResult": true, "isRead": false, "user": "601", "pwd": "A", "cardUid": ""}
identity by card ; inputOrReadDlg ; {} ; #601 confirmButton #9 @31927757
    ; {"dlgResult": true, "isRead": true, "user": "601", "pwd": "", "cardUid": "31927757"}
no identity ; inputOrReadDlg ; {} ; #601 cancelButton ; {"dlgResult": false}
date and time ; dateTimeDlg ; {"defaultTime": "2026-01-31 06:07:08"} ; +year +second confirmButton
    ; {"dlgResult": true, "date": "2026-01-31T06:07:08.000"}
date ; dateTimeDlg ; {"type": "Date", "defaultTime": "2026-01-31 06:07:08"} ; +day -hour confirmButton
    ; {"date": "2026-01-31T06:07:08.000"}
time ; dateTimeDlg ; {"type": "Time", "defaultTime": "2026-01-31 06:07:08"} ; +hour -day confirmButton
    ; {"date": "2026-01-31T06:07:08.000"}
no date ; dateTimeDlg ; {} ; cancelButton ; {"dlgResult": false}
March to February ; dateTimeDlg ; {"defaultTime": "2026-03-31"} ; !month.current=2 ?day.max=28 confirmButton
    ; {"dlgResult": true}
the day stays ; dateTimeDlg ; {"defaultTime": "2026-03-15"} ; !month.current=2 ?day.max=28 confirmButton
    ; {"date": "2026-02-15T00:00:00.000"}
leap year ; dateTimeDlg ; {"defaultTime": "2024-03-29"} ; !month.current=2 ?day.max=29 confirmButton
    ; {"date": "2024-02-29T00:00:00.000"}
2100 as well ; dateTimeDlg ; {"defaultTime": "2099-02-28"} ; !year.current=2100 ?day.max=29 confirmButton
    ; {"date": "2100-02-28T00:00:00.000"}
thirty days ; dateTimeDlg ; {"defaultTime": "2026-05-31"} ; !month.current=6 ?day.max=30 confirmButton
    ; {"dlgResult": true}
remark ; remarkDlg ; {"remark": "旧的"} ; ?remarkArea.text=旧的 !remarkArea.text=少冰 confirmButton
    ; {"dlgResult": true, "remark": "少冰"}
remark taken off ; remarkDlg ; {"remark": "旧的"} ; !remarkArea.text= confirmButton
    ; {"dlgResult": true, "remark": ""}
remark left ; remarkDlg ; {"remark": "旧的"} ; !remarkArea.text=少冰 backButton ; {"dlgResult": false}
no area ; workAreaDlg ; {} ; closeButton ; {"dlgResult": false}
)";

QJsonValue parsed(const QString& json)
{
    return QJsonDocument::fromJson("[" + json.toUtf8() + "]").array().at(0);
}

} // namespace

class tst_dialogs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_terminal.reset(new Terminal);
        QVERIFY(m_terminal->isUp());
    }
    void cleanupTestCase() { m_terminal.reset(); }
    void cleanup() { QCOMPARE(m_terminal->takeMessages(), QStringList()); }

    void answers_data();
    void answers();
    void workArea();
    void numberWithoutReader();
    void nestedDialogs();
    void cardGoesToTheTop();
    void questionOfAViewModel();
    void messageWindow();

private:
    std::unique_ptr<Terminal> m_terminal;
};

void tst_dialogs::answers_data() { addRows(questionTable); }

void tst_dialogs::answers()
{
    QFETCH(QStringList, row);
    const QVariant given = parsed(row.at(2)).toVariant();
    const bool isDialog = row.at(2).startsWith('{');
    WALKED((isDialog ? m_terminal->open(row.at(1), given.toMap()) : m_terminal->ask(row.at(1), given))
               .walk(row.at(3))
               .returned());
    const QJsonValue answer = QJsonValue::fromVariant(m_terminal->result());
    if (row.at(4).startsWith('{'))
        QCOMPARE(unlike(answer.toObject(), row.at(4)), QString());
    else
        QCOMPARE(answer, parsed(row.at(4)));
}

void tst_dialogs::workArea()
{
    QStandardItemModel areas;
    areas.setItemRoleNames({{Qt::UserRole + 1, "areaId"}, {Qt::UserRole + 2, "areaName"}});
    for (const char* id : {"", "7"}) {
        auto* area = new QStandardItem;
        area->setData(QString::fromLatin1(id), Qt::UserRole + 1);
        area->setData(QStringLiteral("区域%1").arg(QLatin1String(id)), Qt::UserRole + 2);
        areas.appendRow(area);
    }
    // No area is a choice like the others.
    for (const QString& id : {QString("7"), QString()}) {
        WALKED(m_terminal->open("workAreaDlg", {{"areaList", QVariant::fromValue<QObject*>(&areas)}})
                   .walk("+area_7 area_" + id)
                   .returned());
        QCOMPARE(m_terminal->result().toMap(),
                 (QVariantMap{{"dlgResult", true}, {"areaId", id}, {"areaName", "区域" + id}}));
    }
}

void tst_dialogs::numberWithoutReader()
{
    Listener below;
    WALKED(m_terminal->open("numKeyDlg", {{"isReadOk", false}, {"readType", 1}})
               .walk("+numKeyDlg @55555555")
               .until("the page below has it", [&] { return below.cards == QStringList{"55555555"}; })
               .walk("+numKeyDlg cancelButton")
               .returned());
}

void tst_dialogs::nestedDialogs()
{
    // A question comes up over a dialog; the dialog below ends after it, whatever order the user wants.
    bool isAnswered = false;
    WALKED(m_terminal->ask("number", "请输入")
               .walk("+numKeyDlg")
               .act([&] {
                   QTimer::singleShot(0, qApp, [&] {
                       MainClass::getInstance()->showMsgConfirm(QStringLiteral("提示"),
                                                                QStringLiteral("还有一件事"));
                       isAnswered = true;
                   });
               })
               .walk("+msgConfirmDlg confirmButton -msgConfirmDlg")
               .until("the question returned", [&] { return isAnswered; })
               .walk("+numKeyDlg #5 confirmButton")
               .returned());
    QCOMPARE(m_terminal->result(), QVariant("5"));
}

void tst_dialogs::cardGoesToTheTop()
{
    Listener page;
    WALKED(m_terminal->walk("@11111111")
               .until("the page has it", [&] { return page.cards.size() == 1; })
               .open("inputOrReadDlg")
               .walk("+inputOrReadDlg @22222222")
               .returned()
               .walk("@33333333")
               .until("the page has it again", [&] { return page.cards.size() == 2; }));
    QCOMPARE(page.cards, (QStringList{"11111111", "33333333"}));
    QCOMPARE(m_terminal->result().toMap().value("cardUid").toString(), QStringLiteral("22222222"));
}

void tst_dialogs::questionOfAViewModel()
{
    QTcpServer server; // where a picture in the text would come from
    QVERIFY(server.listen(QHostAddress::LocalHost));
    const QString text =
        QStringLiteral("<b>确定</b>吗&amp;<img src='http://127.0.0.1:%1/x.png'>").arg(server.serverPort());
    for (const bool isYes : {true, false}) {
        int answer = -1;
        WALKED(m_terminal
                   ->act([&] {
                       QTimer::singleShot(0, qApp, [&] {
                           answer = MainClass::getInstance()->showMsgConfirm(QStringLiteral("提示"), text);
                       });
                   })
                   .walk("+msgConfirmDlg")
                   .tap(isYes ? "confirmButton" : "cancelButton")
                   .until("the answer", [&] { return answer != -1; }));
        QCOMPARE(answer, isYes ? 1 : 0);
    }
    QVERIFY(!server.hasPendingConnections());
}

void tst_dialogs::messageWindow()
{
    QWindow* window = nullptr;
    for (QWindow* candidate : QGuiApplication::topLevelWindows()) {
        if (candidate->objectName() == QLatin1String("messageWindow"))
            window = candidate;
    }
    QVERIFY(window);
    const auto tap = [window] { QTest::mouseClick(window, Qt::LeftButton, {}, {20, 20}); };
    // Of a type without a time it stays until it is tapped.
    tap();
    Q_EMIT MyMessage::getInstance()->showMessageSignal(QStringLiteral("留着"), QStringLiteral("other"));
    QTRY_VERIFY(window->isVisible());
    QTest::qWait(200);
    QVERIFY(window->isVisible());
    tap();
    QTRY_VERIFY(!window->isVisible());

    // A newer text comes at once and doesn't restart the time of the older one; an error has its own.
    QElapsedTimer shown;
    shown.start();
    MyMessage::getInstance()->showOk(QStringLiteral("一"));
    QTRY_VERIFY(window->isVisible());
    QCOMPARE(window->property("text").toString(), QStringLiteral("一"));
    QTest::qWait(2000);
    MyMessage::getInstance()->showOk(QStringLiteral("二"));
    QCOMPARE(window->property("text").toString(), QStringLiteral("二"));
    QTRY_VERIFY(window->y() < 80 && window->isVisible()); // on its way out
    MyMessage::getInstance()->showOk(QStringLiteral("二"));
    QTRY_VERIFY(!window->isVisible());
    QVERIFY(shown.elapsed() >= 6000 && shown.elapsed() < 12000);

    // What was tapped away takes its time with it; what fails without a text has one all the same.
    MyMessage::getInstance()->showError(QString());
    QTRY_COMPARE(m_terminal->text("messageText"), QStringLiteral("请求失败"));
    tap();
    QTRY_VERIFY(!window->isVisible());
    MyMessage::getInstance()->showOk(QStringLiteral("三"));
    QTRY_VERIFY(window->isVisible());
    QTRY_VERIFY_WITH_TIMEOUT(!window->isVisible(), 8000);
    m_terminal->takeMessages();
}

QTEST_MAIN(tst_dialogs)
#include "tst_dialogs.moc"
