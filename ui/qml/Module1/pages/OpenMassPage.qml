import QtQuick 2.15
import OpenMassVm 1.0

// Opens the room as a massage room.
MassRoomPage {
    id: page

    confirmText: "确定开房"
    vm: OpenMassVm {}
    start: () => vm.init(page.roomId, page.roomNo)
}
