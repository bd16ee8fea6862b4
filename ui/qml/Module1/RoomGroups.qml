import QtQuick 2.15
import QtQuick.Controls 2.15
import "../Components"

// The rooms by type: a row for each type, its name in a narrow band on the left.
ListView {
    id: groups

    property int columns: 8
    readonly property int bandWidth: 40
    readonly property int roomWidth: (width - bandWidth) / columns
    readonly property int roomHeight: roomWidth * 0.85

    signal chosen(string roomId)

    clip: true
    spacing: 6
    boundsBehavior: Flickable.StopAtBounds
    delegate: Item {
        id: group

        width: groups.width
        height: Math.max(rooms.height, groups.roomHeight)

        Rectangle {
            id: band
            objectName: "group_" + model.typeName
            anchors.left: parent.left
            anchors.leftMargin: 3
            anchors.top: parent.top
            anchors.bottom: parent.bottom
            anchors.margins: 3
            width: groups.bandWidth - 6
            radius: 6
            color: Theme.group

            // One character below the other.
            PlainText {
                anchors.centerIn: parent
                horizontalAlignment: Text.AlignHCenter
                text: model.typeName.split("").join("\n")
                lineHeight: 0.95
                font.pixelSize: Math.max(11, Math.min(20, band.height / Math.max(1, model.typeName.length) / 1.25))
                color: Theme.textOnColor
            }
        }

        Flow {
            id: rooms
            anchors.left: parent.left
            anchors.leftMargin: groups.bandWidth
            anchors.right: parent.right
            anchors.top: parent.top

            Repeater {
                model: roomList

                RoomTile {
                    width: groups.roomWidth
                    height: groups.roomHeight
                    onClicked: groups.chosen(roomId)
                }
            }
        }
    }
    ScrollBar.vertical: ScrollBar {
        policy: ScrollBar.AsNeeded
    }
}
