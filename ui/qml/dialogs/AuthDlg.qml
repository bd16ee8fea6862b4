import QtQuick 2.15
import AuthVm 1.0
import MyMessage 1.0
import "../Components"
import "../../js/Func.js" as JsFunc

// Asks for a supervisor who vouches for one refused call. It stands above whatever dialog made the call, and stays open
// for another try when he is refused.
WindowFrame {
    id: dialog

    property bool isPasswd: false
    property string userNo: ""
    property string staffId: ""
    property string staffNo: ""
    property string staffName: ""

    function exec() {
        wait()
        return {dlgResult: dlgResult, staffId: staffId, staffNo: staffNo, staffName: staffName}
    }

    function confirm() {
        if (body.text === "") {
            MyMessage.showError("用户名或密码不能为空")
        } else if (!isPasswd) {
            userNo = body.text
            body.clear()
            isPasswd = true
        } else {
            const pwd = body.text
            JsFunc.delay15(() => authVm && authVm.login(dialog.userNo, pwd, ""))
        }
    }

    objectName: "authDlg"
    width: 680
    height: 460

    AuthVm {
        id: authVm
        onSuccess: {
            dialog.staffId = staffId
            dialog.staffNo = staffNo
            dialog.staffName = staffName
            dialog.finish(true)
        }
    }

    KeyDialogBody {
        id: body
        anchors.fill: parent
        enabled: authVm.isEnabled
        prompt: dialog.isPasswd ? "请输入密码" : "请刷入或输入员工卡"
        echoMode: dialog.isPasswd ? TextInput.Password : TextInput.Normal
        validator: RegularExpressionValidator { regularExpression: /[0-9a-zA-Z]+/ }
        inputMethodHints: Qt.ImhHiddenText
        onConfirmed: dialog.confirm()
        onCancelled: dialog.finish(false)
    }
}
