import QtQuick 2.15
import RoomAddCardsVm 1.0
import "../../Components"

// Takes further hand cards into the room.
RoomPage {
    id: page

    confirmText: "确定新增"
    vm: RoomAddCardsVm {}
    start: () => vm.init(page.roomNo, page.room)

    Row {
        anchors.fill: parent
        spacing: Theme.spacing

        CardAsk {
            id: ask
            work: page.work
            take: number => page.vm.getCardInfo(number, "")
        }

        CaptionedBox {
            width: (page.width - ask.width - 2 * Theme.spacing) / 2
            height: parent.height
            caption: "房间手牌"

            CardGrid {
                objectName: "oldCards"
                anchors.fill: parent
                model: page.vm.pOldCardModel
            }
        }

        CaptionedBox {
            width: parent.width - x
            height: parent.height
            caption: "新增手牌"

            CardGrid {
                objectName: "newCards"
                anchors.fill: parent
                emptyText: "请先添加手牌"
                model: page.vm.pNewCardModel
                remove: index => page.vm.deleteCard(index)
            }
        }
    }
}
