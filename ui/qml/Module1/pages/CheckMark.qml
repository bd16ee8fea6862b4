import QtQuick 2.15
import "../../Components"
import "../../../js/Glyphs.js" as Glyphs

// A check box with its label. It changes nothing itself: the page keeps the state.
Rectangle {
    id: mark

    property string text: ""
    property bool isChecked: false

    signal clicked()

    implicitWidth: row.width + 24
    implicitHeight: 56
    radius: Theme.radius
    color: area.pressed ? Theme.keyPressed : Theme.surface
    border.color: isChecked ? Theme.accent : Theme.line
    Accessible.role: Accessible.CheckBox
    Accessible.name: text
    Accessible.checked: isChecked
    Accessible.onPressAction: clicked()

    Row {
        id: row
        anchors.centerIn: parent
        spacing: 8

        IconText {
            anchors.verticalCenter: parent.verticalCenter
            iconText: mark.isChecked ? Glyphs.checkBoxChecked : Glyphs.checkBoxUnchecked
            iconColor: mark.isChecked ? Theme.accent : Theme.textMuted
            pixelSize: 28
        }

        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: mark.text
            font.family: Pinfang
            font.pixelSize: Theme.textSize
            color: Theme.text
        }
    }

    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: mark.clicked()
    }
}
