import QtQuick 2.15
import GlobalConfig 1.0
import "../../Components"
import "../../../js/Func.js" as JsFunc

// Frame of a page inside a room dialog: what the page shows, and the button that does it, which is the view-model's
// save(). Both rest until the page has started and while the view-model works; a save that succeeds closes the dialog.
Item {
    id: page

    property string roomId: ""
    property string roomNo: ""
    property QtObject room: null // its record, where it is in use
    property QtObject frame: null // the dialog
    property QtObject vm: null
    property var start: null // the page's first work
    property bool isStarted: false
    property string confirmText: ""
    default property alias content: body.data

    readonly property bool isEnabled: isStarted && vm.isEnabled !== false

    signal confirmed() // what is on the page goes to the view-model

    // Whatever waits for the back end or the user runs through this.
    function work(waiting) {
        return frame.work(waiting)
    }

    function save() {
        confirmed()
        if (work(() => vm.save()))
            frame.finish(false)
    }

    Component.onCompleted: JsFunc.timerOnce(GlobalConfig.initDelyTime, () => {
        if (page) {
            page.isStarted = true
            page.work(page.start)
        }
    })

    Item {
        id: body
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: button.top
        anchors.bottomMargin: button.visible ? Theme.spacing : 0
        enabled: page.isEnabled
    }

    PushButton {
        id: button
        objectName: "saveButton"
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        visible: page.confirmText !== ""
        height: visible ? Theme.buttonHeight : 0
        width: 260
        text: page.confirmText
        enabled: page.isEnabled
        onClicked: Qt.inputMethod.commit() // what is still being composed counts
        action: () => page.save()
    }
}
