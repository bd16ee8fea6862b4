// The bath helper's station, by taps: who acts, what each button sends, what the lists and the dialogs show.

#include "Terminal.h"

#include "app/MainClass.h"
#include "common/GlobalConfig.h"
#include "inspect/Legibility.h"

#include <QFontMetricsF>
#include <QJSValue>
#include <QJsonArray>
#include <QJsonDocument>
#include <QQuickItem>
#include <QQuickItemGrabResult>
#include <QQuickWindow>
#include <QSignalSpy>
#include <QtTest>

namespace {

const QString listPath = QStringLiteral("/bca01/getHardCardCallList");

GlobalConfig* config() { return GlobalConfig::getInstance(); }

QJsonObject entry(int number, int status = 1, int minutes = 5, int calls = 0)
{
    return {{"id", QString("e%1").arg(number)},
            {"cardNo", QString::number(8000 + number)},
            {"status", status},
            {"statusVal", status == 3   ? "服务中"
                          : status == 2 ? "已叫号"
                                        : "等待中"},
            {"callNum", calls},
            {"uptime", "20:15:03"},
            {"minuteNum", minutes}};
}

QJsonArray entries(int first, int count, int status = 1)
{
    QJsonArray list;
    for (int i = 0; i < count; ++i)
        list.append(entry(first + i, status == 2 && i % 4 == 3 ? 3 : status, 3 * (count - i), status > 1));
    return list;
}

/// What each button sends: name ; road ; path ; fields; "!" before the name makes the terminal ask who acts.
const char actionTable[] = R"(
next ; callNextButton ; callNextHardCards ; {"callNum": 1, "staffNo": "601", "staffPwd": "601"}
several ; callManyButton +numKeyDlg #12 confirmButton ; callNextHardCards
    ; {"callNum": 12, "staffNo": "601", "staffPwd": "601"}
serve ; startServerButton ; startServerCallInfo ; {"staffNo": "601", "staffPwd": "601"}
!serve by number ; startServerButton +inputOrReadDlg #602 confirmButton #77 confirmButton ; startServerCallInfo
    ; {"staffNo": "602", "staffPwd": "77"}
!serve by card ; startServerButton +inputOrReadDlg #602 @82546247 ; startServerCallInfo ; {"staffUid": "82546247"}
serve this ; startServerDir_8050 ; startServerCallInfo
    ; {"hardCardNo": "8050", "staffNo": "601", "staffPwd": "601"}
cancel waiting ; cancelWait_8002 +inputOrReadDlg #601 confirmButton #601 confirmButton ; cacelWaitCall
    ; {"id": "e2", "staffNo": "601", "staffPwd": "601"}
call this ; call_8001 +inputOrReadDlg @82546247 ; callHardCards
    ; {"id": "e1", "hardCardId": "e1", "staffUid": "82546247"}
pass ; cross_8050 ; crossCallInfo ; {"id": "e50", "staffNo": "601", "staffPwd": "601"}
delete ; cancel_8050 ; crossCallInfo ; {"id": "e50", "isCall": 2, "staffNo": "601", "staffPwd": "601"}
again ; repeat_8050 ; repeatCallInfo ; {"id": "e50", "staffNo": "601", "staffPwd": "601"}
queue typed ; addQueneButton +numKeyDlg #8044 confirmButton ; addWaitCallInfos
    ; {"hardCardNo": "8044", "staffNo": "601", "staffPwd": "601"}
queue read ; addQueneButton +numKeyDlg @49748974 ; addWaitCallInfos ; {"cardUid": "49748974"}
swiped ; @13911654 ; addWaitCallInfos ; {"cardUid": "13911654"}
finish ; complateButton +numKeyDlg @61893583 ; completeWaitCall
    ; {"cardUid": "61893583", "staffNo": "601", "staffPwd": "601"}
grade ; assessButton +numKeyDlg #8044 confirmButton ; getHardCardAssessOrders
    ; {"hardCardNo": "8044", "staffNo": "601", "staffPwd": "601"}
)";

} // namespace

