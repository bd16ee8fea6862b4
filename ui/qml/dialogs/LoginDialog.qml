import QtQuick 2.15
import LoginVm 1.0
import "../Components"
import "../../js/Func.js" as JsFunc

// Logs a member of staff in for a module, by number and password or by card.
DialogFrame {
    id: dialog

    property string funcVal: ""     // module word
    property string moduleName: ""  // and the module in words
    property string userNo: ""
    property string pwd: ""
    property string staffId: ""
    property string staffNo: ""
    property string staffUid: ""

    function exec() {
        wait()
        return {dlgResult: dlgResult, staffId: staffId, staffNo: staffNo, userNo: userNo, pwd: pwd, staffUid: staffUid}
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

    onEndSignal: loginVm.stopReading()

    contentItem: IdentityBody {
        purpose: dialog.moduleName === "" ? "" : dialog.moduleName + " · 登录"
        enabled: dialog.isEnabled
        onEntered: {
            dialog.userNo = userNo
            dialog.pwd = password
            dialog.isEnabled = false
            JsFunc.delay15(() => loginVm && loginVm.login(dialog.userNo, dialog.pwd, ""))
        }
        onCancelled: dialog.finish(false)
    }
}
