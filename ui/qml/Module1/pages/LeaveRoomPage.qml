import QtQuick 2.15
import LeaveRoomVm 1.0
import "../../../js/Func.js" as JsFunc

// Lets hand cards leave the room; in a rest room (status 3) one of them takes over what was consumed.
RoomPage {
    id: page

    confirmText: "确定离房"
    saver: pageVm
    onStarted: pageVm.init(vm.pRoomDetail)

    LeaveRoomVm {
        id: pageVm
    }

    CaptionedBox {
        anchors.fill: parent
        caption: "离房手牌"

        CardGrid {
            objectName: "cards"
            anchors.fill: parent
            selectedColor: "#27B2CA"
            restColor: "#D8D9D9"
            checkText: pageVm.status === 3 ? "消费记入" : ""
            model: pageVm.pCardListModel
            onTapped: JsFunc.delay15(() => pageVm && pageVm.selectCard(index))
            onChecked: JsFunc.delay15(() => pageVm && pageVm.selectConsumer(index))
        }
    }
}
