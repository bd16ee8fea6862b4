import QtQuick 2.15
import GlobalConfig 1.0
import ChgTpVm 1.0
import "../../Components"
import "../../../js/Func.js" as JsFunc

// Changes a stored line's package ticket to another one that the card's type allows.
TitledDialog {
    id: dialog

    property string cardId: ""
    property string cardType: ""
    property string orderId: ""
    property int operType: 2

    function exec() {
        wait()
        return dlgResult
    }

    function load() {
        ticketVm.init(cardId, cardType, orderId, operType)
    }

    objectName: "chgTpDlg"
    title: "更换套票"
    hasBack: true
    width: Theme.px(760)
    height: Theme.px(600)
    Component.onCompleted: JsFunc.timerOnce(GlobalConfig.initDelyTime, () => dialog && dialog.load())

    ChgTpVm {
        id: ticketVm
    }

    ChoiceGrid {
        id: tickets
        objectName: "tickets"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.bottom: confirmButton.top
        anchors.margins: Theme.spacing
        visible: !ticketVm.isLoadFailed
        tileWidth: Theme.px(340)
        model: ticketVm.pTpList
        emptyText: "没有可更换的套票"
        delegate: CheckTile {
            objectName: "ticket_" + index
            width: tickets.cellWidth - 8
            height: tickets.cellHeight - 8
            text: model.name + "[￥" + model.price + "]"
            isToggle: false
            isChosen: model.isSelected
            backColor: isChosen ? Theme.current : Theme.surface
            foreColor: isChosen ? Theme.currentText : Theme.text
            Accessible.checked: isChosen
            onClicked: ticketVm.select(index)
        }
    }

    FailedLoad {
        visible: ticketVm.isLoadFailed
        retry: () => dialog.load()
    }

    PushButton {
        id: confirmButton
        objectName: "confirmButton"
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: Theme.spacing
        width: Theme.px(260)
        enabled: ticketVm.isBtnEnabled
        text: "确  定"
        action: () => {
            if (ticketVm.save() && dialog)
                dialog.finish(true)
        }
    }
}
