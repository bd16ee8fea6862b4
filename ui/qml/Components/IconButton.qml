import QtQuick 2.15

// A glyph that can be tapped, with a target larger than itself.
Item {
    id: button

    property alias iconText: icon.iconText
    property alias pixelSize: icon.pixelSize
    property alias iconColor: icon.iconColor
    property string label: ""

    signal clicked()

    implicitWidth: Theme.touchSize
    implicitHeight: Theme.touchSize
    Accessible.role: Accessible.Button
    Accessible.name: label
    Accessible.onPressAction: clicked()

    Rectangle {
        anchors.fill: parent
        radius: Theme.radius
        color: Theme.text
        opacity: area.pressed ? 0.15 : 0
    }

    IconText {
        id: icon
        anchors.centerIn: parent
        pixelSize: 28
    }

    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: button.clicked()
    }
}
