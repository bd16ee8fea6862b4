import QtQuick 2.15
import QtQuick.Controls 2.15

// All rooms in one grid, as many in a row as columns says.
GridView {
    id: grid

    property int columns: 8
    readonly property int roomWidth: width / columns
    property real heldY: 0

    signal chosen(string roomId)

    // A room more or less is no reason to jump to the top.
    function keepPlace() {
        forceLayout()
        contentY = Math.max(0, Math.min(heldY, contentHeight - height))
    }

    clip: true
    cellWidth: roomWidth
    cellHeight: roomWidth * 0.85
    boundsBehavior: Flickable.StopAtBounds
    reuseItems: true
    cacheBuffer: 0
    delegate: RoomTile {
        width: grid.cellWidth
        height: grid.cellHeight
        onClicked: grid.chosen(roomId)
    }
    ScrollBar.vertical: ScrollBar {
        policy: ScrollBar.AsNeeded
    }

    Connections {
        target: grid.model || null
        ignoreUnknownSignals: true
        function onModelAboutToBeReset() {
            grid.heldY = grid.contentY
        }
        // The view learns of the reset behind this.
        function onModelReset() {
            Qt.callLater(grid.keepPlace)
        }
    }
}
