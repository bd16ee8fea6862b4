import QtQuick 2.15
import "../Components"

// The rooms that should have been left: their numbers and by how much. A tap opens the room.
SidePanel {
    id: panel

    signal chosen(string roomNo)

    objectName: "overTimePanel"
    delegate: PanelRow {
        id: row

        readonly property string roomNo: model.roomNo

        objectName: "over_" + roomNo
        width: ListView.view.width
        label: roomNo + " " + overrun.text
        textColor: Theme.alert
        onClicked: panel.chosen(roomNo)

        PlainText {
            anchors.left: parent.left
            anchors.leftMargin: 8
            anchors.right: overrun.left
            anchors.rightMargin: 6
            anchors.verticalCenter: parent.verticalCenter
            leastSize: Theme.leastSize
            text: row.roomNo
            font.pixelSize: row.pixelSize
            color: row.textColor
        }

        PlainText {
            id: overrun
            anchors.right: parent.right
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            text: model.overDesc
            font.pixelSize: row.pixelSize
            color: row.textColor
        }
    }
}
