import QtQuick 2.15
import "../Components"

// One of the small texts of a tile; takes no room while it is empty.
PlainText {
    required property var tile

    width: parent.width
    visible: text !== ""
    wrapMode: Text.WrapAnywhere
    maximumLineCount: tile.rowsEach
    font.pixelSize: tile.lineHeight * 0.8
    lineHeightMode: Text.FixedHeight
    lineHeight: tile.lineHeight
    color: tile.textColor
}