class tst_queue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_terminal.reset(); }
    void cleanup();
    void looks();
    void actions_data() { addRows(actionTable); }
    void actions();
    void calledOff();
    void placeIsKept();
    void newlyCalled();
    void pressedCard();
    void evaluation();
    void records();
    void consumption();
    void otherPerson();

private:
    /// What the back end tells from now on, on the screen.
    void show(const QJsonArray& waiting, const QJsonArray& called)
    {
        m_terminal->house().answer(listPath,
                                   ok(QJsonObject{{"waitCallInfos", waiting}, {"callInfos", called}}));
        event();
        const QString heads = QString("等待 %1|已叫 %2").arg(waiting.size()).arg(called.size());
        WALKED(m_terminal->until(heads, [=] { return shownHeads() == heads; }));
    }
    static void event()
    {
        Q_EMIT MainClass::getInstance()->mqttSignal(config()->MQTT_HARDCARDSCALLSTATUS(), {});
    }
    QString shownHeads() const
    {
        QStringList heads;
        for (const QQuickItem* head : m_terminal->item("Module4")->findChildren<QQuickItem*>("paneTitle"))
            heads.append(head->property("text").toString());
        return heads.join('|');
    }
    /// Opens the station; of a terminal that asks who acts before these codes no more.
    void open(const QString& free)
    {
        config()->terminalInfo()->set_noVerifyStaffIdentity(free);
        WALKED(m_terminal->login("tile_HELP_BASH_WAIT", "601", "601").walk("-loginDlg +Module4 +waiting_0"));
    }
    void leave() { WALKED(m_terminal->walk("returnButton +tileGrid")); }
    /// The page's own fields of the last request.
    QJsonObject sent(const QString& path)
    {
        QJsonObject fields = m_terminal->house().lastRequest(path).value("json").toObject();
        for (const char* common : {"storeId", "compId", "deviceId", "soft_version", "operator", "creater", "ts",
                                   "nc", "tcode", "acode"})
            fields.remove(QLatin1String(common));
        return fields;
    }

    std::unique_ptr<Terminal> m_terminal;
};

void tst_queue::initTestCase()
{
    m_terminal.reset(new Terminal);
    QVERIFY(m_terminal->isUp());
    open("1,2,3,4,7,8,9,10");
}

void tst_queue::cleanup()
{
    m_terminal->house().reset();
    m_terminal->takeMessages();
}

void tst_queue::looks()
{
    WALKED(m_terminal->picture("queue"));
    show({}, {});
    WALKED(m_terminal->picture("queue-empty"));
    show(entries(1, 3), entries(50, 2, 2));
    WALKED(m_terminal->picture("queue-three"));
    show(entries(1, 40), entries(50, 12, 2));
    WALKED(m_terminal->walk("+called_11 ~3200").picture("queue-crowd"));
    QCOMPARE(m_terminal->text("calledTime_0"), QString("已叫: 36 分"));
    QCOMPARE(m_terminal->text("calledTimes_0"), QString("叫 1 次"));
    QCOMPARE(m_terminal->text("calledTime_3"), QString("开始: 27"));
    QCOMPARE(m_terminal->text("served_3"), QString("服务中...."));
    QVERIFY(!m_terminal->item("cross_8053"));
    QCOMPARE(m_terminal->text("waitTime_0"), QString("已等: 120 分"));
    QCOMPARE(m_terminal->text("voiceText"), QString("语音播报未开启"));
    MainClass::getInstance()->setVoiceFault({});
    MainClass::getInstance()->setVoiceWaiting(3);
    QCOMPARE(m_terminal->text("voiceText"), QString("待播 3"));
    // 12 mm on a screen of 15.6 inches and 1366 pixels across.
    QQuickItem* number = m_terminal->item("calledNo_0");
    QFont font = number->property("font").value<QFont>();
    font.setPixelSize(number->property("fontInfo").value<QJSValue>().property("pixelSize").toInt());
    QVERIFY(QFontMetricsF(font).tightBoundingRect("0").height() * 345.4 / 1366 >= 12);
    const auto grab = number->window()->contentItem()->grabToImage();
    QVERIFY(grab && QSignalSpy(grab.data(), &QQuickItemGrabResult::ready).wait());
    QCOMPARE(Legibility::faults(Legibility::wholeItems(m_terminal->item("Module4")), grab->image()).join(';'),
             QString());
}

