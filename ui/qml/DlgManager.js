// Dialogs as function calls: showDialog returns when the user has finished.

const dlgMap = {
    tasteDlg: "./dialogs/TasteDlg.qml",
    definePriceDlg: "./dialogs/DefinePriceDlg.qml",
    loginDlg: "./dialogs/LoginDialog.qml",
    numDlg: "./dialogs/NumDlg.qml",
    numKeyDlg: "./dialogs/NumKeyDlg.qml",
    setJsServiceDlg: "./dialogs/SetJsServiceDlg.qml",
    staffQueryDlg: "./dialogs/StaffQueryDlg.qml",
    openRoomDlg: "./Module1/dialogs/OpenRoomDlg.qml",
    roomDetailDlg: "./Module1/dialogs/RoomDetailDlg.qml",
    msgConfirmDlg: "./dialogs/MsgConfirmDlg.qml",
    inputOrReadDlg: "./dialogs/InputOrReadDlg.qml",
    serviceEvalDlg: "./Module4/dialogs/ServiceEvalDlg.qml",
    testDialog: "./dialogs/TestDialog.qml",
    authDlg: "./dialogs/AuthDlg.qml",
    dateTimeDlg: "./dialogs/DateTimeDlg.qml",
    sellSumDlg: "./Module2/dialogs/SellSumDlg.qml",
    workAreaDlg: "./dialogs/WorkAreaDlg.qml",
    confirmDlg: "qrc:/qml/dialogs/ConfirmDlg.qml",
    passRecordDlg: "qrc:/qml/Module4/dialogs/PassRecordDlg.qml",
    chgTpDlg: "qrc:/qml/Module2/dialogs/ChgTpDlg.qml",
    cloudDlg: "qrc:/qml/dialogs/CloudDlg.qml",
    remarkDlg: "qrc:/qml/dialogs/RemarkDlg.qml",
    todaySumDlg: "qrc:/qml/dialogs/TodaySumDlg.qml",
    transferCardsDlg: "qrc:/qml/Module9/dialogs/TransferCardsDlg.qml",
    allInCardsDlg: "qrc:/qml/Module2/dialogs/AllInCardsDlg.qml"
}

// Undefined when the key is unknown or the page doesn't load; callers treat that like a cancel.
function showDialog(dlgName, obj) {
    const page = dlgMap[dlgName]
    if (page === undefined)
        return undefined
    const comp = root.componentOf(Qt.resolvedUrl(page))
    const dlg = comp.status === 1 ? comp.createObject(root, obj) : null // 1: Component.Ready
    if (!dlg) {
        console.log(comp.errorString())
        comp.destroy()
        return undefined
    }
    try {
        return dlg.exec()
    } finally {
        dlg.destroy()
        comp.destroy()
        gc()
    }
}
