// What the room pages show and offer, which cards and rooms they take, and what they print.

#include "RoomFixture.h"

#include "common/Clock.h"
#include "common/GlobalConfig.h"
#include "dto/room/RoomDetailRecords.h"

class tst_room_pages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init()
    {
        m_room->reset();
        m_room->run("f.answer(plans, [])");
    }
    void cleanup() { Clock::setSource(nullptr); }
    void cards_data();
    void cards();
    void shows_data();
    void shows()
    {
        QFETCH(QStringList, cells);
        m_room->check(cells);
    }
    /// The pages read it long after the reply has gone.
    void recordIsKept()
    {
        const std::unique_ptr<QObject> page(
            m_room->page("RoomDetailVm", "read({remark: '一', cardlist: [{cardno: '8001'}]})"));
        const auto record = [&] { return page->property("pRoomDetail").value<RoomDetailDto*>(); };
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(record()->remark() + record()->cardlist().at(0)->cardno(), QStringLiteral("一8001"));
        const QPointer<RoomDetailDto> first(record());
        m_room->run("read({remark: '二'})");
        QCOMPARE(record()->remark(), QStringLiteral("二"));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!first);
    }
    /// The answer for B comes when C has been chosen and has its plans.
    void laterChoiceWins()
    {
        const std::unique_ptr<QObject> page(
            m_room->page("RestChgRoomVm", "found(); f.answer(plans, ids('P3'), 1)"));
        m_room->house().fault(plansPath, "delay", 300, 1);
        QTimer::singleShot(50, page.get(), [&] {
            QVERIFY(!m_room->run("p.save()").toBool());
            m_room->run("f.answer(plans, ids('P4 P5'), 1); p.selectRoom(2); p.checkPlan(1)");
        });
        m_room->run("p.selectRoom(1)");
        QCOMPARE(m_room->takeShown(), QStringList{"error|请选择新房间的计费方案"});
        QCOMPARE(m_room->house().seen(plansPath), 3);
        QCOMPARE(m_room->run("show('pEmptyRoomModel', 'tempId') + ' ' + show('pPlanListModel', 'planId')")
                     .toString(),
                 QStringLiteral("A B C* P4 P5*"));
    }
    void slips_data();
    void slips()
    {
        QFETCH(QStringList, cells);
        static const qint64 moment = QDateTime({2026, 3, 8}, {20, 5, 30}).toMSecsSinceEpoch();
        Clock::setSource([] { return moment; });
        GlobalConfig::getInstance()->leave_room_print_count = cells.at(1).contains("none") ? 0 : 2;
        m_room->answer("/bba01/openMassRoom", {});
        m_room->answer("/bba01/openRestRoom", {});
        const std::unique_ptr<QObject> page(m_room->page(cells.at(0), cells.at(1)));
        QVERIFY(m_room->run("p.save()").toBool());
        QCOMPARE(m_room->takeShown(), QStringList{done});
        const QString paper = m_room->takePrinted();
        const int copies = cells.at(2).toInt();
        QCOMPARE(paper.isEmpty(), copies == 0);
        for (QString line : cells.value(3).split(',', Qt::SkipEmptyParts)) {
            const int expected = line.startsWith('!') ? 0 : copies;
            line.remove('!').replace('|', ',').replace('_', ' ');
            QVERIFY2(paper.count(line) == expected, qPrintable(line + " in " + paper));
        }
    }

private:
    std::unique_ptr<RoomFixture> m_room;
};

