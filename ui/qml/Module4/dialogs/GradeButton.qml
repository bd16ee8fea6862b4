import QtQuick 2.15
import "../../Components"
import "../../../js/Glyphs.js" as Glyphs

// One grade to touch; the one that was given has a check and stands on a colour.
Tappable {
    id: grade

    property string text: ""
    property bool isChosen: false

    implicitWidth: Math.max(Theme.px(110), row.width + 2 * Theme.spacing)
    implicitHeight: Theme.px(56)
    label: text
    restColor: isChosen ? Theme.accent : Theme.surface
    pressedColor: isChosen ? Theme.accentPressed : Theme.keyPressed
    border.width: 1
    border.color: Theme.line
    Accessible.checked: isChosen

    Row {
        id: row
        anchors.centerIn: parent
        spacing: Theme.px(6)

        IconText {
            anchors.verticalCenter: parent.verticalCenter
            visible: grade.isChosen
            iconText: Glyphs.check
            iconColor: Theme.textOnColor
            pixelSize: Theme.textSize
        }

        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            text: grade.text
            color: grade.isChosen ? Theme.textOnColor : Theme.text
        }
    }
}
