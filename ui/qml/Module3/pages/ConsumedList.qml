import QtQuick 2.15
import QtQuick.Controls 2.15
import "../../Components"

// What is on the guest's hand card so far.
Rectangle {
    id: consumed

    property alias model: list.model
    property string cardNo: ""

    radius: Theme.radius
    color: Theme.surface
    border.color: Theme.line

    PlainText {
        id: head
        x: Theme.px(14)
        y: Theme.px(6)
        width: parent.width - 2 * x
        text: "手牌已有消费"
        font.pixelSize: Theme.captionSize
        color: Theme.textMuted
    }

    ListView {
        id: list
        objectName: "consumedLines"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: head.x
        anchors.rightMargin: 4
        anchors.top: head.bottom
        anchors.topMargin: 2
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 6
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        ScrollBar.vertical: ListScrollBar {
            width: 6
        }
        delegate: Item {
            objectName: "consumed_" + index
            width: list.width - 10
            height: Theme.px(26)

            PlainText {
                width: parent.width * 0.6
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                text: (model.status === 2 ? "[赠送] " : "") + model.itemName
                font.pixelSize: Theme.px(17)
            }

            PlainText {
                anchors.right: amount.left
                height: parent.height
                verticalAlignment: Text.AlignVCenter
                text: "×" + model.num
                font.pixelSize: Theme.px(17)
                color: Theme.textMuted
            }

            PlainText {
                id: amount
                anchors.right: parent.right
                width: parent.width * 0.26
                height: parent.height
                horizontalAlignment: Text.AlignRight
                verticalAlignment: Text.AlignVCenter
                text: "¥" + model.amount.toFixed(2)
                leastSize: Theme.leastSize
                font.pixelSize: Theme.px(17)
            }
        }
    }

    PlainText {
        anchors.centerIn: parent
        visible: list.count === 0
        text: !consumed.model.isLoaded ? "读取手牌后显示" : "还没有消费"
        color: Theme.textMuted
    }
}
