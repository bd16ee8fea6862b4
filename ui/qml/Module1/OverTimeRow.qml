import QtQuick 2.15
import "../Components"

// A room that should have been left: its number and by how much.
Item {
    id: row

    property string roomNo: ""
    property string overDesc: ""

    height: 32

    Text {
        anchors.left: parent.left
        anchors.leftMargin: 8
        anchors.right: overrun.left
        anchors.rightMargin: 6
        anchors.verticalCenter: parent.verticalCenter
        text: row.roomNo
        textFormat: Text.PlainText
        elide: Text.ElideRight
        font.family: Pinfang
        font.pixelSize: Theme.textSize
        color: "yellow"
    }

    Text {
        id: overrun
        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.verticalCenter: parent.verticalCenter
        text: row.overDesc
        textFormat: Text.PlainText
        font.family: Pinfang
        font.pixelSize: Theme.textSize
        color: "yellow"
    }
}
