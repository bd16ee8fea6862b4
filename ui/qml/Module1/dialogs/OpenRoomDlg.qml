import QtQuick 2.15
import GlobalConfig 1.0
import OpenRoomVm 1.0
import "../../DlgManager.js" as Dlg

// An empty room: opening it, occupying it, or sending it to cleaning.
RoomDialog {
    id: dlg

    objectName: "openRoomDlg"
    title: "包房操作"
    startDelay: GlobalConfig.initDelyTime
    isEnabled: vm.isEnabled
    pageRoomId: vm.roomId
    pageRoomNo: vm.roomNo
    menuModel: vm.pMenuModel
    pages: ({MASS_ROOM: "OpenMassPage", REST_ROOM: "OpenRestPage", OCCUPY_ROOM: "OpenOccupyPage"})
    onStarted: vm.init(roomId)
    onActed: {
        const question = "确定要将当前房间【" + vm.roomNo + "】转成清扫房?"
        const isConfirmed = Dlg.showDialog("msgConfirmDlg", {titleText: "提示", contentText: question}) === true
        if (isConfirmed && vm && vm.cleanRoom())
            finish(false)
    }

    OpenRoomVm {
        id: vm
    }

    infoHeight: 52
    info: Row {
        id: facts
        anchors.fill: parent

        Repeater {
            model: [
                {label: "房 间 号:", field: "roomNo"}, {label: "房     型:", field: "typeName"}, {label: "楼     层:", field: "floorName"}
            ]

            RoomFact {
                objectName: "fact_" + modelData.field
                width: facts.width / 3
                height: facts.height
                label: modelData.label
                text: vm[modelData.field]
            }
        }
    }
}
