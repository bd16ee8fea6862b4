import QtQuick 2.15
import RestAddTimeVm 1.0

// Gives the rest room more hours.
RoomPage {
    id: page

    confirmText: "确定修改"
    vm: RestAddTimeVm {}
    start: () => vm.init(page.roomId)

    HoursStepper {
        anchors.centerIn: parent
        label: "增加时长"
        vm: page.vm
    }
}
