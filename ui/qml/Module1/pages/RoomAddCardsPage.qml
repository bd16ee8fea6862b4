import QtQuick 2.15
import RoomAddCardsVm 1.0
import "../../Components"
import "../../../js/Func.js" as JsFunc
import "../../../js/Glyphs.js" as Glyphs

// Takes further hand cards into the room.
RoomPage {
    id: page

    confirmText: "确定新增"
    saver: pageVm
    onStarted: pageVm.init(page.roomNo, vm.pRoomDetail)

    RoomAddCardsVm {
        id: pageVm
    }

    AskButton {
        id: ask
        objectName: "cardButton"
        text: "请输入手牌号"
        iconText: Glyphs.card
        onEntered: pageVm.getCardInfo(number, "")
    }

    CaptionedBox {
        id: oldBox
        anchors.left: ask.right
        anchors.leftMargin: Theme.spacing
        width: (page.width - ask.width - 2 * Theme.spacing) / 2
        height: parent.height
        caption: "房间手牌"

        CardGrid {
            objectName: "oldCards"
            anchors.fill: parent
            isReadOnly: true
            model: pageVm.pOldCardModel
        }
    }

    CaptionedBox {
        anchors.left: oldBox.right
        anchors.leftMargin: Theme.spacing
        anchors.right: parent.right
        height: parent.height
        caption: "新增手牌"

        CardGrid {
            objectName: "newCards"
            anchors.fill: parent
            isRemovable: true
            emptyText: "请先添加手牌"
            model: pageVm.pNewCardModel
            onRemoved: pageVm.deleteCard(index)
        }
    }
}
