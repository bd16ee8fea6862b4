import QtQuick 2.15
import GlobalConfig 1.0
import "../../Components"
import "../../../js/Func.js" as JsFunc
import "../../../js/Glyphs.js" as Glyphs

// Frame of the two room dialogs: a title with a cross, what is to know of the room, the menu of what may be done with
// it, and below that the page of the entry that was chosen last.
DialogFrame {
    id: dialog

    property string roomId: "" // what the caller asks for
    property int startDelay: GlobalConfig.dlgDeplyTime
    property string pageRoomId: "" // what the pages get
    property string pageRoomNo: ""
    property alias menuModel: menu.model
    property var pages: ({}) // the page of each menu entry; an entry without one is an action
    property alias info: infoArea.data
    property alias infoHeight: infoArea.height
    property int workings: 0 // of the page, that wait for the back end or the user

    signal started() // the dialog stands, its first work may begin
    signal acted(string code)

    function exec() {
        wait()
        return {dlgResult: dlgResult}
    }

    // What a page calls when it has done its work.
    function save() {
        finish(false)
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

    function load(page) {
        loader.setSource("qrc:/qml/Module1/pages/" + page + ".qml", {roomId: pageRoomId, roomNo: pageRoomNo})
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
        else
            acted(code)
    }

    width: Math.min(1240, root.width - 40)
    height: Math.min(900, root.height - 40)
    header: null
    Component.onCompleted: JsFunc.timerOnce(startDelay, () => dialog && dialog.started())

    contentItem: Item {
        DialogHead {
            id: head
            anchors.left: parent.left
            anchors.right: parent.right
            hasBack: false
            title: dialog.title

            IconButton {
                objectName: "closeButton"
                anchors.right: parent.right
                anchors.rightMargin: 8
                anchors.verticalCenter: parent.verticalCenter
                width: 60
                height: 52
                iconText: Glyphs.close
                iconColor: Theme.textMuted
                pixelSize: 36
                label: "关闭"
                onClicked: dialog.finish(false)
            }
        }

        Item {
            id: infoArea
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.leftMargin: Theme.spacing
            anchors.rightMargin: Theme.spacing
            anchors.top: head.bottom
        }

        RoomMenu {
            id: menu
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.margins: Theme.spacing
            anchors.top: infoArea.bottom
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
}
