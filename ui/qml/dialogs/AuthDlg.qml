import QtQuick 2.15
import AuthVm 1.0
import DlgManager 1.0
import "../Components"
import "../../js/Func.js" as JsFunc

// Asks for a supervisor who vouches for one refused call. It stands above whatever dialog made the call, and stays open
// for another try when he is refused.
WindowFrame {
    id: dialog

    property string staffId: ""
    property string staffNo: ""
    property string staffName: ""

    function exec() {
        wait()
        return {dlgResult: dlgResult, staffId: staffId, staffNo: staffNo, staffName: staffName}
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

    onEndSignal: authVm.stopReading()

    IdentityBody {
        anchors.fill: parent
        purpose: DlgManager.askedCall === "" ? "需要授权" : "需要授权 · " + DlgManager.askedCall
        enabled: authVm.isEnabled
        onEntered: JsFunc.delay15(() => authVm && authVm.login(userNo, password, ""))
        onCancelled: dialog.finish(false)
    }
}
