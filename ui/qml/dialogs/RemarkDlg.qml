import QtQuick 2.15
import "../Components"

// A remark of any length; an empty one counts too. Text comes from the system's keyboard.
TitledDialog {
    id: dialog

    property string strText: "技师服务类别"
    property string remark: ""

    function exec() {
        wait()
        return {dlgResult: dlgResult, remark: remark}
    }

    objectName: "remarkDlg"
    dlgResult: true
    title: strText
    hasBack: true
    width: 540
    height: 465

    RemarkArea {
        id: area
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: confirmButton.top
        anchors.margins: Theme.spacing
        text: dialog.remark
    }

    PushButton {
        id: confirmButton
        objectName: "confirmButton"
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.spacing
        width: 220
        text: "确  定"
        action: () => {
            Qt.inputMethod.commit() // what is still being composed counts
            dialog.remark = area.text
            dialog.finish(true)
        }
    }
}
