import QtQuick 2.15
import "../Components"

// A floor or room type beside the board, with its rooms in use and its tick.
PanelRow {
    id: row

    property alias num: sum.text
    property bool isChecked: false

    restColor: isChecked ? Theme.panelRowChecked : Theme.panelRow
    Accessible.role: Accessible.CheckBox
    Accessible.checked: isChecked

    CheckIcon {
        id: tick
        anchors.left: parent.left
        anchors.leftMargin: 6
        anchors.verticalCenter: parent.verticalCenter
        pixelSize: row.pixelSize * 1.2
        isChecked: row.isChecked
        iconColor: row.textColor
    }

    PlainText {
        anchors.left: tick.right
        anchors.leftMargin: 6
        anchors.right: sum.left
        anchors.rightMargin: 6
        anchors.verticalCenter: parent.verticalCenter
        leastSize: Theme.leastSize
        text: row.label
        font.pixelSize: row.pixelSize
        color: row.textColor
    }

    PlainText {
        id: sum
        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        font.pixelSize: row.pixelSize
        color: row.textColor
    }
}