void tst_queue::actions()
{
    QFETCH(QStringList, row);
    if (row[0].startsWith('!')) {
        leave();
        open({});
    }
    show(entries(1, 3), entries(50, 1, 2));
    const QString path = "/bca01/" + row[2];
    m_terminal->house().answer(path, ok({}));
    WALKED(m_terminal->walk(row[1]).until("the request", [=] { return m_terminal->house().seen(path) == 1; }));
    QCOMPARE(sent(path), QJsonDocument::fromJson(row[3].toUtf8()).object());
    const bool isChange = !path.endsWith("completeWaitCall") && !path.endsWith("AssessOrders");
    WALKED(isChange ? m_terminal->walk("=success|操作成功") : m_terminal->walk("~100"));
    QCOMPARE(m_terminal->takeMessages(), QStringList());
    if (row[0].startsWith('!')) {
        leave();
        open("1,2,3,4,7,8,9,10");
    }
}

/// Nobody who says who he is, no card, no number: nothing is sent.
void tst_queue::calledOff()
{
    show(entries(1, 3), {});
    WALKED(m_terminal->walk("call_8001 +inputOrReadDlg cancelButton -inputOrReadDlg complateButton +numKeyDlg "
                            "cancelButton -numKeyDlg callManyButton +numKeyDlg cancelButton -numKeyDlg "
                            "callManyButton +numKeyDlg #0 confirmButton =error|请输入正确的数量"));
    for (const char* path : {"callHardCards", "completeWaitCall", "callNextHardCards"})
        QCOMPARE(m_terminal->house().seen(QString("/bca01/") + path), 0);
}

/// Whatever is called away above, the card that stood at the top of the list stays there.
void tst_queue::placeIsKept()
{
    show(entries(1, 40), {});
    QQuickItem* list = m_terminal->item("waitingList");
    const auto topCard = [&] {
        const int index = [&] {
            int found = -1;
            QMetaObject::invokeMethod(list, "indexAt", Q_RETURN_ARG(int, found), Q_ARG(qreal, 5),
                                      Q_ARG(qreal, list->property("contentY").toReal() + 40));
            return found;
        }();
        return m_terminal->text(QString("waitNo_%1").arg(index));
    };
    list->setProperty("contentY", 1000);
    const QString card = topCard();
    QVERIFY(!card.isEmpty() && card != "8001");
    const qreal place = list->property("contentY").toReal();
    show(entries(4, 37), {});
    QTRY_COMPARE(topCard(), card);
    QVERIFY(list->property("contentY").toReal() < place - 200);
    // As many as before, but not the same ones; minutes alone move nothing.
    show(entries(6, 37), {});
    QTRY_COMPARE(topCard(), card);
    const qreal kept = list->property("contentY").toReal();
    show(entries(6, 37), {});
    QCOMPARE(list->property("contentY").toReal(), kept);
}

void tst_queue::newlyCalled()
{
    const auto isMarked = [&](int place) {
        return m_terminal->property(QString("called_%1").arg(place), "isMarked").toBool();
    };
    show({}, {entry(1, 2, 5, 1), entry(2, 2, 5, 1)});
    QTest::qWait(3300);
    QVERIFY(!isMarked(0) && !isMarked(1));
    show({}, {entry(1, 3, 5, 1), entry(2, 2, 0, 2)});
    QTRY_VERIFY(!isMarked(0) && isMarked(1));
    show({}, {entry(1, 3, 5, 1), entry(2, 2, 0, 2), entry(3, 2, 0, 1)});
    QVERIFY(!isMarked(0) && isMarked(1) && isMarked(2));
    QTRY_VERIFY(!isMarked(1) && !isMarked(2));
}

