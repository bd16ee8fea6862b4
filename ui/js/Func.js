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

// Whether singly() runs something. Every page and button that imports this file has a copy of its own.
let isUnderWay = false

// The same for what must not begin twice: a touch screen may deliver one tap twice, and what comes between the first
// and the end of what it started is dropped.
function singly(msec, functor) {
    if (isUnderWay)
        return
    isUnderWay = true
    timerOnce(msec, () => {
        try {
            functor()
        } finally {
            isUnderWay = false
        }
    })
}

function delay15(functor) {
    return timerOnce(15, functor)
}
