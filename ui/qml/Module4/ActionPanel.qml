import QtQuick 2.15
import "../Components"

// What a helper does at the station, beside what he does with a card of the lists.
Column {
    id: panel

    property bool isFree: true // no action is under way
    property bool isMultiCall: false
    property var choose: null  // choose(action)
    property var show: null    // show(dialog)

    readonly property int buttonHeight: (height - 8 * spacing - Theme.px(24)) / 8

    spacing: Theme.gap

    Repeater {
        model: [{text: "叫下一位", action: "callNext", role: "accent"}, {text: "叫多位", action: "callMany", role: "accent"},
                {text: "开始服务", action: "startServer", role: "accent"}, {text: "下   单", action: "complate", role: "accent"},
                {text: "服务评价", action: "assess", role: "plain"}, {text: "加入排队", action: "addQuene", role: "plain"}]

        PushButton {
            objectName: modelData.action + "Button"
            width: panel.width
            height: panel.buttonHeight + (modelData.action === "callNext" ? Theme.px(24) : 0)
            visible: modelData.action !== "callMany" || panel.isMultiCall
            enabled: panel.isFree
            role: modelData.role
            text: modelData.text
            onClicked: panel.choose(modelData.action)
        }
    }

    Repeater {
        model: [{text: "业绩查询", dialog: "sellSumDlg"}, {text: "过号记录", dialog: "passRecordDlg"}]

        PushButton {
            objectName: modelData.dialog + "Button"
            width: panel.width
            height: panel.buttonHeight
            role: "plain"
            text: modelData.text
            onClicked: panel.show(modelData.dialog)
        }
    }
}