void tst_room_pages::initTestCase()
{
    m_room.reset(new RoomFixture);
    QVERIFY(m_room->isUp());
    m_room->run(R"(
        function found() { f.answer(emptyRooms, ids('A B C'), 1); f.answer(plans, ids('P1 P2')); p.init('R1') }
        function states() {
            f.answer(rooms, [0, 1, 2, 3, 4, 5, 6, 7].map(n => ({code: '20' + n, typename: '%3间', status: n})))
            p.init(room('8001'))
        }
        function merging() {
            const told = ['1 K2', '2 ', '3 K1', '4 K2', '5 '].map(t => ({roomId: t[0], groupKey: t.slice(2), roomNo: t[0],
                                                                         floorName: '一楼', hourseName: '双人间'}))
            f.answer(candidates, told, 1)
            p.init('R1', '101')
        }
        function leaving(answer) {
            f.answer('/bba01/leaveRoomNew', answer)
            p.init(room('8001 8002 8001', 3, {roomName: '商务套房', planName: '套房4小时', hours: 4,
                                              startTime: '2026-01-02 03:04:05', useTime: 5}))
        }
        function hourly(fee) {
            f.answer(plans, [{id: 'P', name: '钟点', min_time: 3, min_fee: fee}])
            p.init('R1', '101'); card('8001'); card('8002'); p.checkPlan(0)
        }
        function moving() { p.init('R1', '101'); card('5', 1, '103'); card('4'); card('2', 1, '102'); f.answer(opening, null) }
        function calls(...counts) {
            const calllist = counts.map((count, i) => ({contId: 'c' + i, contName: '服务' + i}))
            p.init(room('', 2, {calllist}))
            counts.map((count, i) => { for (p.pRoomCallModel.sub(i); count >= 0; --count) p.pRoomCallModel.add(i) })
            counts.map((count, i) => p.pRoomCallModel.sub(i))
            f.answer('/caa04/callStaff', null)
        }
        function known() { return [p.roomNo, p.openHours, show('pMenuModel', 'code'), p.pRoomDetail] }
        var entries = {
            1: '开按摩房 MASS_ROOM,开休息房 REST_ROOM,特殊占用 OCCUPY_ROOM,转清扫房 CLEAN_ROOM',
            2: '新增手牌 ADD_CARD,更换房间 MASS_CHG_ROOM,改休息房 MASS_CHG_REST,取消开房 CANCEL_ROOM,备注信息 REMARK_ROOM,' +
               '离开房间 OUT_ROOM,取消团体 LEAVE_TEAM,房间组团 UNION_ROOM,手牌拆房 UNPACK_ROOM,呼叫服务 ROOM_CALLING',
            3: '新增手牌 ADD_CARD,更换房间 REST_CHG_ROOM,更改方案 REST_CHG_PLAN,改按摩房 REST_CHG_MASS,取消开房 CANCEL_ROOM,' +
               '备注信息 REMARK_ROOM,离开房间 OUT_ROOM,取消团体 LEAVE_TEAM,房间组团 UNION_ROOM,房间加时 ADD_TIME'}
        function lacks(status, fields) { // the entries that a room in this state doesn't offer
            read(Object.assign({status, group_key: 'K', calllist: [{contId: 'c1'}]}, fields))
            const codes = show('pMenuModel', 'code').split(' '), names = show('pMenuModel', 'name').split(' ')
            const offered = codes.map((code, i) => names[i] + ' ' + code)
            const all = entries[status == 4 || status == 5 ? 1 : status].split(',')
            const inOrder = all.filter(entry => offered.includes(entry)).join() == offered.filter(e => e != ' ').join()
            return inOrder ? all.filter(e => !offered.includes(e)).map(e => e.split(' ')[1]).join(' ') : offered
        }
        function without(status, rights) {
            return rights.split(' ').map(code => (f.dropRight('01' + code), lacks(status)))
        })");
}

