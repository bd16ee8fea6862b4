import QtQuick 2.15
import Module1Vm 1.0
import "../Components"
import "../DlgManager.js" as Dlg
import "../../js/Ask.js" as Ask
import "../../js/Func.js" as JsFunc
import "../../js/Glyphs.js" as Glyphs

// The room board: every room of the house, live.
Item {
    id: page

    readonly property int columns: vm.columnsIn(board.width)
    readonly property bool isNarrow: width < 1200
    readonly property int gutter: 3 // what a tile leaves free on each of its sides

    // What comes of a tap, once; a second tap before that has ended is none.
    function answer(outcome) {
        JsFunc.singly(15, outcome)
    }

    function search(prompt, look) {
        const number = Ask.number(prompt)
        if (number !== undefined && vm)
            look(number)
    }

    // Changes what the board shows; the user sees it from the top.
    function choose(change) {
        // What is refused while another action runs must not be shown as chosen.
        if (!vm || !vm.isEnabled)
            return
        change()
        if (!vm)
            return
        grid.showTop()
        groups.showTop()
    }

    objectName: "Module1"

    Module1Vm {
        id: vm
        isOnScreen: page.visible
        onOpenRoomAsked: page.answer(() => Dlg.showDialog("openRoomDlg", {roomId: roomId}))
        onRoomDetailAsked: page.answer(() => Dlg.showDialog("roomDetailDlg", {roomId: roomId}))
        onCleanAsked: page.answer(() => {
            if ((dirtyFlg ? Ask.isConfirmedOnPage(question) : Ask.isConfirmed(question)) && vm)
                vm.cleanRoom(roomId, dirtyFlg)
        })
        onCleanFlgAsked: page.answer(() => {
            if (Ask.isConfirmedOnPage(question) && vm)
                vm.setCleanFlg(roomId, cleanFlg)
        })
    }

    Item {
        id: top
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: page.gutter
        height: Theme.px(56)

        BoardStrip {
            id: strip
            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            width: buttons.x - Theme.spacing
            model: vm.pRoomStatusModel
            enabled: vm.isEnabled
            onChosen: JsFunc.delay15(() => page.choose(() => {
                strip.currentCode = code
                vm.onSelectStatus(code)
            }))
        }

        Row {
            id: buttons
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            spacing: Theme.gap

            PushButton {
                objectName: "roomSearchButton"
                implicitHeight: strip.height
                width: page.isNarrow ? 116 : implicitWidth
                pixelSize: page.isNarrow ? Theme.captionSize : Theme.headSize
                iconText: Glyphs.search
                text: "房间搜索"
                action: () => page.search("请输入房间号", roomNo => vm.queryRoom(roomNo))
            }

            PushButton {
                objectName: "cardSearchButton"
                visible: !vm.usedRoomMod
                implicitHeight: strip.height
                width: page.isNarrow ? 116 : implicitWidth
                pixelSize: page.isNarrow ? Theme.captionSize : Theme.headSize
                iconText: Glyphs.search
                text: "手牌搜索"
                action: () => page.search("请输入手牌号", cardNo => vm.queryCard(cardNo, ""))
            }

            // Both of its colours want a dark ground.
            IconButton {
                objectName: "modeButton"
                width: page.isNarrow ? 52 : Theme.px(60)
                height: strip.height
                enabled: vm.isEnabled
                restColor: Theme.toolGround
                pressedColor: Theme.toolPressed
                pixelSize: Theme.px(40)
                iconText: Glyphs.list
                iconColor: vm.isGroupMode ? Theme.toolOn : Theme.toolOff
                label: "按房型分组"
                action: () => page.choose(() => vm.onChgMode())
            }
        }
    }

    Item {
        id: board
        anchors.left: parent.left
        anchors.top: top.bottom
        anchors.bottom: parent.bottom
        width: parent.width * 0.82

        RoomGrid {
            id: grid
            objectName: "roomGrid"
            anchors.fill: parent
            visible: !vm.isGroupMode
            model: vm.pRoomModel
            columns: page.columns
            onChosen: vm.tapRoom(roomId)
        }

        RoomGroups {
            id: groups
            objectName: "roomGroups"
            anchors.fill: parent
            visible: vm.isGroupMode
            model: vm.pRoomSortModel
            columns: page.columns
            onChosen: vm.tapRoom(roomId)
        }
    }

    Column {
        id: side
        anchors.left: board.right
        anchors.right: parent.right
        anchors.top: board.top
        anchors.bottom: parent.bottom
        anchors.margins: page.gutter
        spacing: height * 0.025

        FilterPanel {
            width: side.width
            height: side.height * 0.25
            title: "楼层"
            kind: "floor"
            model: vm.pRoomFloorModel
            enabled: vm.isEnabled
            choose: id => page.choose(() => vm.onChgFloor(id))
        }

        FilterPanel {
            width: side.width
            height: side.height * 0.35
            title: "房型"
            kind: "type"
            model: vm.pRoomTypeModel
            enabled: vm.isEnabled
            choose: id => page.choose(() => vm.onChgType(id))
        }

        OverTimePanel {
            width: side.width
            height: side.height * 0.35
            title: "异常"
            model: vm.pRoomOverTimeModel
            onChosen: vm.queryRoom(roomNo)
        }
    }
}
