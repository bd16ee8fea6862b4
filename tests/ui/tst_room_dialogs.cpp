// The two room dialogs and their pages: what each one sends, what stands when every list is long, and fingers
// that bounce. The roads against a house that answers by itself are walked end to end.

#include "Terminal.h"

#include "common/GlobalConfig.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QQuickItem>
#include <QRegularExpression>
#include <QtTest>

#include <algorithm>
#include <memory>

namespace {

const QString detailPath = QStringLiteral("/bba01/getRoomDetailNew");
const QString cardPath = QStringLiteral("/baa01/getHardCardDetail");
const QString planPath = QStringLiteral("/bba01/getPlanListNew");

/// So many records like this one, with their number in place of each "%" and, where there are many, a long text
/// in place of each "~".
QJsonArray list(int count, const QString& json)
{
    QJsonArray records;
    for (int i = 0; i < count; ++i) {
        QString record(json);
        record.replace('%', QString::number(i))
            .replace('~', count > 2 ? "周末及节假日过夜包房帝王至尊豪华双人套房" : "");
        records.append(QJsonDocument::fromJson(record.toUtf8()).object());
    }
    return records;
}

/// Code of the menu entry, state of the room, path and fields of what is sent, and the road up to that. CARD
/// takes a card, ASK answers a question with no and then with yes, DONE is what is said at the end.
const char saveTable[] = R"(
MASS_ROOM ; 1 ; /bba01/openMassRoom ; {"id": "r1", "hours": 2, "cardids": ["c9"]}
    ; saveButton =error|请先添加手牌 CARD minusButton minusButton minusButton ?stepValue.text=1小时 plusButton saveButton DONE
REST_ROOM ; 1 ; /bba01/openRestRoom ; {"id": "r1", "planid": "p1", "cardids": ["c9"]}
    ; +plan_1 CARD saveButton =error|请选择计费方案 plan_1 saveButton DONE
OCCUPY_ROOM ; 1 ; /bba01/chgOccupyRoom ; {"id": "r1", "occType": "k1", "remark": "等人修"}
    ; +occupy_1 saveButton =error|特殊占用原由不能为空 occupy_0 occupy_1 !remarkArea.text=等人修 saveButton
CLEAN_ROOM ; 1 ; /bba01/chgCleanRoom ; {"id": "r1", "isClean": 1}
    ; ASK(确定要将当前房间【801】转成清扫房?)
ADD_CARD ; 2 ; /bba01/roomAddCard ; {"roomNo": "801", "cardids": ["c9"]}
    ; +card_800 CARD remove_8009 -card_8009 CARD saveButton DONE
MASS_CHG_ROOM ; 2 ; /bba01/changeRoom ; {"oldRoomId": "r1", "newRoomId": "e1", "isClean": 1}
    ; ?room_0.backColor=#398fff room_1 ?room_1.backColor=#398fff needCleanButton ?needCleanButton.isChecked=true saveButton
REST_CHG_ROOM ; 3 ; /bba01/changeRoom ; {"newRoomId": "e1", "planId": "p1", "isClean": 0}
    ; searchButton +numKeyDlg #802 confirmButton ?plan_0.backColor=#398fff room_1 plan_1 ?plan_1.backColor=#398fff
    saveButton
MASS_CHG_REST ; 2 ; /bba01/massToRestRoom ; {"id": "r1", "planid": "p1", "cardids": ["c1", "c9"]}
    ; +plan_1 saveButton =error|请选择计费方案 remove_800 -card_800 CARD plan_1 saveButton DONE
REST_CHG_MASS ; 3 ; /bba01/restToMassRoom ; {"cardId": "c1", "hours": 2, "cardids": ["c1"]}
    ; saveButton =error|请选择需要计入消费的手牌 check_801 ?check_801.isChecked=true remove_800 -card_800
    minusButton minusButton minusButton plusButton saveButton DONE
REST_CHG_PLAN ; 3 ; /bba01/changeFeePlan ; {"roomId": "r1", "planId": "p1"}
    ; +plan_1 saveButton =error|请选择计费方案 plan_1 saveButton DONE
ADD_TIME ; 3 ; /bba01/restRoomAddTime ; {"roomId": "r1", "hours": 2}
    ; minusButton plusButton plusButton minusButton ?stepValue.text=2小时 saveButton DONE
OUT_ROOM ; 2 ; /bba01/leaveRoomNew ; {"id": "r1", "cardids": ["c1"]}
    ; +card_801 -check_801 card_800 card_801 saveButton =error|请选择需要离房的手牌 ~300 card_801 saveButton DONE
OUT_ROOM ; 3 ; /bba01/leaveRoomNew ; {"cardId": "c1", "cardids": ["c0"]}
    ; ?check_800.isChecked=true check_801 ?check_801.isChecked=true card_801 saveButton DONE
UNION_ROOM ; 2 ; /bba01/mergeRoom ; {"roomIdArr": ["m1", "r1"]}
    ; searchButton +numKeyDlg #802 confirmButton +group_ room_m1 saveButton DONE
UNPACK_ROOM ; 2 ; /bba01/unpackRoom ; {"newRoomNo": "n1", "cardIds": ["c1"]}
    ; +room_1 saveButton =error|请选择需要进入的房间 card_801 room_1 saveButton
REMARK_ROOM ; 2 ; /bba01/setRemark ; {"id": "r1", "remark": "少冰"}
    ; ?remarkArea.text=旧的 !remarkArea.text=少冰 saveButton DONE
ROOM_CALLING ; 2 ; /caa04/callStaff ; {"contId": "s1", "num": 2}
    ; plusButton_0 plusButton_1 plusButton_1 minusButton_0 minusButton_0 saveButton DONE
CANCEL_ROOM ; 2 ; /bba01/cancelRoom ; {"id": "r1"} ; ASK(确定要取消当前房间【801】?) DONE
LEAVE_TEAM ; 3 ; /bba01/splitRoom ; {"groupKey": "K", "roomIdArr": ["r1"]} ; ASK(确定要离开团体) DONE
)";

