import QtQuick 2.15
import QtQuick.Controls 2.15
import "../../js/Func.js" as JsFunc

// Tiles of even width that fill their place and scroll; tells when there is nothing to choose from.
GridView {
    id: grid

    property int tileWidth: Theme.px(180) // at least
    property string emptyText: ""

    readonly property int usableWidth: Math.max(1, width - bar.width)

    // What a tap on a tile starts. One at a time for the whole grid: the next tile may come under the finger.
    function run(action, ...values) {
        if (action)
            JsFunc.singly(15, () => grid && action(...values))
    }

    clip: true
    boundsBehavior: Flickable.StopAtBounds
    cellWidth: Math.floor(usableWidth / Math.max(1, Math.floor(usableWidth / tileWidth)))
    cellHeight: Theme.keyHeight + Theme.gap
    ScrollBar.vertical: ListScrollBar {
        id: bar
    }

    EmptyText {
        list: grid
        text: grid.emptyText
    }
}
