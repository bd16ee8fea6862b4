import QtQuick 2.15
import "../../Components"

// A line of a report: a name and its figures.
Rectangle {
    id: line

    property string name: ""
    property var figures: []
    property color ground: Theme.surface
    property bool isStrong: false

    readonly property int figureWidth: Theme.px(190)

    color: ground

    PlainText {
        anchors.left: parent.left
        anchors.leftMargin: Theme.spacing
        anchors.right: row.left
        height: parent.height
        verticalAlignment: Text.AlignVCenter
        text: line.name
        font.bold: line.isStrong
    }

    Row {
        id: row
        anchors.right: parent.right
        anchors.rightMargin: Theme.spacing
        height: parent.height

        Repeater {
            model: line.figures

            PlainText {
                width: line.figureWidth
                height: row.height
                horizontalAlignment: Text.AlignRight
                verticalAlignment: Text.AlignVCenter
                text: modelData
                font.bold: line.isStrong
            }
        }
    }

    Rectangle {
        width: parent.width
        height: 1
        anchors.bottom: parent.bottom
        color: Theme.line
    }
}
