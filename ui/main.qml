import QtQuick 2.15
import QtQuick.Controls 2.15
import QtQuick.Window 2.15
import GlobalConfig 1.0
import MyMessage 1.0
import MainClass 1.0
import DlgManager 1.0
import "qml/Components"
import "qml/StartingPage"
import "qml/MainPage"
import "qml/DlgManager.js" as Dlg

ApplicationWindow {
    id: root

    property bool isBusyDlgOpened: false

    function showMessage(msg, infoType) {
        message.text = msg
        message.type = infoType
        message.canReprint = false
        message.show = true
        if (infoType === "success" || infoType === "error" || infoType === "info")
            message.openTimer()
    }

    // The dialogs that are windows of their own, the front one last.
    property var dialogWindows: []

    function noteWindow(dialog, isOpen) {
        dialogWindows = dialogWindows.filter(open => open !== dialog).concat(isOpen ? [dialog] : [])
    }

    // A dialog that is made here outlives the page that asked for it.
    function componentOf(page) {
        return Qt.createComponent(page)
    }

    function openBusyDlg() {
        if (isBusyDlgOpened)
            return
        isBusyDlgOpened = true
        busyDialog.open()
    }

    function closeBusyDlg() {
        busyDialog.close()
        isBusyDlgOpened = false
    }

    function showMsgConfirm(title, msg, limitMs) {
        const question = {titleText: title, contentText: msg, limitMs: limitMs}
        const confirmed = Dlg.showDialog("msgConfirmDlg", question)
        MainClass.msgConfirmResult(confirmed === true ? 1 : 0)
    }

    function showAuthDlg() {
        const res = Dlg.showDialog("authDlg", {})
        if (res === undefined || !res.dlgResult)
            return
        DlgManager.authResult(res.staffId, res.staffNo, res.staffName)
    }

    function showCloud() {
        const res = Dlg.showDialog("cloudDlg", {})
        DlgManager.cloudResult(res !== undefined && res.dlgResult)
    }

    objectName: "root"
    title: "Kv_Panel_V2"
    // Where there is no window manager the full-screen state alone leaves a tiny window.
    width: Screen.width
    height: Screen.height
    visible: true
    visibility: Window.FullScreen
    font.family: Pinfang
    font.pixelSize: Theme.textSize
    color: Theme.backgroundTo

    Component.onCompleted: {
        MyMessage.reprintOffered.connect(() => message.canReprint = true)
        MyMessage.showMessageSignal.connect(showMessage)
        MyMessage.openBusyDlgSignal.connect(openBusyDlg)
        MyMessage.closeBusyDlgSignal.connect(closeBusyDlg)
        MainClass.msgConfirmSignal.connect(showMsgConfirm)
        DlgManager.authSignal.connect(showAuthDlg)
        DlgManager.cloudSignal.connect(showCloud)
    }

    Binding {
        target: Theme
        property: "windowWidth"
        value: root.width
    }

    Binding {
        target: Theme
        property: "windowHeight"
        value: root.height
    }

    Loader {
        anchors.fill: parent
        objectName: "pageLoader"
        sourceComponent: GlobalConfig.iSysStatus === 0 ? startingPage : mainPage
    }

    Component {
        id: startingPage
        StartingPage {}
    }

    Component {
        id: mainPage
        MainPage {}
    }

    Dialog {
        id: busyDialog
        objectName: "busyDialog"
        anchors.centerIn: Overlay.overlay
        modal: true
        closePolicy: Popup.NoAutoClose
        background: null
        Overlay.modal: Item {}
        contentItem: BusyIndicator {}
    }

    // A dialog that is a window of its own shades the rest like any other.
    Rectangle {
        parent: Overlay.overlay
        anchors.fill: parent
        z: 900
        visible: root.dialogWindows.length > 0
        color: Theme.shade
    }

    CallRing {
        parent: Overlay.overlay
    }

    Message {
        id: message
        owner: root.dialogWindows.length > 0 ? root.dialogWindows[root.dialogWindows.length - 1] : root
    }
}
