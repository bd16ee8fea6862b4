import QtQuick 2.15
import JsServiceVm 1.0
import "../Components"
import "../DlgManager.js" as Dlg

// Who does a service that is ordered, in which shift, how he came to it, and who sent him.
ItemDialog {
    id: dialog

    property int overFlg: -1
    property int serverType: -1
    property string staffNo: ""
    property string pushNo: ""

    readonly property int labelWidth: Theme.px(110)

    function exec() {
        wait()
        return {dlgResult: dlgResult, num: itemNum, overFlg: overFlg, serviceType: serverType, staffNo: staffNo,
                pushNo: pushNo}
    }

    function staffAsked(prompt) {
        const answer = Dlg.showDialog("staffQueryDlg", {strText: prompt})
        return answer !== undefined && answer.dlgResult ? answer.staffNo : undefined
    }

    objectName: "setJsServiceDlg"
    title: "技师服务类别"
    height: Theme.px(650)
    confirm: () => {
        if (serviceVm.isComplete(overFlg, serverType, staffNo, pushNo))
            finish(true)
    }

    JsServiceVm {
        id: serviceVm
    }

    Column {
        anchors.fill: parent
        spacing: Theme.px(20)

        OptionRow {
            label: "技师状态"
            labelWidth: dialog.labelWidth
            namePrefix: "shift_"
            options: serviceVm.shifts
            current: dialog.overFlg
            onChosen: dialog.overFlg = value
        }

        OptionRow {
            label: "派钟类别"
            labelWidth: dialog.labelWidth
            namePrefix: "kind_"
            options: serviceVm.kinds
            current: dialog.serverType
            onChosen: dialog.serverType = value
        }

        PickField {
            objectName: "staffField"
            label: "技师工号"
            labelWidth: dialog.labelWidth
            prompt: "请输入技师工号"
            text: dialog.staffNo
            action: () => {
                const number = dialog.staffAsked("请输入技师工号")
                if (number !== undefined && dialog)
                    dialog.staffNo = number
            }
        }

        PickField {
            objectName: "pushField"
            label: "推钟人"
            labelWidth: dialog.labelWidth
            prompt: "请输入推钟人"
            text: dialog.pushNo
            action: () => {
                const number = dialog.staffAsked("请输入推钟人")
                if (number !== undefined && dialog)
                    dialog.pushNo = number
            }
        }
    }
}
