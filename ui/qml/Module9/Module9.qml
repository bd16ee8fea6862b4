import QtQuick 2.15
import QtQuick.Controls 2.15
import Module9Vm 1.0
import "../Components"
import "../DlgManager.js" as Dlg
import "../../js/Ask.js" as Ask
import "../../js/Func.js" as JsFunc
import "../../js/Glyphs.js" as Glyphs

// Moves what is on one or more hand cards to another, so that one card pays for a group.
CounterPage {
    id: page

    property bool isAsking: false

    function chooseCards() {
        if (isAsking)
            return
        isAsking = true
        const chosen = Dlg.showDialog("transferCardsDlg", {strText: "请输入手牌号"})
        if (!page)
            return
        isAsking = false
        if (chosen !== undefined && chosen.dlgResult && transfer)
            transfer.getOrderList(chosen.cards)
    }

    function move() {
        if (transfer.isUnsure) {
            transfer.readAgain()
            return
        }
        const target = Ask.card("请输入转入手牌")
        if (target !== undefined && transfer && transfer.save(target.cardNo, target.rfid) && page && page.StackView.view)
            page.StackView.view.pop()
    }

    objectName: "Module9"
    listShare: 0.6
    picture: Glyphs.moduleTransfer
    pictureGround: "#1B7396"
    title: "¥" + transfer.transAmount.toFixed(2)
    sentence: transfer.isUnsure ? "没有收到答复，可能已经转走" : "合并到一张手牌结账"
    buttonText: transfer.isUnsure ? "重新读取" : "开始转账"
    canAsk: transfer.isEnabled
    ask: page.move
    Component.onCompleted: JsFunc.delay15(() => page && page.chooseCards())

    Module9Vm {
        id: transfer
    }

    list: ListView {
        id: cards
        objectName: "transferCards"
        anchors.fill: parent
        anchors.leftMargin: Theme.spacing
        anchors.rightMargin: Theme.gap
        clip: true
        spacing: Theme.spacing
        boundsBehavior: Flickable.StopAtBounds
        ScrollBar.vertical: ListScrollBar {
            id: bar
        }
        model: transfer.pHandCardOrderModel
        delegate: TransferCard {
            objectName: "card_" + model.cardNo
            width: cards.width - bar.width
            cardNo: model.cardNo
            num: model.num
            amount: model.amount
            orders: model.orderModel
        }

        EmptyText {
            list: cards
            text: "请先选择要转账的手牌"
        }
    }

    Column {
        anchors.left: parent.left
        anchors.right: parent.right
        spacing: Theme.spacing

        PlainText {
            objectName: "transNum"
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            text: "共 " + cards.count + " 张手牌，数量 " + transfer.transNum
            font.pixelSize: Theme.headSize
            color: Theme.textMuted
        }

        PushButton {
            objectName: "chooseCardsButton"
            anchors.horizontalCenter: parent.horizontalCenter
            role: "plain"
            iconText: Glyphs.card
            pixelSize: Theme.headSize
            text: "选择手牌"
            action: () => page.chooseCards()
        }
    }
}
