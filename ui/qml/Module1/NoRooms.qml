import QtQuick 2.15
import "../Components"

// Stands on a board that is known to have no room to show.
EmptyText {
    parent: list
    visible: list.count === 0 && Boolean(list.model) && list.model.isLoaded !== false
    text: "没有房间"
    font.pixelSize: Theme.titleSize
    color: Theme.text
}
