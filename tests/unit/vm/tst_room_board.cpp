// The room board: when it fetches, what it asks for and shows, and what taps and searches do.

#include "RoomFixture.h"

#include "common/GlobalConfig.h"
#include "vm/module1/Module1Vm.h"
#include "vm/shared/Texts.h"

class tst_room_board : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_room->reset(); }

    void columns();
    void shows_data();
    void shows();
    void taps_data();
    void taps();
    void tiles_data();
    void tiles();
    void newerAnswerWins();
    void refreshEndsWithItsLine();
    void listsOfAnything();

private:
    std::unique_ptr<RoomFixture> m_room;
};

void tst_room_board::initTestCase()
{
    m_room.reset(new RoomFixture);
    QVERIFY(m_room->isUp());
    m_room->run(R"(
        var all = [rooms, floors, types, overruns]
        var lists = ['pRoomModel', 'pRoomFloorModel', 'pRoomTypeModel', 'pRoomOverTimeModel']
        function event() { p.mqttEvent('ROOMSTATUS_', '{}'); p.timeEvent() }
        function told(text) { return text.split(' ').map(id => ({id, name: 'n' + id, roomUseSum: 1, roomAllSum: 8})) }
        function fill(floorIds, typeIds) {
            f.answer(floors, {floorList: told(floorIds)}); f.answer(types, {roomTypeList: told(typeIds)}); event()
        }
        function tap(fields) {
            f.answer(rooms, [{id: 'id-800', code: '800', status: 1}, Object.assign({id: 'id-801', code: '801'}, fields)])
            p.onSelectStatus('1')
            let said = []
            for (const name of ['openRoomAsked', 'roomDetailAsked', 'cleanAsked', 'cleanFlgAsked'])
                p[name].connect((...values) => said.push([name, ...values].join('|')))
            for (const miss of ['8', '80', '8010', '', '803'])
                p.queryRoom(miss)
            p.tapRoom('801')
            p.tapRoom('id-801')
            const once = said.join()
            p.queryRoom('801') // the same again
            return said.join() == [once, once].filter(text => text).join() ? once : said
        }
        function list(told) { f.answer(rooms, told); p.onSelectStatus('') }
        function resets(model) { let count = 0; model.modelReset.connect(() => ++count); return () => count }
        var nothing = {cardList: '', staffList: '', finishStaff: '', groupRoom: '', usedTime: '', leftTime: '',
                       lastSvrTime: '', payAmount: ''}
        var inside = Object.assign({}, nothing, {cardList: '客:8001,8002', staffList: '技:801', finishStaff: '停:802',
                                                 groupRoom: '团:105,106', usedTime: '1:5', leftTime: '0:55'})
        function full(status) {
            return {status, cardnos: '8001,8002', staffnos: '801', completedStaffnos: '802', groupRoom: '105,106',
                    lastSvrTime: '末次下钟 22:15', hours: 2, surplus: 55, needPayAmount: 298.5}
        }
        function tile(fields, shown) { // what isn't as expected
            f.answer(rooms, [fields])
            p.onSelectStatus('')
            return Object.keys(shown).map(role => show('pRoomModel', role)).join() == Object.values(shown).join()
                ? '' : Object.keys(shown).map(role => role + ': ' + show('pRoomModel', role))
        })");
}

void tst_room_board::columns()
{
    for (const auto& [setting, columns] : {std::pair{0, 8}, {-3, 8}, {5, 8}, {6, 6}, {12, 12}}) {
        GlobalConfig::getInstance()->room_item_count = setting;
        QCOMPARE(Module1Vm().itemColumns(), columns);
    }
}

