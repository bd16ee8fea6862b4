import QtQuick 2.15
import "../../js/Func.js" as JsFunc

// Whatever is tapped: its colours, its name for those who don't see it, and the tap. clicked() comes at once. What may
// wait for the back end or the user is an action instead, since Qt ends the program when an object goes while a handler
// of its signals runs: it begins once the tap is over, unless the tappable has gone, and not again before it has ended.
Rectangle {
    id: tappable

    property string label: ""
    property color restColor: Theme.surface
    property color pressedColor: Theme.keyPressed
    property color disabledColor: restColor
    property int delay: 15 // ms
    property bool isToggle: false // a finger that bounces doesn't turn it back
    property int reach: 0         // by how much the target is larger than what is seen
    property var action: null
    property var holdAction: null // of a finger that stays; it takes the place of the tap

    readonly property bool isPressed: area.pressed

    signal clicked()

    property double lastTap: 0
    readonly property int bounceMs: 300
    readonly property int holdMs: 600

    function tap() {
        const now = Date.now()
        if (isToggle && Math.abs(now - lastTap) < bounceMs)
            return
        lastTap = now
        clicked()
        if (action)
            JsFunc.singly(delay, () => tappable && tappable.action())
    }

    // The finger is still down, but what it brings up takes its release: the press ends here.
    function hold() {
        area.visible = false // lets go of the finger
        area.visible = true
        JsFunc.singly(delay, () => tappable && tappable.holdAction())
    }

    radius: Theme.radius
    color: !enabled ? disabledColor : isPressed ? pressedColor : restColor
    Accessible.role: Accessible.Button
    Accessible.name: label
    Accessible.onPressAction: tap()

    MouseArea {
        id: area
        anchors.fill: parent
        anchors.margins: -tappable.reach
        pressAndHoldInterval: tappable.holdMs
        onClicked: tappable.tap()
        onPressAndHold: {
            mouse.accepted = Boolean(tappable.holdAction)
            if (mouse.accepted)
                tappable.hold()
        }
    }
}
