import QtQuick 2.15
import GlobalConfig 1.0
import "../../js/Glyphs.js" as Glyphs

// A value under its caption that is large enough for a hand in a hurry; a tap asks for it. A fault below the value tells
// what couldn't be taken.
Tappable {
    id: field

    property string text: ""
    property string prompt: ""
    property string fault: ""

    readonly property int pad: Theme.px(14)

    implicitHeight: Theme.px(84)
    delay: GlobalConfig.dlgDeplyTime
    border.color: fault === "" ? Theme.line : Theme.refusal

    PlainText {
        x: field.pad
        y: Theme.px(6)
        width: parent.width - 2 * field.pad
        text: field.label
        font.pixelSize: Theme.captionSize
        color: Theme.textMuted
    }

    PlainText {
        objectName: field.objectName + "Text"
        anchors.left: parent.left
        anchors.leftMargin: field.pad
        anchors.right: mark.left
        anchors.bottom: parent.bottom
        anchors.bottomMargin: field.fault === "" ? Theme.px(8) : Theme.px(24)
        text: field.text === "" ? field.prompt : field.text
        leastSize: Theme.leastSize
        font.pixelSize: field.text === "" || field.fault !== "" ? Theme.headSize : Theme.px(30)
        color: field.text === "" ? Theme.textFaint : Theme.text
    }

    PlainText {
        objectName: field.objectName + "Fault"
        x: field.pad
        width: parent.width - 2 * field.pad
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.px(4)
        visible: field.fault !== ""
        text: field.fault
        leastSize: Theme.leastSize
        font.pixelSize: Theme.captionSize
        color: Theme.refusal
    }

    IconText {
        id: mark
        anchors.right: parent.right
        anchors.rightMargin: field.pad
        anchors.verticalCenter: parent.verticalCenter
        visible: field.enabled
        width: visible ? implicitWidth : 0
        iconText: Glyphs.chevronRight
        iconColor: Theme.textMuted
        pixelSize: Theme.px(28)
    }
}