// The steps; what to look at; what it says; what is shown to the user.
void tst_room_board::shows_data()
{
    addRows(R"(
0 | [p.isCleaning, p.usedRoomMod] | false,false
store.isCleaning = true; store.usedRoomMod = 1|| | [p.isCleaning, p.usedRoomMod] | true,true
store.usedRoomMod = 2|| | p.usedRoomMod | false
0 | show('pRoomStatusModel', 'statusName') + show('pRoomStatusModel', 'statusCode')
    | 全部状态 空闲房 在用房 清扫房 特殊占用房 按摩房 休息房 1 7 4 5 2 3
0 | [p.pRoomModel.rowCount(), all.map(f.seen)] | 0,0,0,0,0
p.timeEvent(); p.timeEvent() | [all.map(f.seen), sent(rooms)] | 1,1,1,1,{}
p.timeEvent() | lists.map(list => p[list].rowCount() > 0) | true,true,true,true
p.timeEvent(); p.isEnabled = false; event(); p.onSelectStatus('1'); p.onChgMode(); p.onChgFloor('F'); p.onChgType('T');
    p.queryCard('24', '') | [all.map(f.seen), f.seen(cards), p.isGroupMode, p.isEnabled = true, p.timeEvent(),
    all.map(f.seen)] | 1,1,1,1,0,false,true,,2,2,2,2
p.timeEvent(); all.map(path => f.refuse(path, path)); event() | lists.map(list => p[list].rowCount() > 0)
    | true,true,true,true
    | error|/bba01/getRoomList; error|/bba01/getFloorSum; error|/bba01/getRoomTypeSum; error|/bba01/getOverTime
p.timeEvent(); f.answer(floors, null); f.answer(types, null); event() | lists.map(list => p[list].rowCount() > 0)
    | true,true,true,true
p.timeEvent(); p.onSelectStatus('1') | [sent(rooms), all.map(f.seen)] | {"status":"1"},2,1,1,1
fill('A B', 'T'); p.onChgFloor('A'); p.onChgFloor('B'); p.onChgType('T') | [sent(rooms), all.map(f.seen)]
    | {"floorId":["A","B"],"houseType":["T"]},4,1,1,1
fill('A B', 'T'); p.onChgFloor('A'); p.onChgType('T'); p.onSelectStatus('1'); event() | sent(rooms)
    | {"floorId":["A"],"houseType":["T"],"status":"1"}
fill('A B', 'T'); p.onChgFloor('A'); p.onChgType('T'); p.onSelectStatus('1'); p.onChgFloor('A'); p.onChgType('T');
    p.onSelectStatus('') | sent(rooms) | {}
fill('A B', 'T'); p.onChgFloor('B'); fill('C B D', 'T') | show('pRoomFloorModel', 'floorId') | C B* D
fill('A', 'a b c'); ['b', 'c', 'unknown'].map(p.onChgType); fill('A', 'c d b a') | show('pRoomTypeModel', 'typeId')
    | c* d b* a
fill('A', 'a b c'); ['b', 'c'].map(p.onChgType); fill('A', 'a c') | [show('pRoomTypeModel', 'typeId'), sent(rooms)]
    | a c*,{"houseType":["b","c"]}
fill('A', 'a b') | [show('pRoomTypeModel', 'typeName'), show('pRoomTypeModel', 'num'), show('pRoomFloorModel', 'floorName'),
    show('pRoomFloorModel', 'num')] | na nb,1/8 1/8,nA,1/8
f.answer(overruns, [{code: '801', overtimes: 135}, {code: '802', overtimes: 9}]); p.timeEvent()
    | [show('pRoomOverTimeModel', 'roomNo'), show('pRoomOverTimeModel', 'overDesc')] | 801 802,超2时15分 超0时9分
p.timeEvent(); p.onChgMode() | [p.isGroupMode, sent(rooms), p.pRoomSortModel.rowCount() > 1] | true,{"sortType":1},true
p.onChgMode(); p.onSelectStatus('4') | sent(rooms) | {"sortType":1,"status":"4"}
p.onChgMode(); p.onChgMode() | [p.isGroupMode, sent(rooms)] | false,{}
list([{id: 'x', code: '801'}]); p.onChgMode(); list([{roomList: [{id: 'y', code: '901'}]}, {roomList: [{id: 'z',
    code: '902', status: 6, openType: 2, dirtyFlg: true, roomLock: true, cleanFlg: 1}]}]); hits = [];
    p.selectRoomSignal.connect((...values) => hits.push(values)); ['801', '902'].map(p.queryRoom)
    | JSON.stringify(hits) | [["z","902",6,2,true,true,1]] | error|此程序不支持客房功能
list([{code: '801'}, {code: '802'}]); n = resets(p.pRoomModel); list([{code: '802'}, {code: '803'}])
    | [n(), show('pRoomModel', 'roomNo')] | 0,802 803
p.onChgMode(); list([{name: 'A', roomList: [{code: '1'}, {code: '2'}]}, {name: 'B', roomList: []}]);
    first = p.pRoomSortModel.data(p.pRoomSortModel.index(0, 0), 258); n = resets(p.pRoomSortModel); n1 = resets(first);
    list([{name: 'C', roomList: [{code: '4'}, {code: '2'}]}, {name: 'B', roomList: [{code: '3'}]}])
    | [n(), n1(), f.listed(first, 'roomNo'), show('pRoomSortModel', 'typeName')] | 0,0,4 2,C B
p.onChgMode(); list([{name: 'A'}, {name: 'B'}]); n = resets(p.pRoomSortModel); list([{name: 'B'}])
    | [n(), show('pRoomSortModel', 'typeName')] | 1,B
tell('1024', 5, '806'); p.queryCard('24', '') | sent(cards) | {"cardno":"24"} | question|提示|[1024]手牌在【806】
tell('1024', 5); p.queryCard('24', '') | 0 | 0
f.refuse(cards, '手牌不存在'); p.queryCard('24', '') | 0 | 0 | error|手牌不存在
)");
}

