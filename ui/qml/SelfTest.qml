import QtQml 2.15
import QtQml.Models 2.15
import "DlgManager.js" as Dlg

// What the terminal's own test opens, in the place of a user.
QtObject {
    id: test

    readonly property var workAreas: ListModel {
        ListElement { areaId: ""; areaName: "全部区域" }
        ListElement { areaId: "1"; areaName: "足疗区" }
    }

    // Dialogs that show nothing of use without being told what; the others are opened as they are.
    readonly property var samples: ({
        loginDlg: {funcVal: "ROOMINFO_CTRL"},
        numKeyDlg: {strText: "请输入手牌号"},
        msgConfirmDlg: {titleText: "提示", contentText: "确定要取消当前房间【112】?"},
        confirmDlg: {titleText: "提示", contentText: "确定要将当前房间【112】转成空闲房?"},
        dateTimeDlg: {text: "预约时间"},
        remarkDlg: {remark: "客人要求水温偏热"},
        workAreaDlg: {areaList: workAreas}
    })

    // Those that need a room are opened with one.
    readonly property var roomDialogs: ["openRoomDlg", "roomDetailDlg"]

    // The names of the dialogs that have a page and need no room.
    function dialogs() {
        return Object.keys(Dlg.dlgMap).filter(name => !roomDialogs.includes(name) && isBuilt(Dlg.dlgMap[name]))
    }

    function isBuilt(page) {
        const comp = Qt.createComponent(page)
        const isThere = comp.status === 1 || !comp.errorString().includes("No such file") // 1: Component.Ready
        comp.destroy()
        return isThere
    }

    // Returns when the dialog has closed.
    function open(name, properties) {
        Dlg.showDialog(name, samples[name] || properties)
    }
}
