import QtQuick 2.15
import QtQuick.Controls 2.15
import GlobalConfig 1.0
import Module6Vm 1.0
import "../Components"
import "../../js/Func.js" as JsFunc

// The clock that runs before anything is ordered: the page that starts it, or the one that stops it.
Item {
    id: page

    property string staffNo: "" // who has logged in
    property string staffId: ""

    readonly property var pages: ({1: "pages/StartServerPage.qml", 2: "pages/EndServerPage.qml"})

    function close() {
        const view = page.StackView.view
        if (view && view.currentItem === page)
            view.pop()
    }

    function load() {
        timer.init(staffNo, staffId)
    }

    function show() {
        if (timer.operStatus === -1)
            page.close()
        else
            loader.setSource(pages[timer.operStatus], {staff: timer.pStaffWorkInfo, close: page.close})
    }

    objectName: "Module6"
    Component.onCompleted: JsFunc.timerOnce(GlobalConfig.initDelyTime, () => page && page.load())

    Module6Vm {
        id: timer
        onSetLoaderSignal: JsFunc.delay15(() => page && page.show()) // the catalogue is asked for as it appears
        onOnCloseSignal: JsFunc.delay15(() => page && page.close())
    }

    Loader {
        id: loader
        anchors.fill: parent
    }

    FailedLoad {
        visible: timer.operStatus === 0 && timer.isLoadFailed
        retry: page.load
    }
}
