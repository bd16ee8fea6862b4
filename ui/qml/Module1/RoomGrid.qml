import QtQuick 2.15
import QtQuick.Controls 2.15

// All rooms in one grid, as many in a row as columns says.
GridView {
    id: grid

    property int columns: 8
    readonly property int roomWidth: width / columns

    signal chosen(string roomId, string roomNo, int status, int openType, bool dirtyFlg, bool roomLock, int cleanFlg)

    clip: true
    cellWidth: roomWidth
    cellHeight: roomWidth * 0.85
    boundsBehavior: Flickable.StopAtBounds
    reuseItems: true
    cacheBuffer: 0
    delegate: RoomTile {
        width: grid.cellWidth
        height: grid.cellHeight
        onChosen: grid.chosen(roomId, roomNo, status, openType, dirtyFlg, roomLock, cleanFlg)
    }
    ScrollBar.vertical: ScrollBar {
        policy: ScrollBar.AsNeeded
    }

    // A room more or less is no reason to jump to the top.
    Connections {
        property real heldY: 0

        target: grid.model
        function onModelAboutToBeReset() {
            heldY = grid.contentY
        }
        function onModelReset() {
            grid.forceLayout()
            grid.contentY = Math.max(0, Math.min(heldY, grid.contentHeight - grid.height))
        }
    }
}
