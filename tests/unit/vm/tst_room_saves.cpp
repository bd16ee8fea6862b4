// What each room page sends, what it refuses before it asks the house, and that it may close at any time.

#include "RoomFixture.h"

#include "common/GlobalConfig.h"

class tst_room_saves : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void saving_data();
    void saving();
    void refusing_data();
    void refusing();
    void closing_data();
    void closing();

private:
    std::unique_ptr<RoomFixture> m_room;
};

void tst_room_saves::initTestCase()
{
    m_room.reset(new RoomFixture);
    QVERIFY(m_room->isUp());
}

void tst_room_saves::init()
{
    m_room->reset();
    m_room->run(
        "f.answer(emptyRooms, ids('A B')); f.answer(plans, ids('P-A P-B')); f.answer(kinds, ids('K1 K2'));"
        "f.answer(rooms, [{code: '201', status: 1}, {code: '202', status: 2}]);"
        "f.answer(candidates, [{roomId: 'A', groupKey: 'K'}, {roomId: 'B', groupKey: 'K'}, {roomId: 'C'}]);"
        "f.answer(detail, {id: 'R1', status: 2, group_key: 'K'})");
}

// The page; the call, which tells its success unless there is a minus; the steps; the body; what saves unless
// it is p.save(); what is printed.
void tst_room_saves::saving_data()
{
    addRows(R"(
MassChgRoomVm | bba01/changeRoom- | p.init('R1') | {oldRoomId: 'R1', status: 2, newRoomId: 'A', isClean: 0}
MassChgRoomVm | bba01/changeRoom- | p.init('R1'); p.selectRoom(1); p.isNeedClean = true
    | {oldRoomId: 'R1', status: 2, newRoomId: 'B', isClean: 1}
RestChgRoomVm | bba01/changeRoom- | p.init('R1')
    | {oldRoomId: 'R1', status: 3, newRoomId: 'A', isClean: 0, newPlanFlg: 1, planId: 'P-A'}
RestChgRoomVm | bba01/changeRoom- | p.init('R1'); p.checkPlan(1); p.isNeedClean = true
    | {oldRoomId: 'R1', status: 3, newRoomId: 'A', isClean: 1, newPlanFlg: 1, planId: 'P-B'}
MassChgRestVm | bba01/massToRestRoom | p.init('R1', '101', room('8001 8002 8003')); p.deleteCard(1, '8002');
    p.deleteCard(7, '8009'); p.selectPlan(0); p.selectPlan(1)
    | {id: 'R1', cardids: ['id-8001', 'id-8003'], newPlanFlg: 1, type: 1, planid: 'P-B'}
RestChgMassVm | bba01/restToMassRoom | p.init('R1', '101', room('8001 8002 8003')); p.checkCard(0); p.checkCard(2);
    p.deleteCard(1); p.hours = 5
    | {id: 'R1', cardids: ['id-8001', 'id-8003'], cardId: 'id-8003', hours: 5, newPlanFlg: 1, type: 1}
RestChgPlanVm | bba01/changeFeePlan | p.init('R1'); p.selectPlan(1) | {roomId: 'R1', newPlanFlg: 1, planId: 'P-B'}
RestAddTimeVm | bba01/restRoomAddTime | p.init('R1') | {roomId: 'R1', hours: 1}
RestAddTimeVm | bba01/restRoomAddTime | p.init('R1'); p.hours = 3 | {roomId: 'R1', hours: 3}
RoomAddCardsVm | bba01/roomAddCard | p.init('101', room('8000')); card('8002'); card('8001')
    | {roomNo: '101', cardids: ['id-8002', 'id-8001']}
RoomCardSplitVm | bba01/unpackRoom- | p.init(room('1 2 3')); p.selectRoom(0); p.selectRoom(1); p.selectRoom(2);
    p.selectCard(2); p.selectCard(0); p.selectCard(1); p.selectCard(1); p.selectCard(3)
    | {oldRoomId: 'R1', newRoomNo: '202', cardIds: ['id-1', 'id-3']}
LeaveRoomVm | bba01/leaveRoomNew | p.init(room('1 2')) | {id: 'R1', status: 2, cardids: ['id-1', 'id-2']}
    | | 开房手牌:1,2
LeaveRoomVm | bba01/leaveRoomNew | p.init(room('1 2')); p.selectCard(0) | {id: 'R1', status: 2, cardids: ['id-2']}
    | | 开房手牌:1,2
LeaveRoomVm | bba01/leaveRoomNew | p.init(room('')) | {id: 'R1', status: 2, cardids: []} | | 按摩房
LeaveRoomVm | bba01/leaveRoomNew | p.init(room('1 2', 3))
    | {id: 'R1', status: 3, cardids: ['id-1', 'id-2'], cardId: 'id-1'} | | 休息房
LeaveRoomVm | bba01/leaveRoomNew | p.init(room('1 2 3', 3)); [2, 0, 2].map(p.selectCard); p.selectConsumer(2)
    | {id: 'R1', status: 3, cardids: ['id-2', 'id-3'], cardId: 'id-3'} | | 休息房
LeaveRoomVm | bba01/leaveRoomNew | p.init(room('1 2', 3)); p.selectCard(0) // one who stays pays
    | {id: 'R1', status: 3, cardids: ['id-2'], cardId: 'id-1'} | | 休息房
MergeRoomVm | bba01/mergeRoom | p.init('R1', '101'); group(1).onSelected(1); group(1).onSelected(2)
    | {roomIdArr: ['B', 'R1']}
MergeRoomVm | bba01/mergeRoom | p.init('R1', '101'); group(1).onSelected(1); group(0).onSelected(0)
    | {roomIdArr: ['C', 'B', 'R1']}
OpenMassVm | bba01/openMassRoom | store.isNeedCard = false; p.init('R1', '101') | {id: 'R1', hours: 2, cardids: []}
    | | 预开时长:2小时
OpenMassVm | bba01/openMassRoom | p.init('R1', '101'); card('1'); p.hours = 5
    | {id: 'R1', hours: 5, cardids: ['id-1']} | | 主结手牌:1
OpenMassVm | bba01/openMassRoom | p.openMulti = false; p.init('R1', '101'); card('2', 1, '102') // asked before
    | {id: 'R1', hours: 2, cardids: ['id-2']} | | 主结手牌:2
OpenMassVm | bba01/openMassRoom | p.init('R1', '101'); card('2', 1, '102'); card('1'); p.deleteCard(0)
    | {id: 'R1', hours: 2, cardids: ['id-1']} | | 主结手牌:1
OpenRestVm | bba01/openRestRoom | p.init('R1', '101'); card('2'); card('1'); card('3', 1, '102');
    p.deleteCard(0, '2'); p.checkPlan(1); p.checkPlan(0)
    | {id: 'R1', newPlanFlg: 1, type: 1, planid: 'P-A', cardids: ['id-1', 'id-3']} | | 主结手牌:1
OpenOccupyVm | bba01/chgOccupyRoom- | p.init('R1'); p.checkOccupy(0); p.checkOccupy(1)
    | {id: 'R1', occType: 'K2', isOccupy: 1}
OpenOccupyVm | bba01/chgOccupyRoom- | p.init('R1'); p.checkOccupy(0); p.remark = '漏水\n等人修'
    | {id: 'R1', occType: 'K1', isOccupy: 1, remark: '漏水\n等人修'}
OpenRoomVm | bba01/chgCleanRoom- | p.init('R1') | {id: 'R1', isClean: 1} | p.cleanRoom()
RoomDetailVm | bba01/cancelRoom | p.init('R1') | {id: 'R1', authType: 2} | p.cancelRoom()
RoomDetailVm | bba01/splitRoom | p.init('R1') | {groupKey: 'K', roomIdArr: ['R1']} | p.cancelTeam()
RoomDetailVm | bba01/reSetRoomTime | p.init('R1') | {roomId: 'R1'} | p.resetTime()
RoomRemarkVm | bba01/setRemark | p.init(room('', 2, {remark: '旧的'})) | {id: 'R1', remark: '旧的'}
RoomRemarkVm | bba01/setRemark | p.init(room('', 2, {remark: '旧的'})); p.remark = '' | {id: 'R1', remark: ''}
RoomCallVm | caa04/callStaff | p.init(room('', 2, {calllist: [{contId: 'c1'}, {contId: 'c2'}]})); p.pRoomCallModel.add(1)
    | {roomId: 'R1', contId: 'c2', num: 1}
Module1Vm | bba01/chgCleanRoom | | {id: 'R1', isClean: 0} | p.cleanRoom('R1', true)
Module1Vm | bba01/chgOccupyRoom | | {id: 'R1', isOccupy: 0} | p.cleanRoom('R1', false)
Module1Vm | bba01/setCleanRoom | | {id: 'R1', staffId: user.staffId, cleanFlg: 2} | p.setCleanFlg('R1', 2)
)");
}