void tst_room_board::shows()
{
    QFETCH(QStringList, cells);
    m_room->check(QStringList{"Module1Vm"} + cells);
}

// The room; what is asked for; what the user is told, by a tap and by a search.
void tst_room_board::taps_data()
{
    addRows(R"(
{status: 1, openType: 2, dirtyFlg: true} | openRoomAsked|id-801
{status: 1, roomLock: true} | | error|当前包房已被预约,不能直接开房
{status: 2, roomLock: true, dirtyFlg: true} | roomDetailAsked|id-801
{status: 2, openType: 2} | roomDetailAsked|id-801
{status: 3, openType: 1} | roomDetailAsked|id-801
{status: 3, openType: 2} | | error|此程序不支持客房功能
{status: 6, openType: 2} | | error|此程序不支持客房功能
{status: 6, openType: 1} |
{status: 7, openType: 2} |
{status: 8} |
{status: 0} |
{status: 4, cleanFlg: 0} | cleanAsked|确定要将当前房间【801】转成空闲房?|id-801|true
{status: 4, cleanFlg: 1} | cleanAsked|确定要将当前房间【801】转成空闲房?|id-801|true
{status: 4, cleanFlg: 2} | cleanAsked|确定要将当前房间【801】转成空闲房?|id-801|true
{status: 4, cleanFlg: 0, inSteps: 1} | cleanFlgAsked|确定要[开始清扫]当前房间【801】?|id-801|1
{status: 4, cleanFlg: 1, inSteps: 1} | cleanFlgAsked|当前房间【801】 确定[清扫完成]?|id-801|2
{status: 4, cleanFlg: 2, inSteps: 1} | cleanAsked|确定要将当前房间【801】转成空闲房?|id-801|true
{status: 4, cleanFlg: 3, inSteps: 1} |
{status: 5} | cleanAsked|确定要将当前房间【801】转成空闲房?|id-801|false
{status: 5, inSteps: 1} | cleanAsked|确定要将当前房间【801】转成空闲房?|id-801|false
{status: 5, dirtyFlg: true} | cleanAsked|确定要将当前房间【801】转成空闲房?|id-801|true
{status: 5, dirtyFlg: true, inSteps: 1} | cleanAsked|确定要将当前房间【801】转成空闲房?|id-801|true
)");
}

