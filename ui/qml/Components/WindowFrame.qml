import QtQuick 2.15
import QtQuick.Window 2.15
import QmlEventLoop 1.0

// The same contract as a dialog's, in a window of its own that stands above whatever dialog is open.
Window {
    id: frame

    property bool dlgResult: false
    property bool isEnabled: true
    property bool isFinished: false
    property int limitMs: 0 // closes by itself, with no result, when nobody touched it for so long; 0: never
    // Centred on the root window, or on the screen when that one is smaller than the dialog.
    property bool isPlaced: true

    signal endSignal()

    function wait() {
        visible = true
        eventLoop.execLoop()
        // One that ends without a button of its own, with its window or the program, confirms nothing.
        if (!isFinished)
            dlgResult = false
    }

    function keepOpen() {
        if (limit.running)
            limit.restart()
    }

    function finish(result) {
        isFinished = true
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
        root.noteWindow(frame, visible)
        if (!visible) {
            endSignal()
            return
        }
        if (isPlaced)
            place()
        requestActivate()
    }

    Rectangle {
        anchors.fill: parent
        color: "transparent"
        border.color: Theme.line
        z: 1
    }

    CallRing {}

    Timer {
        id: limit
        interval: frame.limitMs
        running: frame.visible && frame.limitMs > 0
        onTriggered: frame.finish(false)
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
