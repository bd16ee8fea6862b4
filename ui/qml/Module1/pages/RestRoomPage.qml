import QtQuick 2.15
import "../../Components"

// The cards and the plan of what is to be a rest room. Where no hand cards of guests are used, none are asked for.
RoomPage {
    id: page

    property alias cardCaption: cardBox.caption
    property alias choosePlan: plans.choose

    Row {
        anchors.fill: parent
        spacing: Theme.spacing

        CardAsk {
            id: ask
            visible: !page.vm.usedRoomMod
            work: page.work
            take: number => page.vm.getCardInfo(number, "")
        }

        CaptionedBox {
            id: cardBox
            width: (page.width - ask.width - Theme.spacing) * 0.45
            height: parent.height

            CardGrid {
                objectName: "cards"
                anchors.fill: parent
                emptyText: "请先添加手牌"
                remove: (index, cardNo) => page.vm.deleteCard(index, cardNo)
                model: page.vm.pCardListModel
            }
        }

        CaptionedBox {
            width: parent.width - x
            height: parent.height
            caption: "计费方案"

            PlanGrid {
                id: plans
                anchors.fill: parent
                model: page.vm.pPlanListModel
            }
        }
    }
}
