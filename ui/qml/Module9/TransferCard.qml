import QtQuick 2.15
import "../Components"

// A hand card whose consumption is to move, with its lines.
Rectangle {
    id: card

    property string cardNo: ""
    property double num: 0
    property double amount: 0
    property var orders: null

    implicitHeight: body.height
    radius: Theme.radius
    color: Theme.surfaceMuted

    Column {
        id: body
        width: parent.width

        Row {
            leftPadding: Theme.spacing
            height: Theme.px(52)

            Repeater {
                model: ["手牌号: " + card.cardNo, "数量: " + card.num, "总金额: ¥" + card.amount.toFixed(2)]

                PlainText {
                    objectName: "cardFact_" + index
                    width: (card.width - 2 * Theme.spacing) / 3
                    height: parent.height
                    verticalAlignment: Text.AlignVCenter
                    text: modelData
                    leastSize: Theme.leastSize
                    font.pixelSize: Theme.headSize
                }
            }
        }

        Repeater {
            model: card.orders

            Rectangle {
                width: card.width
                height: Theme.px(44)
                color: Theme.surface
                border.color: Theme.line

                Row {
                    x: Theme.spacing
                    height: parent.height

                    Repeater {
                        model: [{text: itemName, share: 0.46}, {text: "×" + num, share: 0.14},
                            {text: "¥" + price.toFixed(2), share: 0.2}, {text: "¥" + amount.toFixed(2), share: 0.2}]

                        PlainText {
                            width: (card.width - 2 * Theme.spacing) * modelData.share
                            height: parent.height
                            verticalAlignment: Text.AlignVCenter
                            horizontalAlignment: index === 0 ? Text.AlignLeft : Text.AlignRight
                            text: modelData.text
                            leastSize: Theme.leastSize
                        }
                    }
                }
            }
        }
    }
}
