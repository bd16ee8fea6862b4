import QtQuick 2.15

// One room out of many: at the left the button that narrows the list by a number, and below it what else the page has
// to set; at the right the rooms, of which the model marks one.
Item {
    id: chooser

    property alias model: rooms.model
    property alias search: ask.take
    property alias work: ask.work
    property alias choose: rooms.choose
    default property alias extras: side.data

    Column {
        id: side
        width: 220
        height: parent.height
        spacing: Theme.spacing

        AskButton {
            id: ask
            objectName: "searchButton"
            text: "请输入房间号"
        }
    }

    PickGrid {
        id: rooms
        objectName: "roomGrid"
        anchors.left: side.right
        anchors.leftMargin: Theme.spacing
        anchors.right: parent.right
        height: parent.height
        textRole: "tempName"
        namePrefix: "room_"
        emptyText: "没有可选的房间"
    }
}
