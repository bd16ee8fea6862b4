import QtQuick 2.15
import "../../js/Glyphs.js" as Glyphs

// One of several choices that shut each other out. It changes nothing itself: the page keeps the state.
Tappable {
    id: mark

    property string text: ""
    property bool isChecked: false

    implicitWidth: row.width + 24
    implicitHeight: Theme.keyHeight
    label: text
    border.color: isChecked ? Theme.accent : Theme.line
    Accessible.role: Accessible.RadioButton
    Accessible.checked: isChecked

    Row {
        id: row
        anchors.centerIn: parent
        spacing: 8

        IconText {
            anchors.verticalCenter: parent.verticalCenter
            iconText: mark.isChecked ? Glyphs.radioChecked : Glyphs.radioUnchecked
            iconColor: mark.isChecked ? Theme.accent : Theme.textMuted
            pixelSize: 28
        }

        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            text: mark.text
        }
    }
}
