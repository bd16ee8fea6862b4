// A room in use: what its dialog tells, which operations it offers, and the three that need no page.

#include "RoomFixture.h"

#include "common/GlobalConfig.h"
#include "vm/module1/RoomDetailVm.h"

#include <QAbstractItemModelTester>
#include <QTimer>
#include <QtTest>

namespace {

const QString detailPath = QStringLiteral("/bba01/getRoomDetailNew");
const QString done = QStringLiteral("success|操作成功");

/// Every right that the menu asks for.
QSet<QString> menuRights()
{
    QSet<QString> rights;
    for (int code = 103; code <= 117; ++code)
        rights.insert(QString("0%1").arg(code));
    return rights;
}

QStringList codesOf(const MenuModel* menu)
{
    QStringList codes;
    for (const menu_struct& entry : menu->rows())
        codes.append(entry.code);
    return codes;
}

} // namespace

class tst_room_detail : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_room->reset(); }
    void cleanup();

    void texts_data();
    void texts();
    void timesOfASecondReading();
    void recordIsKept();
    void notShown_data();
    void notShown();
    void menu_data();
    void menu();
    void menuEntries();
    void actions_data();
    void actions();
    void withoutAnyRoom();
    void oneAtATime_data() { actionRows(); }
    void oneAtATime();
    void closedDuringItsCall_data() { actionRows(); }
    void closedDuringItsCall();

private:
    void actionRows();
    /// Lets the dialog read a room with these fields; a massage room unless they say otherwise.
    bool read(RoomDetailVm& dialog, QJsonObject fields = {})
    {
        if (!fields.contains("id"))
            fields.insert("id", "R1");
        if (!fields.contains("status"))
            fields.insert("status", 2);
        m_room->answer(detailPath, fields, 1);
        return dialog.init("R1");
    }

    std::unique_ptr<RoomFixture> m_room;
};

void tst_room_detail::initTestCase()
{
    m_room.reset(new RoomFixture);
    QVERIFY(m_room->isUp());
    GlobalConfig::getInstance()->setRights(menuRights());
}

void tst_room_detail::cleanup()
{
    GlobalConfig* config = GlobalConfig::getInstance();
    config->setRights(menuRights());
    config->sysConfig()->set_usedRoomMod(0);
}

void tst_room_detail::texts_data()
{
    QTest::addColumn<QJsonObject>("fields");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* name, const QJsonObject& fields, const char* property, const char* shown) {
        QTest::newRow(name) << fields << QByteArray(property) << QString::fromUtf8(shown);
    };
    row("room", {{"id", "R7"}}, "roomId", "R7");
    row("number", {{"roomNo", "101"}}, "roomNo", "101");
    row("type", {{"roomName", "双人间"}}, "roomType", "双人间");
    row("floor", {{"floorName", "一楼"}}, "roomFloor", "一楼");
    row("state", {{"statusStr", "按摩房"}}, "statusStr", "按摩房");
    row("plan", {{"planName", "过夜"}}, "planName", "过夜");
    row("opened for", {{"hours", 2}}, "openHours", "2小时");
    row("opened at", {{"startTime", "2026-01-02 03:04"}, {"start_time", "other"}}, "openTime",
        "2026-01-02 03:04");
    row("used", {{"useTime", 90}}, "usedHours", "90时0分");
    row("left", {{"surplus", 125}}, "leftHours", "2时5分");
    row("a minute left", {{"surplus", 1}}, "leftHours", "0时1分");
    row("nothing left", {{"surplus", 0}}, "leftHours", "");
    row("less than nothing left", {{"surplus", -65}}, "leftHours", "");
    row("overrun", {{"overTime", 60}}, "overHours", "1时0分");
    row("not overrun", {{"overTime", 0}}, "overHours", "");
    row("not overrun yet", {{"overTime", -3}}, "overHours", "");
    row("opened by", {{"staffNo", "1001"}, {"staffName", "王前台"}}, "staffNo", "1001-王前台");
    row("remark", {{"remark", "<b>安静</b>\n%1"}}, "remark", "<b>安静</b>\n%1");
    row("group", {{"groupRoom", "101,102"}}, "groupRoom", "101,102");
}

