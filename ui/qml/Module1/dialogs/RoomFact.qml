import QtQuick 2.15
import "../../Components"

// One fact about a room: its label and its text, which becomes smaller and wraps where it is long.
Item {
    id: fact

    property string label: ""
    property string text: ""
    property color textColor: Theme.text

    Text {
        id: caption
        width: 100
        anchors.verticalCenter: parent.verticalCenter
        text: fact.label
        font.family: Pinfang
        font.pixelSize: Theme.textSize
        color: Theme.textMuted
    }

    Text {
        objectName: fact.objectName + "Text"
        anchors.left: caption.right
        anchors.right: parent.right
        anchors.rightMargin: 8
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        text: fact.text
        textFormat: Text.PlainText
        wrapMode: Text.Wrap
        elide: Text.ElideRight
        fontSizeMode: Text.Fit
        minimumPixelSize: 15
        font.family: Pinfang
        font.pixelSize: Theme.textSize
        color: fact.textColor
    }
}
