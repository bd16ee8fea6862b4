import QtQuick 2.15
import QtQuick.Controls 2.15
import GlobalConfig 1.0
import MyMessage 1.0
import Module2Vm 1.0
import "../Components"
import "../DlgManager.js" as Dlg
import "../../js/Ask.js" as Ask
import "../../js/Func.js" as JsFunc
import "../../js/Sale.js" as Sale

// The till: whom it is for above, the cart to the left, what may be sold to the right.
Item {
    id: page

    property string cardNo: "" // a guest that the page is opened for
    property bool isAsking: false

    // One question at a time, whoever asks.
    function ask(question) {
        if (isAsking)
            return
        isAsking = true
        try {
            question()
        } finally {
            if (page)
                page.isAsking = false
        }
    }

    function askGuest() {
        ask(() => {
            if (till.usedRoomMod) {
                const typed = Ask.number("请输入房号")
                if (typed !== undefined && till)
                    till.getOrderInfo("", typed, "")
                return
            }
            const guest = Ask.card("请输入手牌")
            if (guest !== undefined && till)
                till.getOrderInfo(guest.rfid, guest.cardNo, "")
        })
    }

    function askRoom() {
        ask(() => {
            const roomNo = Ask.number("请输入房号")
            if (roomNo !== undefined && till)
                till.addRoom(roomNo)
        })
    }

    function sell(index) {
        const line = till.tapItem(index)
        if (line.dialogs !== undefined) {
            if (!Sale.isCompleted(line) || !till)
                return
            till.addNewItem(index, line)
        }
        if (line.itemId !== undefined || line.merged)
            catalogue.clearSearch()
    }

    function enterNum(index) {
        const num = Ask.count("请输入数量")
        if (num !== undefined && till)
            till.changeNum(index, Number(num))
    }

    function changeNew(key, index) {
        if (key === "delete") {
            till.deleteNewItem(index)
        } else if (key === "gift") {
            till.giveFree(index)
        } else if (key === "num") {
            enterNum(index)
        } else if (key === "remark") {
            const line = remarkAsked("备注", till.remarkOf(index))
            if (line !== undefined && till)
                till.setRemark(index, line)
        } else if (key === "allRemark") {
            const whole = remarkAsked("整单备注", till.allRemark)
            if (whole !== undefined && till)
                till.allRemark = whole
        }
    }

    function remarkAsked(title, remark) {
        const answer = Dlg.showDialog("remarkDlg", {strText: title, remark: remark})
        return answer !== undefined && answer.dlgResult ? answer.remark : undefined
    }

    function changeStored(key, index, orderId) {
        if (key === "ticket") {
            const ticket = {cardId: till.cardId, cardType: till.cardType, orderId: orderId}
            if (Dlg.showDialog("chgTpDlg", ticket) === true && till)
                till.refreshGuest()
        } else if (key === "reprint") {
            till.reprint(orderId)
        } else if (key === "refund") {
            const most = till.askRefund(index)
            if (most === 1)
                till.refund(index, 1, "")
            if (most <= 1)
                return
            const num = Ask.count("请输入退单数量")
            if (num !== undefined && till)
                till.enterRefund(index, num)
        }
    }

    function cancel() {
        const isSure = till.newItemList.rowCount() === 0 || Ask.isConfirmed("新消费还没有保存，确定要取消吗？")
        if (!isSure || !till)
            return
        till.cleanData()
        if (page)
            catalogue.reset()
    }

    function save() {
        const unsure = "上一次保存没有收到答复，可能已经入账。请先点“刷新”核对历史消费，以免重复。仍要保存吗？"
        if (till.isSaveUnsure && !Ask.isConfirmed(unsure))
            return
        const deskNo = till && till.isNeedDeskNo() ? Ask.number("请输入桌号") : ""
        if (deskNo === undefined || !till)
            return
        MyMessage.openBusyDlgSignal()
        const isSaved = till.save(deskNo)
        MyMessage.closeBusyDlgSignal()
        if (!isSaved || !page)
            return
        catalogue.reset()
        if (till.closeFlg && page.StackView.view)
            page.StackView.view.pop()
        else
            askGuest()
    }

    objectName: "Module2"
    Component.onCompleted: JsFunc.timerOnce(GlobalConfig.initDelyTime, () => {
        if (!till)
            return
        till.init(page.cardNo)
        if (page && page.cardNo === "")
            JsFunc.timerOnce(500, () => page && page.askGuest())
    })

    Module2Vm {
        id: till
    }

    SaleHead {
        id: head
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: Theme.gap
        vm: till
        addGuest: page.askGuest
        addRoom: page.askRoom
        cancel: page.cancel
        save: page.save
        showSums: () => Dlg.showDialog("sellSumDlg", {})
        showCards: () => Dlg.showDialog("allInCardsDlg", {})
    }

    Item {
        id: cart
        anchors.left: parent.left
        anchors.leftMargin: Theme.gap
        anchors.top: head.bottom
        anchors.topMargin: Theme.gap
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.gap
        width: Theme.px(450)

        NewLines {
            objectName: "newLines"
            width: parent.width
            height: (parent.height - Theme.gap) * 0.56
            vm: till
            enterNum: page.enterNum
            choose: page.changeNew
        }

        StoredLines {
            objectName: "storedLines"
            width: parent.width
            anchors.bottom: parent.bottom
            height: (parent.height - Theme.gap) * 0.44
            vm: till
            choose: page.changeStored
        }
    }

    CatalogueView {
        id: catalogue
        objectName: "catalogue"
        anchors.left: cart.right
        anchors.leftMargin: Theme.gap
        anchors.right: parent.right
        anchors.rightMargin: Theme.gap
        anchors.top: cart.top
        anchors.bottom: cart.bottom
        vm: till
        tapTile: page.sell
    }
}
