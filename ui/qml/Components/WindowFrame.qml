import QtQuick 2.15
import QtQuick.Window 2.15
import QmlEventLoop 1.0

// The same contract as a dialog's, in a window of its own that stands above whatever dialog is open.
Window {
    id: frame

    property bool dlgResult: false
    property bool isEnabled: true
    // Centred on the root window, or on the screen when that one is smaller than the dialog.
    property bool isPlaced: true

    signal endSignal()

    function wait() {
        visible = true
        eventLoop.execLoop()
    }

    function finish(result) {
        dlgResult = result
        visible = false
    }

    function place() {
        const fits = root.width >= width && root.height >= height
        x = fits ? root.x + (root.width - width) / 2 : (Screen.width - width) / 2
        y = fits ? root.y + (root.height - height) / 2 : (Screen.height - height) / 2
    }

    flags: Qt.FramelessWindowHint | Qt.Dialog
    modality: Qt.ApplicationModal
    transientParent: root
    color: Theme.surfaceMuted
    onVisibleChanged: {
        if (!visible)
            endSignal()
        else if (isPlaced)
            place()
    }

    Rectangle {
        anchors.fill: parent
        color: "transparent"
        border.width: 2
        border.color: Theme.accent
        z: 1
    }

    QmlEventLoop {
        id: eventLoop
    }

    Connections {
        target: frame
        function onEndSignal() {
            eventLoop.finishedSlot()
        }
    }
}
