import QtQuick 2.15
import OpenRestVm 1.0
import "../../Components"
import "../../../js/Func.js" as JsFunc
import "../../../js/Glyphs.js" as Glyphs

// Opens the room as a rest room. Where no hand cards of guests are used, none are asked for.
RoomPage {
    id: page

    confirmText: "确定开房"
    saver: pageVm
    onStarted: pageVm.init(page.roomId, page.roomNo)

    OpenRestVm {
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

    CaptionedBox {
        id: cardBox
        anchors.left: ask.right
        anchors.leftMargin: ask.visible ? Theme.spacing : 0
        width: (page.width - ask.width - Theme.spacing) * 0.45
        height: parent.height
        caption: "手牌"

        CardGrid {
            objectName: "cards"
            anchors.fill: parent
            isRemovable: true
            emptyText: "请先添加手牌"
            model: pageVm.pCardListModel
            onRemoved: pageVm.deleteCard(index, cardNo)
        }
    }

    CaptionedBox {
        anchors.left: cardBox.right
        anchors.leftMargin: Theme.spacing
        anchors.right: parent.right
        height: parent.height
        caption: "计费方案"

        PlanGrid {
            anchors.fill: parent
            model: pageVm.pPlanListModel
            onChosen: JsFunc.delay15(() => pageVm && pageVm.checkPlan(index))
        }
    }
}
