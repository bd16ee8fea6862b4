import QtQuick 2.15
import GlobalConfig 1.0
import "../Components"
import "../../js/Func.js" as JsFunc

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

    signal chosen()

    width: side
    height: side
    radius: Theme.radius
    scale: area.pressed ? 0.96 : 1
    gradient: Gradient {
        GradientStop { position: 0; color: tile.fromColor }
        GradientStop { position: 1; color: tile.toColor }
    }
    Accessible.role: Accessible.Button
    Accessible.name: title
    Accessible.onPressAction: chosen()

    Column {
        anchors.centerIn: parent
        spacing: tile.side / 12

        IconText {
            id: icon
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

        Text {
            anchors.horizontalCenter: parent.horizontalCenter
            width: tile.side - 12
            horizontalAlignment: Text.AlignHCenter
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: 14
            text: tile.title
            textFormat: Text.PlainText
            elide: Text.ElideRight
            font.family: Pinfang
            font.pixelSize: [20, 24, 28, 34][tile.step]
            color: Theme.textOnColor
        }
    }

    MouseArea {
        id: area
        anchors.fill: parent
        onClicked: {
            if (!turn.running)
                turn.start()
            JsFunc.timerOnce(GlobalConfig.dlgDeplyTime, () => tile.chosen())
        }
    }
}
