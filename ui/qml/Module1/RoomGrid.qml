import QtQuick 2.15
import QtQuick.Controls 2.15
import "../Components"

// All rooms in one grid, as many in a row as columns says.
GridView {
    id: grid

    property int columns: 8
    readonly property int roomWidth: width / columns

    signal chosen(string roomId)

    // For a list that the user has asked for.
    function showTop() {
        keeper.showTop()
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

    PlaceKeeper {
        id: keeper
        view: grid
    }

    NoRooms {
        list: grid
    }
}
