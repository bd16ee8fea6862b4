import QtQuick 2.15
import "../Components"

// A row of a panel beside the board.
Tappable {
    property color textColor: Theme.textOn(color)

    // Narrow panels have smaller letters.
    readonly property int pixelSize: width < 200 ? Theme.captionSize : Theme.textSize

    height: Math.max(Theme.touchSize, Theme.px(48))
    radius: 6
    restColor: Theme.panelRow
    pressedColor: Theme.panelRowPressed
}
