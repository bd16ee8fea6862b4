import QtQuick 2.15
import "../../Components"
import "../../../js/Glyphs.js" as Glyphs

// One grade to touch; the one that was given has a check and stands on a colour.
Tappable {
    id: grade

    property string text: ""
    property bool isChosen: false

    // The check has its place beforehand: no grade moves away from the finger that comes back.
    readonly property int checkWidth: Theme.px(30)

    implicitWidth: Math.max(Theme.px(124), name.implicitWidth + 2 * checkWidth)
    implicitHeight: Theme.px(56)
    label: text
    restColor: isChosen ? Theme.accent : Theme.surface
    pressedColor: isChosen ? Theme.accentPressed : Theme.keyPressed
    border.width: 1
    border.color: Theme.line
    Accessible.checked: isChosen

    IconText {
        x: Theme.px(8)
        anchors.verticalCenter: parent.verticalCenter
        visible: grade.isChosen
        iconText: Glyphs.check
        iconColor: Theme.textOnColor
        pixelSize: Theme.textSize
    }

    PlainText {
        id: name
        anchors.centerIn: parent
        text: grade.text
        color: grade.isChosen ? Theme.textOnColor : Theme.text
    }
}
