import QtQuick 2.15
import RestChgRoomVm 1.0
import "../../Components"
import "../../../js/Func.js" as JsFunc

// Moves the guests of a rest room to an empty room, under a plan of that room.
RoomPage {
    id: page

    confirmText: "确定换房"
    saver: pageVm
    onStarted: pageVm.init(page.roomId)

    RestChgRoomVm {
        id: pageVm
    }

    CaptionedBox {
        id: roomBox
        width: (page.width - Theme.spacing) * 0.6
        height: parent.height
        caption: "换入房间"

        RoomChooser {
            anchors.fill: parent
            model: pageVm.pEmptyRoomModel
            onSearched: pageVm.getRoomInfo(roomNo)
            onChosen: JsFunc.delay15(() => pageVm && pageVm.selectRoom(index))

            NeedCleanMark {
                changer: pageVm
            }
        }
    }

    CaptionedBox {
        anchors.left: roomBox.right
        anchors.leftMargin: Theme.spacing
        anchors.right: parent.right
        height: parent.height
        caption: "计费方案"

        PlanGrid {
            anchors.fill: parent
            model: pageVm.pPlanListModel
            onChosen: JsFunc.delay15(() => pageVm && pageVm.checkPlan(index))
        }
    }
}