void tst_room_board::taps()
{
    QFETCH(QStringList, cells);
    const QString told = cells.value(2).isEmpty() ? QString() : cells.at(2) + "; " + cells.at(2);
    const QString before = cells.at(0).contains("inSteps") ? "store.isCleaning = true||" : "";
    m_room->check({"Module1Vm", before, "tap(" + cells.at(0) + ")", cells.at(1), told});
}

// The room; what its tile shows.
void tst_room_board::tiles_data()
{
    addRows(R"(
{status: 1, statusStr: '空闲房'} | {backColor: '#08A0D3', statusVal: '空闲房'}
{status: 1, statusStr: '空闲房', roomLock: true} | {backColor: '#08A0D3', statusVal: '预约'}
{status: 2, statusStr: '按摩房', cleanerNo: '901'} | {backColor: '#DB70D7', statusVal: '', roomCleaner: ''}
{status: 2, isSettle: true} | {backColor: '#B2B10A'}
{status: 2, dirtyFlg: true, cleanerNo: '901', cleanerName: '余宝'} | {statusVal: '余宝-901', roomCleaner: '901-余宝'}
{status: 3} | {backColor: '#DB70D7'}
{status: 3, isSettle: true} | {backColor: '#B2B10A'}
{status: 4, statusStr: '清扫房', isSettle: true} | {backColor: '#409914', statusVal: '清扫房'}
{status: 4, statusStr: '清扫房', cleanFlg: 1} | {statusVal: '开始清扫'}
{status: 4, statusStr: '清扫房', cleanFlg: 2} | {statusVal: '清扫完成'}
{status: 4, cleanFlg: 2, cleanerNo: '901', cleanerName: '余宝'} | {statusVal: '余宝-901', roomCleaner: '901-余宝'}
{status: 5, cooName: '设备维修'} | {backColor: '#CD3333', statusVal: '设备维修'}
{status: 5, cooName: '设备维修', dirtyFlg: true, cleanerNo: '901', cleanerName: '余宝'}
    | {backColor: '#409914', statusVal: '清扫', roomCleaner: '901-余宝'}
{status: 6, openType: 2} | {backColor: '#DB70D7'}
{status: 6, openType: 2, dirtyFlg: true} | {backColor: '#AC9273'}
{status: 6, openType: 1, dirtyFlg: true} | {backColor: '#DB70D7'}
{status: 7} | {backColor: '#DB70D7'}
{status: 8} | {backColor: '#E51C23'}
{status: 9} | {backColor: '#000000'}
{id: 'R1', code: '801', name: '801', remark: '加冰桶'} | {roomId: 'R1', roomNo: '801', roomName: '', remark: '加冰桶'}
{name: '听泉', floorname: '三楼', num: 2, innum: 4} | {roomName: '听泉', roomFloor: '三楼', roomNum: '2/4'}
{status: 7, openType: 2, cleanFlg: 1} | {status: 7, openType: 2, cleanFlg: 1, dirtyFlg: false, roomLock: false}
full(1) | nothing
full(2) | Object.assign({}, inside, {lastSvrTime: '末次下钟 22:15', payAmount: '¥298.5'})
full(3) | Object.assign({}, inside, {payAmount: '¥298.5'})
full(4) | nothing
full(5) | nothing
full(6) | nothing
full(7) | inside
full(8) | inside
full(9) | inside
(terminal.isShowAmount = false, full(3)) | inside
{status: 2} | {cardList: '', staffList: '', finishStaff: '', groupRoom: '', payAmount: ''}
{status: 3, needPayAmount: 1234567.25} | {payAmount: '¥1234567.25'}
{status: 3, surplus: 1e15, lastSvrTime: '\u202E22:15', code: '\u206680\u200F1\u2069', cardnos: '80\u202B01'}
    | {leftTime: '8784:0', roomNo: '801', cardList: '客:8001'}
{status: 2, surplus: -1e15, hours: 1e9, remark: '水'.repeat(500)} | {leftTime: '超:1d', remark: '水'.repeat(199) + '…'}
{status: 3, needPayAmount: -1} | {payAmount: ''}
{status: 3, surplus: 0} | {leftTime: '0:0'}
{status: 3, surplus: 59} | {leftTime: '0:59'}
{status: 3, surplus: 65} | {leftTime: '1:5'}
{status: 3, surplus: -1} | {leftTime: '超:>0:1'}
{status: 3, surplus: -83} | {leftTime: '超:>1:23'}
{status: 3, surplus: -2879} | {leftTime: '超:>47:59'}
{status: 3, surplus: -2880} | {leftTime: '超:1d'}
)");
}

