import QtQuick 2.15
import "../../Components"

// Hand cards to look at: number, since when, and what they owe.
ChoiceGrid {
    id: grid

    tileWidth: Theme.px(170)
    cellHeight: Theme.px(84)
    emptyText: "没有在场手牌"
    delegate: Rectangle {
        objectName: "inCard_" + model.cardNo
        width: grid.cellWidth - 8
        height: grid.cellHeight - 8
        radius: Theme.radius
        color: Theme.surface
        border.color: Theme.line

        Column {
            anchors.centerIn: parent
            width: parent.width - 12

            PlainText {
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                text: model.cardNo
                font.pixelSize: Theme.headSize
            }

            PlainText {
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                text: model.createTime
                font.pixelSize: Math.max(Theme.leastSize, Theme.px(14))
                color: Theme.textMuted
            }

            PlainText {
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                visible: model.amount > 0
                text: "¥" + model.amount
                font.pixelSize: Theme.captionSize
                color: Theme.danger
            }
        }
    }
}
