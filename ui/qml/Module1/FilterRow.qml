import QtQuick 2.15
import "../Components"

// A floor or room type beside the board, with its rooms in use and its tick.
Tappable {
    id: row

    property alias num: sum.text
    property bool isChecked: false

    readonly property color textColor: isChecked && !isPressed ? Theme.text : Theme.textOnColor

    height: Theme.touchSize
    radius: 6
    restColor: isChecked ? Theme.panelRowChecked : Theme.panelRow
    pressedColor: Theme.panelRowPressed
    Accessible.role: Accessible.CheckBox
    Accessible.checked: isChecked

    CheckIcon {
        id: tick
        anchors.left: parent.left
        anchors.leftMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        pixelSize: 24
        isChecked: row.isChecked
        iconColor: row.textColor
    }

    PlainText {
        anchors.left: tick.right
        anchors.leftMargin: 6
        anchors.right: sum.left
        anchors.rightMargin: 6
        anchors.verticalCenter: parent.verticalCenter
        text: row.label
        color: row.textColor
    }

    PlainText {
        id: sum
        anchors.right: parent.right
        anchors.rightMargin: 10
        anchors.verticalCenter: parent.verticalCenter
        color: row.textColor
    }
}
