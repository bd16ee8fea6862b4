import QtQuick 2.15

// A card on a counter's list: its number, what it got, and when.
Item {
    id: line

    property string text: ""
    property string note: ""
    property string time: ""

    implicitHeight: Theme.px(56)

    PlainText {
        id: number
        anchors.left: parent.left
        anchors.leftMargin: Theme.spacing
        anchors.verticalCenter: parent.verticalCenter
        width: Theme.px(110)
        text: line.text
        font.pixelSize: Theme.headSize
    }

    PlainText {
        anchors.left: number.right
        anchors.leftMargin: Theme.gap
        anchors.right: when.left
        anchors.rightMargin: Theme.gap
        anchors.verticalCenter: parent.verticalCenter
        text: line.note
        leastSize: Theme.leastSize
        color: Theme.textMuted
    }

    PlainText {
        id: when
        anchors.right: parent.right
        anchors.rightMargin: Theme.spacing
        anchors.verticalCenter: parent.verticalCenter
        text: line.time
        font.pixelSize: Theme.captionSize
        color: Theme.textMuted
    }

    Rectangle {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        height: 1
        color: Theme.line
    }
}
