import QtQuick 2.15
import QtQuick.Layouts 1.15
import GlobalConfig 1.0

// First page of the stack: the tiles of the terminal's modules.
Item {
    id: page

    readonly property int side: (width - 200) / 8 < 120 ? 130 : (width - 200) / 8

    signal chosen(string code)
    signal linesAsked()

    objectName: "tileGrid"

    GridLayout {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.top: parent.top
        anchors.topMargin: page.height / 10
        columns: 6
        columnSpacing: 20
        rowSpacing: 20

        Repeater {
            model: GlobalConfig.funcMenu

            FuncTile {
                objectName: "tile_" + model.funcVal
                side: page.side
                label: model.name
                glyph: model.icon
                fromColor: model.fromColor
                toColor: model.toColor
                glyphColor: model.iconColor
                onClicked: page.chosen(model.funcVal)
            }
        }
    }

    BottomRow {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        onChosen: page.chosen(code)
        onLinesAsked: page.linesAsked()
    }
}
