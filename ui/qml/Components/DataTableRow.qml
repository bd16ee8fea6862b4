import QtQuick 2.15

// A row of a DataTable, or without a line its header.
Item {
    id: row

    property var columns: []
    property var line: null

    readonly property real widthPerShare: {
        let shares = 0
        for (const column of columns)
            shares += column.share
        return width / Math.max(1, shares)
    }

    Row {
        height: parent.height

        Repeater {
            model: row.columns

            PlainText {
                width: modelData.share * row.widthPerShare
                height: parent.height
                leftPadding: 10
                rightPadding: 10
                horizontalAlignment: modelData.isNumber ? Text.AlignRight : Text.AlignLeft
                verticalAlignment: Text.AlignVCenter
                text: row.line ? row.line[modelData.role] : modelData.title
                wrapMode: Text.Wrap
                leastSize: 15
                color: row.line ? Theme.text : Theme.textMuted
            }
        }
    }
}