/// State of the room; its pages with long lists, each as code of the menu entry, the list, and its last entry.
const char crowdedTable[] = R"(
1 ; REST_ROOM planGrid plan_59 ; OCCUPY_ROOM occupyGrid occupy_59
2 ; ADD_CARD oldCards +card_8059 ; MASS_CHG_ROOM roomGrid room_59 ; MASS_CHG_REST cards remove_8059
    ; UNPACK_ROOM roomGrid room_59 ; OUT_ROOM cards card_8059 ; ROOM_CALLING services plusButton_59
    ; UNION_ROOM groups +room_m59
3 ; REST_CHG_ROOM planGrid plan_59 ; REST_CHG_MASS cards check_8059 ; REST_CHG_PLAN planGrid plan_59
    ; OUT_ROOM cards check_8059
)";

/// Taps before any has had an effect: nothing begins twice, and no page is unloaded under what it opened. The
/// road to them, the taps, the road from there, and the path that is called once, or the card look-up not at
/// all.
const char tapTable[] = R"(
one question ; ; menu_CANCEL_ROOM menu_CANCEL_ROOM ; +msgConfirmDlg confirmButton DONE ; /bba01/cancelRoom
one number dialog ; menu_ADD_CARD ; cardButton cardButton ; +numKeyDlg cancelButton -numKeyDlg closeButton ;
a number called off ; menu_ADD_CARD ; cardButton ; +numKeyDlg #8009 cancelButton -numKeyDlg closeButton ;
one card taken off ; menu_MASS_CHG_REST ; remove_800 remove_800 ; -card_800 +card_801 closeButton ;
one card picked ; menu_OUT_ROOM ; card_801 card_801 ; saveButton DONE ; /bba01/leaveRoomNew
another page while a number is asked ; menu_ADD_CARD ; cardButton menu_REMARK_ROOM
    ; +numKeyDlg #8009 confirmButton -numKeyDlg +remarkArea closeButton ; /baa01/getHardCardDetail
another page while a save runs ; menu_ROOM_CALLING plusButton_0 ; saveButton saveButton menu_REMARK_ROOM
    ; DONE ; /caa04/callStaff
)";

