import QtQuick 2.15
import "../Components"
import "../../js/Glyphs.js" as Glyphs

// Whom the sale is for and what may be done with it. Nothing moves when a guest comes or goes.
Item {
    id: head

    property QtObject vm: null
    property var addGuest: null
    property var addRoom: null
    property var cancel: null
    property var save: null
    property var showSums: null
    property var showCards: null

    implicitHeight: Theme.px(64)

    Row {
        id: adding
        height: parent.height
        spacing: Theme.gap

        PushButton {
            objectName: "addGuestButton"
            width: Theme.px(164)
            height: parent.height
            pixelSize: Theme.headSize
            iconText: vm.usedRoomMod ? Glyphs.roomDoor : Glyphs.card
            text: vm.usedRoomMod ? "添加房间" : "添加手牌"
            action: () => head.addGuest()
        }

        PushButton {
            objectName: "addRoomButton"
            width: Theme.px(164)
            height: parent.height
            visible: !vm.usedRoomMod
            pixelSize: Theme.headSize
            iconText: Glyphs.roomDoor
            text: "添加房间"
            action: () => head.addRoom()
        }
    }

    Column {
        anchors.left: adding.right
        anchors.leftMargin: Theme.spacing
        anchors.right: deeds.left
        anchors.rightMargin: Theme.gap
        anchors.verticalCenter: parent.verticalCenter
        visible: vm.hasGuest

        PlainText {
            objectName: "guestText"
            width: parent.width
            text: vm.isCustMode ? "房间号: " + vm.roomNo : "手牌号: " + vm.cardNo
            font.pixelSize: Theme.headSize
        }

        PlainText {
            objectName: "totalText"
            width: parent.width
            text: "总金额:¥" + vm.totalAmount.toFixed(2)
            font.pixelSize: Theme.titleSize
            font.bold: true
        }
    }

    Row {
        id: deeds
        anchors.right: looking.left
        anchors.rightMargin: Theme.spacing
        height: parent.height
        spacing: Theme.gap

        PushButton {
            objectName: "cancelSaleButton"
            width: Theme.px(116)
            height: parent.height
            role: "plain"
            text: "取 消"
            action: () => head.cancel()
        }

        // Keeps its place without a guest.
        Item {
            width: Theme.px(150)
            height: parent.height

            PushButton {
                objectName: "saveSaleButton"
                anchors.fill: parent
                visible: vm.hasGuest
                enabled: vm.isEnabled
                text: "保 存"
                action: () => head.save()
            }
        }
    }

    Row {
        id: looking
        anchors.right: parent.right
        height: parent.height
        spacing: Theme.gap

        PushButton {
            objectName: "sumsButton"
            implicitWidth: Theme.px(150)
            height: parent.height
            role: "plain"
            pixelSize: Theme.textSize
            iconText: Glyphs.performance
            text: "业绩统计"
            action: () => head.showSums()
        }

        PushButton {
            objectName: "cardsButton"
            implicitWidth: Theme.px(150)
            height: parent.height
            role: "plain"
            pixelSize: Theme.textSize
            iconText: Glyphs.card
            text: "在场手牌"
            action: () => head.showCards()
        }
    }
}
