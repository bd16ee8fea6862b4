import QtQuick 2.15

// A time in the bottom row of a tile, in one half of it.
Text {
    width: parent.width / 2
    height: parent.height
    leftPadding: 4
    rightPadding: 4
    horizontalAlignment: Text.AlignHCenter
    verticalAlignment: Text.AlignVCenter
    fontSizeMode: Text.HorizontalFit
    minimumPixelSize: 11
    textFormat: Text.PlainText
    font.family: Pinfang
    font.pixelSize: height * 0.8
}
