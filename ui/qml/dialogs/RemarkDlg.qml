import QtQuick 2.15
import QtQuick.Controls 2.15
import "../Components"
import "../../js/Func.js" as JsFunc

// A remark of any length; an empty one counts too. Text comes from the system's keyboard.
DialogFrame {
    id: dialog

    property string strText: "技师服务类别" // the title
    property string remark: ""

    function exec() {
        wait()
        return {dlgResult: dlgResult, remark: remark}
    }

    objectName: "remarkDlg"
    dlgResult: true
    width: 540
    height: 465

    contentItem: Item {
        DialogHead {
            id: head
            anchors.left: parent.left
            anchors.right: parent.right
            title: dialog.strText
            onBack: dialog.finish(false)
        }

        ScrollView {
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: head.bottom
            anchors.bottom: confirmButton.top
            anchors.margins: Theme.spacing
            clip: true

            TextArea {
                id: area
                objectName: "remarkArea"
                text: dialog.remark
                placeholderText: "请输入备注信息"
                placeholderTextColor: Theme.textFaint
                wrapMode: TextEdit.Wrap
                font.family: Pinfang
                font.pixelSize: Theme.textSize
                color: Theme.text
                background: Rectangle {
                    radius: Theme.radius
                    color: Theme.surface
                    border.color: area.activeFocus ? Theme.accent : Theme.line
                }
            }
        }

        PushButton {
            id: confirmButton
            objectName: "confirmButton"
            anchors.horizontalCenter: parent.horizontalCenter
            anchors.bottom: parent.bottom
            anchors.bottomMargin: Theme.spacing
            width: 220
            text: "确  定"
            onClicked: JsFunc.delay15(() => {
                dialog.remark = area.text
                dialog.finish(true)
            })
        }
    }
}
