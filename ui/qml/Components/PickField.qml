import QtQuick 2.15
import GlobalConfig 1.0
import "../../js/Glyphs.js" as Glyphs

// A value behind its label that isn't typed: a tap asks for it.
Tappable {
    id: field

    property string text: ""
    property string prompt: ""
    property int labelWidth: Theme.px(110)
    property int fieldWidth: Theme.px(320)

    implicitWidth: labelWidth + Theme.spacing + fieldWidth
    implicitHeight: Theme.keyHeight
    restColor: "transparent"
    pressedColor: "transparent"
    delay: GlobalConfig.dlgDeplyTime

    PlainText {
        width: field.labelWidth
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        text: field.label
        color: Theme.textMuted
    }

    Rectangle {
        anchors.right: parent.right
        width: field.fieldWidth
        height: parent.height
        radius: Theme.radius
        color: field.isPressed ? Theme.keyPressed : Theme.surface
        border.color: Theme.line

        PlainText {
            anchors.left: parent.left
            anchors.right: mark.left
            anchors.leftMargin: Theme.spacing
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            text: field.text === "" ? field.prompt : field.text
            leastSize: Theme.leastSize
            font.pixelSize: field.text === "" ? Theme.textSize : Theme.titleSize
            color: field.text === "" ? Theme.textFaint : Theme.text
        }

        IconText {
            id: mark
            anchors.right: parent.right
            anchors.rightMargin: Theme.spacing
            anchors.verticalCenter: parent.verticalCenter
            iconText: Glyphs.chevronRight
            iconColor: Theme.textMuted
            pixelSize: Theme.px(26)
        }
    }
}
