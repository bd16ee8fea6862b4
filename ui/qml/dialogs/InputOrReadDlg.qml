import QtQuick 2.15
import InputOrReadVm 1.0
import MyMessage 1.0
import "../Components"

// Asks who acts: number and password in two steps, or a staff card at any time.
WindowFrame {
    id: dialog

    property bool isPasswd: false
    property bool isNumKey: true
    property bool isUpper: true
    property string userNo: ""
    property string pwd: ""
    property string cardUid: ""
    property bool isRead: false

    function exec() {
        wait()
        return {dlgResult: dlgResult, user: userNo, pwd: pwd, cardUid: cardUid, isRead: isRead}
    }

    function confirm() {
        if (body.text === "") {
            MyMessage.showError("用户名或密码不能为空")
        } else if (!isPasswd) {
            userNo = body.text
            body.clear()
            isPasswd = true
        } else {
            pwd = body.text
            isEnabled = false
            finish(true)
        }
    }

    objectName: "inputOrReadDlg"
    dlgResult: true
    width: 680
    height: 464

    InputOrReadVm {
        onSuccessSignal: {
            dialog.isEnabled = true
            dialog.isRead = true
            dialog.cardUid = rfid
            dialog.finish(true)
        }
    }

    KeyDialogBody {
        id: body
        anchors.fill: parent
        enabled: dialog.isEnabled
        prompt: dialog.isPasswd ? "请输入密码" : "请刷入或输入员工卡"
        echoMode: dialog.isPasswd ? TextInput.Password : TextInput.Normal
        isNumKey: dialog.isNumKey
        isUpper: dialog.isUpper
        validator: RegularExpressionValidator { regularExpression: /[0-9a-zA-Z]+/ }
        inputMethodHints: Qt.ImhHiddenText
        onConfirmed: dialog.confirm()
        onCancelled: dialog.finish(false)
    }
}