/// A road with its words written out.
QString road(QString text, const QString& code = {})
{
    text.replace(QRegularExpression("ASK\\((.*)\\)"),
                 "+msgConfirmDlg ?contentText.text=\\1 cancelButton -msgConfirmDlg "
                 "menu_" +
                     code + " +msgConfirmDlg confirmButton");
    text.replace("CARD ", "cardButton +numKeyDlg #8009 confirmButton +card_8009 ");
    return text.replace("DONE", "=success|操作成功");
}

} // namespace

class tst_room_dialogs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        m_terminal.reset(new Terminal);
        QVERIFY(m_terminal->isUp());
        WALKED(m_terminal->login("tile_ROOMINFO_CTRL", "1001", "1001").walk("+Module1"));
    }
    void cleanupTestCase() { m_terminal.reset(); }
    void init()
    {
        house().reset();
        GlobalConfig::getInstance()->sysConfig()->set_usedRoomMod(0);
    }
    void cleanup() { QCOMPARE(m_terminal->takeMessages(), QStringList()); }

    void saves_data() { addRows(saveTable); }
    void saves()
    {
        QFETCH(QStringList, row);
        const QString path = row.at(2);
        dialog(row.at(1).toInt());
        if (path != "/bba01/roomAddCard")
            house().answer(path, ok({}));
        WALKED(walk("menu_" + row.at(0) + " " + road(row.at(4), row.at(0))).returned());
        QCOMPARE(m_terminal->result().toMap(), (QVariantMap{{"dlgResult", false}}));
        QCOMPARE(house().seen(path), 1);
        QCOMPARE(unlike(sent(path), row.at(3)), QString());
    }
    /// What is refused leaves the dialog as it is; a supervisor may vouch for it from above the dialog.
    void refusals()
    {
        dialog(2);
        house().answer("/bba01/setRemark", QJsonObject{{"code", "500"}, {"msg", "不行"}});
        house().answer("/bba01/cancelRoom", QJsonObject{{"code", "AUTH_ERR_0002"}, {"msg", "没有权限"}});
        WALKED(walk("menu_REMARK_ROOM !remarkArea.text=少冰 saveButton =error|不行 ?remarkArea.text=少冰 "
                    "menu_CANCEL_ROOM +msgConfirmDlg confirmButton +authDlg")
                   .act([this] { house().answer("/bba01/cancelRoom", ok({})); })
                   .walk(road("#1001 confirmButton #1001 confirmButton DONE"))
                   .returned());
        QVERIFY(!sent("/bba01/cancelRoom").value("authOperater").toString().isEmpty());
    }
    /// The room's own card is taken; guests' cards are not asked for.
    void withoutHandCards()
    {
        GlobalConfig::getInstance()->sysConfig()->set_usedRoomMod(1);
        for (const QString code : {"MASS_ROOM", "REST_ROOM", "MASS_CHG_REST", "REST_CHG_MASS"}) {
            house().reset();
            WALKED(dialog(code.startsWith("REST_C")   ? 3
                          : code.startsWith("MASS_C") ? 2
                                                      : 1)
                       .walk("menu_" + code + " +card_8009 -cardButton")
                       .picture("room-mode-" + code)
                       .walk("closeButton")
                       .returned());
            QCOMPARE(sent(cardPath).value("cardno"), QJsonValue("801"));
        }
    }
    void facts();
    void notInUseAnyMore()
    {
        house().answer(detailPath, ok(QJsonObject{{"id", "r1"}, {"roomNo", "801"}, {"status", 1}}));
        m_terminal->open("roomDetailDlg", {{"roomId", "r1"}});
        WALKED(walk("=error|包房状态发生变化,请刷新后再试 ?fact_roomNo.text= closeButton").returned());
        QCOMPARE(house().seen("/bba01/getRoomConsList"), 0);
    }
    void consumption();
    void crowded_data() { addRows(crowdedTable); }
    /// The last entry is reached all the same, and the entry chosen last stands out in the menu.
    void crowded()
    {
        QFETCH(QStringList, row);
        dialog(row.at(0).toInt(), 60);
        QString before;
        for (const QString& page : row.mid(1)) {
            const QString code = page.section(' ', 0, 0), grid = page.section(' ', 1, 1);
            walk(QString("menu_%1 ?menu_%1.color=#398fff +%2 ").arg(code, grid) + before)
                .until("the entries", [=] { return m_terminal->property(grid, "count").toInt() > 0; })
                .picture("room-crowded-" + code + row.at(0))
                .act([=] { QMetaObject::invokeMethod(m_terminal->item(grid), "positionViewAtEnd"); })
                .walk(page.section(' ', 2));
            before = "?menu_" + code + ".color=#ebebeb";
        }
        WALKED(walk("closeButton").returned());
    }
    void taps_data() { addRows(tapTable); }
    void taps()
    {
        QFETCH(QStringList, row);
        const QString path = row.at(4);
        dialog(2);
        for (const char* saving : {"/bba01/cancelRoom", "/bba01/leaveRoomNew", "/caa04/callStaff"})
            house().answer(saving, ok({}));
        WALKED(walk(row.at(1)).tapTogether(row.at(2).split(' ')).walk(road(row.at(3))).returned());
        QCOMPARE(house().seen(path.isEmpty() ? cardPath : path), path.isEmpty() ? 0 : 1);
        if (path == "/bba01/leaveRoomNew")
            QCOMPARE(sent(path).value("cardids").toArray(), QJsonArray{"c0"});
    }
    /// A choice fetches while another entry of the menu takes its page away.
    void pageGoneUnderACall()
    {
        WALKED(dialog(3)
                   .walk("menu_REST_CHG_ROOM ?plan_0.backColor=#398fff")
                   .act([this] { house().fault(planPath, "delay", 400); })
                   .tapTogether({"room_1", "menu_REMARK_ROOM"})
                   .walk("?remarkArea.text=旧的")
                   .until("the plans were asked for", [this] { return house().seen(planPath) == 2; })
                   .walk("closeButton")
                   .returned());
    }
    /// As when the tile and the return mark are tapped at once.
    void moduleLeftUnderADialog()
    {
        WALKED(walk("roomSearchButton +numKeyDlg")
                   .act([&] { QMetaObject::invokeMethod(m_terminal->item("mainPage"), "leaveModule"); })
                   .walk("+tile_ROOMINFO_CTRL #1 confirmButton -numKeyDlg"));
        WALKED(m_terminal->login("tile_ROOMINFO_CTRL", "1001", "1001").walk("+Module1"));
    }

