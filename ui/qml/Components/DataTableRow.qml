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

            Text {
                width: modelData.share * row.widthPerShare
                height: parent.height
                leftPadding: 10
                rightPadding: 10
                horizontalAlignment: modelData.isNumber ? Text.AlignRight : Text.AlignLeft
                verticalAlignment: Text.AlignVCenter
                text: row.line ? row.line[modelData.role] : modelData.title
                textFormat: Text.PlainText
                wrapMode: Text.Wrap
                elide: Text.ElideRight
                fontSizeMode: Text.Fit
                minimumPixelSize: 15
                font.family: Pinfang
                font.pixelSize: Theme.textSize
                color: row.line ? Theme.text : Theme.textMuted
            }
        }
    }
}