void tst_room_board::tiles()
{
    QFETCH(QStringList, cells);
    m_room->check({"Module1Vm", {}, "tile(" + cells.join(", ") + ")"});
}

/// The user's choice comes while the tick's slow answer is on its way.
void tst_room_board::newerAnswerWins()
{
    for (const bool isGroupMode : {false, true}) {
        Module1Vm board;
        board.timeEvent();
        if (isGroupMode)
            board.onChgMode();
        m_room->house().fault(roomsPath, "delay", 150, 1);
        board.mqttEvent("ROOMSTATUS_", {});
        QTimer::singleShot(50, &board, [&] { board.onSelectStatus("5"); });
        board.timeEvent();
        const auto* shown = isGroupMode ? board.pRoomSortModel()->row(0)->pRoomModel : board.pRoomModel();
        QVERIFY(shown->rowCount() > 0);
        for (const RoomTile& tile : shown->rows())
            QCOMPARE(tile.status, 5);
    }
}

/// Without a line each call takes its time; a refresh ends with the first that failed, until there is news.
void tst_room_board::refreshEndsWithItsLine()
{
    Module1Vm board;
    board.timeEvent();
    m_room->reset();
    m_room->house().fault("*", "drop");
    board.mqttEvent("ROOMSTATUS_", {});
    for (int tick = 0; tick < 2; ++tick) {
        board.timeEvent();
        QCOMPARE(m_room->house().seen(roomsPath), 5); // the tries of one call
        QCOMPARE(m_room->house().seen("/bba01/getFloorSum"), 0);
    }
    QCOMPARE(m_room->takeShown(), QStringList("error|连接服务器失败，请检查网络是否正常"));
    m_room->reset();
    board.mqttEvent("ROOMSTATUS_", {});
    board.timeEvent();
    QCOMPARE(m_room->house().seen("/bba01/getOverTime"), 1);
}

/// What is no record makes no room, and what is no number no text.
void tst_room_board::listsOfAnything()
{
    m_room->house().answer(roomsPath,
                           QString(R"({"code":"200","data":[1,"x",null,[],true,{"id":"R1","code":"801",
        "status":3,"needPayAmount":1e300,"surplus":-1e300,"hours":1e300}]})"));
    Module1Vm board;
    board.timeEvent();
    QCOMPARE(board.pRoomModel()->rowCount(), 1);
    const RoomTile tile = board.pRoomModel()->row(0);
    QCOMPARE(tile.roomNo, QString("801"));
    QVERIFY2(tile.usedTime.size() < 10 && tile.leftTime.size() < 10, qPrintable(tile.usedTime + tile.leftTime));
    QVERIFY(tile.payAmount.size() < 210);
    QCOMPARE(shortMoney(qInf()) + shortMoney(qQNaN()), QString());
}

QTEST_GUILESS_MAIN(tst_room_board)
#include "tst_room_board.moc"