// The page, "each" for all of them; the steps, on a page with the card 8001; the cards then; what is shown.
void tst_room_pages::cards_data()
{
    addRows(R"(
each | card('8003', 0); card('8004', 1) | 8001 8003 8004
each | card('8003', 2, '102') | 8001 | error|[8003]手牌不处于可用状态
each | card('8003', 1, '102') | 8001 8003 | asked 8003 in 102
each | f.answerQuestions(0); card('8003', 1, '102') | 8001 | asked 8003 in 102
each | f.refuse(cards, '手牌不存在', 1); p.getCardInfo('9', '') | 8001 | error|手牌不存在
OpenMassVm OpenRestVm | p.openMulti = true; f.answerQuestions(0); card('8003', 1, '102') | 8001 8003
OpenMassVm OpenRestVm | card('8001', 1, '102') | 8001 | asked 8001 in 102; there
OpenMassVm OpenRestVm RestChgMassVm | card('8003', 0, '', 'id-8001') | 8001 | there
OpenMassVm OpenRestVm | card('8001', 0, '', 'other') | 8001 8001
MassChgRestVm | card('8001', 2) | 8001 | there
MassChgRestVm RoomAddCardsVm | card('8003', 0, '', 'id-8001') | 8001 8003
RestChgMassVm | card('8001', 2) | 8001 | error|[8001]手牌不处于可用状态
RestChgMassVm | card('8001', 1, '101') | 8001 | asked 8001 in 101; there
RoomAddCardsVm | card('8000', 1, '101') | 8001 | asked 8000 in 101; there
RoomAddCardsVm | card('8001', 0, '', 'other') | 8001 | there
RoomAddCardsVm | card('8003'); p.deleteCard(7); p.deleteCard(0) | 8003
)");
}

void tst_room_pages::cards()
{
    QFETCH(QStringList, cells);
    QString shown = cells.value(3).replace("there", "error|当前手牌已存在,不能重复添加");
    shown.replace(QRegularExpression("asked (\\d+) in (\\d+)"),
                  "question|提示|当前手牌[\\1] 已在【\\2】房间, 是否继续当前操作]???");
    const QMap<QString, const char*> starts{
        {"OpenMassVm", "store.openMulti = false|| p.init('R1', '101'); card('8001')"},
        {"OpenRestVm", "store.openMulti = false|| p.init('R1', '101'); card('8001')"},
        {"MassChgRestVm", "p.init('R1', '101', room('8001'))"},
        {"RestChgMassVm", "p.init('R1', '101', room('8001'))"},
        {"RoomAddCardsVm", "p.init('101', room('8000')); card('8001')"}};
    for (const QString& type : cells.at(0) == "each" ? QStringList(starts.keys()) : cells.at(0).split(' ')) {
        m_room->answerQuestions(1);
        const std::unique_ptr<QObject> page(m_room->page(type, starts[type]));
        const QString list = page->property("pNewCardModel").isValid() ? "pNewCardModel" : "pCardListModel";
        m_room->run(cells.at(1));
        QCOMPARE(m_room->takeShown().join("; "), shown);
        QCOMPARE(m_room->run("show('" + list + "', 'cardNo')").toString(), cells.at(2));
        m_room->run("tell('8009'); p.getCardInfo('', 'A1B2')");
        QCOMPARE(m_room->sent("/baa01/getHardCardDetail"), (QJsonObject{{"cardUid", "A1B2"}}));
    }
}