private:
    HouseProcess& house() { return m_terminal->house(); }
    QJsonObject sent(const QString& path) { return house().lastRequest(path).value("json").toObject(); }
    Terminal& walk(const QString& road) { return m_terminal->walk(road); }
    /// A room in this state with lists of this length, the back end's answers to what its pages ask; its dialog
    /// opens.
    Terminal& dialog(int status, int length = 2);

    std::unique_ptr<Terminal> m_terminal;
};

Terminal& tst_room_dialogs::dialog(int status, int length)
{
    QJsonObject room{{"id", "r1"}, {"roomNo", "801"}, {"status", status}, {"remark", "旧的"}};
    room.insert("group_key", status == 3 ? "K" : "");
    room.insert("cardlist", list(length, R"({"cardno": "80%", "cardId": "c%"})"));
    room.insert("calllist", list(length, R"({"contId": "s%", "contName": "茶水~%"})"));
    house().answer(detailPath, ok(room));
    house().answer(cardPath, ok(QJsonObject{{"id", "c9"}, {"cardno", "8009"}, {"status", 1}}));
    house().answer("/bba01/getRoomConsList", ok(QJsonArray()));
    house().answer("/bba01/roomAddCard", ok(QJsonObject{{"flg", true}}));
    house().answer(planPath, ok(list(length, R"({"id": "p%", "name": "~%"})")));
    house().answer("/bba01/getOccTypeList", ok(list(length, R"({"id": "k%", "type_name": "检修~%"})")));
    house().answer("/bba01/getEmptyRoomList", ok(list(length, R"({"id": "e%", "vals": "~%"})")));
    house().answer("/bba01/getRoomList", ok(list(length, R"({"id": "n%", "code": "n%", "status": 2})")));
    house().answer("/bba01/getCanMergeRoomList",
                   ok(list(length, R"({"roomId": "m%", "roomNo": "%", "hourseName": "~"})")));
    return m_terminal->open(status == 1 ? "openRoomDlg" : "roomDetailDlg", {{"roomId", "r1"}});
}

