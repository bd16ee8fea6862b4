import QtQuick 2.15
import "../../Components"

// The cards and hours of what is to be a massage room. Where no hand cards of guests are used, none are asked for.
RoomPage {
    id: page

    property alias checkText: cards.checkText
    property alias check: cards.check
    property alias emptyText: cards.emptyText

    CardAsk {
        id: ask
        visible: !page.vm.usedRoomMod
        work: page.work
        take: number => page.vm.getCardInfo(number, "")
    }

    HoursStepper {
        anchors.left: ask.right
        anchors.leftMargin: ask.visible ? 2 * Theme.spacing : 0
        anchors.verticalCenter: ask.verticalCenter
        vm: page.vm
    }

    CardGrid {
        id: cards
        objectName: "cards"
        anchors.fill: parent
        anchors.topMargin: ask.height + Theme.spacing
        remove: index => page.vm.deleteCard(index)
        model: page.vm.pCardListModel
    }
}
