import QtQuick 2.15

// The figures of a line under their columns.
Item {
    id: figures

    property var columns: []
    property var values: []

    Repeater {
        model: figures.columns

        PlainText {
            x: Theme.px(modelData.left)
            width: Theme.px(modelData.width)
            height: figures.height
            horizontalAlignment: modelData.isNumber ? Text.AlignRight : Text.AlignLeft
            verticalAlignment: Text.AlignVCenter
            text: figures.values[index]
            leastSize: Theme.leastSize
            font.pixelSize: Theme.px(17)
        }
    }
}
