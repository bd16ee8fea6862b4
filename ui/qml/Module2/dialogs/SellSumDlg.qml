import QtQuick 2.15
import QtQuick.Controls 2.15
import SellSumVm 1.0
import "../../Components"
import "../../DlgManager.js" as Dlg

// What was sold in a time range, by area, and its slip.
TitledDialog {
    id: dialog

    property string areaName: "全部"

    readonly property string timeFormat: "yyyy-MM-dd hh:mm:ss"
    readonly property int labelWidth: Theme.px(96)
    readonly property int fieldWidth: Theme.px(290)

    function exec() {
        wait()
    }

    // A moment, or undefined when it was called off.
    function timeAsked(title, moment) {
        const answer = Dlg.showDialog("dateTimeDlg", {text: title, defaultTime: moment})
        return answer !== undefined && answer.dlgResult ? Qt.formatDateTime(answer.date, timeFormat) : undefined
    }

    objectName: "sellSumDlg"
    title: "业绩统计"
    hasBack: true
    width: Theme.px(1080)
    height: Theme.px(710)

    SellSumVm {
        id: sums
    }

    Grid {
        id: filters
        x: Theme.spacing
        y: Theme.gap
        columns: 2
        rowSpacing: Theme.gap
        columnSpacing: Theme.px(24)

        PickField {
            objectName: "startField"
            label: "开始时间"
            labelWidth: dialog.labelWidth
            fieldWidth: dialog.fieldWidth
            text: sums.startTime
            action: () => {
                const moment = dialog.timeAsked("开始时间", sums.startTime)
                if (moment !== undefined && sums)
                    sums.startTime = moment
            }
        }

        PickField {
            objectName: "areaField"
            label: "部门选择"
            labelWidth: dialog.labelWidth
            fieldWidth: dialog.fieldWidth
            text: dialog.areaName
            action: () => {
                const answer = Dlg.showDialog("workAreaDlg", {areaList: sums.pAreaModel})
                if (answer === undefined || !answer.dlgResult || !sums)
                    return
                sums.areaId = answer.areaId
                dialog.areaName = answer.areaName
            }
        }

        PickField {
            objectName: "endField"
            label: "结束时间"
            labelWidth: dialog.labelWidth
            fieldWidth: dialog.fieldWidth
            text: sums.endTime
            action: () => {
                const moment = dialog.timeAsked("结束时间", sums.endTime)
                if (moment !== undefined && sums)
                    sums.endTime = moment
            }
        }

        PickField {
            objectName: "staffField"
            label: "员工工号"
            labelWidth: dialog.labelWidth
            fieldWidth: dialog.fieldWidth
            prompt: "本人"
            text: sums.staffNo
            action: () => {
                const answer = Dlg.showDialog("staffQueryDlg", {strText: "员工工号"})
                if (sums)
                    sums.staffNo = answer !== undefined && answer.dlgResult ? answer.staffNo : ""
            }
        }
    }

    Row {
        id: deeds
        anchors.left: filters.left
        anchors.top: filters.bottom
        anchors.topMargin: Theme.gap
        spacing: Theme.spacing

        CheckMark {
            objectName: "mergedCheck"
            text: "合并统计"
            isChecked: sums.isOneItem
            onClicked: sums.isOneItem = !sums.isOneItem
        }

        CheckMark {
            objectName: "localCheck"
            text: "仅本机"
            isChecked: sums.isLocal
            onClicked: sums.isLocal = !sums.isLocal
        }

        PushButton {
            objectName: "queryButton"
            width: Theme.px(180)
            enabled: sums.isBtnEnabled
            text: "查  询"
            action: () => sums.query()
        }

        PushButton {
            objectName: "printButton"
            width: Theme.px(180)
            enabled: sums.isBtnEnabled
            role: "plain"
            text: "打  印"
            action: () => sums.print()
        }
    }

    ListView {
        id: areas
        objectName: "sumAreas"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: deeds.bottom
        anchors.bottom: parent.bottom
        anchors.margins: Theme.spacing
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: sums.pSellSumModel
        ScrollBar.vertical: ListScrollBar {}
        delegate: Column {
            id: area
            width: ListView.view.width - Theme.spacing
            bottomPadding: Theme.spacing

            SumLine {
                objectName: "sumArea_" + index
                width: area.width
                height: Theme.px(48)
                ground: Theme.keyPressed
                name: "【" + model.areaName + "】"
                figures: [model.totalNum + " 数量", model.totalAmount.toFixed(2) + " 金额", model.tcAmt.toFixed(2) + " 提成"]
            }

            Repeater {
                model: orderList

                SumLine {
                    width: area.width
                    height: Theme.px(38)
                    ground: model.isParent ? Theme.surfaceMuted : Theme.surface
                    isStrong: model.isParent
                    name: model.itemName
                    figures: [model.num, model.amount.toFixed(2), model.tcAmt.toFixed(2)]
                }
            }
        }

        EmptyText {
            list: areas
            text: "没有查到业绩"
        }
    }
}
