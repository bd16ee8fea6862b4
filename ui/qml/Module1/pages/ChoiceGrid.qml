import QtQuick 2.15
import QtQuick.Controls 2.15
import "../../Components"

// Tiles of even width that fill their place and scroll; tells when there is nothing to choose from.
GridView {
    id: grid

    property int tileWidth: 180 // at least
    property string emptyText: ""

    readonly property int usableWidth: Math.max(1, width - bar.width)

    clip: true
    boundsBehavior: Flickable.StopAtBounds
    cellWidth: Math.floor(usableWidth / Math.max(1, Math.floor(usableWidth / tileWidth)))
    cellHeight: 66
    ScrollBar.vertical: ListScrollBar {
        id: bar
    }

    Text {
        anchors.centerIn: parent
        width: Math.min(parent.width, implicitWidth)
        visible: grid.count === 0
        text: grid.emptyText
        wrapMode: Text.Wrap
        horizontalAlignment: Text.AlignHCenter
        font.family: Pinfang
        font.pixelSize: Theme.textSize
        color: Theme.textMuted
    }
}
