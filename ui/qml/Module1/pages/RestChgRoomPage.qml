import QtQuick 2.15
import RestChgRoomVm 1.0
import "../../Components"

// Moves the guests of a rest room to an empty room, under a plan of that room.
RoomPage {
    id: page

    confirmText: "确定换房"
    vm: RestChgRoomVm {}
    start: () => vm.init(page.roomId)

    Row {
        anchors.fill: parent
        spacing: Theme.spacing

        CaptionedBox {
            width: (page.width - Theme.spacing) * 0.6
            height: parent.height
            caption: "换入房间"

            MoveChooser {
                anchors.fill: parent
                page: page
            }
        }

        CaptionedBox {
            width: parent.width - x
            height: parent.height
            caption: "计费方案"

            PlanGrid {
                anchors.fill: parent
                model: page.vm.pPlanListModel
                choose: index => page.vm.checkPlan(index)
            }
        }
    }
}
