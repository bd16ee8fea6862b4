import QtQuick 2.15
import "../Components"

// The rooms that should have been left: their numbers and by how much.
SidePanel {
    objectName: "overTimePanel"
    delegate: Item {
        width: ListView.view.width
        height: 32

        PlainText {
            anchors.left: parent.left
            anchors.leftMargin: 8
            anchors.right: overrun.left
            anchors.rightMargin: 6
            anchors.verticalCenter: parent.verticalCenter
            text: model.roomNo
            color: Theme.alert
        }

        PlainText {
            id: overrun
            anchors.right: parent.right
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            text: model.overDesc
            color: Theme.alert
        }
    }
}
