import QtQuick 2.15
import LeaveRoomVm 1.0
import "../../Components"

// Lets hand cards leave the room; in a rest room (status 3) one of them takes over what was consumed.
RoomPage {
    id: page

    confirmText: "确定离房"
    vm: LeaveRoomVm {}
    start: () => vm.init(page.room)

    CaptionedBox {
        anchors.fill: parent
        caption: "离房手牌"

        CardGrid {
            objectName: "cards"
            anchors.fill: parent
            selectedColor: Theme.picked
            restColor: Theme.unpicked
            checkText: page.vm.status === 3 ? "消费记入" : ""
            model: page.vm.pCardListModel
            pick: index => page.vm.selectCard(index)
            check: index => page.vm.selectConsumer(index)
        }
    }
}
