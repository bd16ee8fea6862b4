import QtQuick 2.15
import QtQuick.Controls 2.15

// A part of the cart: its name and sum, the columns' names, its lines.
Rectangle {
    id: part

    property string title: ""
    property double sum: 0
    property var columns: [] // {title, left, width}
    property string emptyText: ""
    property alias model: lines.model
    property alias delegate: lines.delegate
    property alias list: lines
    default property alias extra: head.data

    radius: Theme.radius
    color: Theme.surface
    border.color: Theme.line

    Rectangle {
        id: head
        width: parent.width
        height: Theme.px(48)
        radius: Theme.radius
        color: Theme.surfaceMuted

        PlainText {
            id: name
            x: Theme.px(12)
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            text: part.title
            font.pixelSize: Theme.headSize
        }

        PlainText {
            objectName: "sum"
            anchors.left: name.right
            anchors.leftMargin: Theme.spacing
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            text: "¥" + part.sum.toFixed(2)
            font.pixelSize: Theme.titleSize
            color: Theme.dangerPressed
        }
    }

    Item {
        id: captions
        width: parent.width
        anchors.top: head.bottom
        height: Theme.px(26)

        Repeater {
            model: part.columns

            PlainText {
                x: Theme.px(modelData.left)
                width: Theme.px(modelData.width)
                height: captions.height
                horizontalAlignment: modelData.isNumber ? Text.AlignRight : Text.AlignLeft
                verticalAlignment: Text.AlignVCenter
                text: modelData.title
                font.pixelSize: Theme.captionSize
                color: Theme.textMuted
            }
        }

        Rectangle {
            width: parent.width
            height: 1
            anchors.bottom: parent.bottom
            color: Theme.line
        }
    }

    ListView {
        id: lines

        property int openRow: -1 // whose menu is open

        width: parent.width - 2
        x: 1
        anchors.top: captions.bottom
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 4
        clip: true
        reuseItems: true
        boundsBehavior: Flickable.StopAtBounds
        onCountChanged: openRow = -1
        onMovementStarted: openRow = -1
        ScrollBar.vertical: ListScrollBar {
            width: 6
        }

        EmptyText {
            list: lines
            text: part.emptyText
        }
    }
}
