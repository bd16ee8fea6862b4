import QtQuick 2.15
import QtQuick.Controls 2.15

// A table to read. A column is {title, role, share, isNumber}: its share of the width, and whether it is set to the
// right. The model's role backColor colours a row.
Item {
    id: table

    property alias model: lines.model
    property var columns: []
    property string emptyText: ""

    Rectangle {
        id: head
        width: parent.width
        height: 44
        radius: Theme.radius
        color: Theme.keyPressed

        DataTableRow {
            objectName: "tableHead"
            width: lines.rowWidth
            height: parent.height
            columns: table.columns
        }
    }

    ListView {
        id: lines

        readonly property int rowWidth: width - bar.width

        objectName: "tableLines"
        width: parent.width
        anchors.top: head.bottom
        anchors.topMargin: 4
        anchors.bottom: parent.bottom
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        ScrollBar.vertical: ListScrollBar {
            id: bar
        }
        delegate: Rectangle {
            objectName: "line_" + index
            width: lines.rowWidth
            height: 46
            color: model.backColor

            DataTableRow {
                objectName: "row_" + index
                anchors.fill: parent
                columns: table.columns
                line: model
            }

            Rectangle {
                width: parent.width
                height: 1
                anchors.bottom: parent.bottom
                color: Theme.line
            }
        }

        EmptyText {
            list: lines
            text: table.emptyText
        }
    }
}
