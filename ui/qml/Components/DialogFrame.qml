import QtQuick 2.15
import QtQuick.Controls 2.15
import QmlEventLoop 1.0

// A dialog that is a function call: a page on this frame has an exec() that calls wait() and returns its result.
// dlgResult is true only when the user confirmed.
Dialog {
    id: frame

    property bool dlgResult: false
    // Whether the dialog's controls take part; a page sets it false while it works.
    property bool isEnabled: true
    property bool isFinished: false
    property int limitMs: 0 // closes by itself, with no result, when nobody touched it for so long; 0: never

    signal endSignal()

    // Shows the dialog and returns when it has closed.
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

    anchors.centerIn: Overlay.overlay
    modal: true
    focus: true
    closePolicy: Popup.NoAutoClose
    padding: 0
    enter: null
    exit: null
    font.family: Pinfang
    background: Rectangle {
        color: Theme.surfaceMuted
        radius: Theme.radius
    }
    Overlay.modal: Rectangle {
        color: Theme.shade
    }
    onVisibleChanged: {
        if (!visible)
            endSignal()
    }

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
