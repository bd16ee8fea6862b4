import QtQuick 2.15
import QtQuick.Window 2.15

// The one message window. A newer message takes the place of the text and restarts nothing that runs.
Window {
    id: message

    property Window owner: null
    property bool show: false
    property string text: ""
    property string type: "info"

    readonly property string kind: Theme.messages[type] === undefined ? "info" : type
    readonly property var look: Theme.messages[kind]

    function openTimer() {
        if (!lifeTimer.running) {
            lifeTimer.interval = type === "error" ? 10000 : 3000
            lifeTimer.start()
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
    objectName: "messageWindow"
    flags: Qt.FramelessWindowHint | Qt.WindowStaysOnTopHint | Qt.Tool | Qt.WindowDoesNotAcceptFocus
    visible: show
    width: 440
    height: 50
    x: owner ? owner.x + (owner.width - width) / 2 : 0
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
        border.color: message.look.border

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
            leastSize: 12
            color: message.look.text
        }
    }

    MouseArea {
        anchors.fill: parent
        onClicked: message.dismiss()
    }
}
