import QtQuick 2.15

// The minus or plus beside a number.
IconButton {
    implicitWidth: 64
    implicitHeight: 56
    restColor: Theme.surface
    pressedColor: Theme.keyPressed
    border.color: Theme.line
    iconColor: Theme.accent
}
