import QtQuick 2.15
import DownServerVm 1.0
import "../../Components"
import "../../../js/Ask.js" as Ask
import "../../../js/Func.js" as JsFunc

// A running service: what can be added above, what runs below it, and to the right the service as a whole. The stop lies
// beside the running lines, so that it is far from what adds.
Item {
    id: page

    property QtObject module: null
    property var close: null

    function askNum(itemId) {
        const num = Number(Ask.count("请输入数量"))
        if (num > 0 && service)
            service.addServer(itemId, num)
    }

    function askCard() {
        const cardNo = Ask.number("请输入手牌号")
        if (cardNo !== undefined && service)
            service.chgHandCard(cardNo)
    }

    function stop() {
        const early = service.surplus > 0
        if (early && !Ask.isConfirmed("还剩" + service.surplus + "分钟，确定要提前停钟吗？"))
            return
        if (service && service.stopServer() && page)
            page.close()
    }

    objectName: "DownServerPage"
    Component.onCompleted: service.init(module.pStaffDetail, module.pServerList, module.pOnServerList)

    DownServerVm {
        id: service
        onOnCloseSignal: JsFunc.delay15(() => page && page.close())
    }

    ServiceSide {
        id: side
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        anchors.margins: Theme.gap
        width: Theme.px(330)
        vm: service
        askCard: page.askCard
        stop: page.stop
    }

    ChoiceGrid {
        id: items
        objectName: "serverGrid"
        anchors.left: parent.left
        anchors.leftMargin: Theme.gap
        anchors.right: side.left
        anchors.top: parent.top
        anchors.topMargin: Theme.gap
        anchors.bottom: running.top
        anchors.bottomMargin: Theme.gap
        cellWidth: Math.floor(usableWidth / Math.max(6, service.itemColumns))
        cellHeight: service.isAddEnabled ? Theme.px(162) : Math.floor(cellWidth * 0.6)
        model: service.pServerModel
        emptyText: "没有可做的项目"
        delegate: AddTile {
            objectName: "server_" + index
            width: items.cellWidth - Theme.gap
            height: items.cellHeight - Theme.gap
            place: index
            name: model.itemName
            times: model.times
            price: model.price
            canAdd: service.isAddEnabled
            canChange: service.isChgEnabled && service.isSelectedItem
            isFree: service.isEnabled
            add: () => service.addServer(model.itemId, 1)
            ask: () => page.askNum(model.itemId)
            change: () => service.changeServer(model.itemId)
        }
    }

    Rectangle {
        id: running
        anchors.left: parent.left
        anchors.right: side.left
        anchors.bottom: parent.bottom
        anchors.margins: Theme.gap
        height: Theme.px(250)
        radius: Theme.radius
        color: Theme.surfaceMuted
        border.color: Theme.line

        PlainText {
            id: head
            objectName: "runningHead"
            x: Theme.px(14)
            width: parent.width - 2 * x
            height: Theme.px(40)
            verticalAlignment: Text.AlignVCenter
            text: "正在服务 " + lines.count + " 项" + (!service.isChgEnabled || !service.isAddEnabled ? "" :
                  service.isSelectedItem ? "，点上面项目的“换钟”更换" : "，换钟请先点选一项")
            font.pixelSize: Theme.headSize
        }

        ChoiceGrid {
            id: lines
            objectName: "runningGrid"
            anchors.left: parent.left
            anchors.leftMargin: Theme.gap
            anchors.right: parent.right
            anchors.top: head.bottom
            anchors.bottom: parent.bottom
            anchors.bottomMargin: 2
            tileWidth: Theme.px(320)
            cellHeight: Theme.px(102)
            model: service.pOnServerModel
            emptyText: "没有进行中的项目"
            delegate: RunningTile {
                width: lines.cellWidth - Theme.gap
                height: lines.cellHeight - Theme.gap
                place: index
                name: model.itemName
                kind: model.typeName
                times: model.times
                price: model.price + (model.unit === "" ? "" : "/" + model.unit)
                isChecked: model.isChecked
                canRefund: service.isRefundEnabled
                choose: () => service.onChecked(index)
                refund: () => service.chargeBack(model.orderId)
            }
        }
    }
}
