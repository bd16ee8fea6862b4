import QtQuick 2.15
import "../../Components"
import "../../../js/Glyphs.js" as Glyphs

// Whose service it is, how long it has left, on which card and of which kind; the stop stands alone at the end.
Item {
    id: side

    property QtObject vm: null
    property var askCard: null
    property var stop: null

    readonly property bool isOver: vm.surplus < 0
    readonly property string vouchers: vm.printCount > 0 ? "打印凭证" + vm.printCount + "张" : "不打印凭证"

    Rectangle {
        id: time
        width: parent.width
        height: Theme.px(136)
        radius: Theme.radius
        color: side.isOver ? Theme.overrun : Theme.panel

        PlainText {
            objectName: "surplusText"
            x: Theme.px(8)
            width: parent.width - 2 * x
            y: Theme.px(8)
            height: Theme.px(86)
            horizontalAlignment: Text.AlignHCenter
            verticalAlignment: Text.AlignVCenter
            text: side.isOver ? "已超" + -vm.surplus + "分" : "剩余" + vm.surplus + "分"
            leastSize: Theme.px(40)
            font.pixelSize: Theme.px(72)
            color: Theme.textOnColor
        }

        PlainText {
            objectName: "fetchedText"
            width: parent.width
            anchors.bottom: parent.bottom
            anchors.bottomMargin: Theme.px(10)
            horizontalAlignment: Text.AlignHCenter
            text: vm.fetchedAt + " 读取"
            font.pixelSize: Theme.textSize
            color: Theme.textOnColor
        }
    }

    Rectangle {
        id: who
        width: parent.width
        anchors.top: time.bottom
        anchors.topMargin: Theme.gap
        height: Theme.px(88)
        radius: Theme.radius
        color: Theme.surface
        border.color: Theme.line

        PlainText {
            objectName: "staffText"
            x: Theme.px(14)
            y: Theme.px(8)
            width: parent.width - 2 * x
            text: vm.staffNo + "  " + vm.staffName
            leastSize: Theme.leastSize
            font.pixelSize: Theme.px(28)
        }

        PlainText {
            objectName: "roomText"
            x: Theme.px(14)
            width: parent.width - 2 * x
            anchors.bottom: parent.bottom
            anchors.bottomMargin: Theme.px(8)
            text: "房间号: " + (vm.roomNo === "" ? "无" : vm.roomNo)
            leastSize: Theme.leastSize
            font.pixelSize: Theme.headSize
            color: Theme.textMuted
        }
    }

    BigField {
        id: card
        objectName: "cardField"
        width: parent.width
        anchors.top: who.bottom
        anchors.topMargin: Theme.gap
        enabled: vm.isCardEnabled && vm.isEnabled
        label: vm.isCardEnabled ? "手牌号（点击更换）" : "手牌号"
        prompt: "无"
        text: vm.cardNo
        action: () => side.askCard()
    }

    KindRow {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: card.bottom
        anchors.topMargin: Theme.gap
        height: Theme.px(76)
        kindWidth: (width - 2 * spacing) / 3
        model: vm.pTypeModel
        canChoose: vm.isTypeEnabled && vm.isEnabled
        choose: index => vm.chgAssignType(index)
    }

    DeedButton {
        objectName: "stopButton"
        width: parent.width
        anchors.bottom: parent.bottom
        height: Theme.px(112)
        role: "danger"
        enabled: vm.isStopEnabled && vm.isEnabled
        text: "停  钟"
        note: (vm.surplus > 0 ? "提前" + vm.surplus + "分钟结束，" : "结束服务，") + side.vouchers
        action: () => side.stop()
    }
}
