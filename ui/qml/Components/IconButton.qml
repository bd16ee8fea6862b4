import QtQuick 2.15

// A glyph that can be tapped, with a target larger than itself.
Tappable {
    property alias iconText: icon.iconText
    property alias pixelSize: icon.pixelSize
    property alias iconColor: icon.iconColor

    implicitWidth: Theme.touchSize
    implicitHeight: Theme.touchSize
    restColor: "transparent"
    pressedColor: Theme.veil

    IconText {
        id: icon
        anchors.centerIn: parent
        pixelSize: Theme.px(28)
    }
}
