import QtQuick 2.15
import "../Components"

// One side of the call queue: a head with a title and how many there are, and below it the list.
Rectangle {
    id: pane

    property string title: ""
    property int count: 0
    property alias corner: corner.data // in the head, to the right
    default property alias content: body.data

    radius: Theme.radius
    color: Theme.surfaceMuted

    PlainText {
        id: head
        objectName: "paneTitle"
        x: Theme.spacing
        height: Theme.px(48)
        verticalAlignment: Text.AlignVCenter
        text: pane.title + " " + pane.count
        font.pixelSize: Theme.titleSize
    }

    Item {
        id: corner
        anchors.left: head.right
        anchors.leftMargin: Theme.spacing
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap
        height: head.height
    }

    Item {
        id: body
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: head.bottom
        anchors.bottom: parent.bottom
        anchors.margins: Theme.px(4)
    }
}
