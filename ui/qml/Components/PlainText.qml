import QtQuick 2.15

// A text as it is, never read as markup. Where there is a least size it shrinks down to that in order to fit; what fits
// for sure, no character being wider than the font is high, isn't measured for it.
Text {
    property int leastSize: 0

    textFormat: Text.PlainText
    elide: Text.ElideRight
    fontSizeMode: leastSize > 0 && text.length * font.pixelSize > width ? Text.Fit : Text.FixedSize
    minimumPixelSize: Math.max(1, leastSize)
    font.family: Pinfang
    font.pixelSize: Theme.textSize
    color: Theme.text
}
