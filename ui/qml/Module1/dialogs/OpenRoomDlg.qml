import QtQuick 2.15
import GlobalConfig 1.0
import OpenRoomVm 1.0

// An empty room: opening it, occupying it, or sending it to cleaning.
RoomDialog {
    objectName: "openRoomDlg"
    title: "包房操作"
    vm: OpenRoomVm {
        id: roomVm
    }
    startDelay: GlobalConfig.initDelyTime
    start: () => roomVm.init(roomId)
    facts: [
        {label: "房 间 号:", field: "roomNo"}, {label: "房     型:", field: "typeName"}, {label: "楼     层:", field: "floorName"}
    ]
    pages: ({MASS_ROOM: "OpenMassPage", REST_ROOM: "OpenRestPage", OCCUPY_ROOM: "OpenOccupyPage"})
    actions: ({CLEAN_ROOM: {question: "确定要将当前房间【%1】转成清扫房?", run: () => roomVm.cleanRoom()}})
}