// The page; the steps; what is seen in the end; what is said meanwhile.
void tst_room_pages::shows_data()
{
    addRows(R"(
RestChgMassVm | store.defaultTime = 3|| | p.hours | 3
OpenMassVm | store.defaultTime = 0|| | p.hours | 1
OpenMassVm | store.usedRoomMod = 2|| p.init('R1', '101') | [p.usedRoomMod, show('pCardListModel', 'cardNo')] | false,
MassChgRestVm | p.init('R1', '101', room('8001 8002 8001')) | show('pCardListModel', 'cardNo') + sent(plans)
    | 8001 8002{"planType":1,"roomId":"R1"}
RestChgMassVm | p.init('R1', '101', room('8001 8002 8001')) | show('pCardListModel', 'cardNo') + sent(plans)
    | 8001 8002{"never":"sent"}
MassChgRestVm | p.init('R1', '101', null) | show('pCardListModel', 'cardNo') + sent(plans) | {"never":"sent"}
RestChgPlanVm | f.answer(plans, ids('P1 P2')); p.init('R1') | show('pPlanListModel', 'planId') + sent(plans)
    | P1 P2{"planType":1,"roomId":"R1"}
OpenRestVm | f.answer(plans, ids('P1 P2')); p.init('R1', '101') | show('pPlanListModel', 'planName') + sent(plans)
    | %1:P1 %1:P2{"planType":1,"roomId":"R1"}
OpenOccupyVm | f.answer(kinds, ids('K1 K2')); p.init('R1') | show('pOccupyListModel', 'occupyName') | %1:K1 %1:K2
OpenOccupyVm | f.refuse(kinds, '查询失败'); p.init('R1') | show('pOccupyListModel', 'occupyName') | | error|查询失败
LeaveRoomVm | | p.init(null) | false
RoomAddCardsVm | p.init('101', room('8001 8001 8000')) | show('pOldCardModel', 'cardNo') | 8001 8000
RoomAddCardsVm | | p.init('101', null) | false
RoomAddCardsVm | p.init('101', room('')); card('1'); f.answer('/bba01/roomAddCard', {flg: false, roomcard:
    [{cardNo: '1', roomNo: '101'}, {cardNo: '2', roomNo: '102'}]}) | p.save() + show('pNewCardModel', 'cardNo')
    | false1
    | error|[1]手牌已在[101]包房中[2]手牌已在[102]包房中
RoomAddCardsVm | p.init('101', room('')); card('1')
    | [{flg: false, roomcard: []}, null].map(told => { f.answer('/bba01/roomAddCard', told); return p.save() })
    | false,false | error|操作失败; error|操作失败
RoomRemarkVm | p.init(null) | p.roomId |
RoomCallVm | p.init(null) | show('pRoomCallModel', 'callId') |
RoomConsumeVm | f.answer(lines, [{cardNo: '8009'}]); p.init('R1'); f.refuse(lines, '查询失败'); p.init('R1')
    | show('pRoomConsumeModel', 'cardNo') + sent(lines) | 8009{"roomId":"R1"} | error|查询失败
MassChgRoomVm | found()
    | [show('pEmptyRoomModel', 'tempId'), show('pEmptyRoomModel', 'tempName'), sent(emptyRooms), sent(plans)]
    | A* B C,%1:A* %1:B %1:C,{"roomNo":""},{"never":"sent"}
MassChgRoomVm | found(); [2, 3, -1].map(p.selectRoom); f.refuse(emptyRooms, '查询失败'); p.getRoomInfo('1')
    | show('pEmptyRoomModel', 'tempId') | A B C* | error|查询失败
MassChgRoomVm | found(); p.selectRoom(2); f.answer(emptyRooms, ids('B C')); p.getRoomInfo('2')
    | [show('pEmptyRoomModel', 'tempId'), sent(emptyRooms)] | B* C,{"roomNo":"2"}
RestChgRoomVm | found(); [2, 3, -1].map(p.selectRoom) | [show('pEmptyRoomModel', 'tempId'), sent(plans)]
    | A B C*,{"planType":1,"roomId":"C"}
RestChgRoomVm | found(); p.checkPlan(1); p.checkPlan(2); var first = show('pPlanListModel', 'planId');
    f.answer(plans, ids('P3 P4')); p.selectRoom(1)
    | [first, show('pPlanListModel', 'planId'), sent(plans)] | P1 P2*,P3* P4,{"planType":1,"roomId":"B"}
RestChgRoomVm | found(); p.checkPlan(1); f.refuse(plans, '查询失败'); p.selectRoom(1)
    | [p.save(), show('pPlanListModel', 'planId')] | false, | error|查询失败; error|请选择新房间的计费方案
RestChgRoomVm | found(); f.answer(emptyRooms, []); p.getRoomInfo('9') | show('pPlanListModel', 'planId') |
RoomCardSplitVm | states(); var first = sent(rooms); f.refuse(rooms, '查询失败'); p.getRoomInfo('3')
    | [show('pEmptyRoomModel', 'tempName'), show('pEmptyRoomModel', 'tempId'), first, sent(rooms)]
    | 201  -[%3间] 空闲 202  -[%3间] 在用 203  -[%3间] 在用,201 202 203,{"roomno":""},{"roomno":"3"} | error|查询失败
RoomCardSplitVm | p.init(null) | sent(rooms) | {"never":"sent"}
MergeRoomVm | merging(); f.refuse(candidates, '查询失败')
    | [groups(), sent(candidates), group(0, 258), group(2, 258), p.getRoomList('9'), p.pRoomModel.rowCount()]
    | 单独房间: 一楼 双人间 2 一楼 双人间 5, 团[K1]: 一楼 双人间 3, 团[K2]: 一楼 双人间 1 一楼 双人间 4,{"roomNo":"101","schRoomNo":""},,K2,false,3
    | error|查询失败
MergeRoomVm | merging(); f.answer(candidates, [{roomId: '9', roomNo: '9', groupKey: 'K1'}])
    | [p.getRoomList('9'), groups(), sent(candidates), (f.answer(candidates, []), p.getRoomList('9'), groups())]
    | true,团[K1]:   9,{"roomNo":"101","schRoomNo":"9"},
RoomDetailVm | read({id: 'R7', roomNo: '101', roomName: '双人间', floorName: '一楼', statusStr: '按摩房', planName: '过夜'})
    | [p.roomId, p.roomNo, p.roomType, p.roomFloor, p.statusStr, p.planName, sent(detail)]
    | R7,101,双人间,一楼,按摩房,过夜,{"roomId":"R0"}
RoomDetailVm | read({hours: 2, startTime: '01-02 03:04', start_time: 'other', useTime: 90})
    | [p.openHours, p.openTime, p.usedHours] | 2小时,01-02 03:04,90时0分
RoomDetailVm | read({staffNo: '1001', staffName: '王前台', remark: '<b>安静</b>\n%1', groupRoom: '101,102'})
    | JSON.stringify([p.staffNo, p.remark, p.groupRoom]) | ["1001-王前台","<b>安静</b>\n%1","101,102"]
RoomDetailVm | times = [[0, -3], [-65, 0], [1, 0], [125, 60], [0, 0]]
    | times.map(([surplus, overTime]) => (read({surplus, overTime}), [p.leftHours, p.overHours]))
    | ,,,,0时1分,,2时5分,1时0分,2时5分,1时0分
RoomDetailVm | read({status: 4, roomNo: '101'}) | known() | ,,, | error|包房状态发生变化,请刷新后再试
RoomDetailVm | f.refuse(detail, '查询失败'); p.init('R1'); f.answer(detail, null); p.cancelTeam()
    | [p.init('R1'), known(), sent('/bba01/splitRoom')] | false,,,,,{"never":"sent"} | error|查询失败
OpenRoomVm | read({roomNo: '101', floorName: '一楼', roomName: '双人间'})
    | [p.roomId, p.roomNo, p.floorName, p.typeName, sent(detail)] | R1,101,一楼,双人间,{"roomId":"R0"}
OpenRoomVm | f.answer(detail, null); var empty = [p.init('R1'), p.roomId]; f.refuse(detail, '查询失败')
    | [empty, p.init('R1'), p.roomId] | false,,false, | error|查询失败
RoomDetailVm | 0 | [lacks(2), lacks(3), lacks(2, {group_key: ''}), lacks(2, {calllist: []})]
    | ,,LEAVE_TEAM,ROOM_CALLING
RoomDetailVm | store.usedRoomMod = 1 | [lacks(2), lacks(3)] | ADD_CARD OUT_ROOM UNPACK_ROOM,ADD_CARD OUT_ROOM
RoomDetailVm | 0 | without(2, '03 04 05 06 09 10 11 12 16 17')
    | CANCEL_ROOM,MASS_CHG_ROOM,ADD_CARD,MASS_CHG_REST,UNION_ROOM,LEAVE_TEAM,UNPACK_ROOM,OUT_ROOM,REMARK_ROOM,
RoomDetailVm | 0 | without(3, '04 07 08 17') | REST_CHG_ROOM,REST_CHG_MASS,REST_CHG_PLAN,ADD_TIME
OpenRoomVm | 0 | without(1, '01 02 13 14') | MASS_ROOM,REST_ROOM,OCCUPY_ROOM,CLEAN_ROOM
OpenRoomVm | 0 | [lacks(1), lacks(4), lacks(5)]
    | ,MASS_ROOM REST_ROOM CLEAN_ROOM,MASS_ROOM REST_ROOM OCCUPY_ROOM CLEAN_ROOM
OpenRoomVm | read({status: 4}) | [show('pMenuModel', 'backColor'), show('pMenuModel', 'foreColor')] | #EBEBEB,#6A6969
RoomCallVm | calls(1, 2, 3) | [p.save(), show('pRoomCallModel', 'num'), show('pRoomCallModel', 'callName')]
    | true,0 0 0,服务0 服务1 服务2 | success|操作成功
RoomCallVm | calls(1, 2, 0); p.pRoomCallModel.dataChanged.connect(() => f.refuse('/caa04/callStaff', '无人应答'))
    | [p.save(), show('pRoomCallModel', 'num'), sent('/caa04/callStaff')]
    | false,0 2 0,{"contId":"c1","num":2,"roomId":"R1"} | error|无人应答
RoomCallVm | calls(1, 0, 3); f.refuse('/caa04/callStaff', '无人应答') | [p.save(), show('pRoomCallModel', 'num')]
    | false,1 0 3 | error|无人应答; error|无人应答
OpenMassVm | moving() | [p.save(), sent(opening)]
    | true,{"cardids":["id-5","id-4","id-2"],"hours":2,"id":"R1","isConn":1}
    | question|提示|手牌2在102房间中\n手牌5在103房间中\n是否确认联房？？？; success|操作成功
OpenMassVm | moving(); f.answerQuestions(0) | [p.save(), sent(opening)] | false,{"never":"sent"}
    | question|提示|手牌2在102房间中\n手牌5在103房间中\n是否确认联房？？？
)");
}

