import QtQuick 2.15

// The minus or plus beside a number.
IconButton {
    implicitWidth: Theme.px(72)
    implicitHeight: Theme.keyHeight
    restColor: Theme.surface
    pressedColor: Theme.keyPressed
    border.color: Theme.line
    iconColor: Theme.accent
}
