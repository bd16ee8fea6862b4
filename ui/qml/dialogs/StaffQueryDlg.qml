import QtQuick 2.15
import StaffQueryVm 1.0
import MyMessage 1.0
import "../Components"
import "../../js/Func.js" as JsFunc

// Asks for a member of staff by his number, and finds him.
DialogFrame {
    id: dialog

    property string strText: "" // the prompt
    property string staffId: ""
    property string staffNo: ""
    property string staffName: ""

    function exec() {
        wait()
        return {dlgResult: dlgResult, staffId: staffId, staffNo: staffNo, staffName: staffName}
    }

    function confirm() {
        if (body.text === "") {
            MyMessage.showMessage("工号不能为空", 2)
            return
        }
        isEnabled = false
        JsFunc.singly(15, () => staffVm && staffVm.queryApi(body.text))
    }

    objectName: "staffQueryDlg"
    dlgResult: true
    width: 680
    height: 500

    StaffQueryVm {
        id: staffVm
        onSuccessSignal: {
            dialog.staffId = staffId
            dialog.staffNo = staffNo
            dialog.staffName = staffName
            dialog.finish(true)
        }
        onErrorSignal: {
            dialog.isEnabled = true
            dialog.dlgResult = false
        }
    }

    contentItem: KeyDialogBody {
        id: body
        title: dialog.strText
        prompt: "请刷入工号"
        enabled: dialog.isEnabled
        onConfirmed: dialog.confirm()
        onAccepted: dialog.confirm()
        onCancelled: dialog.finish(false)
    }
}
