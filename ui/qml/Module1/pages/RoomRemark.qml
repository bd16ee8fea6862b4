import QtQuick 2.15
import RoomRemarkVm 1.0
import "../../Components"

// The room's remark. Text comes from the system's keyboard.
RoomPage {
    id: page

    confirmText: "确  定"
    saver: pageVm
    onStarted: pageVm.init(vm.pRoomDetail)

    RoomRemarkVm {
        id: pageVm
    }

    RemarkArea {
        anchors.fill: parent
        text: pageVm.remark
        onTextChanged: pageVm.remark = text
    }
}
