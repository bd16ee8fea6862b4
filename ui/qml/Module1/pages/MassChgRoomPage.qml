import QtQuick 2.15
import MassChgRoomVm 1.0
import "../../../js/Func.js" as JsFunc

// Moves the guests of a massage room to an empty room.
RoomPage {
    id: page

    confirmText: "确定换房"
    saver: pageVm
    onStarted: pageVm.init(page.roomId)

    MassChgRoomVm {
        id: pageVm
    }

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
