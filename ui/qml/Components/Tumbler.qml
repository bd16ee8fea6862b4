import QtQuick 2.15

// A number wheel from min to max; current is the value in the middle, from the page and from a flick alike.
Rectangle {
    id: tumbler

    property string text: ""
    property int min: -1
    property int max: -1
    property int current: -1
    property int zero: 0

    function getResult() {
        return wheel.currentIndex + min
    }

    function padded(value) {
        let digits = String(value)
        while (digits.length < zero)
            digits = "0" + digits
        return digits
    }

    color: "transparent"
    implicitWidth: 90
    implicitHeight: 240

    PlainText {
        id: label
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.top: parent.top
        visible: text !== ""
        text: tumbler.text
        color: Theme.textOnColor
    }

    PathView {
        id: wheel
        objectName: "wheel"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: label.visible ? label.bottom : parent.top
        anchors.bottom: parent.bottom
        clip: true
        model: tumbler.max - tumbler.min + 1
        currentIndex: tumbler.current === -1 ? 0 : tumbler.current - tumbler.min
        onCurrentIndexChanged: tumbler.current = currentIndex + tumbler.min
        pathItemCount: 3
        preferredHighlightBegin: 0.5
        preferredHighlightEnd: 0.5
        highlightRangeMode: PathView.StrictlyEnforceRange
        maximumFlickVelocity: 1000
        path: Path {
            startX: wheel.width / 2
            startY: 0

            PathAttribute { name: "itemScale"; value: 0.6 }
            PathAttribute { name: "itemOpacity"; value: 0.3 }
            PathAttribute { name: "itemAngle"; value: 80 }
            PathAttribute { name: "itemZ"; value: 1 }
            PathLine { x: wheel.width / 2; y: wheel.height / 4 }
            PathAttribute { name: "itemScale"; value: 0.8 }
            PathAttribute { name: "itemOpacity"; value: 0.4 }
            PathAttribute { name: "itemAngle"; value: 50 }
            PathAttribute { name: "itemZ"; value: 2 }
            PathLine { x: wheel.width / 2; y: wheel.height * 2 / 4 }
            PathAttribute { name: "itemScale"; value: 1.0 }
            PathAttribute { name: "itemOpacity"; value: 1.0 }
            PathAttribute { name: "itemAngle"; value: 0 }
            PathAttribute { name: "itemZ"; value: 5 }
            PathLine { x: wheel.width / 2; y: wheel.height * 3 / 4 }
            PathAttribute { name: "itemScale"; value: 0.8 }
            PathAttribute { name: "itemOpacity"; value: 0.4 }
            PathAttribute { name: "itemAngle"; value: -50 }
            PathAttribute { name: "itemZ"; value: 2 }
            PathLine { x: wheel.width / 2; y: wheel.height }
            PathAttribute { name: "itemScale"; value: 0.6 }
            PathAttribute { name: "itemOpacity"; value: 0.3 }
            PathAttribute { name: "itemAngle"; value: -80 }
            PathAttribute { name: "itemZ"; value: 1 }
        }
        delegate: Item {
            id: entry

            readonly property real angle: PathView.itemAngle === undefined ? 0 : PathView.itemAngle

            width: wheel.width
            height: wheel.height / 3
            scale: PathView.itemScale === undefined ? 1 : PathView.itemScale
            opacity: PathView.itemOpacity === undefined ? 1 : PathView.itemOpacity
            z: PathView.itemZ === undefined ? 1 : PathView.itemZ
            transform: Rotation {
                origin.x: entry.width / 2
                origin.y: entry.height / 2
                axis { x: 1; y: 0; z: 0 }
                angle: entry.angle
            }

            PlainText {
                anchors.centerIn: parent
                text: tumbler.padded(index + tumbler.min)
                font.pixelSize: 34
                color: entry.PathView.isCurrentItem ? Theme.wheelMark : Theme.textOnColor
            }
        }
    }

    // What lies between the two lines is chosen.
    Repeater {
        model: 2

        Rectangle {
            anchors.horizontalCenter: parent.horizontalCenter
            y: wheel.y + wheel.height * (index + 1) / 3
            width: parent.width * 0.8
            height: 1
            color: Theme.textOnColor
        }
    }
}
