import QtQuick 2.15
import RestAddTimeVm 1.0
import "../../Components"

// Gives the rest room more hours.
RoomPage {
    id: page

    confirmText: "确定修改"
    saver: pageVm
    onStarted: pageVm.init(page.roomId)

    RestAddTimeVm {
        id: pageVm
    }

    Stepper {
        anchors.centerIn: parent
        label: "增加时长"
        unit: "小时"
        minimum: 1
        value: pageVm.hours
        onLowered: pageVm.hours = Math.max(minimum, pageVm.hours - 1)
        onRaised: pageVm.hours += 1
    }
}
