import QtQuick 2.15
import QtQuick.Controls 2.15
import GlobalConfig 1.0
import LoginVm 1.0
import MainClass 1.0
import Module4Vm 1.0
import MyMessage 1.0
import QmlEventLoop 1.0
import "../Components"
import "../DlgManager.js" as Dlg
import "../../js/Ask.js" as Ask
import "../../js/Func.js" as JsFunc

// A bath helper's station: who waits to the left, who is called in the middle, what the helper does to the right.
Item {
    id: page

    // Whose station it is, as he logged in.
    property string staffNo: ""
    property string staffPwd: ""
    property string staffUid: ""
    property string staffId: ""

    readonly property string ownModule: "HELP_BASH_WAIT"
    readonly property int mostCalls: 9999

    // The code by which the terminal knows that an action needs no question who acts; and the action itself, given what
    // it is done to and who does it.
    readonly property var actions: ({
        callNext: {code: "1", run: (_, who) => vm.callNext(1, who.user, who.pwd, who.rfid)},
        callMany: {code: "2", run: (_, who) => page.callMany(who)},
        startServer: {code: "3", run: (_, who) => vm.startServer(who.user, who.pwd, who.rfid)},
        startServerDir: {code: "3", run: (cardNo, who) => vm.startServerDir(cardNo, who.user, who.pwd, who.rfid)},
        complate: {code: "4", run: (_, who) => page.withCard("complate", who)},
        cancelWait: {code: "6", run: (id, who) => vm.cancelWait(id, who.user, who.pwd, who.rfid)},
        repeat: {code: "7", run: (id, who) => vm.repeat(id, who.user, who.pwd, who.rfid)},
        cross: {code: "8", run: (id, who) => vm.cross(id, who.user, who.pwd, who.rfid)},
        cancel: {code: "8", run: (id, who) => vm.cancel(id, who.user, who.pwd, who.rfid)},
        addQuene: {code: "9", run: (_, who) => page.withCard("addQuene", who)},
        assess: {code: "10", run: (_, who) => page.withCard("assess", who)},
        dirCall: {code: "11", run: (id, who) => vm.dirCall(id, who.user, who.pwd, who.rfid)}
    })

    // An action on what was tapped, which may be another row's place by now; one at a time.
    function begin(action, target) {
        JsFunc.singly(GlobalConfig.dlgDeplyTime, () => {
            const who = page ? actor(actions[action].code) : undefined
            if (who !== undefined && page)
                actions[action].run(target, who)
        })
    }

    // Undefined when nobody says who he is.
    function actor(code) {
        if (vm.isNeedStaff(code))
            return {user: GlobalConfig.loginUser, pwd: GlobalConfig.loginPwd, rfid: GlobalConfig.loginRfid}
        const answer = Dlg.showDialog("inputOrReadDlg", {})
        if (answer === undefined || !answer.dlgResult)
            return undefined
        return {user: answer.user, pwd: answer.pwd, rfid: answer.cardUid}
    }

    function callMany(who) {
        const typed = Ask.number("请输入呼叫数量")
        if (typed === undefined || !vm)
            return
        const num = Number(typed)
        if (num >= 1 && num <= mostCalls)
            vm.callNext(num, who.user, who.pwd, who.rfid)
        else
            MyMessage.showError("请输入正确的数量")
    }

    function withCard(action, who) {
        const card = Ask.card("请输入手牌号")
        if (card !== undefined && vm)
            vm[action](card.cardNo, card.rfid, who.user, who.pwd, who.rfid)
    }

    function show(dialog) {
        JsFunc.singly(GlobalConfig.dlgDeplyTime, () => Dlg.showDialog(dialog, {}))
    }

    // Opens the till for a card, with the rights of whoever acts, and waits until it is left.
    function consume(cardNo, user, pwd, rfid, actingId) {
        if (cardNo === "")
            return
        const isOther = actingId !== staffId
        loginVm.modCode = "CONSUME_CTRL"
        if (isOther ? !loginVm.login(user, pwd, rfid) : !loginVm.checkLoginAuth()) {
            if (isOther)
                logInAgain()
            else if (page)
                loginVm.modCode = ownModule
            return
        }
        if (!page)
            return
        if (!isOther)
            loginVm.getAllAuth()
        StackView.view.push("qrc:/qml/Module2/Module2.qml", {cardNo: cardNo})
        till.execLoop()
        if (!page)
            return
        if (isOther)
            logInAgain()
        else
            loginVm.modCode = ownModule
    }

    // A station that can't be its owner's any more is left.
    function logInAgain() {
        if (!page)
            return
        loginVm.modCode = ownModule
        if (!loginVm.login(staffNo, staffPwd, staffUid) && page && StackView.view)
            StackView.view.pop()
    }

    objectName: "Module4"
    Component.onCompleted: JsFunc.timerOnce(GlobalConfig.initDelyTime, () => {
        if (page)
            vm.init()
        if (page)
            loginVm.init(false)
    })

    Module4Vm {
        id: vm
        // Whoever waits here doesn't do so in a handler of the view-model, which may go meanwhile.
        onBeginConsumeSignal: {
            const given = [cardNo, user, pwd, rfid, staffId]
            JsFunc.delay15(() => page && page.consume(...given))
        }
        onAssessSignal: JsFunc.delay15(() => page && Dlg.showDialog("serviceEvalDlg", {queue: vm}))
    }

    LoginVm {
        id: loginVm
        modCode: page.ownModule
    }

    QmlEventLoop {
        id: till
    }

    Connections {
        target: MainClass
        function onDestructSignal(code) {
            if (code === "module2")
                till.finish()
        }
    }

    QueuePane {
        id: waiting
        anchors.left: parent.left
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        anchors.margins: Theme.gap
        width: Theme.px(322)
        title: "等待"
        count: vm.waitCount

        ListView {
            id: waitingList
            objectName: "waitingList"
            anchors.fill: parent
            clip: true
            spacing: Theme.px(4)
            boundsBehavior: Flickable.StopAtBounds
            model: vm.pQueneWaitModel
            ScrollBar.vertical: ListScrollBar {}
            delegate: WaitingRow {
                objectName: "waiting_" + index
                width: ListView.view.width - 14
                height: Theme.px(96)
                canCall: GlobalConfig.isHaveAuth("0401")
                isFree: vm.isEnabled
                choose: page.begin
            }

            CardKeeper {
                view: waitingList
            }

            EmptyText {
                list: waitingList
                text: "没有人在等"
                font.pixelSize: Theme.titleSize
            }
        }

        FailedLoad {
            visible: vm.isLoadFailed && !vm.pQueneWaitModel.isLoaded
            retry: () => vm.init()
        }
    }

    QueuePane {
        anchors.left: waiting.right
        anchors.right: panel.left
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        anchors.margins: Theme.gap
        title: "已叫"
        count: vm.callCount
        corner: VoiceMark {
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
        }

        // Room for twelve, so that nobody who is called has to be scrolled to.
        GridView {
            id: calledList
            objectName: "calledList"
            anchors.fill: parent
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            cellWidth: (width - 14) / 2
            cellHeight: Math.max(Theme.px(104), Math.floor(height / 6))
            model: vm.pQueneModel
            ScrollBar.vertical: ListScrollBar {}
            delegate: Item {
                width: GridView.view.cellWidth
                height: GridView.view.cellHeight

                CalledCell {
                    objectName: "called_" + index
                    anchors.fill: parent
                    anchors.margins: Theme.px(3)
                    isFree: vm.isEnabled
                    choose: page.begin
                }
            }

            CardKeeper {
                view: calledList
            }

            Connections {
                target: vm.pQueneModel
                function onCalled(index) {
                    Qt.callLater(() => calledList && calledList.positionViewAtIndex(index, GridView.Contain))
                }
            }

            EmptyText {
                list: calledList
                text: "没有叫号"
                font.pixelSize: Theme.titleSize
            }
        }
    }

    ActionPanel {
        id: panel
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        anchors.margins: Theme.gap
        width: Theme.px(186)
        isFree: vm.isEnabled
        isMultiCall: vm.isMultiCall
        choose: action => page.begin(action)
        show: page.show
    }
}
