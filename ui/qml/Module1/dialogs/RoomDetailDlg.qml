import QtQuick 2.15
import RoomDetailVm 1.0
import "../../Components"
import "../../DlgManager.js" as Dlg

// A room in use: what is known of it, and everything that may be done with it. It shows the room as it was when the
// dialog opened.
RoomDialog {
    id: dlg

    readonly property string numberAndState: vm.roomNo === "" ? "" : vm.roomNo + "【" + vm.statusStr + "】"

    function isConfirmed(question) {
        return Dlg.showDialog("msgConfirmDlg", {titleText: "提示", contentText: question}) === true
    }

    objectName: "roomDetailDlg"
    title: "包房详情"
    isEnabled: vm.isEnabled
    pageRoomId: vm.roomId
    pageRoomNo: vm.roomNo
    menuModel: vm.pMenuModel
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
    onStarted: {
        if (vm.init(roomId) && vm)
            load("RoomConsumePage")
    }
    onActed: {
        if (code === "CANCEL_ROOM") {
            if (isConfirmed("确定要取消当前房间【" + vm.roomNo + "】?") && vm && vm.cancelRoom())
                finish(false)
        } else if (code === "LEAVE_TEAM") {
            if (isConfirmed("确定要离开团体") && vm && vm.cancelTeam())
                finish(false)
        }
    }

    RoomDetailVm {
        id: vm
    }

    infoHeight: height * 0.29
    info: Flow {
        id: facts

        readonly property real rowHeight: Math.floor(parent.height / 6)

        anchors.fill: parent

        Repeater {
            model: [
                {label: "房 间 号:", field: "roomNo"}, {label: "房     型:", field: "roomType"}, {label: "楼     层:", field: "roomFloor"},
                {label: "计费方案:", field: "planName"}, {label: "开房时长:", field: "openHours"}, {label: "开房时间:", field: "openTime"},
                {label: "已开时长:", field: "usedHours"}, {label: "剩余时长:", field: "leftHours"}, {label: "超时时长:", field: "overHours"}
            ]

            RoomFact {
                objectName: "fact_" + modelData.field
                width: facts.width / 3
                height: facts.rowHeight
                label: modelData.label
                text: index === 0 ? dlg.numberAndState : vm[modelData.field]
            }
        }

        RoomFact {
            objectName: "fact_staffNo"
            width: facts.width / 3
            height: facts.rowHeight * 2
            label: "开 房 人:"
            text: vm.staffNo
        }

        // The one text that is often long.
        RoomFact {
            objectName: "fact_remark"
            width: facts.width * 2 / 3
            height: facts.rowHeight * 2
            label: "备注信息:"
            text: vm.remark
        }

        RoomFact {
            objectName: "fact_groupRoom"
            width: facts.width
            height: facts.rowHeight
            label: "联房房号:"
            text: vm.groupRoom
        }
    }
}
