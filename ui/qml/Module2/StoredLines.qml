import QtQuick 2.15
import "../Components"
import "../../js/Glyphs.js" as Glyphs

// The lines that the back end has of the guest.
SaleLines {
    id: part

    property QtObject vm: null
    property var choose: null // choose(key, index, orderId)

    title: "历史消费"
    sum: vm.oldAmount
    emptyText: vm.hasGuest ? "还没有消费" : ""
    model: vm.oldItemList
    columns: [{title: "项目", left: 12, width: 130}, {title: "数量", left: 146, width: 36, isNumber: true},
              {title: "单价", left: 186, width: 66, isNumber: true}, {title: "小计", left: 254, width: 76, isNumber: true},
              {title: "业绩人", left: 340, width: 56}]

    PushButton {
        objectName: "refreshButton"
        anchors.right: parent.right
        width: Theme.px(100)
        height: parent.height
        visible: vm.hasGuest
        enabled: vm.isEnabled
        role: vm.isSaveUnsure ? "danger" : "plain"
        pixelSize: Theme.textSize
        iconText: Glyphs.refresh
        text: "刷新"
        action: () => vm.refreshGuest()
    }

    delegate: SwipeRow {
        objectName: "oldLine_" + index
        width: ListView.view.width
        height: Theme.px(56)
        color: "transparent"
        list: part.list
        place: index
        namePrefix: "old"
        entries: vm.oldActions
        choose: (key, place) => part.choose(key, place, model.orderId)

        PlainText {
            x: Theme.px(12)
            y: 2
            width: Theme.px(132)
            height: parent.height * 0.56
            verticalAlignment: Text.AlignVCenter
            text: (model.status === 2 ? "[赠送] " : "") + model.itemName
            leastSize: Theme.leastSize
            font.pixelSize: Theme.px(17)
        }

        PlainText {
            x: Theme.px(12)
            width: Theme.px(172)
            anchors.bottom: parent.bottom
            anchors.bottomMargin: 3
            text: model.createTime + " " + model.areaName
            font.pixelSize: Math.max(Theme.leastSize, Theme.px(14))
            color: Theme.textMuted
        }

        LineFigures {
            height: parent.height * 0.6
            columns: part.columns.slice(1)
            values: [model.num, model.price.toFixed(2), model.amount.toFixed(2), model.staffNo]
        }
    }
}
