import QtQuick 2.15
import RoomCardSplitVm 1.0
import "../../Components"

// Moves hand cards of the room to another one.
RoomPage {
    id: page

    confirmText: "确定拆房"
    vm: RoomCardSplitVm {}
    start: () => vm.init(page.room)

    Row {
        anchors.fill: parent
        spacing: Theme.spacing

        CaptionedBox {
            width: page.width * 0.34
            height: parent.height
            caption: "拆离手牌"

            CardGrid {
                objectName: "cards"
                anchors.fill: parent
                selectedColor: Theme.picked
                restColor: Theme.unpicked
                model: page.vm.pCardListModel
                pick: index => page.vm.selectCard(index)
            }
        }

        CaptionedBox {
            width: parent.width - x
            height: parent.height
            caption: "进入房间"

            RoomChooser {
                anchors.fill: parent
                model: page.vm.pEmptyRoomModel
                work: page.work
                search: roomNo => page.vm.getRoomInfo(roomNo)
                choose: index => page.vm.selectRoom(index)
            }
        }
    }
}
