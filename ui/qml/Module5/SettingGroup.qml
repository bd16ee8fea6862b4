import QtQuick 2.15
import "../Components"

// Settings under a heading, on as many columns of the page's grid as they need.
Column {
    id: group

    property string caption: ""
    property int columns: 1
    property Item form: null // the page, which knows the grid
    default property alias tiles: flow.data

    width: form.spanned(columns)
    spacing: Theme.px(4)

    PlainText {
        width: parent.width
        text: group.caption
        font.pixelSize: Theme.textSize
        font.bold: true
    }

    Flow {
        id: flow
        width: parent.width
        spacing: Theme.gap
    }
}
