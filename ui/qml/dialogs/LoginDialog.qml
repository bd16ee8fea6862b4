import QtQuick 2.15
import LoginVm 1.0
import MyMessage 1.0
import "../Components"
import "../../js/Func.js" as JsFunc

// Logs a member of staff in for a module, by number and password or by card.
DialogFrame {
    id: dialog

    property string funcVal: "" // module word
    property bool isPasswd: false
    property string userNo: ""
    property string pwd: ""
    property string staffId: ""
    property string staffNo: ""
    property string staffUid: ""

    function exec() {
        wait()
        return {dlgResult: dlgResult, staffId: staffId, staffNo: staffNo, userNo: userNo, pwd: pwd, staffUid: staffUid}
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
            JsFunc.delay15(() => loginVm && loginVm.login(dialog.userNo, dialog.pwd, ""))
        }
    }

    objectName: "loginDlg"
    width: 680
    height: 460
    Component.onCompleted: loginVm.init(true)

    LoginVm {
        id: loginVm
        modCode: dialog.funcVal
        onLoginErrorSignal: dialog.finish(false)
        onLoginSuccessSignal: {
            dialog.staffId = staffId
            dialog.staffNo = staffNo
            dialog.staffUid = rfid
            if (rfid !== "") {
                dialog.userNo = ""
                dialog.pwd = ""
            }
            dialog.finish(true)
        }
    }

    contentItem: KeyDialogBody {
        id: body
        enabled: dialog.isEnabled
        prompt: dialog.isPasswd ? "请输入密码" : "请刷入或输入员工卡"
        echoMode: dialog.isPasswd ? TextInput.Password : TextInput.Normal
        validator: RegularExpressionValidator { regularExpression: /[0-9a-zA-Z]+/ }
        inputMethodHints: Qt.ImhHiddenText
        onConfirmed: dialog.confirm()
        onCancelled: dialog.finish(false)
    }
}
