import QtQuick 2.15

// A check box with its label. It changes nothing itself: the page keeps the state.
Tappable {
    id: mark

    property string text: ""
    property bool isChecked: false

    implicitWidth: row.width + 24
    implicitHeight: Theme.keyHeight
    isToggle: true
    label: text
    border.color: isChecked ? Theme.accent : Theme.line
    Accessible.role: Accessible.CheckBox
    Accessible.checked: isChecked

    Row {
        id: row
        anchors.centerIn: parent
        spacing: 8

        CheckIcon {
            anchors.verticalCenter: parent.verticalCenter
            isChecked: mark.isChecked
        }

        PlainText {
            anchors.verticalCenter: parent.verticalCenter
            text: mark.text
        }
    }
}
