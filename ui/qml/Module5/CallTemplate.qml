import QtQuick 2.15
import "../Components"

// What is said to call a guest, with two keys for a kiosk without a keyboard.
Rectangle {
    id: tile

    property QtObject vm: null

    readonly property bool isUsable: area.text.includes("%1")

    radius: Theme.radius
    color: Theme.surface
    border.width: vm.marks.zy_tts_text === "changed" ? 2 : 1
    border.color: vm.marks.zy_tts_text === "changed" ? Theme.refusal : Theme.line

    Connections {
        target: vm
        function onZyttsChanged() {
            if (area.text !== vm.zytts)
                area.text = vm.zytts
        }
    }

    PlainText {
        id: note
        objectName: "templateNote"
        anchors.left: parent.left
        anchors.leftMargin: Theme.px(12)
        anchors.right: state.left
        anchors.top: parent.top
        anchors.topMargin: Theme.gap
        text: "注: %1表示手牌号必须包含" + (tile.isUsable ? "" : "，没有则保存为空，呼叫时用默认内容")
        font.pixelSize: Theme.captionSize
        color: tile.isUsable ? Theme.textMuted : Theme.refusal
    }

    PlainText {
        id: state
        anchors.right: parent.right
        anchors.rightMargin: Theme.px(12)
        anchors.baseline: note.baseline
        text: vm.marks.zy_tts_text === "changed" ? "未保存" : vm.marks.zy_tts_text === "restart" ? "重启后生效" : ""
        font.pixelSize: Math.max(Theme.leastSize, Theme.px(14))
        color: vm.marks.zy_tts_text === "changed" ? Theme.refusal : Theme.danger
    }

    RemarkArea {
        id: area
        anchors.left: parent.left
        anchors.right: keys.left
        anchors.top: note.bottom
        anchors.bottom: parent.bottom
        anchors.margins: Theme.gap
        hasPhrases: false
        prompt: "请%1号贵宾前往助浴区"
        text: vm.zytts
        onTextChanged: vm.zytts = text
    }

    Column {
        id: keys
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap
        anchors.top: note.bottom
        anchors.topMargin: Theme.gap
        spacing: Theme.gap

        PushButton {
            objectName: "insertNumber"
            width: Theme.px(150)
            height: Theme.px(56)
            role: "plain"
            pixelSize: Theme.textSize
            text: "加入 %1"
            onClicked: area.text += "%1"
        }

        PushButton {
            objectName: "usualTemplate"
            width: Theme.px(150)
            height: Theme.px(56)
            role: "plain"
            pixelSize: Theme.textSize
            text: "默认内容"
            onClicked: area.text = "请%1号贵宾前往助浴区"
        }
    }
}
