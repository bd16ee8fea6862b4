import QtQuick 2.15
import "../Components"

// The tile of one module; side is its width and height.
Rectangle {
    id: tile

    property int side: 130
    property string title: ""
    property string glyph: ""
    property color fromColor: "white"
    property color toColor: "white"
    property string glyphColor: "white"

    readonly property int step: side >= 300 ? 3 : side >= 200 ? 2 : side > 130 ? 1 : 0

    width: side
    height: side
    radius: Theme.radius
    gradient: Gradient {
        GradientStop { position: 0; color: tile.fromColor }
        GradientStop { position: 1; color: tile.toColor }
    }

    Column {
        anchors.centerIn: parent
        spacing: tile.side / 12

        IconText {
            anchors.horizontalCenter: parent.horizontalCenter
            iconText: tile.glyph
            iconColor: tile.glyphColor
            pixelSize: tile.side * 0.36
        }

        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            text: tile.title
            textFormat: Text.PlainText
            font.family: Pinfang
            font.pixelSize: [20, 24, 28, 34][tile.step]
            color: Theme.textOnColor
        }
    }
}