/// A refusal leaves everything as it was, a second tap does nothing, and the page may close meanwhile.
void tst_room_saves::saving()
{
    QFETCH(QStringList, cells);
    GlobalConfig::getInstance()->leave_room_print_count = 1;
    const QString path = "/" + QString(cells.at(1)).remove('-');
    const QString save = cells.value(4).isEmpty() ? "p.save()" : cells.at(4);
    const QJsonObject sent =
        QJsonObject::fromVariantMap(m_room->run("(" + cells.at(3) + ")").toVariant().toMap());
    const QPointer<QObject> made(m_room->page(cells.at(0), cells.at(2)));
    m_room->takeShown();
    m_room->refuse(path, "包房状态发生变化", 1);
    QVERIFY(!m_room->run(save).toBool());
    QCOMPARE(m_room->takeShown(), QStringList{"error|包房状态发生变化"});
    QCOMPARE(m_room->takePrinted(), QString());
    QVERIFY(made->property("isEnabled").toBool());

    m_room->answer(path, QJsonObject{{"flg", true}, {"allleave", true}});
    m_room->closeDuring(path);
    bool isSecondIdle = false;
    QTimer::singleShot(
        10, made, [&] { isSecondIdle = !made->property("isEnabled").toBool() && !m_room->run(save).toBool(); });
    const QJSValue isDone = m_room->run(save);
    QVERIFY(isDone.isUndefined() || isDone.toBool());
    QVERIFY(isSecondIdle && !made);
    QCOMPARE(m_room->takeShown(), cells.at(1).endsWith('-') ? QStringList() : QStringList{done});
    QCOMPARE(m_room->allSent(path), QVector<QJsonObject>(2, sent));
    const QString paper = m_room->takePrinted();
    QCOMPARE(paper.isEmpty(), cells.value(5).isEmpty());
    QVERIFY2(paper.contains(cells.value(5)), qPrintable(paper));
}

