import QtQuick 2.15
import QtQuick.Window 2.15
import MyMessage 1.0

// The one message window. A newer message takes the place of the text; it lives on the time of the older one, but for
// an error, and for one that comes when the last is on its way out: these have their own.
Window {
    id: message

    property Window owner: null
    property bool show: false
    property string text: ""
    property string type: "info"
    property bool canReprint: false // a slip was lost, and can be printed again as long as this stands

    readonly property string kind: Theme.messages[type] === undefined ? "info" : type
    readonly property var look: Theme.messages[kind]

    function openTimer() {
        if (type === "error" || hideTimer.running || !lifeTimer.running) {
            hideTimer.stop()
            lifeTimer.interval = type === "error" ? 10000 : 3000
            lifeTimer.restart()
        }
        y = 80
    }

    // The user has done with it; the next message gets its whole time.
    function dismiss() {
        lifeTimer.stop()
        hideTimer.stop()
        show = false
    }

    onClosing: dismiss()
    onShowChanged: {
        if (!show)
            canReprint = false
    }
    objectName: "messageWindow"
    flags: Qt.FramelessWindowHint | Qt.WindowStaysOnTopHint | Qt.Tool | Qt.WindowDoesNotAcceptFocus
    // What belongs to the dialog in front takes taps while that dialog blocks all else.
    transientParent: owner
    visible: show
    width: canReprint ? 560 : 440
    height: 50
    x: root.x + (root.width - width) / 2
    y: 50
    color: look.back

    Behavior on y {
        NumberAnimation { duration: 200 }
    }

    Timer {
        id: lifeTimer
        onTriggered: {
            message.y = 50
            hideTimer.start()
        }
    }

    Timer {
        id: hideTimer
        interval: 300
        onTriggered: message.show = false
    }

    Rectangle {
        anchors.fill: parent
        color: message.look.back
        border.color: message.look.text
        border.width: 2

        Image {
            id: icon
            anchors.left: parent.left
            anchors.leftMargin: 18
            anchors.verticalCenter: parent.verticalCenter
            width: 28
            height: 28
            source: "qrc:/images/" + message.kind + "-fill.png"
            smooth: true
        }

        PlainText {
            objectName: "messageText"
            anchors.left: icon.right
            anchors.leftMargin: 14
            anchors.verticalCenter: parent.verticalCenter
            width: 360
            height: parent.height - 4
            verticalAlignment: Text.AlignVCenter
            // A reply that can't be read fails without a text of its own.
            text: message.text === "" && message.type === "error" ? "请求失败" : message.text
            wrapMode: Text.Wrap
            leastSize: Theme.leastSize
            font.pixelSize: 20
        }
    }

    MouseArea {
        anchors.fill: parent
        onClicked: message.dismiss()
    }

    PushButton {
        objectName: "reprintButton"
        anchors.right: parent.right
        anchors.rightMargin: 1
        anchors.verticalCenter: parent.verticalCenter
        width: 110
        height: 48
        radius: 0
        visible: message.canReprint
        text: "重打"
        pixelSize: 22
        action: () => {
            message.dismiss()
            MyMessage.reprint()
        }
    }
}
