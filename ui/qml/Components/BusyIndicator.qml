import QtQuick 2.15

// Six dots on a ring, one turn in 1250 ms.
Item {
    id: ring

    readonly property int dots: 6
    readonly property int dotSize: 12

    implicitWidth: 64
    implicitHeight: 64

    RotationAnimator on rotation {
        running: ring.visible
        from: 0
        to: 360
        duration: 1250
        loops: Animation.Infinite
    }

    Repeater {
        model: ring.dots

        Rectangle {
            readonly property real angle: 2 * Math.PI * index / ring.dots
            readonly property real orbit: (ring.width - ring.dotSize) / 2

            width: ring.dotSize
            height: ring.dotSize
            radius: ring.dotSize / 2
            x: orbit + orbit * Math.cos(angle)
            y: orbit + orbit * Math.sin(angle)
            color: Theme.busy
        }
    }
}
