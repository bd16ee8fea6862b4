import QtQuick 2.15

// The minus or plus beside a number.
Rectangle {
    id: key

    property alias iconText: icon.iconText
    property string label: ""

    signal clicked()

    implicitWidth: 64
    implicitHeight: 56
    radius: Theme.radius
    color: area.pressed ? Theme.keyPressed : Theme.surface
    border.color: Theme.line
    Accessible.role: Accessible.Button
    Accessible.name: label
    Accessible.onPressAction: clicked()

    IconText {
        id: icon
        anchors.centerIn: parent
        pixelSize: 28
        iconColor: Theme.accent
    }

    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: key.clicked()
    }
}
