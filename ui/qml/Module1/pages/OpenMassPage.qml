import QtQuick 2.15
import OpenMassVm 1.0
import "../../Components"
import "../../../js/Func.js" as JsFunc
import "../../../js/Glyphs.js" as Glyphs

// Opens the room as a massage room. Where no hand cards of guests are used, none are asked for.
RoomPage {
    id: page

    confirmText: "确定开房"
    saver: pageVm
    onStarted: pageVm.init(page.roomId, page.roomNo)

    OpenMassVm {
        id: pageVm
    }

    AskButton {
        id: ask
        objectName: "cardButton"
        visible: !pageVm.usedRoomMod
        width: visible ? 220 : 0
        text: "请输入手牌号"
        iconText: Glyphs.card
        onEntered: pageVm.getCardInfo(number, "")
    }

    Stepper {
        anchors.left: ask.right
        anchors.leftMargin: ask.visible ? 2 * Theme.spacing : 0
        anchors.verticalCenter: ask.verticalCenter
        label: "开房时长"
        unit: "小时"
        minimum: 1
        value: pageVm.hours
        onLowered: pageVm.hours = Math.max(minimum, pageVm.hours - 1)
        onRaised: pageVm.hours += 1
    }

    CardGrid {
        objectName: "cards"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: ask.bottom
        anchors.topMargin: Theme.spacing
        anchors.bottom: parent.bottom
        isRemovable: true
        model: pageVm.pCardListModel
        onRemoved: pageVm.deleteCard(index)
    }
}
