import QtQuick 2.15
import "../Components"

// A guest who waits.
Rectangle {
    id: row

    property bool canCall: false
    property bool isFree: true // no action is under way
    property var choose: null  // choose(action, entry)

    radius: Theme.radius
    color: Theme.surface
    border.color: Theme.line

    Column {
        id: texts
        x: Theme.px(12)
        anchors.verticalCenter: parent.verticalCenter
        width: buttons.x - x - 4

        PlainText {
            objectName: "waitNo_" + index
            width: parent.width
            height: Theme.px(46)
            verticalAlignment: Text.AlignVCenter
            text: model.cardNo
            leastSize: Theme.px(24)
            font.pixelSize: Theme.px(44)
            font.bold: true
        }

        PlainText {
            objectName: "waitTime_" + index
            width: parent.width
            text: "已等: " + model.waitTime + " 分"
            font.pixelSize: Theme.px(22)
        }

        PlainText {
            width: parent.width
            visible: text !== ""
            text: model.statusVal + "  " + model.upTime
            font.pixelSize: Math.max(Theme.leastSize, Theme.px(14))
            color: Theme.textMuted
        }
    }

    Row {
        id: buttons
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.gap

        RowButton {
            objectName: "cancelWait_" + model.cardNo
            width: Theme.px(66)
            enabled: row.isFree
            text: "取  消"
            onClicked: row.choose("cancelWait", model.orderId)
        }

        RowButton {
            objectName: "call_" + model.cardNo
            width: Theme.px(74)
            visible: row.canCall
            enabled: row.isFree
            role: "accent"
            text: "叫  号"
            onClicked: row.choose("dirCall", model.orderId)
        }
    }
}
