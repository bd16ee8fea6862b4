import QtQuick 2.15
import "../Components"

// What a helper may do with one card of the queue.
PushButton {
    implicitWidth: Theme.touchSize
    radius: Theme.px(8)
    pixelSize: Theme.px(20)
    role: "plain"
}
