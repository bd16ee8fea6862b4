import QtQuick 2.15
import "../../Components"

// One room out of many: at the left the button that narrows the list by a number, and below it what else the page has
// to set; at the right the rooms, of which the model marks one.
Item {
    id: chooser

    property alias model: rooms.model
    default property alias extras: side.data

    signal searched(string roomNo)
    signal chosen(int index)

    Column {
        id: side
        width: 220
        height: parent.height
        spacing: Theme.spacing

        AskButton {
            objectName: "searchButton"
            text: "请输入房间号"
            onEntered: chooser.searched(number)
        }
    }

    PickGrid {
        id: rooms
        objectName: "roomGrid"
        anchors.left: side.right
        anchors.leftMargin: Theme.spacing
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        textRole: "tempName"
        namePrefix: "room_"
        emptyText: "没有可选的房间"
        onChosen: chooser.chosen(index)
    }
}
