import QtQuick 2.15
import EndServerVm 1.0
import "../../Components"
import "../../DlgManager.js" as Dlg
import "../../../js/Ask.js" as Ask
import "../../../js/Sale.js" as Sale

// Stops the technician's clock. How long it ran stands above, what may be booked to the left, what is booked and on whom to
// the right; the stop without a booking lies far from the one with it.
Item {
    id: page

    property QtObject staff: null
    property var close: null

    function askCard() {
        const card = Ask.cardOnStaffReader("请输入手牌")
        if (card !== undefined && service)
            service.getOrderInfo(card.rfid, card.cardNo)
    }

    function askPosition() {
        const position = Ask.number("请输入位置")
        if (service)
            service.roomNo = position === undefined ? "" : position
    }

    function askPusher() {
        const answer = Dlg.showDialog("staffQueryDlg", {strText: "请输入推钟人"})
        if (answer !== undefined && answer.dlgResult && service)
            service.pushNo = answer.staffNo
    }

    function sell(index) {
        const line = service.tapItem(index)
        if (line.dialogs !== undefined) {
            if (!Sale.isCompleted(line) || !service)
                return
            service.addNewItem(index, line)
        }
        catalogue.clearSearch()
    }

    function stop() {
        if (service.stopServer() && page)
            page.close()
    }

    function stopAndBook() {
        const unsure = "上一次录单没有收到答复，可能已经入账。仍要再录一次吗？"
        if (service.isBookingUnsure && !Ask.isConfirmed(unsure))
            return
        if (service && service.stopServer(2) && page)
            page.close()
    }

    objectName: "EndServerPage"
    Component.onCompleted: service.init(staff)

    EndServerVm {
        id: service
    }

    Rectangle {
        id: head
        anchors.left: parent.left
        anchors.right: quit.left
        anchors.top: parent.top
        anchors.margins: Theme.gap
        height: Theme.px(104)
        radius: Theme.radius
        color: Theme.panel

        Column {
            anchors.left: parent.left
            anchors.leftMargin: Theme.spacing
            anchors.right: span.left
            anchors.rightMargin: Theme.spacing
            anchors.verticalCenter: parent.verticalCenter
            spacing: Theme.px(6)

            PlainText {
                objectName: "staffText"
                width: parent.width
                text: "工号:  " + service.staffNo + "  " + service.staffName
                leastSize: Theme.leastSize
                font.pixelSize: Theme.px(28)
                color: Theme.textOnColor
            }

            PlainText {
                objectName: "startText"
                width: parent.width
                text: "上钟时间:  " + service.startTime
                leastSize: Theme.leastSize
                font.pixelSize: Theme.headSize
                color: Theme.textOnColor
            }
        }

        PlainText {
            id: spanHead
            anchors.left: span.left
            anchors.right: span.right
            y: Theme.px(6)
            horizontalAlignment: Text.AlignRight
            text: "上钟时长:  "
            font.pixelSize: Theme.textSize
            color: Theme.textOnColor
        }

        // Beside the place of the messages.
        PlainText {
            id: span
            objectName: "spanText"
            anchors.right: parent.right
            anchors.rightMargin: Theme.spacing
            anchors.top: spanHead.bottom
            anchors.bottom: parent.bottom
            anchors.bottomMargin: Theme.px(4)
            width: Theme.px(210)
            horizontalAlignment: Text.AlignRight
            verticalAlignment: Text.AlignVCenter
            text: service.timeSpan
            leastSize: Theme.px(30)
            font.pixelSize: Theme.px(54)
            color: Theme.textOnColor
        }
    }

    DeedButton {
        id: quit
        objectName: "quitButton"
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap
        anchors.top: head.top
        width: Theme.px(220)
        height: head.height
        role: "danger"
        enabled: service.isEnabled
        pixelSize: Theme.px(30)
        text: "直接下钟"
        note: "不录单，限16分钟内"
        action: () => page.stop()
    }

    CatalogueView {
        id: catalogue
        objectName: "catalogue"
        anchors.left: parent.left
        anchors.leftMargin: Theme.gap
        anchors.right: side.left
        anchors.rightMargin: Theme.gap
        anchors.top: side.top
        anchors.bottom: side.bottom
        vm: service
        tapTile: page.sell
    }

    Item {
        id: side
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap
        anchors.top: head.bottom
        anchors.topMargin: Theme.gap
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.gap
        width: Theme.px(450)

        BigField {
            id: card
            objectName: "cardField"
            width: Theme.px(190) // a serial has its place
            enabled: service.isEnabled
            label: "手牌号"
            prompt: "刷入或输入"
            text: service.cardNo
            fault: service.unknownCard === "" ? "" : "不能使用：" + service.unknownCard
            action: () => page.askCard()
        }

        BigField {
            id: position
            objectName: "positionField"
            x: card.width + Theme.gap
            width: (parent.width - x - Theme.gap) / 2
            enabled: service.isEnabled
            label: "位置"
            prompt: "可不填"
            text: service.roomNo
            action: () => page.askPosition()
        }

        BigField {
            objectName: "pushField"
            anchors.right: parent.right
            width: position.width
            enabled: service.isEnabled
            label: "推钟人"
            prompt: "可不填"
            text: service.pushNo
            action: () => page.askPusher()
        }

        NewLines {
            objectName: "newLines"
            width: parent.width
            anchors.top: card.bottom
            anchors.topMargin: Theme.gap
            anchors.bottom: book.top
            anchors.bottomMargin: Theme.gap
            title: "已选项目"
            emptyText: "点左侧项目录入"
            vm: service
            choose: (key, index) => service.deleteNewItem(index)
        }

        DeedButton {
            id: book
            objectName: "bookButton"
            width: parent.width
            anchors.bottom: parent.bottom
            height: Theme.px(112)
            enabled: service.isEnabled
            text: "下钟并录单"
            note: (service.isStopped ? "已下钟，只录单" : "停止计时并入账") + " ¥" + service.newAmount.toFixed(2) +
                  (service.printCount > 0 ? "，打印" + service.printCount + "张" : "，不打印")
            action: () => page.stopAndBook()
        }
    }
}
