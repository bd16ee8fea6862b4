import QtQuick 2.15
import QtQuick.Controls 2.15
import "../../js/Glyphs.js" as Glyphs

// One line of input with a prompt and a mark that empties it. The system's input method is kept out: keys are ours.
TextField {
    id: field

    property string prompt: ""

    implicitHeight: 64
    leftPadding: Theme.spacing
    rightPadding: Theme.touchSize + Theme.spacing
    verticalAlignment: TextInput.AlignVCenter
    placeholderText: prompt
    placeholderTextColor: Theme.textFaint
    font.family: Pinfang
    font.pixelSize: 28
    color: Theme.text
    selectByMouse: true
    focus: true
    background: Rectangle {
        radius: Theme.radius
        color: Theme.surface
        border.width: 2
        border.color: field.activeFocus ? Theme.accent : Theme.line
    }

    IconButton {
        objectName: "clearMark"
        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        visible: field.length > 0
        iconText: Glyphs.clear
        iconColor: Theme.clearMark
        pixelSize: 18
        label: "清空"
        onClicked: field.clear()
    }
}
