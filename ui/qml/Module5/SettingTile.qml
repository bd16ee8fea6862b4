import QtQuick 2.15
import "../Components"
import "../../js/Glyphs.js" as Glyphs

// A setting in the grid: its label, its value, and whether that is unsaved or waits for the next start.
Tappable {
    id: tile

    property string value: ""
    property string mark: ""    // "changed", "restart" or nothing
    property string note: ""    // what is to be known of the value
    property bool isAlert: false // the note is a warning
    property bool isCheck: false
    property bool isChecked: false

    implicitHeight: Theme.px(84)
    isToggle: isCheck
    border.width: mark === "changed" ? 2 : 1
    border.color: mark === "changed" ? Theme.refusal : Theme.line
    Accessible.role: isCheck ? Accessible.CheckBox : Accessible.Button
    Accessible.checked: isChecked

    PlainText {
        id: name
        anchors.left: parent.left
        anchors.leftMargin: Theme.px(12)
        anchors.right: state.left
        anchors.top: parent.top
        anchors.topMargin: Theme.gap
        text: tile.label
        leastSize: Theme.leastSize
        font.pixelSize: Theme.captionSize
        color: Theme.textMuted
    }

    PlainText {
        id: state
        anchors.right: parent.right
        anchors.rightMargin: Theme.px(12)
        anchors.baseline: name.baseline
        text: tile.mark === "changed" ? "未保存" : tile.mark === "restart" ? "重启后生效" : ""
        font.pixelSize: Math.max(Theme.leastSize, Theme.px(14))
        color: tile.mark === "changed" ? Theme.refusal : Theme.danger
    }

    PlainText {
        anchors.left: name.left
        anchors.right: more.left
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.px(12)
        objectName: "settingValue"
        text: tile.isCheck ? (tile.isChecked ? "是" : "否") : tile.value
        leastSize: Theme.leastSize
        font.pixelSize: Theme.titleSize
    }

    PlainText {
        anchors.right: more.left
        anchors.rightMargin: Theme.gap
        anchors.verticalCenter: more.verticalCenter
        visible: tile.note !== ""
        text: tile.note
        font.pixelSize: Math.max(Theme.leastSize, Theme.px(14))
        color: tile.isAlert ? Theme.refusal : Theme.textMuted
    }

    IconText {
        id: more
        anchors.right: parent.right
        anchors.rightMargin: Theme.px(12)
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.px(10)
        iconText: tile.isCheck ? (tile.isChecked ? Glyphs.checkBoxChecked : Glyphs.checkBoxUnchecked) : Glyphs.chevronRight
        iconColor: tile.isCheck && tile.isChecked ? Theme.accent : Theme.textMuted
        pixelSize: Theme.px(28)
    }
}
