import QtQuick 2.15
import GlobalConfig 1.0
import "../../Components"
import "../../../js/Func.js" as JsFunc

// Frame of a page inside a room dialog: what the page shows, and the button that does it. Both rest until the page has
// started and while isEnabled is false. With a view-model as saver the button is its save(), which on success closes
// the dialog.
Item {
    id: page

    property string roomId: ""
    property string roomNo: ""
    property string confirmText: ""
    property QtObject saver: null
    property bool isEnabled: saver ? saver.isEnabled : true
    property bool isStarted: false
    default property alias content: body.data

    signal started() // the page stands, its first work may begin
    signal confirmed()

    Component.onCompleted: JsFunc.timerOnce(GlobalConfig.initDelyTime, () => {
        if (page) {
            page.isStarted = true
            dlg.work(() => page.started())
        }
    })

    Item {
        id: body
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: button.top
        anchors.bottomMargin: button.visible ? Theme.spacing : 0
        enabled: page.isEnabled && page.isStarted
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
        enabled: page.isEnabled && page.isStarted
        onClicked: {
            Qt.inputMethod.commit() // what is still being composed counts
            JsFunc.delay15(() => {
                if (!page)
                    return
                page.confirmed()
                if (page.saver && dlg.work(() => page.saver.save()))
                    dlg.save()
            })
        }
    }
}
