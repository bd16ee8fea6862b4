import QtQuick 2.15
import RestChgPlanVm 1.0
import "../../../js/Func.js" as JsFunc

// Puts the rest room under another plan.
RoomPage {
    id: page

    confirmText: "确定修改"
    saver: pageVm
    onStarted: pageVm.init(page.roomId)

    RestChgPlanVm {
        id: pageVm
    }

    PlanGrid {
        anchors.fill: parent
        model: pageVm.pPlanListModel
        onChosen: JsFunc.delay15(() => pageVm && pageVm.selectPlan(index))
    }
}