// The page; the call that isn't made; the steps; what is told.
void tst_room_saves::refusing_data()
{
    addRows(R"(
MassChgRoomVm | bba01/changeRoom | | 请选择需要换入的房间
RestChgRoomVm | bba01/changeRoom | f.answer(emptyRooms, []); p.init('R1') | 请选择需要换入的房间
RestChgRoomVm | bba01/changeRoom | f.answer(plans, []); p.init('R1') | 请选择新房间的计费方案
MassChgRestVm | bba01/massToRestRoom | p.init('R1', '101', room('1')); p.selectPlan(2) | 请选择计费方案
MassChgRestVm | bba01/massToRestRoom | p.init('R1', '101', room('1')); p.selectPlan(0); p.deleteCard(0, '1') | 请先添加手牌
MassChgRestVm | bba01/massToRestRoom | p.init('R1', '101', room('')) | 请先添加手牌
RestChgMassVm | bba01/restToMassRoom | p.init('R1', '101', room('1 2')); p.checkCard(2) | 请选择需要计入消费的手牌
RestChgMassVm | bba01/restToMassRoom | p.init('R1', '101', room('1 2')); p.checkCard(0); p.deleteCard(0)
    | 请选择需要计入消费的手牌
RestChgMassVm | bba01/restToMassRoom | p.init('R1', '101', room('')) | 请先添加手牌
RestChgPlanVm | bba01/changeFeePlan | p.init('R1') | 请选择计费方案
RoomAddCardsVm | bba01/roomAddCard | p.init('101', room('8000')) | 请先添加手牌
RoomCardSplitVm | bba01/unpackRoom | p.init(room('1 2')) | 请选择需要进入的房间
RoomCardSplitVm | bba01/unpackRoom | p.init(room('1 2')); p.selectCard(1) | 请选择需要进入的房间
RoomCardSplitVm | bba01/unpackRoom | p.init(room('1 2')); p.selectCard(1); p.selectCard(1); p.selectRoom(0)
    | 请选择需要拆离的手牌
LeaveRoomVm | bba01/leaveRoomNew | p.init(room('1 2')); p.selectCard(0); p.selectCard(1) | 请选择需要离房的手牌
LeaveRoomVm | bba01/leaveRoomNew | p.init(room('1', 3)); p.selectCard(0) | 请选择需要离房的手牌
LeaveRoomVm | bba01/leaveRoomNew | p.init(room('', 3)) | 请选择需要计入消费的手牌
MergeRoomVm | bba01/mergeRoom | p.init('R1', '101') | 请选择需要合并的房间
OpenMassVm | bba01/openMassRoom | p.init('R1', '101') | 请先添加手牌
OpenMassVm | bba01/openMassRoom | p.init('R1', '101'); card('1'); p.deleteCard(0) | 请先添加手牌
OpenRestVm | bba01/openRestRoom | p.init('R1', '101') | 请先添加手牌
OpenRestVm | bba01/openRestRoom | store.isNeedCard = false; p.init('R1', '101'); p.checkPlan(0) | 请先添加手牌
OpenRestVm | bba01/openRestRoom | p.init('R1', '101'); card('1'); p.checkPlan(2) | 请选择计费方案
OpenOccupyVm | bba01/chgOccupyRoom | p.init('R1'); p.checkOccupy(2) | 特殊占用原由不能为空
RoomCallVm | caa04/callStaff | p.init(room('', 2, {calllist: [{contId: 'c1'}]})) | 请输入需要呼叫的数量
)");
}

