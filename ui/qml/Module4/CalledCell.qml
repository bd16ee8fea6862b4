import QtQuick 2.15
import "../Components"

// A guest who is called or served, to be read from three metres. One who was called just now stands out.
Rectangle {
    id: cell

    property bool isFree: true // no action is under way
    property var choose: null  // choose(action, entry or card)

    readonly property bool isServed: model.status === 3
    readonly property bool isMarked: model.isMarked

    radius: Theme.radius
    color: isMarked ? Theme.touched : Theme.surface
    border.color: isMarked ? Theme.danger : Theme.line
    border.width: isMarked ? Theme.px(4) : 1

    Rectangle {
        id: plate
        x: Theme.px(6)
        y: x
        width: parent.width * 0.41
        height: parent.height - 2 * y
        radius: Theme.px(8)
        color: cell.isMarked ? Theme.danger : cell.isServed ? Theme.panel : Theme.accent

        PlainText {
            objectName: "calledNo_" + index
            anchors.fill: parent
            anchors.margins: 2
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            text: model.cardNo
            leastSize: Theme.px(28)
            font.pixelSize: Theme.px(68)
            font.bold: true
            color: Theme.textOnColor
        }
    }

    Item {
        id: side
        anchors.left: plate.right
        anchors.leftMargin: Theme.gap
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap
        anchors.top: plate.top
        anchors.bottom: plate.bottom

        PlainText {
            objectName: "calledTime_" + index
            width: parent.width - details.width - 4
            height: Theme.px(38)
            verticalAlignment: Text.AlignVCenter
            text: cell.isServed ? "开始: " + model.waitTime : "已叫: " + model.waitTime + " 分"
            leastSize: Theme.px(20)
            font.pixelSize: Theme.px(26)
        }

        Column {
            id: details
            anchors.right: parent.right

            PlainText {
                objectName: "calledTimes_" + index
                anchors.right: parent.right
                visible: !cell.isServed
                text: "叫 " + model.callCount + " 次"
                font.pixelSize: Theme.px(17)
            }

            PlainText {
                anchors.right: parent.right
                text: model.upTime
                font.pixelSize: Math.max(Theme.leastSize, Theme.px(14))
                color: Theme.textMuted
            }
        }

        PlainText {
            objectName: "served_" + index
            anchors.bottom: parent.bottom
            width: parent.width
            height: parent.height - Theme.px(40)
            verticalAlignment: Text.AlignVCenter
            visible: cell.isServed
            text: model.statusVal + "...."
            leastSize: Theme.px(20)
            font.pixelSize: Theme.px(30)
            font.bold: true
            color: Theme.panel
        }

        Row {
            anchors.bottom: parent.bottom
            height: Math.max(Theme.touchSize, parent.height - Theme.px(40))
            spacing: Theme.px(5)
            visible: model.status === 2

            Repeater {
                // What takes a guest off the list stands away from what serves him.
                model: [{text: "过号", action: "cross"}, {text: "删除", action: "cancel"}, {text: "重叫", action: "repeat"},
                        {text: "服务", action: "startServerDir"}]

                RowButton {
                    objectName: modelData.action + "_" + cell.cardNo
                    width: (side.width - 3 * Theme.px(5)) / 4
                    height: parent.height
                    enabled: cell.isFree
                    role: modelData.action === "startServerDir" ? "accent" : "plain"
                    text: modelData.text
                    onClicked: cell.choose(modelData.action, modelData.action === "startServerDir" ? cell.cardNo : cell.orderId)
                }
            }
        }
    }

    readonly property string cardNo: model.cardNo
    readonly property string orderId: model.orderId
}
