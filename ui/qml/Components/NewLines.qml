import QtQuick 2.15
import "../../js/Glyphs.js" as Glyphs

// The lines that are being entered. The one that a tap has just brought or raised is in sight and marked.
SaleLines {
    id: part

    property QtObject vm: null
    property int touched: -1
    property var enterNum: null // enterNum(index), where the number can be typed
    property var choose: null   // choose(key, index)

    title: "新消费"
    sum: vm.newAmount
    emptyText: "点右侧项目录入消费"
    model: vm.newItemList
    columns: [{title: "项目", left: 12, width: 60}, {title: "数量", left: 68, width: 60},
              {title: "单价", left: 152, width: 70, isNumber: true}, {title: "小计", left: 226, width: 84, isNumber: true},
              {title: "业绩人", left: 322, width: 76}]

    Connections {
        target: part.vm
        function onLineTouched(index) {
            part.list.positionViewAtIndex(index, ListView.Contain)
            part.touched = index
            mark.restart()
        }
    }

    Timer {
        id: mark
        interval: 300
        onTriggered: part.touched = -1
    }

    delegate: SwipeRow {
        id: line

        readonly property bool isChargeback: model.status === 3

        objectName: "newLine_" + index
        width: ListView.view.width
        height: Theme.px(82)
        color: index === part.touched ? Theme.touched : "transparent"
        list: part.list
        place: index
        namePrefix: "new"
        headRoom: Theme.px(30)
        entries: vm.newActions
        choose: part.choose

        IconText {
            id: gift
            x: Theme.px(10)
            y: Theme.px(4)
            visible: model.status === 2
            width: visible ? implicitWidth : 0
            iconText: Glyphs.discount
            iconColor: Theme.danger
            pixelSize: Theme.px(20)
        }

        PlainText {
            objectName: "newName_" + index
            anchors.left: gift.right
            anchors.leftMargin: gift.visible ? 4 : 2
            anchors.right: parent.right
            y: Theme.px(2)
            height: Theme.px(28)
            verticalAlignment: Text.AlignVCenter
            text: (line.isChargeback ? "[退单] " : model.status === 2 ? "[赠送] " : "") + model.itemName + (model.remark === "" ? "" : "（" + model.remark + "）")
            leastSize: Theme.leastSize
            font.pixelSize: Theme.px(18)
            color: line.isChargeback ? Theme.danger : Theme.text
        }

        StepKey {
            id: minus
            objectName: "minus_" + index
            x: Theme.px(6)
            anchors.bottom: parent.bottom
            anchors.bottomMargin: 3
            width: Theme.px(Theme.touchSize)
            height: Theme.px(Theme.touchSize)
            iconText: Glyphs.minus
            pixelSize: Theme.px(24)
            label: "减"
            onClicked: vm.subNum(index, 1)
        }

        Tappable {
            id: number

            readonly property int shown: model.num

            objectName: "num_" + index
            anchors.left: minus.right
            anchors.bottom: minus.bottom
            width: Theme.px(44)
            height: minus.height
            restColor: "transparent"
            enabled: !line.isChargeback && Boolean(part.enterNum)
            label: "数量"
            action: () => part.enterNum(index)

            PlainText {
                anchors.centerIn: parent
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                text: model.num
                leastSize: Theme.leastSize
                font.pixelSize: Theme.px(22)
            }
        }

        StepKey {
            objectName: "plus_" + index
            anchors.left: number.right
            anchors.bottom: minus.bottom
            width: Theme.px(Theme.touchSize)
            height: Theme.px(Theme.touchSize)
            iconText: Glyphs.plus
            pixelSize: Theme.px(24)
            label: "加"
            onClicked: vm.addNum(index, 1)
        }

        LineFigures {
            anchors.bottom: minus.bottom
            height: minus.height
            columns: part.columns.slice(2)
            values: [model.price.toFixed(2), model.amount.toFixed(2), model.staffNo]
        }
    }
}