void tst_room_dialogs::facts()
{
    // However long the texts, none is cut off, and none reaches into another.
    QJsonObject room =
        QJsonDocument::fromJson(R"({"id": "r1", "roomNo": "VIP8808", "status": 3, "statusStr": "休息房",
        "roomName": "帝王至尊豪华双人套房（带独立汗蒸）", "floorName": "三楼东区贵宾通道",
        "planName": "周末及节假日过夜包房二十四小时优惠方案", "hours": 24, "startTime": "2026-11-23 21:35:00",
        "useTime": 23, "surplus": 1439, "overTime": 1439, "staffNo": "1001", "staffName": "欧阳上官婉儿"})")
            .object();
    room.insert("remark",
                QStringLiteral("客人对花生过敏，水果里不要放坚果；空调调到二十六度，").repeated(5).left(120));
    room.insert("groupRoom", QStringLiteral("VIP8801,").repeated(12));
    house().answer(detailPath, ok(room));
    QStringList wrong;
    QVector<QRectF> places;
    m_terminal->open("roomDetailDlg", {{"roomId", "r1"}});
    WALKED(walk("+menu_ADD_TIME ?fact_roomNo.text=VIP8808【休息房】 ?fact_staffNo.text=1001-欧阳上官婉儿")
               .act([&] {
                   for (const char* name :
                        {"roomNo", "roomType", "roomFloor", "planName", "openHours", "openTime", "usedHours",
                         "leftHours", "overHours", "staffNo", "remark", "groupRoom"}) {
                       const QQuickItem* text = m_terminal->item(QString("fact_%1Text").arg(name));
                       QVERIFY(text);
                       places.append(text->mapRectToScene({0, 0, text->width(), text->height()}));
                       if (text->property("truncated").toBool() ||
                           text->property("contentHeight").toReal() > text->height() ||
                           std::count_if(places.begin(), places.end(), [&](const QRectF& place) {
                               return place.intersects(places.last());
                           }) > 1)
                           wrong.append(name);
                   }
               })
               .picture("room-detail-crowded")
               .walk("closeButton")
               .returned());
    QCOMPARE(wrong, QStringList());
    QCOMPARE(places.size(), 12);
}

void tst_room_dialogs::consumption()
{
    // The page that stands when the dialog opens. Each cell lies under its title.
    dialog(2);
    house().answer("/bba01/getRoomConsList",
                   ok(list(40, R"({"cardNo": "VIP8000%", "srcOldCardNo": "8001", "itemName": "~", "num": 12.5,
        "price": 12888.88, "amount": 161111, "staffNo": "801,802,803,804", "pushNo": "805", "cmtFlg": 1,
        "createtime": "2026-11-23 21:35:00"})")));
    QStringList cells;
    WALKED(walk("?line_0.color=#eae9ea")
               .act([&] {
                   for (const char* row : {"tableHead", "row_0"}) {
                       QStringList places;
                       for (const QQuickItem* cell : m_terminal->item(row)->childItems().at(0)->childItems()) {
                           if (cell->property("text").isValid())
                               places.append(
                                   QString("%1+%2").arg(cell->mapToScene({0, 0}).x()).arg(cell->width()));
                       }
                       cells.append(places.join(' '));
                   }
               })
               .picture("room-consumption")
               .walk("closeButton")
               .returned());
    QCOMPARE(cells.at(0).count('+'), 8);
    QCOMPARE(cells.at(1), cells.at(0));
    QCOMPARE(sent("/bba01/getRoomConsList").value("roomId"), QJsonValue("r1"));
}

QTEST_MAIN(tst_room_dialogs)
#include "tst_room_dialogs.moc"
