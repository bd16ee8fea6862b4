import QtQuick 2.15
import "../../Components"

// What is known of an item that a technician serves: its name above, minutes and price below.
Item {
    id: text

    property string name: ""
    property string times: ""
    property string price: ""
    property color color: Theme.text
    property color priceColor: Theme.danger

    PlainText {
        width: parent.width
        height: parent.height - line.height
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        wrapMode: Text.Wrap
        maximumLineCount: 3
        lineHeight: 0.9
        text: text.name
        leastSize: Theme.leastSize
        font.pixelSize: Theme.px(17)
        color: text.color
    }

    Item {
        id: line
        width: parent.width
        height: Theme.px(22)
        anchors.bottom: parent.bottom

        PlainText {
            id: minutes
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            text: text.times
            font.pixelSize: Theme.px(15)
            color: text.color
        }

        PlainText {
            anchors.left: minutes.right
            anchors.leftMargin: 2
            anchors.right: parent.right
            height: parent.height
            horizontalAlignment: Text.AlignRight
            verticalAlignment: Text.AlignVCenter
            text: text.price
            leastSize: Theme.leastSize
            font.pixelSize: Theme.px(16)
            color: text.priceColor
        }
    }
}
