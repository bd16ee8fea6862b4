import QtQuick 2.15
import CallWatch 1.0

// Shows that a back-end call is waited for, once that takes long enough to be noticed. It takes no input.
BusyIndicator {
    id: ring

    anchors.centerIn: parent
    objectName: "callRing"
    visible: false
    z: 1000

    Connections {
        target: CallWatch
        function onIsWaitingChanged() {
            if (!CallWatch.isWaiting)
                ring.visible = false
        }
    }

    Timer {
        interval: 400
        running: CallWatch.isWaiting
        onTriggered: ring.visible = true
    }
}
