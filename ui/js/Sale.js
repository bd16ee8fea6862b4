// What a new line of an order has to be asked.
.import "../qml/DlgManager.js" as Dlg

const answered = ["num", "price", "tagIds", "staffNo", "pushNo", "overFlg", "serviceType"]

function inputs(dialog, line) {
    if (dialog === "staffQueryDlg")
        return {strText: "选择业绩人"}
    const given = {itemName: line.itemName, itemPrice: "¥" + Number(line.price).toFixed(2), itemNum: line.num}
    if (dialog === "tasteDlg")
        given.itemId = line.itemId
    return given
}

// Asks in the line's dialogs and puts the answers on it; whether all were answered.
function isCompleted(line) {
    for (const dialog of line.dialogs) {
        const answer = Dlg.showDialog(dialog, inputs(dialog, line))
        if (answer === undefined || !answer.dlgResult)
            return false
        for (const key of answered) {
            if (answer[key] !== undefined)
                line[key] = answer[key]
        }
        if (answer.remark)
            line.remark = answer.remark
    }
    return true
}
