import QtQuick 2.15
import MassChgRoomVm 1.0

// Moves the guests of a massage room to an empty room.
RoomPage {
    id: page

    confirmText: "确定换房"
    vm: MassChgRoomVm {}
    start: () => vm.init(page.roomId)

    MoveChooser {
        anchors.fill: parent
        page: page
    }
}
