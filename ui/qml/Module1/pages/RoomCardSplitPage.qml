import QtQuick 2.15
import RoomCardSplitVm 1.0
import "../../Components"
import "../../../js/Func.js" as JsFunc

// Moves hand cards of the room to another one.
RoomPage {
    id: page

    confirmText: "确定拆房"
    saver: pageVm
    onStarted: pageVm.init(vm.pRoomDetail)

    RoomCardSplitVm {
        id: pageVm
    }

    CaptionedBox {
        id: cardBox
        width: page.width * 0.34
        height: parent.height
        caption: "拆离手牌"

        CardGrid {
            objectName: "cards"
            anchors.fill: parent
            selectedColor: "#27B2CA"
            restColor: "#D8D9D9"
            model: pageVm.pCardListModel
            onTapped: JsFunc.delay15(() => pageVm && pageVm.selectCard(index))
        }
    }

    CaptionedBox {
        anchors.left: cardBox.right
        anchors.leftMargin: Theme.spacing
        anchors.right: parent.right
        height: parent.height
        caption: "进入房间"

        RoomChooser {
            anchors.fill: parent
            model: pageVm.pEmptyRoomModel
            onSearched: pageVm.getRoomInfo(roomNo)
            onChosen: JsFunc.delay15(() => pageVm && pageVm.selectRoom(index))
        }
    }
}
