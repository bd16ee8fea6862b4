import QtQuick 2.15
import "../Components"

// One of the small texts of a tile, in as many rows as it needs of those that are left for it; takes none while it is
// empty, and is lost when none is left.
PlainText {
    id: line

    required property var tile
    property string content: ""
    property int room: 1 // rows
    property int most: room

    readonly property bool isLost: content !== "" && room < 1
    readonly property bool isShown: content !== "" && room > 0
    readonly property int rest: isShown ? room - lineCount : room

    width: parent.width
    visible: isShown
    // Numbers are kept whole: a line may end behind a comma.
    text: content.replace(/,/g, ",\u200B")
    wrapMode: Text.Wrap
    maximumLineCount: Math.max(1, Math.min(room, most))
    font.pixelSize: tile.lineSize
    lineHeightMode: Text.FixedHeight
    lineHeight: tile.lineHeight
    color: tile.textColor
}
