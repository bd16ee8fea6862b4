import QtQuick 2.15
import "../../Components"

// A part of a page under a caption.
Item {
    id: box

    property string caption: ""
    default property alias content: body.data

    Text {
        id: head
        width: parent.width
        text: box.caption
        elide: Text.ElideRight
        font.family: Pinfang
        font.pixelSize: 22
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