/// The list waits for the finger, so that its release acts on the card that it went down on.
void tst_queue::pressedCard()
{
    show(entries(1, 3), {});
    QQuickItem* button = m_terminal->item("cancelWait_8001");
    const QPoint place =
        button->mapRectToScene(QRectF(0, 0, button->width(), button->height())).center().toPoint();
    QTest::qWait(1100);
    QTest::mousePress(button->window(), Qt::LeftButton, {}, place);
    m_terminal->house().answer(listPath, ok(QJsonObject{{"waitCallInfos", entries(2, 3)}, {"callInfos", {}}}));
    event();
    QTest::qWait(700);
    QTest::mouseRelease(button->window(), Qt::LeftButton, {}, place);
    m_terminal->house().answer("/bca01/cacelWaitCall", ok({}));
    WALKED(m_terminal->walk("+inputOrReadDlg @82546247 =success|操作成功"));
    QCOMPARE(sent("/bca01/cacelWaitCall").value("id"), QJsonValue("e1"));
}

void tst_queue::evaluation()
{
    QJsonArray grades;
    for (const QString grade : {"非常满意", "满意", "一般", "不满意"})
        grades.append(QJsonObject{{"id", grade}, {"name", grade}});
    QJsonArray orders;
    for (const QString order : {"搓澡", "奶搓", "贵宾特享牛奶玫瑰精油全身护理套餐"})
        orders.append(QJsonObject{{"hardOrderId", order}, {"name", order}, {"num", 1}});
    const QString path = QStringLiteral("/bca01/assessHardCardOrders");
    m_terminal->house().answer("/bca01/getHardCardAssessOrders",
                               ok(QJsonObject{{"assessInfos", grades},
                                              {"assessOrders", orders},
                                              {"hardCardInfo", QJsonObject{{"hardCardId", "H"}}},
                                              {"staffUserInfo", QJsonObject{{"id", "S"}}}}));
    m_terminal->house().answer(path, ok({}));
    QJsonObject single;
    QString chosen;
    const auto look = [&] {
        single = sent(path);
        for (const char* name : {"grade_0_1", "grade_0_3", "grade_1_0", "grade_2_0"})
            chosen += m_terminal->property(name, "isChosen").toBool() ? '1' : '0';
    };
    m_terminal->walk("assessButton +numKeyDlg #8044 confirmButton +serviceEvalDlg grade_0_3 =success|评价成功 "
                     "grade_0_1 =success|评价成功 grade_1_0 =success|评价成功");
    m_terminal->act(look).picture("evaluation");
    // A refusal moves no mark and keeps the dialog; a staff card does nothing.
    const auto answer = [&](const QJsonValue& said) { return [=] { m_terminal->house().answer(path, said); }; };
    m_terminal->act(answer(QJsonObject{{"code", "X"}, {"msg", "不能评价"}}))
        .walk("grade_2_0 =error|不能评价 gradeAll_1 =error|不能评价 @82546247 ~200 +serviceEvalDlg "
              "?grade_2_0.isChosen=false")
        .act(answer(ok({})));
    WALKED(m_terminal->walk("gradeAll_1 =success|评价成功 -serviceEvalDlg"));
    QCOMPARE(chosen, QString("1010"));
    QCOMPARE(single, (QJsonObject{{"hardCardId", "H"},
                                  {"staffId", "S"},
                                  {"hardOrderAssess", QJsonArray{QJsonObject{{"hardOrderId", "奶搓"},
                                                                             {"assessInfoId", "非常满意"}}}}}));
    QCOMPARE(sent(path).value("hardOrderAssess").toArray().size(), 3);
}

