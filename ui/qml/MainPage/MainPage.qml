import QtQuick 2.15
import QtQuick.Layouts 1.15
import GlobalConfig 1.0
import "../Components"

// What the terminal shows once it runs: the header and the tiles of its modules.
Rectangle {
    id: page
    objectName: "mainPage"

    readonly property int tileSide: (width - 200) / 8 < 120 ? 130 : (width - 200) / 8

    gradient: Gradient {
        GradientStop { position: 0; color: Theme.backgroundFrom }
        GradientStop { position: 1; color: Theme.backgroundTo }
    }

    HeaderBar {
        id: header
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
    }

    GridLayout {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.top: header.bottom
        anchors.topMargin: page.height / 10
        columns: 6
        columnSpacing: 20
        rowSpacing: 20

        Repeater {
            model: GlobalConfig.funcMenu

            FuncTile {
                objectName: "tile_" + model.funcVal
                side: page.tileSide
                title: model.name
                glyph: model.icon
                fromColor: model.fromColor
                toColor: model.toColor
                glyphColor: model.iconColor
            }
        }
    }
}
