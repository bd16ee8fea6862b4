import QtQuick 2.15
import "../Components"

// The tile of one module; side is its width and height.
Tappable {
    id: tile

    property int side: 130
    property string glyph: ""
    property color fromColor: Theme.surface
    property color toColor: Theme.surface
    property string glyphColor: ""

    readonly property int step: side >= 300 ? 3 : side >= 200 ? 2 : side > 130 ? 1 : 0

    width: side
    height: side
    scale: isPressed ? 0.96 : 1
    gradient: Gradient {
        GradientStop { position: 0; color: tile.fromColor }
        GradientStop { position: 1; color: tile.toColor }
    }
    onClicked: {
        if (!turn.running)
            turn.start()
    }

    Column {
        anchors.centerIn: parent
        spacing: tile.side / 12

        IconText {
            anchors.horizontalCenter: parent.horizontalCenter
            iconText: tile.glyph
            iconColor: tile.glyphColor
            pixelSize: tile.side * 0.36

            RotationAnimation on rotation {
                id: turn
                running: false
                from: 0
                to: 360
                duration: 100
            }
        }

        PlainText {
            anchors.horizontalCenter: parent.horizontalCenter
            width: tile.side - 12
            horizontalAlignment: Text.AlignHCenter
            fontSizeMode: Text.HorizontalFit
            leastSize: Theme.leastSize
            text: tile.label
            font.pixelSize: [20, 24, 28, 34][tile.step]
            font.bold: true
            color: Theme.textOnColor
        }
    }
}