void tst_room_detail::texts()
{
    QFETCH(QJsonObject, fields);
    QFETCH(QByteArray, property);
    RoomDetailVm dialog;
    QVERIFY(read(dialog, fields));
    QTEST(dialog.property(property).toString(), "shown");
    QCOMPARE(m_room->sent(detailPath), (QJsonObject{{"roomId", "R1"}}));
    QCOMPARE(m_room->takeShown(), QStringList{});
}

void tst_room_detail::timesOfASecondReading()
{
    RoomDetailVm dialog;
    QVERIFY(read(dialog, {{"surplus", 61}, {"overTime", 62}}));
    QVERIFY(read(dialog, {{"surplus", 0}, {"overTime", 0}}));
    QCOMPARE(dialog.leftHours(), QStringLiteral("1时1分"));
    QCOMPARE(dialog.overHours(), QStringLiteral("1时2分"));
}

void tst_room_detail::recordIsKept()
{
    // The pages read it long after the reply has gone.
    RoomDetailVm dialog;
    QVERIFY(!dialog.pRoomDetail());
    QVERIFY(read(dialog, {{"remark", "一"}, {"cardlist", QJsonArray{QJsonObject{{"cardno", "8001"}}}}}));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(dialog.pRoomDetail()->remark(), QStringLiteral("一"));
    QCOMPARE(dialog.pRoomDetail()->cardlist().at(0)->cardno(), QStringLiteral("8001"));
    const QPointer<RoomDetailDto> first = dialog.pRoomDetail();
    QVERIFY(read(dialog, {{"remark", "二"}}));
    QCOMPARE(dialog.pRoomDetail()->remark(), QStringLiteral("二"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!first);
}

void tst_room_detail::notShown_data()
{
    QTest::addColumn<QJsonObject>("answer");
    QTest::addColumn<QStringList>("shown");
    const QStringList changed{"error|包房状态发生变化,请刷新后再试"};
    for (const int status : {0, 1, 4, 5, 6, 7})
        QTest::addRow("status %d", status)
            << QJsonObject{{"code", "200"},
                           {"data", QJsonObject{{"id", "R1"}, {"roomNo", "101"}, {"status", status}}}}
            << changed;
    QTest::newRow("refused") << QJsonObject{{"code", "ERR"}, {"msg", "房间不存在"}}
                             << QStringList{"error|房间不存在"};
    QTest::newRow("no data") << QJsonObject{{"code", "200"}} << QStringList{};
}

void tst_room_detail::notShown()
{
    QFETCH(QJsonObject, answer);
    m_room->house().answer(detailPath, answer);
    RoomDetailVm dialog;
    QVERIFY(!dialog.init("R1"));
    QTEST(m_room->takeShown(), "shown");
    QCOMPARE(dialog.roomNo(), QString());
    QCOMPARE(dialog.openHours(), QString());
    QCOMPARE(dialog.pMenuModel()->rowCount(), 0);
    QVERIFY(!dialog.pRoomDetail());
}

void tst_room_detail::menu_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<bool>("isRoomMode");
    QTest::addColumn<QString>("groupKey");
    QTest::addColumn<bool>("hasServices");
    QTest::addColumn<QStringList>("missing"); // rights
    QTest::addColumn<QStringList>("entries");
    const QStringList all = QSet<QString>(menuRights()).values();
    const QStringList massage{"ADD_CARD", "MASS_CHG_ROOM", "MASS_CHG_REST", "CANCEL_ROOM", "REMARK_ROOM",
                              "OUT_ROOM", "LEAVE_TEAM",    "UNION_ROOM",    "UNPACK_ROOM", "ROOM_CALLING"};
    const QStringList rest{"ADD_CARD",    "REST_CHG_ROOM", "REST_CHG_PLAN", "REST_CHG_MASS", "CANCEL_ROOM",
                           "REMARK_ROOM", "OUT_ROOM",      "LEAVE_TEAM",    "UNION_ROOM",    "ADD_TIME"};
    const auto without = [](QStringList entries, const QStringList& gone) {
        for (const QString& code : gone)
            entries.removeAll(code);
        return entries;
    };
    QTest::newRow("massage room") << 2 << false << "K" << true << QStringList{} << massage;
    QTest::newRow("rest room") << 3 << false << "K" << true << QStringList{} << rest;
    QTest::newRow("in no group") << 2 << false << "" << true << QStringList{}
                                 << without(massage, {"LEAVE_TEAM"});
    QTest::newRow("no services") << 2 << false << "K" << false << QStringList{}
                                 << without(massage, {"ROOM_CALLING"});
    const QStringList ofCards{"ADD_CARD", "OUT_ROOM", "UNPACK_ROOM"};
    QTest::newRow("massage, room mode")
        << 2 << true << "K" << true << QStringList{} << without(massage, ofCards);
    QTest::newRow("rest, room mode") << 3 << true << "K" << true << QStringList{} << without(rest, ofCards);
    QTest::newRow("massage, no rights") << 2 << false << "K" << true << all << QStringList{"ROOM_CALLING"};
    QTest::newRow("rest, no rights") << 3 << false << "K" << true << all << QStringList{};
    const auto right = [&](const char* code, int status, const QString& entry) {
        QTest::newRow(qPrintable(entry + " without its right"))
            << status << false << "K" << true << QStringList{code}
            << without(status == 2 ? massage : rest, {entry});
    };
    right("0103", 2, "CANCEL_ROOM");
    right("0104", 2, "MASS_CHG_ROOM");
    right("0104", 3, "REST_CHG_ROOM");
    right("0105", 2, "ADD_CARD");
    right("0106", 2, "MASS_CHG_REST");
    right("0107", 3, "REST_CHG_MASS");
    right("0108", 3, "REST_CHG_PLAN");
    right("0109", 2, "UNION_ROOM");
    right("0110", 2, "LEAVE_TEAM");
    right("0111", 2, "UNPACK_ROOM");
    right("0112", 3, "OUT_ROOM");
    right("0116", 3, "REMARK_ROOM");
    right("0117", 3, "ADD_TIME");
}

