import QtQuick 2.15
import RoomDetailVm 1.0

// A room in use: what is known of it, and everything that may be done with it. It shows the room as it was when the
// dialog opened.
RoomDialog {
    objectName: "roomDetailDlg"
    title: "包房详情"
    vm: RoomDetailVm {
        id: roomVm
    }
    start: () => {
        if (roomVm.init(roomId) && roomVm)
            load("RoomConsumePage")
    }
    factHeight: height * 0.29
    factRows: 6
    // The remark is the one text that is often long.
    facts: [
        {label: "房 间 号:", field: "roomNo"}, {label: "房     型:", field: "roomType"}, {label: "楼     层:", field: "roomFloor"},
        {label: "计费方案:", field: "planName"}, {label: "开房时长:", field: "openHours"}, {label: "开房时间:", field: "openTime"},
        {label: "已开时长:", field: "usedHours"}, {label: "剩余时长:", field: "leftHours"}, {label: "超时时长:", field: "overHours"},
        {label: "开 房 人:", field: "staffNo", rows: 2}, {label: "备注信息:", field: "remark", columns: 2, rows: 2},
        {label: "联房房号:", field: "groupRoom", columns: 3}
    ]
    factText: field => field !== "roomNo" || roomVm.roomNo === "" ? roomVm[field] : roomVm.roomNo + "【" + roomVm.statusStr + "】"
    pages: ({
        ADD_CARD: "RoomAddCardsPage",
        MASS_CHG_ROOM: "MassChgRoomPage",
        REST_CHG_ROOM: "RestChgRoomPage",
        REST_CHG_PLAN: "RestChgPlanPage",
        MASS_CHG_REST: "MassChgRestPage",
        REST_CHG_MASS: "RestChgMassPage",
        REMARK_ROOM: "RoomRemark",
        OUT_ROOM: "LeaveRoomPage",
        UNION_ROOM: "MergeRoomPage",
        UNPACK_ROOM: "RoomCardSplitPage",
        ADD_TIME: "RoomAddTimePage",
        ROOM_CALLING: "RoomCallPage"
    })
    actions: ({
        CANCEL_ROOM: {question: "确定要取消当前房间【%1】?", run: () => roomVm.cancelRoom()},
        LEAVE_TEAM: {question: "确定要离开团体", run: () => roomVm.cancelTeam()}
    })
}
