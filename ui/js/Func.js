// Actions that have to wait until the tap that asked for them is over.

// Runs the functor once, msec milliseconds from now; returns the timer.
function timerOnce(msec, functor) {
    const timer = Qt.createQmlObject("import QtQuick 2.0; Timer {running: true;}", root, "MyTimer")
    timer.interval = msec
    timer.triggered.connect(function () {
        try {
            functor()
        } finally {
            timer.destroy()
        }
    })
    return timer
}

function delay15(functor) {
    return timerOnce(15, functor)
}
