import QtQuick 2.15
import RoomRemarkVm 1.0
import "../../Components"

// The room's remark. Text comes from the system's keyboard.
RoomPage {
    id: page

    confirmText: "确  定"
    vm: RoomRemarkVm {}
    start: () => {
        vm.init(page.room)
        remarkArea.text = vm.remark
    }
    onConfirmed: vm.remark = remarkArea.text

    RemarkArea {
        id: remarkArea
        anchors.fill: parent
    }
}
