import QtQuick 2.15
import QtQuick.Controls 2.15
import GlobalConfig 1.0
import MainClass 1.0
import "../Components"
import "../DlgManager.js" as Dlg
import "../../js/Func.js" as JsFunc

// What the terminal shows once it runs: the header, and below it the tiles or the open module.
Rectangle {
    id: page

    // Module word of the login where it isn't the tile's code.
    readonly property var loginWords: ({YJ: "CONSUME_CTRL", JRZB: "CONSUME_CTRL", TRANSFER_CTRL: "PAY_CTRL"})

    // What a tile opens: the module's page with what it gets from the login.
    readonly property var modules: ({
        CONSUME_CTRL: {page: "Module2", properties: res => ({})},
        ROOMINFO_CTRL: {page: "Module1", properties: res => ({})},
        STAFF_QTZ_CTRL: {page: "Module3", properties: res => ({staffNo: res.staffNo})},
        HELP_BASH_WAIT: {page: "Module4", properties: res => ({staffNo: res.userNo, staffPwd: res.pwd, staffUid: res.staffUid, staffId: res.staffId})},
        SYS_CTRL: {page: "Module5", properties: res => ({})},
        NO_ITEM_SERVER: {page: "Module6", properties: res => ({staffNo: res.staffNo, staffId: res.staffId})},
        SELF_ORDER: {page: "Module7", properties: res => ({})},
        ZZC_CTRL: {page: "Module8", properties: res => ({})},
        TRANSFER_CTRL: {page: "Module9", properties: res => ({})}
    })

    // The modules that have a page.
    readonly property var pages: ({Module1: "qrc:/qml/Module1/Module1.qml", Module2: "qrc:/qml/Module2/Module2.qml"})

    // Dialogs that a tile opens in place of a page.
    readonly property var summaries: ({YJ: "sellSumDlg", JRZB: "todaySumDlg"})

    function isLoggedIn(word) {
        const res = Dlg.showDialog("loginDlg", {funcVal: word})
        return res !== undefined && res.dlgResult ? res : undefined
    }

    function onSelectMenu(code) {
        const word = loginWords[code] || code
        const res = isLoggedIn(word)
        if (res === undefined)
            return
        GlobalConfig.currentMod = word
        if (modules[code] !== undefined)
            openModule(modules[code].page, modules[code].properties(res))
        else if (summaries[code] !== undefined)
            Dlg.showDialog(summaries[code], {})
    }

    function openModule(name, properties) {
        if (pages[name] !== undefined)
            stackView.push(pages[name], properties)
        else
            stackView.push(modulePage, {module: name})
    }

    function leaveModule() {
        if (stackView.depth <= 1)
            return
        if (GlobalConfig.isCurrentModeLocked && isLoggedIn(GlobalConfig.currentMod) === undefined)
            return
        stackView.pop()
        gc()
    }

    function toggleLock() {
        if (GlobalConfig.isCurrentModeLocked && isLoggedIn(GlobalConfig.currentMod) === undefined)
            return
        GlobalConfig.isCurrentModeLocked = !GlobalConfig.isCurrentModeLocked
    }

    objectName: "mainPage"
    gradient: Gradient {
        GradientStop { position: 0; color: Theme.backgroundFrom }
        GradientStop { position: 1; color: Theme.backgroundTo }
    }
    transform: Rotation {
        id: turn
        origin.x: root.width / 2
        origin.y: root.height / 2
        axis { x: 0; y: 1; z: 0 }
    }
    Component.onCompleted: turnIn.start()

    NumberAnimation {
        id: turnIn
        target: turn
        property: "angle"
        from: 90
        to: 0
        duration: 300
    }

    NumberAnimation {
        id: turnOut
        target: turn
        property: "angle"
        from: 0
        to: 90
        duration: 300
    }

    HeaderBar {
        id: header
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        isModuleOpen: stackView.depth > 1
        onBack: JsFunc.timerOnce(GlobalConfig.dlgDeplyTime, () => page.leaveModule())
        onLock: JsFunc.timerOnce(GlobalConfig.dlgDeplyTime, () => page.toggleLock())
    }

    StackView {
        id: stackView
        objectName: "stackView"
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: header.bottom
        anchors.bottom: parent.bottom
        initialItem: tileGrid
        // A tap right behind the one that opened or closed a module must count, so nothing slides.
        pushEnter: null
        pushExit: null
        popEnter: null
        popExit: null
        onDepthChanged: {
            if (depth > 1)
                MainClass.startTimer()
            else
                MainClass.stopTimer()
        }
    }

    Component {
        id: tileGrid

        TileGrid {
            onChosen: page.onSelectMenu(code)
            onLinesAsked: Dlg.showDialog("cloudDlg", {})
        }
    }

    Component {
        id: modulePage
        ModulePage {}
    }
}
