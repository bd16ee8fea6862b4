import QtQuick 2.15

// A part of a page under a caption.
Item {
    id: box

    property string caption: ""
    default property alias content: body.data

    PlainText {
        id: head
        width: parent.width
        text: box.caption
        font.pixelSize: Theme.headSize
        color: Theme.textMuted
    }

    Item {
        id: body
        width: parent.width
        anchors.top: head.bottom
        anchors.topMargin: 6
        anchors.bottom: parent.bottom
    }
}