// The page; the steps; how many slips; their lines, with "!" those that they haven't.
void tst_room_pages::slips_data()
{
    addRows(R"(
OpenMassVm | p.init('R1', '101'); card('8002'); card('8001') | 1
    | [开房单],房 间 号:101 ,方案类型:按摩房 ,主结手牌:8002 ,预开时长:2小时 ,开房时间:2026-03-08 20:05:30,工号:1001,!预计房费
OpenMassVm | store.isNeedCard = false; p.init('R1', '101') | 1 | 方案类型:按摩房 ,主结手牌:_
OpenRestVm | hourly(168) | 1 | 房 间 号:101 ,方案类型:钟点 ,主结手牌:8001 ,预开时长:3小时 ,预计房费:168.00 ,工号:1001
OpenRestVm | hourly(28.8) | 1 | 预计房费:28.00
OpenRestVm | hourly(0) | 1 | 预计房费:0.00
LeaveRoomVm | leaving({allleave: true}) | 2
    | [退房单],房 间 号:101商务套房,开房类型:休息房,方案类型:套房4小时,开房时间:2026-01-02 03:04:05
    ,退房时间:2026-03-08 20:05:30,开房时长:4小时,已开时长:5时0分,开房手牌:8001|8002,工号:1001
LeaveRoomVm | leaving({allleave: false}) | 0
LeaveRoomVm | leaving(null) | 0
LeaveRoomVm | leaving({allleave: true}) /* none are set */ | 0
)");
}

QTEST_GUILESS_MAIN(tst_room_pages)
#include "tst_room_pages.moc"
