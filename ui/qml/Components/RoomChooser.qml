import QtQuick 2.15

// One room out of many: at the left the button that narrows the list by a number, what takes that back, and below it
// what else the page has to set; at the right the rooms, of which the model marks one.
Item {
    id: chooser

    property alias model: rooms.model
    property alias work: ask.work
    property alias choose: rooms.choose
    property var search: null
    default property alias extras: side.data

    Column {
        id: side
        width: Theme.px(220)
        height: parent.height
        spacing: Theme.spacing

        SearchAsk {
            id: ask
            width: parent.width
            search: roomNo => chooser.search(roomNo)
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
