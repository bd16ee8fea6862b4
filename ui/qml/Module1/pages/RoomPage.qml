import QtQuick 2.15
import GlobalConfig 1.0
import MyMessage 1.0
import "../../Components"
import "../../../js/Func.js" as JsFunc

// Frame of a page inside a room dialog: what the page shows, and the button that does it, which is the view-model's
// save(). Both rest until the page has started and while the view-model works; a save that succeeds closes the dialog.
// What couldn't be read at the start can be asked for again, and why something was refused stays to be read.
Item {
    id: page

    property string roomId: ""
    property string roomNo: ""
    property QtObject room: null // its record, where it is in use
    property QtObject frame: null // the dialog
    property QtObject vm: null
    property var start: null // the page's first work
    property bool isStarted: false
    property bool isRead: false // the first work went well
    property string refusal: ""
    property string confirmText: ""
    default property alias content: body.data

    readonly property bool isEnabled: isStarted && vm.isEnabled
    readonly property bool isFailed: isStarted && !isRead && vm.isLoadFailed

    // Whatever waits for the back end or the user runs through this.
    function work(waiting) {
        return frame.work(waiting)
    }

    function begin() {
        isStarted = true
        work(start)
        if (page && !vm.isLoadFailed)
            isRead = true
    }

    function save() {
        if (!frame || !frame.isShown(page))
            return // the dialog has gone on to another page
        Qt.inputMethod.commit() // what is still being composed counts
        refusal = ""
        if (work(() => vm.save()))
            frame.finish(false)
    }

    Component.onCompleted: JsFunc.timerOnce(GlobalConfig.initDelyTime, () => page && page.begin())

    Connections {
        target: MyMessage
        function onShowMessageSignal(msg, infoType) {
            page.refusal = infoType === "error" ? msg : ""
        }
    }

    // Any next tap takes the refusal away; it is only watched, not taken.
    Item {
        anchors.fill: parent
        z: 1

        PointHandler {
            onActiveChanged: {
                if (active)
                    page.refusal = ""
            }
        }
    }

    Item {
        id: body
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: notice.top
        anchors.bottomMargin: button.visible ? Theme.gap : 0
        enabled: page.isEnabled
        visible: !page.isFailed
    }

    FailedLoad {
        visible: page.isFailed
        retry: () => page.begin()
    }

    PlainText {
        id: notice
        objectName: "refusal"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: button.top
        anchors.bottomMargin: button.visible ? 4 : 0
        height: text === "" ? 0 : Theme.px(26)
        horizontalAlignment: Text.AlignHCenter
        leastSize: Theme.leastSize
        text: page.refusal
        color: Theme.refusal
    }

    PushButton {
        id: button
        objectName: "saveButton"
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        visible: page.confirmText !== ""
        height: visible ? Theme.buttonHeight : 0
        width: Theme.px(260)
        text: page.confirmText
        enabled: page.isEnabled && !page.isFailed
        action: () => page.save()
    }
}
