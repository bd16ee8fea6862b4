import QtQuick 2.15

// A state in words, in the middle of a tile.
Text {
    width: parent.width
    visible: text !== ""
    horizontalAlignment: Text.AlignHCenter
    fontSizeMode: Text.HorizontalFit
    minimumPixelSize: 11
    elide: Text.ElideRight
    textFormat: Text.PlainText
    font.family: Pinfang
}
