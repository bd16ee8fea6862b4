import QtQuick 2.15
import QtQuick.Controls 2.15
import GlobalConfig 1.0
import PassRecordVm 1.0
import "../../Components"
import "../../../js/Func.js" as JsFunc

// Who was called and passed over on a business day, with a way to call him once more.
TitledDialog {
    id: dialog

    readonly property var columns: [{title: "手牌", role: "cardNo", share: 9}, {title: "手牌类型", role: "cardType", share: 11},
                                    {title: "状态", role: "statusVal", share: 10}, {title: "重叫次数", role: "callNum", share: 10, isNumber: true},
                                    {title: "操作人", role: "operCode", share: 10}, {title: "操作时间", role: "createTime", share: 20}]
    readonly property int actionWidth: Theme.px(120)

    function exec() {
        wait()
    }

    objectName: "passRecordDlg"
    title: "过号记录"
    hasBack: true
    width: Theme.px(1160)
    height: Theme.px(690)
    Component.onCompleted: JsFunc.timerOnce(GlobalConfig.initDelyTime, () => recordsVm && recordsVm.getRecords())
    onEndSignal: recordsVm.stopReading()

    PassRecordVm {
        id: recordsVm
    }

    Row {
        id: days
        x: Theme.spacing
        y: Theme.gap
        spacing: Theme.gap

        Repeater {
            model: [{text: "昨日", type: 2}, {text: "今日", type: 1}]

            PushButton {
                objectName: "day_" + modelData.type
                role: recordsVm.dateType === modelData.type ? "accent" : "plain"
                text: modelData.text
                action: () => {
                    recordsVm.dateType = modelData.type
                    recordsVm.getRecords()
                }
            }
        }
    }

    Rectangle {
        id: head
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: days.bottom
        anchors.margins: Theme.spacing
        anchors.topMargin: Theme.gap
        height: Theme.px(48)
        radius: Theme.radius
        color: Theme.keyPressed

        DataTableRow {
            objectName: "passHead"
            width: records.rowWidth - dialog.actionWidth
            height: parent.height
            columns: dialog.columns
        }

        PlainText {
            x: records.rowWidth - dialog.actionWidth
            width: dialog.actionWidth
            height: parent.height
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            text: "操作"
            color: Theme.textMuted
        }
    }

    ListView {
        id: records

        readonly property int rowWidth: width - 14

        objectName: "passRecords"
        anchors.left: head.left
        anchors.right: head.right
        anchors.top: head.bottom
        anchors.topMargin: 4
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.spacing
        visible: !recordsVm.isLoadFailed
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        model: recordsVm.pCallPass
        ScrollBar.vertical: ListScrollBar {}
        delegate: Item {
            width: records.rowWidth
            height: Theme.px(62)

            DataTableRow {
                objectName: "pass_" + index
                width: parent.width - dialog.actionWidth
                height: parent.height
                columns: dialog.columns
                line: model
            }

            PushButton {
                objectName: "recall_" + model.cardNo
                anchors.right: parent.right
                anchors.rightMargin: Theme.gap
                anchors.verticalCenter: parent.verticalCenter
                width: dialog.actionWidth - 2 * Theme.gap
                height: Theme.px(52)
                role: "plain"
                pixelSize: Theme.textSize
                enabled: recordsVm.isEnabled
                text: "重叫"
                action: () => recordsVm.recall(model.handCardId)
            }

            Rectangle {
                width: parent.width
                height: 1
                anchors.bottom: parent.bottom
                color: Theme.line
            }
        }

        EmptyText {
            list: records
            text: "没有过号记录"
        }
    }

    FailedLoad {
        visible: recordsVm.isLoadFailed
        retry: () => recordsVm.getRecords()
    }
}