void tst_room_saves::refusing()
{
    QFETCH(QStringList, cells);
    const std::unique_ptr<QObject> page(m_room->page(cells.at(0), cells.at(2)));
    QVERIFY(!m_room->run("p.save()").toBool());
    QCOMPARE(m_room->takeShown(), QStringList{"error|" + cells.at(3)});
    QCOMPARE(m_room->house().seen("/" + cells.at(1)), 0);
    QVERIFY(page->property("isEnabled").toBool());
}

// The page; the steps during which it closes; the call, or the question; the steps before.
void tst_room_saves::closing_data()
{
    addRows(R"(
MassChgRoomVm | p.init('R1') | emptyRooms
RestChgRoomVm | p.init('R1') | emptyRooms
RestChgRoomVm | p.init('R1') | plans
RestChgPlanVm | p.init('R1') | plans
MassChgRestVm | p.init('R1', '101', room('1')) | plans
MassChgRestVm | p.init('R1', '101', null) | cards | p.usedRoomMod = true; tell('101')
MassChgRestVm | p.init('R1', '101', null) | '' | p.usedRoomMod = true; tell('101', 1, '102')
RestChgMassVm | p.init('R1', '101', null) | cards | p.usedRoomMod = true; tell('101')
RestChgMassVm | p.init('R1', '101', null) | '' | p.usedRoomMod = true; tell('101', 1, '102')
OpenMassVm | p.init('R1', '101') | cards | p.usedRoomMod = true; tell('101', 1, '102')
OpenRestVm | p.init('R1', '101') | plans
OpenRestVm | p.init('R1', '101') | '' | p.usedRoomMod = true; p.openMulti = false; tell('101', 1, '102')
OpenOccupyVm | p.init('R1') | kinds
OpenRoomVm | p.init('R1') | detail
RoomDetailVm | p.init('R1') | detail
RoomConsumeVm | p.init('R1') | lines
RoomCardSplitVm | p.getRoomInfo('') | rooms
MergeRoomVm | p.init('R1', '101') | candidates
RoomAddCardsVm | card('8002', 1, '102') | ''
OpenMassVm | !p.save() || !sent(opening).includes('isConn') | '' | p.init('R1', '101'); card('1', 1, '102'); f.answer(opening, null)
Module1Vm | p.timeEvent() | rooms
Module1Vm | p.timeEvent() | floors
Module1Vm | p.timeEvent() | types
Module1Vm | p.timeEvent() | overruns
)");
}

void tst_room_saves::closing()
{
    QFETCH(QStringList, cells);
    const QString path = m_room->run(cells.at(2)).toString();
    const QPointer<QObject> page(m_room->page(cells.at(0), cells.value(3)));
    m_room->closeDuring(path);
    QVERIFY(!m_room->run(cells.at(1)).toBool());
    QVERIFY(!page);
    // What follows the page's end isn't asked for any more.
    QCOMPARE(m_room->house().seen(plansPath), path == plansPath ? 1 : 0);
}

QTEST_GUILESS_MAIN(tst_room_saves)
#include "tst_room_saves.moc"
