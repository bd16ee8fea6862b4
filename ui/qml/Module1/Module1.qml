import QtQuick 2.15
import GlobalConfig 1.0
import Module1Vm 1.0
import MyMessage 1.0
import "../Components"
import "../DlgManager.js" as Dlg
import "../../js/Func.js" as JsFunc
import "../../js/Glyphs.js" as Glyphs

// The room board: every room of the house, live.
Item {
    id: page

    readonly property int columns: vm.itemColumns === 0 ? 8 : vm.itemColumns

    function chooseRoom(roomId, roomNo, status, openType, dirtyFlg, roomLock, cleanFlg) {
        JsFunc.singly(15, () => onSelectRoom(roomId, roomNo, status, openType, dirtyFlg, roomLock, cleanFlg))
    }

    // What a tap on a room does; the first branch that applies.
    function onSelectRoom(roomId, roomNo, status, openType, dirtyFlg, roomLock, cleanFlg) {
        if (status === 1) {
            if (roomLock)
                MyMessage.showError("当前包房已被预约,不能直接开房")
            else
                Dlg.showDialog("openRoomDlg", {roomId: roomId})
        } else if (status === 2 || (status === 3 && openType !== 2)) {
            Dlg.showDialog("roomDetailDlg", {roomId: roomId})
        } else if (status === 4 || (status === 5 && dirtyFlg)) {
            if (status === 4 && vm.isCleaning && cleanFlg !== 2)
                stepCleaning(roomId, roomNo, cleanFlg)
            else if (isConfirmed("confirmDlg", emptyQuestion(roomNo)))
                vm.cleanRoom(roomId, true)
        } else if (status === 3 || (status === 6 && openType === 2)) {
            MyMessage.showError("此程序不支持客房功能")
        } else if (status === 5) {
            if (isConfirmed("msgConfirmDlg", emptyQuestion(roomNo)))
                vm.cleanRoom(roomId, false)
        }
    }

    function stepCleaning(roomId, roomNo, cleanFlg) {
        const questions = ["确定要[开始清扫]当前房间【" + roomNo + "】?", "当前房间【" + roomNo + "】 确定[清扫完成]?"]
        if (questions[cleanFlg] !== undefined && isConfirmed("confirmDlg", questions[cleanFlg]))
            vm.setCleanFlg(roomId, cleanFlg + 1)
    }

    function emptyQuestion(roomNo) {
        return "确定要将当前房间【" + roomNo + "】转成空闲房?"
    }

    function isConfirmed(dialog, question) {
        const result = Dlg.showDialog(dialog, {titleText: "提示", contentText: question})
        return vm && (result === true || (result !== undefined && result.dlgResult === true))
    }

    // The number that the user typed; empty when he didn't.
    function askNumber(prompt) {
        const result = Dlg.showDialog("numKeyDlg", {strText: prompt})
        return result !== undefined && result.dlgResult ? result.inputText : ""
    }

    function searchRoom() {
        const roomNo = askNumber("请输入房间号")
        if (roomNo !== "" && vm)
            vm.queryRoom(roomNo)
    }

    function searchCard() {
        const cardNo = askNumber("请输入手牌号")
        if (cardNo !== "" && vm)
            vm.queryCard(cardNo, "")
    }

    objectName: "Module1"

    Module1Vm {
        id: vm
        onSelectRoomSignal: page.chooseRoom(id, roomNo, status, openType, dirtyFlg, roomLock, cleanFlg)
    }

    Item {
        id: top
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: 8
        height: 56

        BoardStrip {
            id: strip
            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            width: buttons.x - Theme.spacing
            model: vm.pRoomStatusModel
            enabled: vm.isEnabled
            onChosen: JsFunc.delay15(() => {
                // What is refused while another action runs must not be shown as chosen.
                if (!vm || !vm.isEnabled)
                    return
                strip.currentCode = code
                vm.onSelectStatus(code)
            })
        }

        Row {
            id: buttons
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            spacing: 12

            PushButton {
                objectName: "roomSearchButton"
                implicitHeight: 52
                pixelSize: 22
                iconText: Glyphs.search
                text: "房间搜索"
                onClicked: JsFunc.delay15(() => page.searchRoom())
            }

            PushButton {
                objectName: "cardSearchButton"
                visible: !vm.usedRoomMod
                implicitHeight: 52
                pixelSize: 22
                iconText: Glyphs.search
                text: "手牌搜索"
                onClicked: JsFunc.delay15(() => page.searchCard())
            }

            // Both of its colours want a dark ground.
            Rectangle {
                width: 60
                height: 52
                radius: Theme.radius
                color: "#2B3F55"

                IconButton {
                    objectName: "modeButton"
                    anchors.fill: parent
                    enabled: vm.isEnabled
                    pixelSize: 40
                    iconText: Glyphs.list
                    iconColor: vm.isGroupMode ? "#0B9E9F" : "#DCDDDD"
                    label: "按房型分组"
                    onClicked: JsFunc.delay15(() => vm && vm.onChgMode())
                }
            }
        }
    }

    Item {
        id: board
        anchors.left: parent.left
        anchors.top: top.bottom
        anchors.topMargin: 8
        anchors.bottom: parent.bottom
        width: parent.width * 0.82

        RoomGrid {
            objectName: "roomGrid"
            anchors.fill: parent
            visible: !vm.isGroupMode
            model: vm.pRoomModel
            columns: page.columns
            onChosen: page.chooseRoom(roomId, roomNo, status, openType, dirtyFlg, roomLock, cleanFlg)
        }

        RoomGroups {
            objectName: "roomGroups"
            anchors.fill: parent
            visible: vm.isGroupMode
            model: vm.pRoomSortModel
            columns: page.columns
            onChosen: page.chooseRoom(roomId, roomNo, status, openType, dirtyFlg, roomLock, cleanFlg)
        }
    }

    Column {
        id: side
        anchors.left: board.right
        anchors.right: parent.right
        anchors.rightMargin: 8
        anchors.top: board.top
        anchors.bottom: parent.bottom
        spacing: height * 0.025

        SidePanel {
            objectName: "floorPanel"
            width: side.width
            height: side.height * 0.25
            title: "楼层"
            model: vm.pRoomFloorModel
            enabled: vm.isEnabled
            delegate: FilterRow {
                objectName: "floor_" + model.floorName
                width: ListView.view.width
                name: model.floorName
                num: model.num
                isChecked: model.isChecked
                onChosen: {
                    const id = model.floorId
                    JsFunc.delay15(() => vm && vm.onChgFloor(id))
                }
            }
        }

        SidePanel {
            objectName: "typePanel"
            width: side.width
            height: side.height * 0.35
            title: "房型"
            model: vm.pRoomTypeModel
            enabled: vm.isEnabled
            delegate: FilterRow {
                objectName: "type_" + model.typeName
                width: ListView.view.width
                name: model.typeName
                num: model.num
                isChecked: model.isChecked
                onChosen: {
                    const id = model.typeId
                    JsFunc.delay15(() => vm && vm.onChgType(id))
                }
            }
        }

        SidePanel {
            objectName: "overTimePanel"
            width: side.width
            height: side.height * 0.35
            title: "异常"
            model: vm.pRoomOverTimeModel
            delegate: OverTimeRow {
                width: ListView.view.width
                roomNo: model.roomNo
                overDesc: model.overDesc
            }
        }
    }
}
