import QtQuick 2.15
import RoomRemarkVm 1.0
import "../../Components"

// The room's remark. Text comes from the system's keyboard.
RoomPage {
    id: page

    confirmText: "确  定"
    saver: pageVm
    onStarted: {
        pageVm.init(vm.pRoomDetail)
        remarkArea.text = pageVm.remark
    }
    onConfirmed: pageVm.remark = remarkArea.text

    RoomRemarkVm {
        id: pageVm
    }

    RemarkArea {
        id: remarkArea
        anchors.fill: parent
    }
}