void tst_room_detail::menu()
{
    QFETCH(int, status);
    QFETCH(bool, isRoomMode);
    QFETCH(QString, groupKey);
    QFETCH(bool, hasServices);
    QFETCH(QStringList, missing);
    QSet<QString> rights = menuRights();
    for (const QString& right : missing)
        rights.remove(right);
    GlobalConfig::getInstance()->setRights(rights);
    GlobalConfig::getInstance()->sysConfig()->set_usedRoomMod(isRoomMode ? 1 : 0);
    RoomDetailVm dialog;
    const QAbstractItemModelTester tester(dialog.pMenuModel());
    const QJsonArray services = hasServices ? QJsonArray{QJsonObject{{"contId", "c1"}}} : QJsonArray{};
    QVERIFY(read(dialog, {{"status", status}, {"group_key", groupKey}, {"calllist", services}}));
    QTEST(codesOf(dialog.pMenuModel()), "entries");
}

void tst_room_detail::menuEntries()
{
    QStringList names;
    for (const int status : {2, 3}) {
        RoomDetailVm dialog;
        QVERIFY(read(
            dialog,
            {{"status", status}, {"group_key", "K"}, {"calllist", QJsonArray{QJsonObject{{"contId", "c1"}}}}}));
        for (const menu_struct& entry : dialog.pMenuModel()->rows()) {
            names.append(entry.name);
            QCOMPARE(entry.backColor + entry.foreColor, QStringLiteral("#EBEBEB#6A6969"));
            QVERIFY(!entry.isChecked);
        }
    }
    QCOMPARE(names, (QStringList{"新增手牌", "更换房间", "改休息房", "取消开房", "备注信息",
                                 "离开房间", "取消团体", "房间组团", "手牌拆房", "呼叫服务", //
                                 "新增手牌", "更换房间", "更改方案", "改按摩房", "取消开房",
                                 "备注信息", "离开房间", "取消团体", "房间组团", "房间加时"}));
}

