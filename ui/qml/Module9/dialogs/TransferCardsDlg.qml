import QtQuick 2.15
import GlobalConfig 1.0
import TransferCardsVm 1.0
import "../../Components"
import "../../../js/Ask.js" as Ask

// Collects the hand cards whose consumption is to move, by numbers or from the reader.
TitledDialog {
    id: dialog

    property string strText: ""
    property var cards: []

    function exec() {
        wait()
        return {dlgResult: dlgResult, cards: cards}
    }

    objectName: "transferCardsDlg"
    title: "选择转账手牌"
    hasBack: true
    width: Theme.px(860)
    height: Theme.px(600)
    onEndSignal: cardsVm.stopReading()

    TransferCardsVm {
        id: cardsVm
    }

    PushButton {
        id: ask
        objectName: "cardButton"
        x: Theme.spacing
        y: Theme.gap
        role: "plain"
        pixelSize: Theme.headSize
        text: dialog.strText
        delay: GlobalConfig.dlgDeplyTime
        action: () => {
            const number = Ask.number(dialog.strText)
            if (number !== undefined && cardsVm)
                cardsVm.addNew(number, "")
        }
    }

    PlainText {
        anchors.left: ask.right
        anchors.leftMargin: Theme.spacing
        anchors.right: parent.right
        anchors.verticalCenter: ask.verticalCenter
        text: "或直接刷手牌"
        color: Theme.textMuted
    }

    CardGrid {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: ask.bottom
        anchors.bottom: confirm.top
        anchors.margins: Theme.spacing
        model: cardsVm.pCardModel
        remove: index => cardsVm.remove(index)
    }

    PushButton {
        id: confirm
        objectName: "confirmButton"
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.spacing
        width: Theme.px(260)
        text: "确  定"
        action: () => {
            const chosen = cardsVm.save()
            if (chosen.length === 0)
                return
            dialog.cards = chosen
            dialog.finish(true)
        }
    }
}
