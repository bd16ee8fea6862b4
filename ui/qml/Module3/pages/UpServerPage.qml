import QtQuick 2.15
import UpServerVm 1.0
import "../../Components"
import "../../../js/Ask.js" as Ask

// Starts a service: who and how above, what in the middle, for whom and the start itself below.
Item {
    id: page

    property QtObject module: null
    property var close: null

    function askCard() {
        const card = Ask.cardOnStaffReader("请输入手牌")
        if (card !== undefined && start)
            start.getOrderInfo(card.rfid, card.cardNo)
    }

    function askRoom() {
        const roomNo = Ask.number("请输入房间号")
        if (roomNo !== undefined && start)
            start.roomNo = roomNo
    }

    function begin() {
        const step = start.checkPushNo()
        if (step === 0)
            return
        const pushNo = step === 2 ? Ask.number("请输入推钟人") : ""
        if (pushNo === undefined || !start)
            return
        if (start.save(pushNo) && page)
            page.close()
    }

    objectName: "UpServerPage"
    Component.onCompleted: start.init(module.pStaffDetail, module.pServerList)

    UpServerVm {
        id: start
    }

    Rectangle {
        id: who
        x: Theme.gap
        y: Theme.gap
        width: Theme.px(330)
        height: Theme.px(84)
        radius: Theme.radius
        color: Theme.surface
        border.color: Theme.line

        PlainText {
            objectName: "staffText"
            x: Theme.px(14)
            width: parent.width - state.width - 3 * x
            height: parent.height
            verticalAlignment: Text.AlignVCenter
            text: start.staffNo + "  " + start.staffName
            leastSize: Theme.leastSize
            font.pixelSize: Theme.px(30)
        }

        Rectangle {
            id: state
            anchors.right: parent.right
            anchors.rightMargin: Theme.px(14)
            anchors.verticalCenter: parent.verticalCenter
            width: Theme.px(96)
            height: Theme.px(44)
            radius: height / 2
            color: start.isAssigned ? Theme.danger : Theme.toolOn

            PlainText {
                objectName: "stateText"
                anchors.centerIn: parent
                text: start.isAssigned ? "已派钟" : "待钟"
                font.pixelSize: Theme.headSize
                color: Theme.textOn(parent.color)
            }
        }
    }

    KindRow {
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap
        y: Theme.gap
        height: who.height
        kindWidth: Theme.px(146)
        model: start.pTypeModel
        canChoose: start.isTypeEnabled
        choose: index => start.pTypeModel.onChecked(index)
    }

    ChoiceGrid {
        id: items
        objectName: "serverGrid"
        anchors.left: parent.left
        anchors.leftMargin: Theme.gap
        anchors.right: parent.right
        anchors.top: who.bottom
        anchors.topMargin: Theme.gap
        anchors.bottom: deeds.top
        anchors.bottomMargin: Theme.gap
        cellWidth: Math.floor(usableWidth / Math.max(6, start.itemColumns))
        cellHeight: Math.floor(cellWidth * 0.56)
        model: start.pServerModel
        emptyText: "没有可做的项目"
        delegate: ServerTile {
            objectName: "server_" + index
            width: items.cellWidth - Theme.gap
            height: items.cellHeight - Theme.gap
            label: model.itemName
            times: model.times
            price: model.price
            isChecked: model.isChecked
            onClicked: start.pServerModel.onChecked(index)
        }
    }

    Item {
        id: deeds
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        anchors.margins: Theme.gap
        height: Theme.px(132)

        ConsumedList {
            anchors.left: parent.left
            anchors.right: card.left
            anchors.rightMargin: Theme.gap
            height: parent.height
            model: start.oldItemList
        }

        BigField {
            id: card
            objectName: "cardField"
            anchors.right: room.left
            anchors.rightMargin: Theme.gap
            width: Theme.px(240)
            height: parent.height
            enabled: start.isEnabled
            label: "手牌号"
            prompt: "刷入或输入手牌"
            text: start.cardNo
            fault: start.unknownCard === "" ? "" : "不能使用：" + start.unknownCard
            action: () => page.askCard()
        }

        BigField {
            id: room
            objectName: "roomField"
            anchors.right: go.left
            anchors.rightMargin: Theme.gap
            width: Theme.px(220)
            height: parent.height
            enabled: start.isEnabled
            label: "房间号（可不填）"
            prompt: "输入房间号"
            text: start.roomNo
            action: () => page.askRoom()
        }

        DeedButton {
            id: go
            objectName: "startButton"
            anchors.right: parent.right
            width: Theme.px(260)
            height: parent.height
            enabled: start.isEnabled
            text: "起  钟"
            note: start.summary
            action: () => page.begin()
        }
    }
}
