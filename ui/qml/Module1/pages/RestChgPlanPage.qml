import QtQuick 2.15
import RestChgPlanVm 1.0
import "../../Components"

// Puts the rest room under another plan.
RoomPage {
    id: page

    confirmText: "确定修改"
    vm: RestChgPlanVm {}
    start: () => vm.init(page.roomId)

    PlanGrid {
        anchors.fill: parent
        model: page.vm.pPlanListModel
        choose: index => page.vm.selectPlan(index)
    }
}