void tst_queue::records()
{
    QJsonArray list;
    for (int i = 0; i < 12; ++i)
        list.append(QJsonObject{{"hardCardNo", QString::number(8000 + i)},
                                {"hardCardTypeName", "男宾手牌"},
                                {"statusVal", "已过号"},
                                {"callNum", 2},
                                {"operatorCode", "602"},
                                {"createTime", "2026-11-23 20:15:03"},
                                {"hardCardId", QString("h%1").arg(i)}});
    m_terminal->house().answer("/bca01/getHelpCallBashApiLogPageList", ok(QJsonObject{{"list", list}}));
    m_terminal->house().answer("/bca01/reCallHardCards", ok({}));
    WALKED(m_terminal->walk("passRecordDlgButton +passRecordDlg +pass_0")
               .picture("pass-records")
               .walk("recall_8003 =success|操作成功 @82546247 day_2 ~300 backButton -passRecordDlg"));
    QCOMPARE(sent("/bca01/reCallHardCards"), QJsonObject({{"hardCardId", "h3"}}));
    QCOMPARE(m_terminal->house().seen("/bca01/getHelpCallBashApiLogPageList"), 2);
    QCOMPARE(m_terminal->house().seen("/bca01/addWaitCallInfos"), 0); // nothing reaches the page below
}

/// A service that is over is booked at once, by whoever stands there; then it is his station again.
void tst_queue::consumption()
{
    QString guest;
    int logins = -1;
    int questions = 0;
    m_terminal->walk("complateButton +numKeyDlg #8041 confirmButton +Module2 +guestText");
    m_terminal->act([&] {
        guest = m_terminal->text("guestText");
        logins = m_terminal->house().seen("/baa00/loginMod");
        questions = m_terminal->house().seen("/baa00/getAuthInfoByCodes");
    });
    WALKED(
        m_terminal->walk("returnButton +Module4").act(event).walk("-called_1 ?operatorText.text=曹大勇[601]"));
    QCOMPARE(guest, QString("手牌号: 8041"));
    QCOMPARE(logins, 0);
    QCOMPARE(questions, 2); // the till's right, then all
    QCOMPARE(m_terminal->takeMessages(), QStringList());
}

/// Somebody else books with his own rights, and the station goes back to its owner, or is left.
void tst_queue::otherPerson()
{
    const QString menu = QStringLiteral("/bca01/completeWaitCall");
    const QJsonValue finished = ok(QJsonObject{{"hardCardInfo", QJsonObject{{"cardNo", "8042"}}},
                                               {"staffUserInfo", QJsonObject{{"id", "405812300000609826"}}}});
    leave();
    open({});
    m_terminal->house().reset();
    m_terminal->house().answer(menu, finished);
    const QString finish =
        "complateButton +inputOrReadDlg #602 confirmButton #602 confirmButton -inputOrReadDlg "
        "+numKeyDlg #8042 confirmButton ";
    WALKED(m_terminal->walk(finish + "+Module2 +guestText ?operatorText.text=彭志明[602] returnButton +Module4 "
                                     "?operatorText.text=曹大勇[601] ~300"));
    QCOMPARE(m_terminal->house().requests("/baa00/loginMod").size(), 2);
    // His right to the till is refused: the owner is back.
    const QJsonObject refused{{"code", "X"}, {"msg", "无权"}};
    m_terminal->house().answer("/baa00/loginMod", refused, 1);
    WALKED(m_terminal->walk(finish + "=error|无权 +Module4 ~300"));
    QCOMPARE(m_terminal->house().requests("/baa00/loginMod").size(), 4);
    QVERIFY(!m_terminal->item("Module2"));
    m_terminal->house().answer("/baa00/loginMod", refused, 2);
    WALKED(m_terminal->walk(finish + "=error|无权 =error|无权 +tileGrid"));
    // Where this terminal has no till, that is said.
    open("4");
    const QVector<Func_Menu_struct> tiles = config()->funcMenu()->rows();
    config()->funcMenu()->replace({});
    WALKED(m_terminal->walk("complateButton +numKeyDlg #8042 confirmButton "
                            "=error|已完成服务，但未本机器未配置消费录入功能无法直接录入消费"));
    config()->funcMenu()->replace(tiles);
}

QTEST_MAIN(tst_queue)
#include "tst_queue.moc"
