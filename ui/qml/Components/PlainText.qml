import QtQuick 2.15

// A text as it is, never read as markup. Where there is a least size it shrinks down to that in order to fit.
Text {
    property int leastSize: 0

    textFormat: Text.PlainText
    elide: Text.ElideRight
    fontSizeMode: leastSize > 0 ? Text.Fit : Text.FixedSize
    minimumPixelSize: Math.max(1, leastSize)
    font.family: Pinfang
    font.pixelSize: Theme.textSize
    color: Theme.text
}
