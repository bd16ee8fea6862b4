import QtQuick 2.15
import GlobalConfig 1.0
import "../../Components"
import "../../../js/Ask.js" as Ask
import "../../../js/Func.js" as JsFunc

// Frame of the two room dialogs: what is to know of the room, the menu of what may be done with it, and below that the
// page of the entry that was chosen last.
TitledDialog {
    id: dialog

    property QtObject vm: null
    property string roomId: "" // what the caller asks for
    property int startDelay: GlobalConfig.dlgDeplyTime
    property var start: null // the dialog's first work
    property var facts: [] // {label, field, columns, rows}: three columns, a row unless it says otherwise
    property int factRows: 1
    property alias factHeight: factArea.height
    property var factText: field => vm[field]
    property var pages: ({}) // the page of each menu entry
    property var actions: ({}) // or what it does after a question, {question, run}; done, the dialog closes
    readonly property alias pageLoader: loader
    property int workings: 0 // of the page, that wait for the back end or the user

    function exec() {
        wait()
        return {dlgResult: dlgResult}
    }

    // What the page waits in is done through this: it mustn't be unloaded meanwhile.
    function work(action) {
        ++workings
        try {
            return action()
        } finally {
            if (dialog)
                --workings
        }
    }

    function isShown(page) {
        return loader.item === page
    }

    function load(page) {
        loader.setSource("qrc:/qml/Module1/pages/" + page + ".qml",
                         {roomId: vm.roomId, roomNo: vm.roomNo, room: vm.pRoomDetail || null, frame: dialog})
    }

    function choose(code) {
        if (workings > 0) {
            JsFunc.timerOnce(50, () => dialog && dialog.choose(code))
            return
        }
        menu.currentCode = code
        loader.source = ""
        if (pages[code] !== undefined)
            load(pages[code])
        else if (actions[code] !== undefined)
            act(actions[code])
    }

    function act(action) {
        if (Ask.isConfirmed(action.question.replace("%1", () => vm.roomNo)) && dialog && action.run())
            finish(false)
    }

    // The dialog's first work; what it couldn't read can be asked for again.
    function begin() {
        work(start)
    }

    hasCross: true
    isEnabled: vm.isEnabled
    width: Math.min(Theme.px(1240), root.width - 40)
    height: Math.min(Theme.px(900), root.height - 40)
    Component.onCompleted: JsFunc.timerOnce(startDelay, () => dialog && dialog.begin())

    Flow {
        id: factArea
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: Theme.spacing
        anchors.rightMargin: Theme.spacing
        anchors.top: parent.top
        height: Theme.px(52)
        visible: dialog.vm.roomNo !== ""

        Repeater {
            model: dialog.facts

            RoomFact {
                objectName: "fact_" + modelData.field
                width: factArea.width / 3 * (modelData.columns || 1)
                height: Math.floor(factArea.height / dialog.factRows) * (modelData.rows || 1)
                label: modelData.label
                text: dialog.factText(modelData.field)
            }
        }
    }

    RoomMenu {
        id: menu
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: Theme.spacing
        anchors.top: factArea.bottom
        model: dialog.vm.pMenuModel
        enabled: dialog.isEnabled
        onChosen: JsFunc.singly(GlobalConfig.dlgDeplyTime, () => dialog && dialog.choose(code))
    }

    Rectangle {
        id: rule
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: menu.bottom
        anchors.topMargin: 12
        height: 1
        color: Theme.line
    }

    FailedLoad {
        visible: dialog.vm.isLoadFailed && dialog.vm.roomNo === ""
        retry: () => dialog.begin()
    }

    PlainText {
        objectName: "hint"
        anchors.centerIn: loader
        visible: dialog.vm.roomNo !== "" && loader.status === Loader.Null
        text: "请选择操作"
        font.pixelSize: Theme.titleSize
        color: Theme.textMuted
    }

    Loader {
        id: loader
        objectName: "pageLoader"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: rule.bottom
        anchors.bottom: parent.bottom
        anchors.margins: Theme.spacing
    }
}
