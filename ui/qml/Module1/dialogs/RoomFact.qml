import QtQuick 2.15
import "../../Components"

// One fact about a room: its label and its text, which becomes smaller and wraps where it is long.
Item {
    property alias label: caption.text
    property alias text: content.text

    PlainText {
        id: caption
        width: Theme.px(104)
        anchors.verticalCenter: parent.verticalCenter
        elide: Text.ElideNone
        color: Theme.textMuted
    }

    PlainText {
        id: content
        objectName: parent.objectName + "Text"
        anchors.left: caption.right
        anchors.right: parent.right
        anchors.rightMargin: 8
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.Wrap
        leastSize: Theme.leastSize
    }
}
