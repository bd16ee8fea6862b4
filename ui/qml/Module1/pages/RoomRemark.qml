import QtQuick 2.15
import RoomRemarkVm 1.0
import "../../Components"

// The room's remark.
RoomPage {
    id: page

    confirmText: "确  定"
    vm: RoomRemarkVm {}
    start: () => {
        vm.init(page.room)
        remarkArea.text = vm.remark
    }

    RemarkArea {
        id: remarkArea
        anchors.fill: parent
        onTextChanged: {
            if (page.isStarted)
                page.vm.remark = text
        }
    }
}
