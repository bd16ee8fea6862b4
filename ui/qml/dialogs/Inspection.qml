import QtQml 2.15
import QtQml.Models 2.15

// What the self-test opens these dialogs with; those that aren't named show enough as they are.
QtObject {
    property var test: null

    readonly property var workAreas: ListModel {
        ListElement { areaId: ""; areaName: "全部区域" }
        ListElement { areaId: "1"; areaName: "足疗区" }
    }

    readonly property var samples: ({
        loginDlg: {funcVal: "ROOMINFO_CTRL"},
        numKeyDlg: {strText: "请输入手牌号"},
        msgConfirmDlg: {titleText: "提示", contentText: "确定要取消当前房间【112】?"},
        confirmDlg: {titleText: "提示", contentText: "确定要将当前房间【112】转成空闲房?"},
        dateTimeDlg: {text: "预约时间"},
        remarkDlg: {remark: "客人要求水温偏热"},
        workAreaDlg: {areaList: workAreas}
    })

    function openings(dialog) {
        if (dialog === "tasteDlg")
            return [{properties: {}, missing: "it needs an item that the back end knows"}]
        return samples[dialog] === undefined ? undefined : [{properties: samples[dialog]}]
    }
}
