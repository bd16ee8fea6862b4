import QtQuick 2.15
import QtQuick.Controls 2.15
import GlobalConfig 1.0
import MainClass 1.0
import Modules 1.0
import "../Components"
import "../DlgManager.js" as Dlg
import "../../js/Func.js" as JsFunc

// What the terminal shows once it runs: the header, and below it the tiles or the open module.
Rectangle {
    id: page

    property string moduleName: "" // of the module that was opened last, in words

    function isLoggedIn(word, name) {
        const res = Dlg.showDialog("loginDlg", {funcVal: word, moduleName: name || page.moduleName})
        return res !== undefined && res.dlgResult ? res : undefined
    }

    function onSelectMenu(code) {
        const word = Modules.of(code).loginWord
        const login = isLoggedIn(word, Modules.nameOf(code))
        if (login === undefined)
            return
        GlobalConfig.currentMod = word
        moduleName = Modules.nameOf(code)
        openModule(code, login)
    }

    function openModule(code, login) {
        const module = Modules.of(code)
        if (module.dialog !== "")
            Dlg.showDialog(module.dialog, {})
        else if (module.url !== "")
            stackView.push(module.url, Modules.arguments(code, login))
    }

    function leaveModule() {
        if (stackView.depth <= 1)
            return
        if (GlobalConfig.isCurrentModeLocked && isLoggedIn(GlobalConfig.currentMod) === undefined)
            return
        // A page may have something to lose.
        const open = stackView.currentItem
        if (open.mayLeave !== undefined && !open.mayLeave())
            return
        stackView.pop()
        gc()
    }

    // What was decided before the login is what it becomes, and only while a module is still open.
    function toggleLock() {
        const wanted = !GlobalConfig.isCurrentModeLocked
        if (!wanted && isLoggedIn(GlobalConfig.currentMod) === undefined)
            return
        if (stackView.depth > 1)
            GlobalConfig.isCurrentModeLocked = wanted
    }

    // Whatever is tapped on this page begins once, and nothing else of it until that has ended.
    function begin(action) {
        JsFunc.singly(GlobalConfig.dlgDeplyTime, () => page && action())
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
        onBack: page.begin(page.leaveModule)
        onLock: page.begin(page.toggleLock)
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
            onChosen: page.begin(() => page.onSelectMenu(code))
            onLinesAsked: page.begin(() => Dlg.showDialog("cloudDlg", {}))
        }
    }
}
