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

    // The group at the top and how far it is scrolled out, while the model is replaced.
    property string heldType: ""
    property int heldIndex: -1
    property real heldOffset: 0

    signal chosen(string roomId)

    // For a list that the user has asked for.
    function showTop() {
        heldIndex = -1
        positionViewAtBeginning()
    }

    function keepPlace() {
        if (heldIndex < 0 || count === 0)
            return
        const now = model.indexOf(heldType)
        positionViewAtIndex(now >= 0 ? now : Math.min(heldIndex, count - 1), ListView.Beginning)
        contentY += now >= 0 ? heldOffset : 0
        returnToBounds()
    }

    clip: true
    boundsBehavior: Flickable.StopAtBounds
    delegate: Item {
        id: group

        readonly property string typeName: model.typeName

        width: groups.width
        height: Math.max(rooms.height, groups.roomHeight)

        Rectangle {
            id: band

            readonly property var characters: Array.from(group.typeName)
            readonly property int most: (height - 4) / (Theme.leastSize * 1.15)
            readonly property var shown: characters.length <= most ? characters : characters.slice(0, most - 1).concat("…")

            objectName: "group_" + group.typeName
            anchors.left: parent.left
            anchors.leftMargin: 3
            anchors.top: parent.top
            anchors.bottom: parent.bottom
            anchors.topMargin: 3
            anchors.bottomMargin: 3
            width: groups.bandWidth - 6
            radius: 6
            color: Theme.group

            // One character below the other.
            PlainText {
                anchors.centerIn: parent
                horizontalAlignment: Text.AlignHCenter
                text: band.shown.join("\n")
                lineHeightMode: Text.FixedHeight
                lineHeight: font.pixelSize * 1.15
                font.pixelSize: Math.max(Theme.leastSize, Math.min(Theme.textSize, (band.height - 4) / Math.max(1, band.shown.length) / 1.15))
                color: Theme.textOn(Theme.group)
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

    Connections {
        target: groups.model || null
        ignoreUnknownSignals: true
        function onModelAboutToBeReset() {
            const first = groups.itemAt(0, groups.contentY)
            groups.heldIndex = groups.indexAt(0, groups.contentY)
            groups.heldType = first ? first.typeName : ""
            groups.heldOffset = first ? groups.contentY - first.y : 0
        }
        // The view learns of the reset behind this.
        function onModelReset() {
            Qt.callLater(groups.keepPlace)
        }
    }

    NoRooms {
        list: groups
    }
}