void tst_room_detail::actionRows()
{
    QTest::addColumn<QByteArray>("method");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QJsonObject>("sent");
    const QJsonObject group{{"groupKey", "K"}, {"roomIdArr", QJsonArray{"R1"}}};
    QTest::newRow("cancel") << QByteArray("cancelRoom") << "/bba01/cancelRoom"
                            << QJsonObject{{"id", "R1"}, {"authType", 2}};
    QTest::newRow("out of the group") << QByteArray("cancelTeam") << "/bba01/splitRoom" << group;
    QTest::newRow("reset time") << QByteArray("resetTime") << "/bba01/reSetRoomTime"
                                << QJsonObject{{"roomId", "R1"}};
}

void tst_room_detail::actions_data() { actionRows(); }

void tst_room_detail::actions()
{
    QFETCH(QByteArray, method);
    QFETCH(QString, path);
    RoomDetailVm dialog;
    QVERIFY(read(dialog, {{"group_key", "K"}}));
    const auto enabled = noteEnabled(&dialog);
    bool isDone = true;
    m_room->refuse(path, QStringLiteral("技师在上钟"), 1);
    QVERIFY(QMetaObject::invokeMethod(&dialog, method, Q_RETURN_ARG(bool, isDone)));
    QVERIFY(!isDone);
    QCOMPARE(m_room->takeShown(), QStringList{"error|技师在上钟"});
    m_room->answer(path, {}, 1);
    QVERIFY(QMetaObject::invokeMethod(&dialog, method, Q_RETURN_ARG(bool, isDone)));
    QVERIFY(isDone);
    QCOMPARE(m_room->takeShown(), QStringList{done});
    QCOMPARE(*enabled, busyOnce() + busyOnce());
    QTEST(m_room->sent(path), "sent");
}

void tst_room_detail::withoutAnyRoom()
{
    RoomDetailVm dialog;
    QVERIFY(!dialog.cancelTeam());
    QVERIFY(dialog.isEnabled());
    QCOMPARE(m_room->house().seen("/bba01/splitRoom"), 0);
}

void tst_room_detail::oneAtATime()
{
    QFETCH(QByteArray, method);
    QFETCH(QString, path);
    RoomDetailVm dialog;
    QVERIFY(read(dialog, {{"group_key", "K"}}));
    m_room->answer(path, {});
    m_room->house().fault(path, "delay", 300, 1);
    bool wasEnabled = true;
    bool second = true;
    QTimer::singleShot(50, &dialog, [&] {
        wasEnabled = dialog.isEnabled();
        second = dialog.cancelRoom() || dialog.cancelTeam() || dialog.resetTime();
    });
    bool isDone = false;
    QVERIFY(QMetaObject::invokeMethod(&dialog, method, Q_RETURN_ARG(bool, isDone)));
    QVERIFY(isDone && !wasEnabled && !second);
    QCOMPARE(m_room->house().seen(path), 1);
    QVERIFY(dialog.isEnabled());
}

void tst_room_detail::closedDuringItsCall()
{
    QFETCH(QByteArray, method);
    QFETCH(QString, path);
    QPointer<RoomDetailVm> dialog(new RoomDetailVm);
    QVERIFY(read(*dialog, {{"group_key", "K"}}));
    m_room->answer(path, {});
    const auto closeDuring = [&](const QString& slowPath) {
        m_room->house().fault(slowPath, "delay", 200, 1);
        QTimer::singleShot(50, dialog, [&] { delete dialog; });
    };
    closeDuring(path);
    QVERIFY(QMetaObject::invokeMethod(dialog, method, Qt::DirectConnection));
    QVERIFY(!dialog);
    QCOMPARE(m_room->takeShown(), QStringList{done});

    dialog = new RoomDetailVm;
    closeDuring(detailPath);
    QVERIFY(!read(*dialog));
    QVERIFY(!dialog);
}

QTEST_GUILESS_MAIN(tst_room_detail)
#include "tst_room_detail.moc"
