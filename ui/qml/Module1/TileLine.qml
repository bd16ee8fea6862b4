import QtQuick 2.15

// One of the small texts of a tile; takes no room while it is empty.
Text {
    required property var tile

    width: parent.width
    visible: text !== ""
    textFormat: Text.PlainText
    wrapMode: Text.WrapAnywhere
    maximumLineCount: tile.rowsEach
    elide: Text.ElideRight
    font.family: Pinfang
    font.pixelSize: tile.lineHeight * 0.8
    lineHeightMode: Text.FixedHeight
    lineHeight: tile.lineHeight
    color: tile.textColor
}
